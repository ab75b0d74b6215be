#include "app/shell/Router.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

Router::Router(Preferences& preferences, Clock& clock, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_clock(clock), m_collapsed(preferences.sidebarRail()) {}

void Router::open(Page page) {
  if (!show(page)) return;
  clearSelections();
  remember();
  Q_EMIT pageAsked(page);
  Q_EMIT changed();
}

void Router::openItem(Page page, const QString& id) {
  const auto selection = selectionOf(page);
  if (!selection || !show(page)) return;
  this->*selection = id;
  remember();
  Q_EMIT changed();
}

QString Router::openedItem(Page page) const {
  const auto selection = selectionOf(page);
  return selection && page == m_page ? this->*selection : QString();
}

void Router::openSettings(SettingsTab tab) {
  if (!show(Page::settings)) return;
  m_settingsTab = tab;
  remember();
  Q_EMIT changed();
}

Router::Place Router::here() const { return {m_page, openedItem(m_page), m_settingsTab}; }

void Router::remember() {
  if (m_places[m_at] == here()) return;
  m_places.resize(m_at + 1);
  m_places.append(here());
  if (m_places.size() > placesAtMost) m_places.removeFirst();
  m_at = m_places.size() - 1;
}

void Router::goTo(qsizetype place) {
  if (place < 0 || place >= m_places.size()) return;
  const Place to = m_places[place];
  // A feature that was switched off meanwhile is said to be off; the way through it stays open.
  m_at = place;
  if (!show(to.page)) return;
  clearSelections();
  if (const auto selection = selectionOf(to.page)) this->*selection = to.item;
  m_settingsTab = to.tab;
  Q_EMIT changed();
}

void Router::setPaletteOpen(bool open) {
  if (std::exchange(m_paletteOpen, open) != open) Q_EMIT changed();
}

void Router::setShortcutsOpen(bool open) {
  if (std::exchange(m_shortcutsOpen, open) != open) Q_EMIT changed();
}

void Router::setCollapsed(bool collapsed) {
  if (std::exchange(m_collapsed, collapsed) == collapsed) return;
  m_preferences.setSidebarRail(collapsed);
  Q_EMIT changed();
}

void Router::startGo() {
  m_goPending = true;
  m_goTimer.start(endGo());
  Q_EMIT changed();
}

bool Router::finishGo(const QString& key) {
  if (!std::exchange(m_goPending, false)) return false;
  m_goTimer.cancel();
  for (const auto& info : Pages::all()) {
    if (key.compare(QString(info.key), Qt::CaseInsensitive) != 0) continue;
    open(info.page);
    Q_EMIT changed();
    return true;
  }
  Q_EMIT changed();
  return false;
}

void Router::open(const QString& page) {
  if (const auto named = Pages::pageNamed(page)) open(*named);
}

QVariantList Router::pages() {
  QVariantList list;
  for (const auto& info : Pages::all())
    list.append(QVariantMap{{u"page"_s, Pages::name(info.page)},
                            {u"title"_s, info.title},
                            {u"iconName"_s, info.icon},
                            {u"key"_s, QString(info.key.toUpper())}});
  return list;
}

QString Router::title() const {
  const auto off = Pages::pageNamed(m_offFeature);
  return Pages::info(off.value_or(m_page)).title;
}

void Router::setFeaturesOff(QSet<QString> features) {
  m_featuresOff = std::move(features);
  if (!m_featuresOff.contains(Pages::name(m_page))) return;
  for (const auto& info : Pages::all())
    if (!m_featuresOff.contains(Pages::name(info.page))) return open(info.page);
}

void Router::reset() {
  clearSelections();
  m_paletteOpen = false;
  m_shortcutsOpen = false;
  m_goPending = false;
  m_goTimer.cancel();
  m_offFeature.clear();
  m_migrationPick.clear();
  m_places = {here()};
  m_at = 0;
  Q_EMIT changed();
}

bool Router::show(Page page) {
  if (m_featuresOff.contains(Pages::name(page))) {
    m_offFeature = Pages::name(page);
    Q_EMIT changed();
    return false;
  }
  m_offFeature.clear();
  m_direction = (page > m_page) - (page < m_page);
  m_page = page;
  return true;
}

void Router::clearSelections() {
  for (const auto& info : Pages::all())
    if (const auto selection = selectionOf(info.page)) (this->*selection).clear();
}

QString Router::*Router::selectionOf(Page page) {
  switch (page) {
    case Page::campaigns:
      return &Router::m_campaign;
    case Page::inbox:
      return &Router::m_inboxThread;
    case Page::leads:
      return &Router::m_leadList;
    case Page::rampup:
      return &Router::m_rampupTemplate;
    case Page::inboxSetup:
      return &Router::m_inboxSetupProject;
    default:
      return nullptr;
  }
}

Task<void> Router::endGo() {
  co_await m_clock.sleep(1500ms);
  m_goPending = false;
  Q_EMIT changed();
}

}  // namespace orv
