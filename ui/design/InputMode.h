#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

/// Whether the person works with the keyboard or the pointer at the moment. Focus rings on things that are not
/// controls of their own (a table's row, a list's entry) show only for the keyboard.
class InputMode : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool keyboard READ keyboard NOTIFY keyboardChanged)

 public:
  explicit InputMode(QObject* parent = nullptr);

  bool keyboard() const { return m_keyboard; }

 Q_SIGNALS:
  void keyboardChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool m_keyboard = false;
};
