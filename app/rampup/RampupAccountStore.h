#pragma once

#include "app/figures/Figure.h"
#include "app/rampup/RampupStore.h"
#include "app/rampup/RoadmapDays.h"
#include "app/rampup/WarmupForm.h"
#include "kit/models/rampup/warmupStats.h"

namespace orv {

/// One account: its roadmap day by day, its warm-up and how that fares.
class RampupAccountStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* detail READ detail CONSTANT)
  Q_PROPERTY(orv::ResourceBase* stats READ stats CONSTANT)
  Q_PROPERTY(orv::WarmupForm* warmup READ warmup CONSTANT)
  Q_PROPERTY(orv::RampupStore* list READ list CONSTANT)
  Q_PROPERTY(orv::RoadmapEditor* editor READ editor CONSTANT)
  Q_PROPERTY(orv::Form* extending READ extending CONSTANT)
  Q_PROPERTY(orv::Form* restarting READ restarting CONSTANT)
  Q_PROPERTY(QString address READ address NOTIFY changed)
  Q_PROPERTY(QString person READ person NOTIFY changed)
  Q_PROPERTY(QString phase READ phase NOTIFY changed)
  Q_PROPERTY(QString phaseTone READ phaseTone NOTIFY changed)
  Q_PROPERTY(QString stateLine READ stateLine NOTIFY changed)
  Q_PROPERTY(QString facts READ facts NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(QString missingTitle READ missingTitle NOTIFY changed)
  Q_PROPERTY(QString missingText READ missingText NOTIFY changed)
  Q_PROPERTY(QList<orv::Figure> figures READ figures NOTIFY changed)
  Q_PROPERTY(QStringList days READ days NOTIFY changed)
  Q_PROPERTY(QStringList dayNotes READ dayNotes NOTIFY changed)
  Q_PROPERTY(QVariantList warmupSeries READ warmupSeries NOTIFY changed)
  Q_PROPERTY(QVariantList campaignSeries READ campaignSeries NOTIFY changed)
  Q_PROPERTY(QVariantList tableSeries READ tableSeries NOTIFY changed)
  Q_PROPERTY(QList<orv::StagePart> stages READ stages NOTIFY changed)
  Q_PROPERTY(int today READ today NOTIFY changed)
  Q_PROPERTY(QString warmupText READ warmupText NOTIFY changed)
  Q_PROPERTY(QString healthText READ healthText NOTIFY changed)
  Q_PROPERTY(QString healthWarning READ healthWarning NOTIFY changed)
  Q_PROPERTY(QString healthScore READ healthScore NOTIFY changed)
  Q_PROPERTY(bool healthLow READ healthLow NOTIFY changed)
  Q_PROPERTY(QList<double> healthParts READ healthParts NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> statLines READ statLines NOTIFY changed)
  Q_PROPERTY(bool paused READ paused NOTIFY changed)
  Q_PROPERTY(bool running READ running NOTIFY changed)
  Q_PROPERTY(bool onRoadmap READ onRoadmap NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString extendDays MEMBER m_extendDays NOTIFY changed)
  Q_PROPERTY(QString restartOn MEMBER m_restartOn NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> templates READ templates NOTIFY changed)

 public:
  static constexpr int statDays = 30;
  static constexpr int mostExtended = 90;

  RampupAccountStore(QString id, RampupStore& list);
  ~RampupAccountStore() override;

  Resource<RampupDetail>* detail() { return &m_detail; }
  Resource<WarmupStats>* stats() { return &m_stats; }
  WarmupForm* warmup() { return &m_warmup; }
  RampupStore* list() { return &m_list; }
  RoadmapEditor* editor() { return &m_editor; }
  Form* extending() { return &m_extending; }
  Form* restarting() { return &m_restarting; }

  const QString& id() const { return m_id; }
  QString address() const;
  /// "Ruben Aalto · Microsoft 365".
  QString person() const;
  QString phase() const;
  QString phaseTone() const;
  QString stateLine() const;
  /// Template and dates.
  QString facts() const;
  QString note() const;
  QString missingTitle() const;
  QString missingText() const;
  QList<Figure> figures() const;
  QStringList days() const { return m_days.days; }
  QStringList dayNotes() const { return m_days.notes; }
  QVariantList warmupSeries() const { return m_days.warmup; }
  QVariantList campaignSeries() const { return m_days.campaign; }
  QVariantList tableSeries() const { return m_days.all; }
  const QList<StagePart>& stages() const { return m_days.stages; }
  int today() const { return m_days.today; }
  QString warmupText() const;
  QString healthText() const;
  QString healthWarning() const;
  QString healthScore() const;
  bool healthLow() const;
  /// In the inbox, among spam and missing, as shares of the checked ones.
  QList<double> healthParts() const;
  QList<Choice> statLines() const;
  bool paused() const;
  bool running() const;
  bool onRoadmap() const;
  bool busy() const;
  QList<Choice> templates() const;

  Q_INVOKABLE void openList() { context().open(Page::rampup); }
  void pause() { m_list.accounts()->pause(m_id); }
  void resume() { m_list.accounts()->resume(m_id); }
  void edit();
  void beginExtend();
  void beginRestart();
  Q_INVOKABLE void extend() { m_tasks.start(extendTask()); }
  Q_INVOKABLE void restart() { m_tasks.start(restartTask()); }
  QStringList unsavedWork() const override { return Store::unsavedWork() + m_editor.unsavedWork(); }
  Task<void> editTask(QList<RoadmapStage> stages, std::optional<qint64> version);
  Task<void> extendTask();
  Task<void> restartTask();

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  const RampupItem* item() const;
  const RoadmapPlan* plan() const;
  Task<RampupDetail> load();
  void markStale();
  void take(const RampupDetail& detail);
  void arrived();

  QString m_id;
  RampupStore& m_list;
  Resource<RampupDetail> m_detail;
  Resource<WarmupStats> m_stats;
  WarmupForm m_warmup;
  /// Of its own: the list's stands over the list.
  RoadmapEditor m_editor;
  Form m_extending;
  Form m_restarting;
  QString m_extendDays;
  QString m_restartOn;
  std::optional<RampupItem> m_item;
  RoadmapDays m_days{RampupDetail()};
};

}  // namespace orv
