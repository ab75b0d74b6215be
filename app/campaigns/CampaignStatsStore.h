#pragma once

#include "app/base/Choice.h"
#include "app/base/EnumName.h"
#include "app/base/PagedList.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/CampaignStatsRows.h"
#include "app/figures/ChartFigures.h"
#include "app/figures/DateRange.h"
#include "app/figures/Figure.h"
#include "app/figures/FigureRows.h"
#include "kit/api/Format.h"
#include "kit/models/analytics/analyticsSummary.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/sentMessage.h"

namespace orv {

/// What a campaign has achieved: its figures over a range of days, by inbox and by email, what it sent last and what
/// happened in it. Emails and the head line are the campaign's own and of its whole life; they follow the campaign.
class CampaignStatsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* summary READ summary CONSTANT)
  Q_PROPERTY(orv::ResourceBase* messages READ messages CONSTANT)
  Q_PROPERTY(orv::PagedListBase* feed READ feed CONSTANT)
  Q_PROPERTY(QList<orv::Choice> presets READ presets CONSTANT)
  Q_PROPERTY(QString preset READ preset WRITE setPreset NOTIFY changed)
  Q_PROPERTY(QString rangeText READ rangeText NOTIFY changed)
  Q_PROPERTY(QString headLine READ headLine NOTIFY campaignChanged)
  Q_PROPERTY(QString dayView READ dayViewName WRITE setDayView NOTIFY changed)
  Q_PROPERTY(QString section READ sectionName WRITE setSection NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> sections READ sections CONSTANT)
  Q_PROPERTY(QString sectionText READ sectionText NOTIFY changed)
  Q_PROPERTY(QList<orv::Figure> figures READ figures NOTIFY figuresChanged)
  Q_PROPERTY(QStringList days READ days NOTIFY chartChanged)
  Q_PROPERTY(QVariantList series READ series NOTIFY chartChanged)
  Q_PROPERTY(orv::ListModel* inboxRows READ inboxRows CONSTANT)
  Q_PROPERTY(orv::ListModel* emailRows READ emailRows CONSTANT)
  Q_PROPERTY(orv::ListModel* messageRows READ messageRows CONSTANT)

 public:
  enum class Section { inboxes, emails, messages, activity };
  Q_ENUM(Section)
  enum class DayView { chart, table };
  Q_ENUM(DayView)
  static constexpr qint64 feedPageSize = 50;

  explicit CampaignStatsStore(CampaignContext& campaign);

  Resource<AnalyticsSummary>* summary() { return &m_summary; }
  Resource<MessagePage>* messages() { return &m_messages; }
  PagedList<FeedPage, EventLines>* feed() { return &m_feed; }

  static QList<Choice> presets() { return rangePresets(); }
  /// Range of the figures, the chart and the inboxes; setting another asks anew.
  QString preset() const { return m_range.preset(); }
  void setPreset(const QString& key);
  /// Of the figures shown; of those asked for while there are none.
  QString rangeText() const { return orv::rangeText(m_summary.hasContent() ? m_shownRange : m_range.days()); }
  /// "Launched 3 Nov · 900 leads · 412 sent · 96 booked · 6 inboxes"; empty before the campaign is loaded.
  QString headLine() const;

  QString dayViewName() const { return enumName(m_dayView); }
  void setDayView(const QString& name);
  /// The table that is shown; messages and activity are loaded when they first are.
  QString sectionName() const { return enumName(m_section); }
  void setSection(const QString& name);
  /// Key and label of each.
  static QList<Choice> sections();
  /// What the table shows.
  QString sectionText() const;

  /// The totals of the range; none before the first answer.
  const QList<Figure>& figures() const { return m_figures; }
  /// What the chart draws; no days when nothing was sent.
  QStringList days() const { return m_chart.days(); }
  QVariantList series() const { return m_chart.series(); }
  Q_INVOKABLE void toggleSeries(const QString& key);

  AccountFigureRows* inboxRows() { return &m_inboxRows; }
  EmailFigureRows* emailRows() { return &m_emailRows; }
  EventLines* messageRows() { return &m_messageRows; }

  void ensureLoaded() override;
  /// Reads what was loaded again, without clearing what is shown.
  void refresh() override;
  /// The same for the shown table alone.
  Q_INVOKABLE void refreshSection();

 Q_SIGNALS:
  void changed();
  void campaignChanged();
  /// What is read off an answer.
  void figuresChanged();
  void chartChanged();

 private:
  Task<AnalyticsSummary> loadSummary();
  void loadSection();
  void arrived();
  void followCampaign();

  CampaignContext& m_campaign;
  RangeChoice m_range;
  /// The range that the figures on the screen are of; the person may have asked for another since.
  DateRange m_shownRange;
  DayView m_dayView = DayView::chart;
  Section m_section = Section::inboxes;
  Resource<AnalyticsSummary> m_summary;
  Resource<MessagePage> m_messages;
  PagedList<FeedPage, EventLines> m_feed;
  ChartFigures m_chart;
  QList<Figure> m_figures;
  AccountFigureRows m_inboxRows;
  EmailFigureRows m_emailRows;
  EventLines m_messageRows;
};

}  // namespace orv
