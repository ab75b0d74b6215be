#pragma once

#include <QQuickItem>
#include <functional>

namespace orv::ui {

/// The visible items below `root`, itself included, that are `wanted`, in no order that means anything.
inline QList<QQuickItem*> visibleItems(QQuickItem* root, const std::function<bool(QQuickItem*)>& wanted) {
  QList<QQuickItem*> found, open{root};
  while (!open.isEmpty()) {
    QQuickItem* item = open.takeLast();
    if (!item->isVisible()) continue;
    open += item->childItems();
    if (wanted(item)) found.append(item);
  }
  return found;
}

}  // namespace orv::ui
