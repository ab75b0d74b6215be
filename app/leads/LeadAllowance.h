#pragma once

#include "app/base/Actions.h"
#include "app/base/Resource.h"
#include "kit/models/leads/unlocks.h"

namespace orv {

/// How many leads can still be unlocked, and the unlocking, which costs: one at a time, and nothing of it is ever sent
/// twice.
class LeadAllowance final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool known READ known NOTIFY changed)
  Q_PROPERTY(QString leftText READ leftText NOTIFY changed)
  Q_PROPERTY(QString usedText READ usedText NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(double share READ share NOTIFY changed)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)
  Q_PROPERTY(bool searchBusy READ searchBusy NOTIFY busyChanged)

 public:
  LeadAllowance(WorkspaceContext& context, Store& whole);

  /// Null before the first reading.
  const UnlockUsage* usage() const { return m_usage.value(); }
  bool known() const { return usage() != nullptr; }
  /// "1,412 unlocks left".
  QString leftText() const;
  /// "88 of 1,500 used this month."
  QString usedText() const;
  /// What one more costs, how many are left, and from when there are more.
  QString note() const;
  /// Of the allowance, what is used, from 0 to 1.
  double share() const;
  /// What unlocking many costs, as far as that is known.
  QString cost() const;

  /// Leads that are being unlocked.
  QStringList busyIds() const { return m_busy.ids().values(); }
  /// The first leads of a search are being unlocked: until the answer comes nobody knows which, and every other waits.
  bool searchBusy() const { return !m_searchBusy.ids().isEmpty(); }
  Q_INVOKABLE void unlockOne(const QString& id) { m_tasks.start(unlockOneTask(id)); }
  /// Sends it once. Nothing when it failed, which has then been told: in the form where `tell` does so, or in a
  /// message.
  Task<std::optional<UnlockResult>> unlock(UnlockBody body, QString failure, Actions::Tell tell = {});

  void ensureLoaded() override { m_usage.ensureLoaded(); }

 Q_SIGNALS:
  void changed();
  void busyChanged();
  /// Addresses and phones that are known from now on.
  void unlocked(const QList<orv::UnlockResult::Item>& leads);
  /// An unlocking may have gone through, and nobody knows of which leads.
  void inDoubt();

 private:
  Task<void> unlockOneTask(QString id);
  bool tellDoubt(const APIError& error);
  void tellBusySoon();

  Resource<UnlockUsage> m_usage;
  BusySet m_busy, m_searchBusy;
  Actions m_actions;
  bool m_tellsSoon = false;
};

}  // namespace orv
