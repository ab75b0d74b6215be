#include "app/shell/OpenPage.h"

#include <QScopedValueRollback>

#include "app/shell/Areas.h"

namespace orv {

OpenPage::OpenPage(Router& router, QObject* parent) : QObject(parent), m_router(router) {
  connect(&router, &Router::changed, this, &OpenPage::follow);
  connect(&router, &Router::walked, this, &OpenPage::walked);
  connect(&router, &Router::pageAsked, this, [this](Page page) {
    // What is not shown yet begins there without a way back to where it was.
    if (Store* store = m_session ? m_session->store(Pages::name(page)) : nullptr) store->begin();
  });
}

void OpenPage::setSession(WorkspaceSession* session) {
  m_session = session;
  follow();
}

void OpenPage::follow() {
  Shown shown{m_session, m_router.page(), m_router.openedItem(m_router.page()), m_router.offFeature(), {}};
  const AreaPage* page = areaPage(shown.page);
  const QString within = page && !page->item ? std::exchange(shown.item, {}) : QString();
  if (page) shown.view = shown.item.isEmpty() ? page->view : page->item->view;
  if (shown != m_shown) show(shown);
  if (m_store && !within.isEmpty()) m_store->showRecord(within);
}

void OpenPage::show(const Shown& shown) {
  m_shown = shown;
  const QPointer<Store> before = m_store;
  const bool isThere = shown.session && shown.offFeature.isEmpty() && !shown.view.isEmpty();
  if (!isThere)
    m_store = nullptr;
  else
    m_store = shown.item.isEmpty() ? shown.session->store(Pages::name(shown.page))
                                   : shown.session->item(shown.page, shown.item);
  const AreaPage* page = areaPage(shown.page);
  m_needsRoom = isThere && (shown.item.isEmpty() ? page->needsRoom : page->item->needsRoom);
  if (m_store) {
    // What is on the screen stays, however short the memory.
    m_store->appear();
    connect(m_store, &Store::moved, this, [this, store = m_store.get()] {
      if (store == m_store && !m_walking) m_router.moveTo(store->where());
    });
    m_router.amendPlace(m_store->where());
  }
  Q_EMIT changed();
  if (!before) return;
  disconnect(before, &Store::moved, this, nullptr);
  before->disappear();
}

void OpenPage::walked(const PagePlace& place) {
  follow();
  if (!m_store) return;
  {
    const QScopedValueRollback walking(m_walking, true);
    m_store->goTo(place);
  }
  m_router.amendPlace(m_store->where());
}

QList<PageAction> OpenPage::actions() const { return m_store ? m_store->actions() : QList<PageAction>(); }

QStringList OpenPage::keys() const {
  QStringList keys;
  for (const PageAction& action : actions())
    if (!action.keys.isEmpty() && !keys.contains(action.keys)) keys.append(action.keys);
  return keys;
}

bool OpenPage::press(const QString& keys) {
  for (const PageAction& action : actions())
    if (action.keys == keys) return m_store->act(action.key);
  return false;
}

}  // namespace orv
