#include "desktop/services/ClipboardService.h"

#include <QClipboard>
#include <QGuiApplication>

namespace orv {

void ClipboardService::setText(const QString& text) { QGuiApplication::clipboard()->setText(text); }

}  // namespace orv
