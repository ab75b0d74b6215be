#include "ui/design/PageView.h"

#include <functional>

namespace orv {
namespace {

/// Calls for each table and for each other thing that scrolls, under a name that it has again when the page is made
/// anew.
void eachScrolled(QQuickItem* page, const std::function<void(const QString& name, QQuickItem* item)>& call) {
  int scrolled = 0;
  QList<QQuickItem*> open;
  if (page) open.append(page);
  while (!open.isEmpty()) {
    QQuickItem* item = open.takeFirst();
    if (!item->isVisible()) continue;
    if (item->property("currentKey").isValid() && item->property("wanted").isValid()) {
      call(QStringLiteral("table ") + item->property("title").toString(), item);
      continue;
    }
    if (item->inherits("QQuickFlickable")) call(QStringLiteral("scroll ") + QString::number(scrolled++), item);
    open += item->childItems();
  }
}

}  // namespace

QVariantMap PageView::viewOf(QQuickItem* page) {
  QVariantMap view;
  eachScrolled(page, [&view](const QString& name, QQuickItem* item) {
    const double y = item->property("contentY").toDouble() - item->property("originY").toDouble();
    const QVariant key = item->property("currentKey");
    if (key.isValid())
      view.insert(name, QVariantMap{{QStringLiteral("key"), key},
                                    {QStringLiteral("y"), y},
                                    {QStringLiteral("focused"), item->hasActiveFocus()}});
    else if (y > 0)
      view.insert(name, y);
  });
  return view;
}

void PageView::goBackTo(QQuickItem* page, const QVariantMap& view) {
  if (view.isEmpty()) return;
  eachScrolled(page, [&view](const QString& name, QQuickItem* item) {
    const QVariant kept = view.value(name);
    if (!kept.isValid()) return;
    if (item->property("wanted").isValid())
      item->setProperty("wanted", kept);
    else
      item->setProperty("contentY",
                        std::min(kept.toDouble(), item->property("contentHeight").toDouble() - item->height()));
  });
}

}  // namespace orv
