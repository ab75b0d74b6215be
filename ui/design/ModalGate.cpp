#include "ui/design/ModalGate.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickWindow>

namespace {

/// The toolkit's own counts its children whatever it is told of itself.
class SpokenGate final : public QAccessibleObject {
 public:
  using QAccessibleObject::QAccessibleObject;

  QAccessible::Role role() const override { return QAccessible::Pane; }
  QString text(QAccessible::Text) const override { return {}; }
  QWindow* window() const override { return gate().window(); }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = !gate().isVisible() || gate().isShut();
    return state;
  }
  QRect rect() const override {
    if (!gate().window()) return {};
    const QRectF scene = gate().mapRectToScene(gate().boundingRect());
    return {gate().window()->mapToGlobal(scene.topLeft().toPoint()), scene.size().toSize()};
  }
  QAccessibleInterface* parent() const override {
    for (QQuickItem* item = gate().parentItem(); item; item = item->parentItem())
      if (QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(item)) return spoken;
    return QAccessible::queryAccessibleInterface(gate().window());
  }
  int childCount() const override { return int(children().size()); }
  QAccessibleInterface* child(int index) const override { return children().value(index); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return int(children().indexOf(const_cast<QAccessibleInterface*>(child)));
  }

 private:
  ModalGate& gate() const { return *static_cast<ModalGate*>(object()); }
  QList<QAccessibleInterface*> children() const {
    QList<QAccessibleInterface*> found;
    if (!gate().isShut()) collect(gate(), found);
    return found;
  }
  static void collect(const QQuickItem& item, QList<QAccessibleInterface*>& found) {
    for (QQuickItem* child : item.childItems()) {
      if (QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(child))
        found.append(spoken);
      else
        collect(*child, found);
    }
  }
};

QAccessibleInterface* speak(const QString& className, QObject* object) {
  return className == QLatin1String(ModalGate::staticMetaObject.className()) ? new SpokenGate(object) : nullptr;
}

}  // namespace

int Modals::enter() {
  ++m_depth;
  Q_EMIT depthChanged();
  return m_depth;
}

void Modals::leave() {
  --m_depth;
  Q_EMIT depthChanged();
}

ModalGate::ModalGate(QQuickItem* parent) : QQuickItem(parent) {
  static const bool installed = (QAccessible::installFactory(speak), true);
  Q_UNUSED(installed)
}

void ModalGate::setShut(bool shut) {
  if (std::exchange(m_shut, shut) == shut) return;
  Q_EMIT shutChanged();
  QAccessibleEvent event(this, shut ? QAccessible::ObjectHide : QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&event);
}
