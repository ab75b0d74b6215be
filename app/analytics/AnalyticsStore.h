#pragma once

#include "app/base/BusySet.h"
#include "app/base/Choice.h"
#include "app/base/EnumName.h"
#include "app/base/Resource.h"
#include "app/figures/ChartFigures.h"
#include "app/figures/DateRange.h"
#include "app/figures/Figure.h"
#include "app/figures/FigureRows.h"
#include "app/figures/RangeForm.h"
#include "kit/api/APITransport.h"
#include "kit/api/Format.h"
#include "kit/models/analytics/analyticsSummary.h"

namespace orv {

/// The sending results of one workspace over a range of days, by campaign and by account.
///
/// Changing the range or a filter asks anew once the page was shown. What is on the screen belongs together: figures
/// stay until the new ones arrive, and a file is named after the range of the rows in it.
class AnalyticsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* summary READ summary CONSTANT)
  Q_PROPERTY(QList<orv::Choice> ranges READ ranges NOTIFY changed)
  Q_PROPERTY(QString range READ range NOTIFY changed)
  Q_PROPERTY(orv::RangeForm* rangeForm READ rangeForm CONSTANT)
  Q_PROPERTY(QString preset READ preset WRITE setPreset NOTIFY changed)
  Q_PROPERTY(bool custom READ custom NOTIFY changed)
  Q_PROPERTY(QString rangeLabel READ rangeLabel NOTIFY changed)
  Q_PROPERTY(QString rangeText READ rangeText NOTIFY changed)
  Q_PROPERTY(QString from READ from NOTIFY changed)
  Q_PROPERTY(QString to READ to NOTIFY changed)
  Q_PROPERTY(QString campaign READ campaign WRITE setCampaign NOTIFY changed)
  Q_PROPERTY(QString mailbox READ mailbox WRITE setMailbox NOTIFY changed)
  Q_PROPERTY(QString tag READ tag WRITE setTag NOTIFY changed)
  Q_PROPERTY(bool filtered READ filtered NOTIFY changed)
  Q_PROPERTY(int filterCount READ filterCount NOTIFY changed)
  Q_PROPERTY(QString tab READ tabName WRITE setTab NOTIFY changed)
  Q_PROPERTY(QString dayView READ dayViewName WRITE setDayView NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(bool exporting READ exporting NOTIFY changed)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)
  Q_PROPERTY(orv::ListModel* campaignRows READ campaignRows CONSTANT)
  Q_PROPERTY(orv::ListModel* accountRows READ accountRows CONSTANT)
  Q_PROPERTY(QList<orv::Figure> figures READ figures NOTIFY figuresChanged)
  Q_PROPERTY(QString sampleNote READ sampleNote NOTIFY figuresChanged)
  Q_PROPERTY(QList<orv::Choice> campaignOptions READ campaignOptions NOTIFY optionsChanged)
  Q_PROPERTY(QList<orv::Choice> mailboxOptions READ mailboxOptions NOTIFY optionsChanged)
  Q_PROPERTY(QList<orv::Choice> tagOptions READ tagOptions NOTIFY optionsChanged)
  Q_PROPERTY(QStringList days READ days NOTIFY chartChanged)
  Q_PROPERTY(QVariantList series READ series NOTIFY chartChanged)

 public:
  enum class Tab { campaigns, accounts };
  Q_ENUM(Tab)
  enum class DayView { chart, table };
  Q_ENUM(DayView)

  explicit AnalyticsStore(WorkspaceContext& context);

  Resource<AnalyticsSummary>* summary() { return &m_summary; }
  /// Key and label of each preset and, last, of a pair of dates.
  QList<Choice> ranges() const;
  /// The key in force.
  QString range() const;
  /// Takes the preset, or asks for two dates.
  Q_INVOKABLE void chooseRange(const QString& key);
  RangeForm* rangeForm() { return &m_rangeForm; }

  /// Key of the preset; the last one while a custom range is in force.
  QString preset() const { return m_range.preset(); }
  void setPreset(const QString& key);
  /// A chosen pair of dates is in force.
  bool custom() const { return m_range.isCustom(); }
  QString rangeLabel() const { return m_range.label(); }
  /// Of the figures shown; of those asked for while there are none.
  QString rangeText() const { return orv::rangeText(m_summary.hasContent() ? m_shownRange : m_range.days()); }
  /// The range as dates ("2026-11-21").
  QString from() const { return Format::calendarDay(m_range.days().from); }
  QString to() const { return Format::calendarDay(m_range.days().to); }
  /// Two dates in either order. False, and nothing changes, when one of them is none.
  Q_INVOKABLE bool setCustomRange(const QString& from, const QString& to);

  /// Empty for all, as are the two below.
  QString campaign() const { return m_filter.campaign; }
  void setCampaign(const QString& id);
  QString mailbox() const { return m_filter.mailbox; }
  void setMailbox(const QString& id);
  QString tag() const { return m_filter.tag; }
  void setTag(const QString& tag);
  bool filtered() const { return m_filter != Filter(); }
  int filterCount() const;
  Q_INVOKABLE void clearFilters();

  Tab tab() const { return m_tab; }
  QString tabName() const { return enumName(m_tab); }
  void setTab(const QString& name);
  QString dayViewName() const { return enumName(m_dayView); }
  void setDayView(const QString& name);
  /// "12 campaigns": the rows of the shown table.
  QString countText() const;
  /// A file is being saved.
  bool exporting() const { return !m_busy.ids().isEmpty(); }

  /// Of the shown table; empty for the service's order.
  QString sortKey() const { return sort() ? sort()->key : QString(); }
  bool sortDescending() const { return sort() && sort()->descending; }
  /// The table of the open tab; an empty key is the service's order.
  Q_INVOKABLE void sort(const QString& key, bool descending);
  CampaignFigureRows* campaignRows() { return &m_campaignRows; }
  AccountFigureRows* accountRows() { return &m_accountRows; }

  /// The totals; none before the first answer.
  const QList<Figure>& figures() const { return m_figures; }
  /// Says that the figures are made up; empty when they are not.
  QString sampleNote() const;
  /// Key and label of each choice, all of them first.
  const QList<Choice>& campaignOptions() const { return m_campaignOptions; }
  const QList<Choice>& mailboxOptions() const { return m_mailboxOptions; }
  const QList<Choice>& tagOptions() const { return m_tagOptions; }

  /// What the chart draws; no days when nothing was sent.
  QStringList days() const { return m_chart.days(); }
  QVariantList series() const { return m_chart.series(); }
  Q_INVOKABLE void toggleSeries(const QString& key);

  PagePlace where() const override { return {.tab = tabName(), .value = {}}; }
  void goTo(const PagePlace& place) override { setTab(place.tab); }
  void ensureLoaded() override;
  void refresh() override;
  /// Opens one of the campaigns.
  Q_INVOKABLE void openCampaign(const QString& id) { context().openItem(Page::campaigns, id); }
  /// Saves the table of the shown tab, in its order.
  Q_INVOKABLE void exportCsv() { m_tasks.start(exportTask()); }
  Task<void> exportTask();

 Q_SIGNALS:
  void changed();
  /// What is read off an answer.
  void figuresChanged();
  /// Seldom: a menu that was opened before makes its thousand entries anew.
  void optionsChanged();
  void chartChanged();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  struct Filter {
    QString campaign, mailbox, tag;
    bool operator==(const Filter&) const = default;
  };

  Task<AnalyticsSummary> load();
  void arrived();
  void ask();
  void setFilter(const Filter& filter);
  void takeOptions(const AnalyticsSummary::Options& options);
  const std::optional<OrvSort>& sort() const { return m_tab == Tab::campaigns ? m_campaignSort : m_accountSort; }

  BusySet m_busy;
  Resource<AnalyticsSummary> m_summary;
  RangeChoice m_range;
  RangeForm m_rangeForm;
  Filter m_filter;
  Tab m_tab = Tab::campaigns;
  DayView m_dayView = DayView::chart;
  ChartFigures m_chart;
  CampaignFigureRows m_campaignRows;
  AccountFigureRows m_accountRows;
  std::optional<OrvSort> m_campaignSort;
  std::optional<OrvSort> m_accountSort;
  QList<Figure> m_figures;
  AnalyticsSummary::Options m_options;
  QList<Choice> m_campaignOptions;
  QList<Choice> m_mailboxOptions;
  QList<Choice> m_tagOptions;
  /// Somebody wants the file of figures that are still to come.
  bool m_exportsNext = false;
  /// The range that the figures on the screen are of; the person may have asked for another since.
  DateRange m_shownRange;
};

}  // namespace orv
