#include "ui/design/InputMode.h"

#include <QCoreApplication>
#include <QEvent>

InputMode::InputMode(QObject* parent) : QObject(parent) { QCoreApplication::instance()->installEventFilter(this); }

bool InputMode::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool key = type == QEvent::KeyPress;
  const bool pointer = type == QEvent::MouseButtonPress || type == QEvent::TouchBegin;
  if ((key || pointer) && key != m_keyboard) {
    m_keyboard = key;
    Q_EMIT keyboardChanged();
  }
  return QObject::eventFilter(watched, event);
}
