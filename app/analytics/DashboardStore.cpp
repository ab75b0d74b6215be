#include "app/analytics/DashboardStore.h"

#include <QLocale>

#include "app/figures/MetricFigures.h"
#include "kit/api/Format.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/metrics.h"
#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

struct Campaign;
struct Lead;
struct LeadList;
struct UnlockUsage;

namespace {

QString dayTextOf(const AnalyticsOverview& overview) {
  const QDate day = QDate::fromString(overview.day, Qt::ISODate);
  QString place = overview.timeZone.section(u'/', -1);
  place.replace(u'_', u' ');
  QStringList parts;
  if (day.isValid()) parts.append(QLocale().toString(day, u"dddd d MMMM"));
  if (!place.isEmpty()) parts.append(place + u" time"_s);
  return parts.join(u" · "_s);
}

Figure inboxFigure(const AnalyticsOverview::Today& today) {
  const qint64 notActive = std::max<qint64>(0, today.mailboxes - today.active);
  const QString off = Format::grouped(notActive) + u" not active"_s;
  QStringList detail;
  if (today.ready) detail.append(Format::grouped(*today.ready) + u" ready to send"_s);
  if (notActive == 0) detail.append(off);
  return {.title = u"Inbox health"_s,
          .value = Format::grouped(today.active),
          .detail = detail.join(u" · "_s),
          .unit = u"mailboxes active"_s,
          .warning = notActive > 0 ? off : QString()};
}

QList<Figure> todayFigures(const AnalyticsOverview::Today& today) {
  using Format::grouped;
  return {{.title = u"Sent today"_s,
           .value = grouped(today.sendsCampaigns + today.sendsWarmup),
           .detail = grouped(today.sendsCampaigns) + u" campaign · "_s + grouped(today.sendsWarmup) + u" ramp-up"_s},
          {.title = u"Replies today"_s, .value = grouped(today.replies)},
          inboxFigure(today),
          {.title = u"Leads"_s,
           .value = grouped(today.leads),
           .detail = Format::counted(today.lists, u"list"_s, u"lists"_s)}};
}

}  // namespace

DashboardStore::DashboardStore(WorkspaceContext& context)
    : Store(context),
      m_range(localToday(services().clock)),
      m_overview(*this, [this] { return loadOverview(); }, {.failed = u"Couldn’t load the dashboard"_s}) {
  connect(&m_overview, &ResourceBase::valueChanged, this, &DashboardStore::arrived);
  // How many accounts are active, how many leads and lists there are is another matter after each change of one; and
  // what a campaign has and sent counts as long as it is there.
  follow<Mailbox>();
  follow<Lead>();
  follow<LeadList>();
  follow<Campaign>();
  follow<UnlockUsage>();
}

template <class Record>
void DashboardStore::follow() {
  context().changes().watch<Record>(this, [this](const Change<Record>& change) {
    if (change.acted) m_overview.markStale();
  });
}

Task<AnalyticsOverview> DashboardStore::loadOverview() {
  const DateRange& days = m_range.days();
  return api().send(Requests::analyticsOverview(Format::calendarDay(days.from), Format::calendarDay(days.to)));
}

void DashboardStore::setPreset(const QString& key) {
  if (!m_range.setPreset(key, localToday(services().clock))) return;
  Q_EMIT changed();
  if (m_overview.isAsked()) m_overview.ask();
}

void DashboardStore::toggleSeries(const QString& key) {
  m_chart.toggle(key);
  Q_EMIT chartChanged();
}

void DashboardStore::ensureLoaded() {
  if (m_overview.needsLoad()) refresh();
}

void DashboardStore::refresh() {
  // Yesterday's figures are no answer for today.
  const DateRange before = m_range.days();
  m_range.follow(localToday(services().clock));
  m_range.days() == before ? m_overview.load() : m_overview.ask();
}

void DashboardStore::openAnalytics() { context().open(Page::analytics); }

void DashboardStore::arrived() {
  const AnalyticsOverview& overview = *m_overview.value();
  const auto& [today, month, totals, days, metrics, metricDays] = overview.combined;
  m_dayText = dayTextOf(overview);
  m_today = today ? todayFigures(*today) : QList<Figure>();
  m_metrics = metrics ? metricFigures(*metrics) : QList<Figure>();
  // Without totals nobody says whether opens are tracked; the days themselves do.
  const bool tracksOpens = !metrics || metrics->opens, tracksClicks = !metrics || metrics->clicks;
  m_chart.setDays(metricDays.value_or(QList<MetricDay>()), tracksOpens, tracksClicks);
  Q_EMIT figuresChanged();
  Q_EMIT chartChanged();
}

}  // namespace orv
