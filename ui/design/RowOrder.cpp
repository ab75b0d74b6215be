#include "ui/design/RowOrder.h"

#include <algorithm>

namespace orv {

void RowOrder::settle(QQuickItem* rows) {
  if (!rows) return;
  QList<QQuickItem*> children = rows->childItems();
  if (std::ranges::is_sorted(children, {}, &QQuickItem::y)) return;
  std::ranges::stable_sort(children, {}, &QQuickItem::y);
  for (qsizetype i = 1; i < children.size(); ++i) children[i]->stackAfter(children[i - 1]);
}

}  // namespace orv
