#include "app/campaigns/CampaignStatsStore.h"

#include "app/figures/MetricFigures.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignStats.h"
#include "kit/models/campaigns/sequence.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Choice choice(CampaignStatsStore::Section section, const QString& label) {
  return {.key = enumName(section), .label = label};
}

}  // namespace

CampaignStatsStore::CampaignStatsStore(CampaignContext& campaign)
    : Store(campaign.workspace, &campaign.whole),
      m_campaign(campaign),
      m_range(localToday(campaign.services.clock)),
      m_summary(*this, [this] { return loadSummary(); }, {.failed = u"Couldn’t load the stats"_s}),
      m_messages(*this, [this] { return m_campaign.api.send(Requests::campaignMessages(m_campaign.id)); },
                 {.failed = u"Couldn’t load the stats"_s, .loadsByItself = false}),
      m_feed(*this,
             [this](const PageRequest& page) {
               return m_campaign.api.send(Requests::campaignActivity(m_campaign.id, page.limit, page.cursor));
             },
             {.failed = u"Couldn’t load the stats"_s,
              .first = feedPageSize,
              .further = feedPageSize,
              .loadsByItself = false,
              .row = feedLine}) {
  connect(&m_summary, &ResourceBase::valueChanged, this, &CampaignStatsStore::arrived);
  connect(&m_messages, &ResourceBase::valueChanged, this,
          [this] { m_messageRows.update(messageLines(m_messages.value()->items)); });
  connect(&campaign.campaign, &ResourceBase::valueChanged, this, &CampaignStatsStore::followCampaign);
}

void CampaignStatsStore::setPreset(const QString& key) {
  if (!m_range.setPreset(key, localToday(m_campaign.services.clock))) return;
  Q_EMIT changed();
  if (m_summary.isAsked()) m_summary.ask();
}

QString CampaignStatsStore::headLine() const {
  const Campaign* campaign = m_campaign.campaign.value();
  if (!campaign) return {};
  const auto launched = parsePlatformDate(campaign->launchedAt);
  const auto stats = campaign->stats.value_or(CampaignStats());
  const auto senders = campaign->senders ? campaign->senders->size() : 0;
  return QStringList{
      launched ? u"Launched "_s + Format::shortDate(launched->toLocalTime().date()) : u"Not launched yet"_s,
      Format::counted(stats.leads.total, u"lead"_s, u"leads"_s), Format::grouped(stats.sent) + u" sent"_s,
      Format::grouped(stats.scheduled) + u" booked"_s, Format::counted(senders, u"inbox"_s, u"inboxes"_s)}
      .join(u" · "_s);
}

void CampaignStatsStore::setDayView(const QString& name) {
  const auto view = enumNamed<DayView>(name);
  if (view && std::exchange(m_dayView, *view) != *view) Q_EMIT changed();
}

void CampaignStatsStore::setSection(const QString& name) {
  const auto section = enumNamed<Section>(name);
  if (!section || std::exchange(m_section, *section) == *section) return;
  Q_EMIT changed();
  if (m_summary.isAsked()) loadSection();
}

QList<Choice> CampaignStatsStore::sections() {
  return {choice(Section::inboxes, u"By inbox"_s), choice(Section::emails, u"By email"_s),
          choice(Section::messages, u"Messages"_s), choice(Section::activity, u"Activity"_s)};
}

QString CampaignStatsStore::sectionText() const {
  switch (m_section) {
    case Section::inboxes:
      return u"What each sender inbox did for this campaign in the range."_s;
    case Section::emails:
      return u"Each email of the sequence, and each variant where there is more than one."_s;
    case Section::messages:
      return u"The last hundred emails, booked and sent."_s;
    case Section::activity:
      return u"What happened in this campaign, newest first."_s;
  }
  Q_UNREACHABLE();
}

void CampaignStatsStore::toggleSeries(const QString& key) {
  m_chart.toggle(key);
  Q_EMIT chartChanged();
}

void CampaignStatsStore::ensureLoaded() {
  m_summary.ensureLoaded();
  loadSection();
}

void CampaignStatsStore::refresh() {
  if (!m_summary.isAsked()) return ensureLoaded();
  // Past midnight a preset stands for other days, which what is shown does not answer.
  const DateRange before = m_range.days();
  m_range.follow(localToday(m_campaign.services.clock));
  if (m_range.days() == before) {
    m_summary.load();
  } else {
    Q_EMIT changed();
    m_summary.ask();
  }
  if (m_messages.isAsked()) m_messages.load();
  if (m_feed.isAsked()) m_feed.load();
}

void CampaignStatsStore::refreshSection() {
  if (m_section == Section::messages) m_messages.load();
  if (m_section == Section::activity) m_feed.load();
}

void CampaignStatsStore::loadSection() {
  if (m_section == Section::messages) m_messages.ensureLoaded();
  if (m_section == Section::activity) m_feed.ensureLoaded();
}

Task<AnalyticsSummary> CampaignStatsStore::loadSummary() {
  const DateRange asked = m_range.days();
  AnalyticsSummary summary = co_await m_campaign.api.send(
      Requests::analyticsSummary(Format::calendarDay(asked.from), Format::calendarDay(asked.to), m_campaign.id));
  m_shownRange = asked;
  co_return asTracked(std::move(summary));
}

void CampaignStatsStore::arrived() {
  const AnalyticsSummary& summary = *m_summary.value();
  const auto [tracksOpens, tracksClicks] = summary.tracking;
  m_inboxRows.update({summary.accounts.begin(), summary.accounts.end()});
  m_figures = metricFigures(summary.totals);
  m_chart.setDays(summary.days, tracksOpens, tracksClicks);
  Q_EMIT changed();
  Q_EMIT figuresChanged();
  Q_EMIT chartChanged();
}

void CampaignStatsStore::followCampaign() {
  m_emailRows.update(emailFigures(m_campaign.campaign.value()->steps.value_or(QList<CampaignStep>())));
  Q_EMIT campaignChanged();
}

}  // namespace orv
