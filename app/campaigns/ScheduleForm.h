#pragma once

#include <QVariantList>

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Recovery.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "kit/models/campaigns/campaignSchedule.h"

namespace orv {

struct ScheduleFields {
  QList<ScheduleWindow> windows;
  bool operator==(const ScheduleFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(ScheduleFields, (), (windows))

class ScheduleDraft final : public DraftOf<ScheduleFields> {
 public:
  using DraftOf::DraftOf;

 protected:
  QJsonValue written(const QVariant& value) const override;
  QVariant read(const QJsonValue& value) const override;
};

/// The weekly hours of a campaign while they are edited, saved on their own: the dates stay as the service has them.
class ScheduleForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(QVariantList windows READ windows NOTIFY changed)
  Q_PROPERTY(int count READ count NOTIFY changed)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool unsaved READ unsaved NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)

 public:
  static constexpr auto busyKey = "schedule";

  /// `busy` is shared with whoever else saves parts of the same campaign: each save names the version it knows, so
  /// that two at once would refuse each other.
  ScheduleForm(CampaignContext& context, Actions& actions, BusySet& busy);
  /// Ends a save while there is still a form to tell: its mark is in a set that outlives this.
  ~ScheduleForm() override { m_tasks.cancel(); }

  /// Name, days (1 is Monday), start, end and timeZone of each, and what is wrong: daysError, timesError, zoneError.
  QVariantList windows() const;
  int count() const { return int(typed().size()); }
  bool dirty() const { return m_draft.dirty(); }
  /// The service does not have the hours shown, be it that they are only a suggestion.
  bool unsaved() const { return dirty() || m_isNew; }
  bool saving() const;
  bool canSave() const { return unsaved() && m_busy.ids().isEmpty(); }
  /// What somebody else made of the hours while they were edited here.
  QString note() const;
  ScheduleDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }

  Q_INVOKABLE void setText(int window, const QString& field, const QString& text);
  Q_INVOKABLE void toggleDay(int window, int day);
  Q_INVOKABLE void add();
  /// The last one stays.
  Q_INVOKABLE void remove(int window);
  Q_INVOKABLE void discard();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Task<void> saveTask();

  /// Half hours, and `time` itself where it is none.
  Q_INVOKABLE QList<orv::Choice> startTimes(const QString& time) const;
  /// The same up to the end of the day.
  Q_INVOKABLE QList<orv::Choice> endTimes(const QString& time) const;
  /// The zones that the text may mean, each with how far it is ahead and what time it is there.
  Q_INVOKABLE QList<orv::Choice> zones(const QString& text) const;

 Q_SIGNALS:
  void changed();

 private:
  QList<ScheduleWindow> typed() const { return m_draft.typed().windows; }
  void edit(const QList<ScheduleWindow>& windows);
  void follow();
  bool isValid();
  void drop(int window, const QString& error);

  CampaignContext& m_context;
  Actions& m_actions;
  BusySet& m_busy;
  ScheduleDraft m_draft;
  Recovery m_recovery;
  /// The campaign has no hours yet; the ones shown are a suggestion.
  bool m_isNew = false;
  QList<QVariantMap> m_errors;
};

}  // namespace orv
