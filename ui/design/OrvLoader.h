#pragma once

#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>

namespace orv {

/// Makes what its component says, an item or a popup, while it is active. The toolkit's own Loader, in this version,
/// cannot make components of files under `pragma ComponentBehavior: Bound`; otherwise this one does the same: an item
/// takes the loader's size where that was given one, and gives it its own where not.
class OrvLoader : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQmlComponent* sourceComponent READ sourceComponent WRITE setSourceComponent NOTIFY sourceComponentChanged)
  Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)
  Q_PROPERTY(QObject* item READ item NOTIFY itemChanged)

 public:
  explicit OrvLoader(QQuickItem* parent = nullptr);
  ~OrvLoader() override;

  QQmlComponent* sourceComponent() const { return m_component; }
  void setSourceComponent(QQmlComponent* component);
  bool active() const { return m_active; }
  void setActive(bool active);
  QObject* item() const { return m_item; }

 Q_SIGNALS:
  void sourceComponentChanged();
  void activeChanged();
  void itemChanged();
  void loaded();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  void follow();
  void make();
  void letGo();
  void takeSize();

  QPointer<QQmlComponent> m_component;
  QPointer<QObject> m_item;
  bool m_active = true;
};

}  // namespace orv
