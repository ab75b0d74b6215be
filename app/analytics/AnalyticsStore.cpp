#include "app/analytics/AnalyticsStore.h"

#include <algorithm>
#include <tuple>

#include "app/base/SaveFile.h"
#include "app/figures/AnalyticsCsv.h"
#include "app/figures/MetricFigures.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

std::optional<QString> unlessEmpty(const QString& filter) {
  return filter.isEmpty() ? std::nullopt : std::optional(filter);
}

const auto customKey = u"custom"_s, exportFailure = u"Couldn’t save the file."_s;

/// All of them first. What is chosen stays among them under the name that it had, though the service no longer has it.
void offer(QList<Choice>& choices, const QString& all, const QString& chosen,
           const std::optional<QList<AnalyticsSummary::Option>>& options) {
  const QList<Choice> before = std::exchange(choices, {{.key = {}, .label = all}});
  for (const auto& option : options.value_or(QList<AnalyticsSummary::Option>()))
    choices.append({.key = option.id, .label = option.name.value_or(option.id)});
  if (std::ranges::find(choices, chosen, &Choice::key) != choices.end()) return;
  const auto known = std::ranges::find(before, chosen, &Choice::key);
  choices.append({.key = chosen, .label = known == before.end() ? chosen : known->label});
}

/// Where most rows are new there is no place to keep, and to let them in one by one would cost the view a layout each.
template <class Row>
void show(FigureRows<Row>& rows, std::vector<Row> records) {
  2 * rows.count() < int(records.size()) ? rows.replace(std::move(records)) : rows.update(std::move(records));
}

}  // namespace

AnalyticsStore::AnalyticsStore(WorkspaceContext& context)
    : Store(context),
      m_summary(*this, [this] { return load(); }, {.failed = u"Couldn’t load analytics"_s}),
      m_range(localToday(services().clock)),
      m_rangeForm([this](const QString& from, const QString& to) { return setCustomRange(from, to); }) {
  takeOptions({});
  connect(&m_busy, &BusySet::changed, this, &AnalyticsStore::changed);
  connect(&m_summary, &ResourceBase::valueChanged, this, &AnalyticsStore::arrived);
  connect(&m_summary, &ResourceBase::changed, this, [this] {
    if (m_summary.state().isLoading() || !std::exchange(m_exportsNext, false)) return;
    if (m_summary.hasContent() || m_summary.state().isEmpty()) return exportCsv();
    services().toasts.show({.message = exportFailure, .tone = Toasts::Tone::error, .detail = m_summary.message()});
  });
  // The campaigns and accounts among the figures have states of their own.
  const auto follow = [this](const auto& change) {
    if (change.acted) m_summary.markStale();
  };
  context.changes().watch<Campaign>(this, follow);
  context.changes().watch<Mailbox>(this, follow);
}

void AnalyticsStore::setPreset(const QString& key) {
  if (m_range.setPreset(key, localToday(services().clock))) ask();
}

QList<Choice> AnalyticsStore::ranges() const {
  QList<Choice> list = rangePresets();
  // While it is in force it is a name, otherwise it is what leads to the question for two dates.
  list.append({.key = customKey, .label = m_range.isCustom() ? m_range.label() : u"Custom range…"_s});
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
  if (!tab || std::exchange(m_tab, *tab) == *tab) return;
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<PageAction> AnalyticsStore::offered(const QString& record) {
  QList<PageAction> actions = Store::offered(record);
  actions.prepend({.key = u"export"_s,
                   .title = u"Export CSV"_s,
                   .icon = u"document-export"_s,
                   .possible = !exporting(),
                   .inMenu = false,
                   .anywhere = true,
                   .run = [this] { exportCsv(); }});
  return actions;
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
  if (m_summary.needsLoad()) refresh();
}

void AnalyticsStore::refresh() {
  // Past midnight a preset stands for other days, which what is shown does not answer.
  const DateRange before = m_range.days();
  m_range.follow(localToday(services().clock));
  m_range.days() == before ? m_summary.load() : ask();
}

void AnalyticsStore::ask() {
  Q_EMIT changed();
  if (m_summary.isAsked()) m_summary.ask();
}

Task<AnalyticsSummary> AnalyticsStore::load() {
  const DateRange asked = m_range.days();
  AnalyticsSummary summary = co_await api().send(Requests::analyticsSummary(
      Format::calendarDay(asked.from), Format::calendarDay(asked.to), unlessEmpty(m_filter.campaign),
      unlessEmpty(m_filter.mailbox), unlessEmpty(m_filter.tag)));
  m_shownRange = asked;
  co_return asTracked(std::move(summary));
}

void AnalyticsStore::arrived() {
  const AnalyticsSummary& summary = *m_summary.value();
  const auto [tracksOpens, tracksClicks] = summary.tracking;
  show(m_campaignRows, inOrder(summary.campaigns, m_campaignSort));
  show(m_accountRows, inOrder(summary.accounts, m_accountSort));
  m_figures = metricFigures(summary.totals);
  m_chart.setDays(summary.days, tracksOpens, tracksClicks);
  // An answer without choices leaves those of the one before; what is chosen no longer goes in either case.
  takeOptions(summary.options.value_or(m_options));
  Q_EMIT changed();
  Q_EMIT figuresChanged();
  Q_EMIT chartChanged();
}

void AnalyticsStore::takeOptions(const AnalyticsSummary::Options& options) {
  const auto before = std::tuple(m_campaignOptions, m_mailboxOptions, m_tagOptions);
  m_options = options;
  QList<AnalyticsSummary::Option> tags;
  for (const QString& tag : options.tags.value_or(QList<QString>())) tags.append(AnalyticsSummary::Option{tag, tag});
  offer(m_campaignOptions, u"All campaigns"_s, m_filter.campaign, options.campaigns);
  offer(m_mailboxOptions, u"All inboxes"_s, m_filter.mailbox, options.mailboxes);
  offer(m_tagOptions, u"All tags"_s, m_filter.tag, tags);
  if (before != std::tie(m_campaignOptions, m_mailboxOptions, m_tagOptions)) Q_EMIT optionsChanged();
}

Task<void> AnalyticsStore::exportTask() {
  const bool campaigns = m_tab == Tab::campaigns;
  if (m_summary.isAsked() && m_summary.state().isLoading()) {
    m_exportsNext = true;
    co_return;
  }
  if (!m_summary.hasContent() || (campaigns ? m_campaignRows.count() : m_accountRows.count()) == 0) {
    services().toasts.show({.message = u"Nothing to export yet."_s});
    co_return;
  }
  const auto mark = m_busy.mark(u"export"_s);
  if (!mark) co_return;
  const QString fileName = (campaigns ? u"campaigns-"_s : u"accounts-"_s) + Format::calendarDay(m_shownRange.from) +
                           u"-to-"_s + Format::calendarDay(m_shownRange.to) + u".csv"_s;
  // Of the rows as they are now, whatever comes while the person chooses where to keep them.
  std::function<QByteArray()> text = [rows = m_accountRows.records()] { return accountsCsv(rows); };
  if (campaigns) text = [rows = m_campaignRows.records()] { return campaignsCsv(rows); };
  co_await saveCsv(context(), fileName, text, exportFailure);
}

}  // namespace orv
