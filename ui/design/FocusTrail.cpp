#include "ui/design/FocusTrail.h"

#include <algorithm>

namespace orv {
namespace {

bool isPopup(const QQuickItem* item) { return item->inherits("QQuickPopupItem"); }

/// A strip that says which of several things is shown below it.
QQuickItem* stripIn(QQuickItem* item) {
  if (!FocusTrail::isUsable(item)) return nullptr;
  if (item->property("isStrip").toBool()) return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* strip = stripIn(child)) return strip;
  return nullptr;
}

}  // namespace

bool FocusTrail::isUsable(const QQuickItem* item) {
  return item && item->window() && item->isVisible() && item->isEnabled();
}

QQuickItem* FocusTrail::stopIn(QQuickItem* item, bool forward) {
  if (!isUsable(item)) return nullptr;
  if (item->activeFocusOnTab()) return item;
  QList<QQuickItem*> children = item->childItems();
  if (!forward) std::ranges::reverse(children);
  for (QQuickItem* child : children)
    if (QQuickItem* stop = stopIn(child, forward)) return stop;
  return nullptr;
}

bool FocusTrail::isInPopup(const QQuickItem* item) {
  for (; item; item = item->parentItem())
    if (isPopup(item)) return true;
  return false;
}

bool FocusTrail::isInPopup() const {
  return std::ranges::any_of(m_steps, [](const Step& step) { return step.isPopup && isUsable(step.item); });
}

bool FocusTrail::isThrough(const QQuickItem* item) const {
  return std::ranges::any_of(m_steps, [item](const Step& step) { return step.item == item; });
}

void FocusTrail::remember(QQuickItem* item) {
  m_steps.clear();
  for (; item; item = item->parentItem()) {
    const QQuickItem* parent = item->parentItem();
    m_steps.append({item, parent ? parent->childItems().indexOf(item) : 0, isPopup(item)});
  }
}

QQuickItem* FocusTrail::heir() const {
  if (isUsable(item())) return item();
  bool isSwapped = false;
  for (qsizetype step = 1; step < m_steps.size(); ++step) {
    QQuickItem* around = m_steps[step].item;
    if (isUsable(around)) {
      if (auto* named = around->property("focusHeir").value<QQuickItem*>(); isUsable(named)) return named;
      if (around->inherits("QQuickItemView") && around->activeFocusOnTab() && around->property("count").toInt() > 0)
        return around;
      // What a loader has made instead is something else, and no neighbour; a list knows its rows itself.
      const bool isLoader = around->inherits("QQuickLoader");
      const bool isOfRows = around->parentItem() && around->parentItem()->inherits("QQuickItemView");
      isSwapped = isSwapped || isLoader;
      if (!isLoader && !isOfRows)
        if (QQuickItem* found = beside(step, isSwapped)) return found;
    }
    // What is beyond a popup is not beside what was in it.
    if (m_steps[step].isPopup) return nullptr;
  }
  return nullptr;
}

/// Among the children of a step, beginning at what stands where the trail came through.
QQuickItem* FocusTrail::beside(qsizetype step, bool isSwapped) const {
  const QList<QQuickItem*> children = m_steps[step].item->childItems();
  const QQuickItem* inside = m_steps[step - 1].item;
  // One that is still there, with nothing left in it, keeps its place.
  const qsizetype place = std::min(m_steps[step - 1].place, children.size());
  if (isSwapped) {
    for (qsizetype i = place - 1; i >= 0; --i)
      if (QQuickItem* strip = stripIn(children[i])) return strip;
  }
  for (qsizetype i = place; i < children.size(); ++i) {
    if (children[i] == inside) continue;
    if (QQuickItem* like = alike(children[i], step - 1)) return like;
    if (QQuickItem* stop = stopIn(children[i])) return stop;
  }
  for (qsizetype i = place - 1; i >= 0; --i) {
    if (QQuickItem* like = alike(children[i], step - 1)) return like;
    if (QQuickItem* stop = stopIn(children[i], false)) return stop;
  }
  return nullptr;
}

/// The control at the same place in a neighbour that is built the same.
QQuickItem* FocusTrail::alike(QQuickItem* neighbour, qsizetype step) const {
  QQuickItem* item = neighbour;
  while (step > 0 && isUsable(item)) item = item->childItems().value(m_steps[--step].place);
  return item != neighbour && isUsable(item) && item->activeFocusOnTab() ? item : nullptr;
}

}  // namespace orv
