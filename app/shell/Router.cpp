#include "app/shell/Router.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

Router::Router(Preferences& preferences, Clock& clock, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_clock(clock), m_collapsed(preferences.sidebarRail()) {}

void Router::open(Page page) {
  const bool isUp = page == m_page && !openedItem(page).isEmpty();
  Q_EMIT leaving();
  if (!show(page)) return;
  m_items.clear();
  remember({.tab = page == Page::settings ? settingsTabName() : QString()});
  if (isUp) viewAsBefore();
  Q_EMIT pageAsked(page);
  Q_EMIT changed();
  if (isUp) Q_EMIT returned();
}

/// Of the same page, without a record, the last time that it was shown.
void Router::viewAsBefore() {
  Place& place = m_places[m_at];
  for (qsizetype at = m_at - 1; at >= 0; --at) {
    if (m_places[at].page != place.page || !m_places[at].item.isEmpty()) continue;
    place.view = m_places[at].view;
    return;
  }
}

void Router::openItem(Page page, const QString& id) {
  Q_EMIT leaving();
  if (!show(page)) return;
  m_items[page] = id;
  remember({});
  Q_EMIT changed();
}

void Router::showing(Page page, const QString& id) {
  if (page != m_page || m_items.value(page) == id) return;
  m_items[page] = id;
  m_places[m_at].item = id;
  Q_EMIT changed();
}

void Router::open(Page page, const PagePlace& place) {
  Q_EMIT leaving();
  if (!show(page)) return;
  m_items.clear();
  followTab(place);
  remember(place);
  Q_EMIT changed();
  Q_EMIT walked(place);
}

QString Router::openedItem(Page page) const { return page == m_page ? m_items.value(page) : QString(); }

void Router::openSettings(SettingsTab tab) {
  // The agent's settings stand where its drafts do.
  if (tab == SettingsTab::ai) return open(Page::inbox, {.tab = u"agent"_s});
  open(Page::settings, {.tab = Pages::name(tab)});
}

void Router::remember(const PagePlace& within) {
  const Place place{m_page, openedItem(m_page), within};
  const Place& last = m_places[m_at];
  // The page itself says where in it somebody is who opens it again.
  if (last == place || (within == PagePlace() && last.page == place.page && last.item == place.item)) return;
  m_typedAt = {};
  m_places.resize(m_at + 1);
  m_places.append(place);
  if (m_places.size() > placesAtMost) m_places.removeFirst();
  m_at = m_places.size() - 1;
}

void Router::moveTo(const PagePlace& place) {
  const PagePlace last = m_places[m_at].within;
  if (last == place) return;
  followTab(place);
  const QDateTime now = m_clock.now();
  const bool typed = last.tab == place.tab && !place.chosen;
  const bool typesOn = typed && m_typedAt.isValid() && m_typedAt.msecsTo(now) < typingRest.count();
  if (typesOn)
    m_places[m_at].within = place;
  else
    remember(place);
  m_typedAt = typed ? now : QDateTime();
  Q_EMIT changed();
}

void Router::amendPlace(const PagePlace& place) {
  followTab(place);
  m_places[m_at].within = place;
}

void Router::followTab(const PagePlace& place) {
  if (m_page == Page::settings) m_settingsTab = Pages::tabNamed(place.tab).value_or(m_settingsTab);
}

void Router::goTo(qsizetype place) {
  if (place < 0 || place >= m_places.size()) return;
  Q_EMIT leaving();
  const Place to = m_places[place];
  // A feature that was switched off meanwhile is said to be off; the way through it stays open.
  m_at = place;
  m_typedAt = {};
  if (!show(to.page)) return;
  m_items.clear();
  if (!to.item.isEmpty()) m_items[to.page] = to.item;
  followTab(to.within);
  Q_EMIT changed();
  Q_EMIT walked(to.within);
  Q_EMIT returned();
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

void Router::setFoldable(bool foldable) {
  if (std::exchange(m_foldable, foldable) != foldable) Q_EMIT foldableChanged();
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

QList<PageEntry> Router::pages() {
  QList<PageEntry> list;
  for (const auto& info : Pages::all())
    list.append({.page = Pages::name(info.page),
                 .title = info.title,
                 .iconName = info.icon,
                 .key = info.key.toUpper(),
                 .group = int(info.group),
                 .atFoot = info.group == Pages::Group::foot});
  return list;
}

QString Router::title() const {
  const auto off = Pages::pageNamed(m_offFeature);
  return Pages::info(off.value_or(m_page)).title;
}

void Router::setFeaturesOff(QSet<QString> features) {
  m_featuresOff = std::move(features);
  if (!isOff(m_page)) return;
  for (const auto& info : Pages::all())
    if (!isOff(info.page)) return open(info.page);
}

bool Router::isOff(Page page) const { return Pages::info(page).optional && m_featuresOff.contains(Pages::name(page)); }

void Router::reset() {
  m_items.clear();
  m_paletteOpen = false;
  m_shortcutsOpen = false;
  m_goPending = false;
  m_goTimer.cancel();
  m_offFeature.clear();
  m_migrationPick.clear();
  m_places = {{m_page, {}, {}}};
  m_at = 0;
  m_typedAt = {};
  Q_EMIT changed();
}

bool Router::show(Page page) {
  if (isOff(page)) {
    m_offFeature = Pages::name(page);
    Q_EMIT changed();
    return false;
  }
  m_offFeature.clear();
  m_direction = (page > m_page) - (page < m_page);
  m_page = page;
  return true;
}

Task<void> Router::endGo() {
  co_await m_clock.sleep(1500ms);
  m_goPending = false;
  Q_EMIT changed();
}

}  // namespace orv
