#pragma once

#include "app/base/Choice.h"
#include "app/base/Resource.h"
#include "app/figures/ChartFigures.h"
#include "app/figures/DateRange.h"
#include "app/figures/Figure.h"
#include "kit/api/APITransport.h"
#include "kit/models/analytics/analyticsOverview.h"

namespace orv {

/// The workspace's home: today's sending, replies, inboxes and leads, and the metrics of a range of days.
class DashboardStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* overview READ overview CONSTANT)
  Q_PROPERTY(QList<orv::Choice> presets READ presets CONSTANT)
  Q_PROPERTY(QString preset READ preset WRITE setPreset NOTIFY changed)
  Q_PROPERTY(QString rangeLabel READ rangeLabel NOTIFY changed)
  Q_PROPERTY(QString dayText READ dayText NOTIFY figuresChanged)
  Q_PROPERTY(QList<orv::Figure> today READ today NOTIFY figuresChanged)
  Q_PROPERTY(QList<orv::Figure> metrics READ metrics NOTIFY figuresChanged)
  Q_PROPERTY(QStringList days READ days NOTIFY chartChanged)
  Q_PROPERTY(QVariantList series READ series NOTIFY chartChanged)

 public:
  explicit DashboardStore(WorkspaceContext& context);

  Resource<AnalyticsOverview>* overview() { return &m_overview; }
  static QList<Choice> presets() { return rangePresets(); }

  /// Range of the metrics and the chart; setting another asks anew.
  QString preset() const { return m_range.preset(); }
  void setPreset(const QString& key);
  QString rangeLabel() const { return m_range.label(); }

  /// "Friday 20 November · Berlin time": today where the workspace is; empty before the first answer.
  const QString& dayText() const { return m_dayText; }
  /// None when the service has none.
  const QList<Figure>& today() const { return m_today; }
  const QList<Figure>& metrics() const { return m_metrics; }

  /// What the chart draws; no days when nothing was sent.
  QStringList days() const { return m_chart.days(); }
  QVariantList series() const { return m_chart.series(); }
  Q_INVOKABLE void toggleSeries(const QString& key);

  void ensureLoaded() override;
  void refresh() override;
  /// Opens the figures per campaign and per account.
  Q_INVOKABLE void openAnalytics();

 Q_SIGNALS:
  void changed();
  /// What is read off an answer.
  void figuresChanged();
  void chartChanged();

 private:
  Task<AnalyticsOverview> loadOverview();
  void arrived();
  template <class Record>
  void follow();

  RangeChoice m_range;
  Resource<AnalyticsOverview> m_overview;
  ChartFigures m_chart;
  QString m_dayText;
  QList<Figure> m_today;
  QList<Figure> m_metrics;
};

}  // namespace orv
