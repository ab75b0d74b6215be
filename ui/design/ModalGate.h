#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

/// How many modal popups are open. Each takes its level as it opens and leaves it as it closes.
class Modals : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(int depth READ depth NOTIFY depthChanged)

 public:
  using QObject::QObject;

  int depth() const { return m_depth; }
  /// The level of the popup that opens: what is below it is shut.
  Q_INVOKABLE int enter();
  Q_INVOKABLE void leave();

 Q_SIGNALS:
  void depthChanged();

 private:
  int m_depth = 0;
};

/// Holds what a screen reader must not come to while it is shut. The scrim keeps pointers out and the popup the focus,
/// but a reader walks the tree of what is on the screen, where the toolkit leaves everything.
class ModalGate : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool shut READ isShut WRITE setShut NOTIFY shutChanged)

 public:
  explicit ModalGate(QQuickItem* parent = nullptr);

  bool isShut() const { return m_shut; }
  void setShut(bool shut);

 Q_SIGNALS:
  void shutChanged();

 private:
  bool m_shut = false;
};
