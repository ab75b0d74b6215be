#include "ui/design/OrvLoader.h"

#include <QLoggingCategory>
#include <QQmlContext>
#include <QQmlEngine>

namespace orv {

Q_LOGGING_CATEGORY(lcLoader, "qml.loader")

OrvLoader::OrvLoader(QQuickItem* parent) : QQuickItem(parent) { setFlag(ItemIsFocusScope); }

OrvLoader::~OrvLoader() = default;

void OrvLoader::setSourceComponent(QQmlComponent* component) {
  if (m_component == component) return;
  m_component = component;
  // One change of the item, from the one to the other.
  const bool had = m_item != nullptr;
  letGo();
  follow();
  if (had && !m_item) Q_EMIT itemChanged();
  Q_EMIT sourceComponentChanged();
}

void OrvLoader::setActive(bool active) {
  if (m_active == active) return;
  m_active = active;
  follow();
  Q_EMIT activeChanged();
}

void OrvLoader::componentComplete() {
  QQuickItem::componentComplete();
  follow();
}

void OrvLoader::follow() {
  const bool wanted = isComponentComplete() && m_active && m_component;
  if (wanted && !m_item) make();
  if (wanted || !m_item) return;
  letGo();
  Q_EMIT itemChanged();
}

void OrvLoader::make() {
  QQmlContext* context = m_component->creationContext();
  m_item = m_component->beginCreate(context ? context : qmlContext(this));
  if (!m_item) {
    qCWarning(lcLoader, "%s", qPrintable(m_component->errorString()));
    return;
  }
  m_item->setParent(this);
  if (auto* item = qobject_cast<QQuickItem*>(m_item)) {
    item->setParentItem(this);
    // What has a size before there is an item was given it.
    if (width() > 0) item->setWidth(width());
    if (height() > 0) item->setHeight(height());
    connect(item, &QQuickItem::widthChanged, this, &OrvLoader::takeSize);
    connect(item, &QQuickItem::heightChanged, this, &OrvLoader::takeSize);
  }
  m_component->completeCreate();
  takeSize();
  Q_EMIT itemChanged();
  Q_EMIT loaded();
}

void OrvLoader::letGo() {
  if (!m_item) return;
  QObject* gone = m_item;
  m_item = nullptr;
  gone->disconnect(this);
  // It may be in the middle of telling somebody something.
  if (auto* item = qobject_cast<QQuickItem*>(gone)) {
    item->setVisible(false);
    item->setParentItem(nullptr);
  }
  gone->deleteLater();
  setImplicitSize(0, 0);
}

void OrvLoader::takeSize() {
  if (auto* item = qobject_cast<QQuickItem*>(m_item)) setImplicitSize(item->width(), item->height());
}

void OrvLoader::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  auto* item = qobject_cast<QQuickItem*>(m_item);
  if (!item) return;
  // What only follows the item has its size already.
  if (now.width() != before.width() && now.width() != item->width()) item->setWidth(now.width());
  if (now.height() != before.height() && now.height() != item->height()) item->setHeight(now.height());
}

}  // namespace orv
