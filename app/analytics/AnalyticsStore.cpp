#include "app/analytics/AnalyticsStore.h"

#include "app/base/SaveFile.h"
#include "app/figures/AnalyticsCsv.h"
#include "app/figures/MetricFigures.h"
#include "kit/models/analytics/analyticsRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

std::optional<QString> unlessEmpty(const QString& filter) {
  return filter.isEmpty() ? std::nullopt : std::optional(filter);
}

const auto customKey = u"custom"_s;

QVariantMap choice(const QString& key, const QString& label) { return {{u"key"_s, key}, {u"label"_s, label}}; }

QVariantList choices(const QString& all, const std::optional<QList<AnalyticsSummary::Option>>& options) {
  QVariantList list{choice({}, all)};
  for (const auto& option : options.value_or(QList<AnalyticsSummary::Option>()))
    list.append(choice(option.id, option.name.value_or(option.id)));
  return list;
}

/// Where most rows are new there is no place to keep, and to let them in one by one would cost the view a layout each.
template <class Row>
void show(FigureRows<Row>& rows, std::vector<Row> records) {
  2 * rows.count() < int(records.size()) ? rows.replace(std::move(records)) : rows.update(std::move(records));
}

}  // namespace

AnalyticsStore::AnalyticsStore(APITransport& api, Services& services, QObject* parent)
    : Store(parent),
      m_api(api),
      m_services(services),
      m_summary(
          services.clock, [this] { return load(); }, [](const AnalyticsSummary&) { return false; }),
      m_range(localToday(services.clock)),
      m_rangeForm([this](const QString& from, const QString& to) { return setCustomRange(from, to); }) {
  takeOptions({});
  connect(&m_busy, &BusySet::changed, this, &AnalyticsStore::changed);
  connect(&m_summary, &ResourceBase::valueChanged, this, &AnalyticsStore::arrived);
  connect(&m_summary, &ResourceBase::refreshFailed, this,
          [this](const APIError& error) { m_services.toasts.failure(u"Couldn’t load analytics"_s, error); });
}

void AnalyticsStore::setPreset(const QString& key) {
  if (m_range.setPreset(key, localToday(m_services.clock))) ask();
}

QVariantList AnalyticsStore::ranges() const {
  QVariantList list = rangePresets();
  // While it is in force it is a name, otherwise it is what leads to the question for two dates.
  list.append(choice(customKey, m_range.isCustom() ? m_range.label() : u"Custom range…"_s));
  return list;
}

QString AnalyticsStore::range() const { return m_range.isCustom() ? customKey : m_range.preset(); }

void AnalyticsStore::chooseRange(const QString& key) {
  key == customKey ? m_rangeForm.show(m_range.days()) : setPreset(key);
}

bool AnalyticsStore::setCustomRange(const QString& from, const QString& to) {
  const DateRange before = m_range.days();
  const bool wasCustom = m_range.isCustom();
  if (!m_range.setCustom(from, to)) return false;
  if (!wasCustom || m_range.days() != before) ask();
  return true;
}

void AnalyticsStore::setCampaign(const QString& id) { setFilter({id, m_filter.mailbox, m_filter.tag}); }
void AnalyticsStore::setMailbox(const QString& id) { setFilter({m_filter.campaign, id, m_filter.tag}); }
void AnalyticsStore::setTag(const QString& tag) { setFilter({m_filter.campaign, m_filter.mailbox, tag}); }
void AnalyticsStore::clearFilters() { setFilter({}); }

void AnalyticsStore::setFilter(const Filter& filter) {
  if (std::exchange(m_filter, filter) != filter) ask();
}

void AnalyticsStore::setTab(const QString& name) {
  const auto tab = enumNamed<Tab>(name);
  if (tab && std::exchange(m_tab, *tab) != *tab) Q_EMIT changed();
}

void AnalyticsStore::setDayView(const QString& name) {
  const auto view = enumNamed<DayView>(name);
  if (view && std::exchange(m_dayView, *view) != *view) Q_EMIT changed();
}

void AnalyticsStore::sort(const QString& key, bool descending) {
  auto& sorted = m_tab == Tab::campaigns ? m_campaignSort : m_accountSort;
  sorted = sortBy(key, descending);
  if (const AnalyticsSummary* summary = m_summary.value()) {
    m_tab == Tab::campaigns ? m_campaignRows.replace(inOrder(summary->campaigns, sorted))
                            : m_accountRows.replace(inOrder(summary->accounts, sorted));
  }
  Q_EMIT changed();
}

