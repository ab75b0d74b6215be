#include "ui/design/FocusKeeper.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQuickWindow>
#include <ranges>

namespace orv {
namespace {

QQuickItem* headingIn(QQuickItem* item) {
  if (!FocusTrail::isUsable(item)) return nullptr;
  if (item->property("isPageHeading").toBool()) return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* heading = headingIn(child)) return heading;
  return nullptr;
}

}  // namespace

QQuickItem* FocusKeeper::heading() const { return headingIn(m_page); }

void FocusKeeper::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemSceneChange && data.window)
    connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &FocusKeeper::follow, Qt::UniqueConnection);
  QQuickItem::itemChange(change, data);
}

bool FocusKeeper::isNowhere(const QQuickItem* item) {
  return !item || !item->parentItem() || (item->isFocusScope() && !item->activeFocusOnTab());
}

bool FocusKeeper::isNowhere() const { return !window() || isNowhere(window()->activeFocusItem()); }

void FocusKeeper::follow() {
  QQuickItem* item = window() ? window()->activeFocusItem() : nullptr;
  if (isNowhere(item)) {
    // What lost it may be about to hand it on, or to come back.
    if (!std::exchange(m_settling, true)) QMetaObject::invokeMethod(this, &FocusKeeper::settle, Qt::QueuedConnection);
    return;
  }
  m_last.remember(item);
  if (!FocusTrail::isInPopup(item)) m_lastInPage.remember(item);
}

void FocusKeeper::settle() {
  m_settling = false;
  if (!window() || !isNowhere()) return;
  // A control that is off while what it does is under way gets it back by itself; who presses Enter twice must not
  // come upon its neighbour.
  const QQuickItem* last = m_last.item();
  if (last && last->window() && last->isVisible() && !last->isEnabled()) return;
  // A popup that is open keeps it, be there something for it or not.
  const bool isInPopup = FocusTrail::isInPopup(window()->activeFocusItem());
  if (isInPopup && !m_last.isInPopup()) return;
  QQuickItem* heir = m_last.heir();
  if (!heir && !isInPopup) heir = m_lastInPage.heir();
  // Beside the page is the sidebar, which has nothing to do with what was in the page.
  if (m_page && m_last.isThrough(m_page) && heir && !m_page->isAncestorOf(heir))
    if (QQuickItem* begin = heading()) heir = begin;
  if (heir) heir->forceActiveFocus(Qt::OtherFocusReason);
}

void FocusKeeper::enter(QQuickItem* page) {
  m_page = page;
  m_inside.clear();
  for (QQuickItem* scope = page; scope; scope = scope->isFocusScope() ? scope->scopedFocusItem() : nullptr)
    m_inside.append(scope);
  Q_EMIT entered();
  QQuickItem* begin = heading();
  if (begin && window() && !FocusTrail::isInPopup(window()->activeFocusItem()))
    begin->forceActiveFocus(Qt::OtherFocusReason);
}

/// What the page itself would have focused.
QQuickItem* FocusKeeper::inner() const {
  for (const auto& scope : m_inside | std::views::drop(1) | std::views::reverse) {
    QQuickItem* item = scope;
    while (item && item->isFocusScope() && item->scopedFocusItem()) item = item->scopedFocusItem();
    if (FocusTrail::isUsable(item) && !isNowhere(item)) return item;
  }
  return nullptr;
}

bool FocusKeeper::goIn(int key, int modifiers) {
  QQuickWindow* const here = window();
  if (!here || !heading() || here->activeFocusItem() != heading()) return false;
  QQuickItem* item = inner();
  if (!item) {
    item = heading()->nextItemInFocusChain();
    if (!m_page->isAncestorOf(item)) return false;
  }
  item->forceActiveFocus(Qt::OtherFocusReason);
  QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
  QCoreApplication::sendEvent(here, &event);
  return true;
}

void FocusKeeper::focusPage(QQuickItem* page) {
  page->forceActiveFocus(Qt::TabFocusReason);
  if (!isNowhere()) return;
  QQuickItem* stop = FocusTrail::stopIn(page);
  if (!stop) stop = heading();
  if (stop) stop->forceActiveFocus(Qt::TabFocusReason);
}

}  // namespace orv
