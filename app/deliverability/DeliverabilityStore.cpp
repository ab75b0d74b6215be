#include "app/deliverability/DeliverabilityStore.h"

#include "app/deliverability/WatcherWords.h"
#include "kit/api/Format.h"
#include "kit/models/deliverability/deliverabilityRequests.h"
#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

DeliverabilityStore::DeliverabilityStore(WorkspaceContext& context)
    : Store(context),
      m_report(*this, [this] { return api().send(Requests::deliverability()); },
               {.failed = u"Couldn’t load deliverability"_s,
                .isEmpty = [](const DeliverabilityReport& report) { return report.inboxes.isEmpty(); }}),
      m_inbox(context, *this) {
  connect(&m_report, &ResourceBase::valueChanged, this, &DeliverabilityStore::arrived);
  connect(&m_report, &ResourceBase::changed, this, &DeliverabilityStore::changed);
  connect(&m_inbox, &InboxDetail::learned, this, &DeliverabilityStore::learn);
  // An account that is paused, removed or moved on along its roadmap is another one to the watcher.
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (change.acted) markStale();
  });
  context.changes().watch<Archived<Mailbox>>(this, [this](const auto&) { markStale(); });
}

void DeliverabilityStore::markStale() {
  m_report.markStale();
  m_inbox.markStale();
}

void DeliverabilityStore::arrived() {
  const auto& inboxes = m_report.value()->inboxes;
  count();
  m_rows.update(rowsOf(inboxes, m_query));
  const QString shown = m_inbox.id().isEmpty() ? std::exchange(m_wanted, {}) : m_inbox.id();
  if (shown.isEmpty()) return;
  const auto found = std::ranges::find(inboxes, shown, &DeliverabilityInbox::id);
  if (found == inboxes.cend()) return closeInbox();
  m_inbox.show(*found, m_report.value()->pool.inboxRate);
}

/// The inbox was read by itself: the list says the same.
void DeliverabilityStore::learn(const DeliverabilityInbox& inbox) {
  const DeliverabilityReport* report = m_report.value();
  if (!report) return;
  const auto known = std::ranges::find(report->inboxes, inbox.id, &DeliverabilityInbox::id);
  if (known == report->inboxes.cend() || *known == inbox || known->lastScanAt > inbox.lastScanAt) return;
  m_report.amend([&inbox](DeliverabilityReport& all) {
    *std::ranges::find(all.inboxes, inbox.id, &DeliverabilityInbox::id) = inbox;
  });
}

void DeliverabilityStore::setStage(const QString& stage) {
  if (std::exchange(m_query.stage, stage) == stage) return;
  if (const auto* report = m_report.value()) m_rows.replace(rowsOf(report->inboxes, m_query));
  Q_EMIT changed();
  Q_EMIT moved();
}

void DeliverabilityStore::sort(const QString& key, bool descending) {
  m_query.sort = sortBy(key, descending);
  if (const auto* report = m_report.value()) m_rows.replace(rowsOf(report->inboxes, m_query));
  Q_EMIT changed();
}

QList<Choice> DeliverabilityStore::stages() const {
  const DeliverabilityReport* report = m_report.value();
  const auto tab = [&](const QString& key, const QString& label, int count) {
    return Choice{.key = key, .label = label, .count = report ? count : -1};
  };
  const auto of = [&](const QString& key, const QString& label) { return tab(key, label, m_counts.value(key)); };
  return {tab({}, u"Every inbox"_s, report ? int(report->inboxes.size()) : 0), of(u"live"_s, u"Live"_s),
          of(u"rampup"_s, u"Ramping"_s), of(u"repair"_s, u"Repairing"_s)};
}

void DeliverabilityStore::count() {
  m_summary = WatcherWords::summary(*m_report.value());
  m_counts.clear();
  for (const DeliverabilityInbox& inbox : m_report.value()->inboxes)
    ++m_counts[WatcherWords::groupOf(inbox.stage.value_or(QString()))];
}

QString DeliverabilityStore::lastScan() const {
  if (!m_report.value()) return {};
  return WatcherWords::lastScan(m_report.value()->lastScanAt, services().clock.now());
}

QString DeliverabilityStore::countText() const {
  if (!m_report.value()) return {};
  const qsizetype all = m_report.value()->inboxes.size();
  const QString counted = Format::counted(all, u"inbox"_s, u"inboxes"_s);
  return m_rows.count() == all ? counted : Format::grouped(m_rows.count()) + u" of "_s + counted;
}

void DeliverabilityStore::open(const QString& id) {
  const DeliverabilityReport* report = m_report.value();
  if (!report) {
    m_wanted = id;
    return;
  }
  const auto found = std::ranges::find(report->inboxes, id, &DeliverabilityInbox::id);
  if (found == report->inboxes.cend()) return;
  m_inbox.show(*found, report->pool.inboxRate);
  Q_EMIT moved();
}

void DeliverabilityStore::closeInbox() {
  if (m_inbox.id().isEmpty()) return;
  m_inbox.hide();
  Q_EMIT moved();
}

void DeliverabilityStore::refresh() {
  m_report.load();
  m_inbox.refresh();
}

PagePlace DeliverabilityStore::where() const { return {.tab = m_query.stage, .value = m_inbox.id()}; }

void DeliverabilityStore::goTo(const PagePlace& place) {
  setStage(place.tab);
  place.value.isEmpty() ? closeInbox() : open(place.value);
}

void DeliverabilityStore::begin() {
  m_wanted.clear();
  closeInbox();
}

QList<PageAction> DeliverabilityStore::offered(const QString& record) {
  if (!record.isEmpty())
    return {{.key = u"account"_s,
             .title = u"Open account"_s,
             .icon = u"mail-message"_s,
             .run = [this, record] { context().openItem(Page::accounts, record); }},
            {.key = u"roadmap"_s,
             .title = u"Manage in Rampup"_s,
             .icon = u"view-calendar-timeline"_s,
             .run = [this, record] { context().openItem(Page::rampup, record); }}};
  QList<PageAction> actions = Store::offered(record);
  if (!m_query.stage.isEmpty())
    actions.append({.key = u"every-inbox"_s,
                    .title = u"Show every inbox"_s,
                    .icon = u"view-filter"_s,
                    .inMenu = false,
                    .run = [this] { showAll(); }});
  return actions;
}

}  // namespace orv
