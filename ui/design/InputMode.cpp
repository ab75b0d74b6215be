#include "ui/design/InputMode.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

namespace {

/// Held for what the pointer does.
bool isModifier(int key) {
  return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
         key == Qt::Key_AltGr;
}

}  // namespace

InputMode::InputMode(QObject* parent) : QObject(parent) { QCoreApplication::instance()->installEventFilter(this); }

bool InputMode::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool key = type == QEvent::KeyPress && !isModifier(static_cast<QKeyEvent*>(event)->key());
  const bool pointer = type == QEvent::MouseButtonPress || type == QEvent::TouchBegin;
  if ((key || pointer) && key != m_keyboard) {
    m_keyboard = key;
    Q_EMIT keyboardChanged();
  }
  return QObject::eventFilter(watched, event);
}