void AnalyticsStore::toggleSeries(const QString& key) {
  m_chart.toggle(key);
  Q_EMIT chartChanged();
}

int AnalyticsStore::filterCount() const {
  return !m_filter.campaign.isEmpty() + !m_filter.mailbox.isEmpty() + !m_filter.tag.isEmpty();
}

QString AnalyticsStore::countText() const {
  return m_tab == Tab::campaigns ? Format::counted(m_campaignRows.count(), u"campaign"_s, u"campaigns"_s)
                                 : Format::counted(m_accountRows.count(), u"account"_s, u"accounts"_s);
}

QString AnalyticsStore::sampleNote() const {
  const AnalyticsSummary* summary = m_summary.value();
  return summary && summary->sample.value_or(false)
             ? u"Sample data: these figures show what the page looks like until the workspace has sent."_s
             : QString();
}

void AnalyticsStore::ensureLoaded() {
  if (!std::exchange(m_loaded, true)) refresh();
}

void AnalyticsStore::refresh() {
  // Past midnight a preset stands for other days, which what is shown does not answer.
  const DateRange before = m_range.days();
  m_range.follow(localToday(m_services.clock));
  m_range.days() == before ? m_summary.load() : ask();
}

void AnalyticsStore::ask() {
  Q_EMIT changed();
  if (m_loaded) m_summary.ask();
}

Task<AnalyticsSummary> AnalyticsStore::load() {
  const DateRange asked = m_range.days();
  AnalyticsSummary summary = co_await m_api.send(Requests::analyticsSummary(
      Format::calendarDay(asked.from), Format::calendarDay(asked.to), unlessEmpty(m_filter.campaign),
      unlessEmpty(m_filter.mailbox), unlessEmpty(m_filter.tag)));
  m_shownRange = asked;
  co_return summary;
}

void AnalyticsStore::arrived() {
  const AnalyticsSummary& summary = *m_summary.value();
  const auto [tracksOpens, tracksClicks] = summary.tracking;
  show(m_campaignRows, inOrder(summary.campaigns, m_campaignSort));
  show(m_accountRows, inOrder(summary.accounts, m_accountSort));
  m_figures = metricFigures(summary.totals, tracksOpens, tracksClicks);
  m_chart.setDays(summary.days, tracksOpens, tracksClicks);
  // An answer without choices leaves those of the one before: the filters in force are among them.
  if (summary.options && *summary.options != m_options) takeOptions(*summary.options);
  Q_EMIT changed();
  Q_EMIT figuresChanged();
  Q_EMIT chartChanged();
}

void AnalyticsStore::takeOptions(const AnalyticsSummary::Options& options) {
  m_options = options;
  m_campaignOptions = choices(u"All campaigns"_s, options.campaigns);
  m_mailboxOptions = choices(u"All inboxes"_s, options.mailboxes);
  m_tagOptions = choices(u"All tags"_s, {});
  for (const QString& tag : options.tags.value_or(QList<QString>())) m_tagOptions.append(choice(tag, tag));
  Q_EMIT optionsChanged();
}

Task<void> AnalyticsStore::exportTask() {
  const bool campaigns = m_tab == Tab::campaigns;
  if (!m_summary.hasContent() || (campaigns ? m_campaignRows.count() : m_accountRows.count()) == 0) {
    m_services.toasts.show(u"Nothing to export yet."_s);
    co_return;
  }
  const auto mark = m_busy.mark(u"export"_s);
  if (!mark) co_return;
  const QString fileName = (campaigns ? u"campaigns-"_s : u"accounts-"_s) + Format::calendarDay(m_shownRange.from) +
                           u"-to-"_s + Format::calendarDay(m_shownRange.to) + u".csv"_s;
  const QByteArray bytes = campaigns ? campaignsCsv(m_campaignRows.records()) : accountsCsv(m_accountRows.records());
  co_await saveCsv(m_services, fileName, bytes, u"Couldn’t save the file."_s);
}

void AnalyticsStore::close() {
  m_summary.cancel();
  Store::close();
}

}  // namespace orv
