#include "desktop/services/ClipboardService.h"

#include <QClipboard>
#include <QGuiApplication>

namespace orv {

bool ClipboardService::setText(const QString& text) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->setText(text);
  return clipboard->text() == text;
}

}  // namespace orv
