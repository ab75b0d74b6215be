#pragma once

#include "app/base/Draft.h"
#include "app/base/Recovery.h"
#include "app/rampup/RoadmapActions.h"

namespace orv {

/// The warm-up's settings as they are typed; numbers as the texts that they are.
struct WarmupFields {
  bool enabled = false;
  QString dailyLimit;
  /// Empty is none.
  QString increasePerDay;
  QString replyRate;
  QString openRate;
  QString importantRate;
  QString spamSaveRate;
  QString filterTag;
  bool readEmulation = false;
  bool warmTrackingDomain = false;
  bool weekdaysOnly = false;
  bool operator==(const WarmupFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupFields, (),
                      (enabled, dailyLimit, increasePerDay, replyRate, openRate, importantRate, spamSaveRate, filterTag,
                       readEmulation, warmTrackingDomain, weekdaysOnly))

WarmupFields warmupFields(const WarmupSettings& settings);
/// A sentence for each field that can't be saved.
QVariantMap problemsIn(const WarmupFields& fields);
/// What can be read of them; they have no problems.
WarmupSettings settingsOf(const WarmupFields& fields);

/// An account's warm-up settings, edited in place.
class WarmupForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(bool editing READ editing NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString rivals READ rivals NOTIFY changed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  WarmupForm(QString mailboxId, RoadmapActions& actions, Store& whole);

  DraftOf<WarmupFields>* draft() { return &m_draft; }
  bool editing() const { return m_editing; }
  bool saving() const { return !m_busy.ids().isEmpty(); }
  bool canSave() const { return canWrite() && m_draft.dirty() && !saving(); }
  QString rivals() const;
  Recovery* recovery() { return &m_recovery; }

  /// The service told of the settings.
  void follow(const WarmupSettings& settings);
  Q_INVOKABLE void edit();
  /// Nothing is kept.
  Q_INVOKABLE void cancel();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Task<void> saveTask();

  QStringList unsavedWork() const override;
  Task<bool> flush() override { co_return unsavedWork().isEmpty(); }

 Q_SIGNALS:
  void changed();

 private:
  QString m_id;
  RoadmapActions& m_actions;
  DraftOf<WarmupFields> m_draft;
  Recovery m_recovery;
  BusySet m_busy;
  bool m_editing = false;
};

}  // namespace orv
