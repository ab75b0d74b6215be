#pragma once

#include "app/accounts/AccountTexts.h"
#include "app/base/Archive.h"
#include "app/base/Poll.h"
#include "app/base/Store.h"

namespace orv {

/// What is done with one account, wherever it is shown: the list, its own page, the archive. One for the workspace, so
/// that an account is busy on all of them at once and a check is followed once.
///
/// Each action takes the id and the address as they were when the person acted. Answers go to the change feed.
class AccountActions final : public Store {
  Q_OBJECT
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)

 public:
  /// A check that has begun is looked after so often.
  static constexpr PollPace checkPace{std::chrono::seconds(6), 5};

  explicit AccountActions(WorkspaceContext& context);

  const BusySet& busy() const { return m_busy; }
  BusySet& busy() { return m_busy; }
  QStringList busyIds() const { return m_busy.ids().values(); }

  Q_INVOKABLE void pause(const QString& id, const QString& address) { m_tasks.start(pauseTask(id, address)); }
  Q_INVOKABLE void resume(const QString& id, const QString& address) { m_tasks.start(resumeTask(id, address)); }
  Q_INVOKABLE void test(const QString& id, const QString& address) { m_tasks.start(testTask(id, address)); }
  Q_INVOKABLE void remove(const QString& id, const QString& address) { m_tasks.start(removed(id, address)); }
  Q_INVOKABLE void restore(const QString& id, const QString& address) { m_tasks.start(restoreTask(id, address)); }
  Q_INVOKABLE void removeForGood(const QString& id, const QString& address) {
    m_tasks.start(removeForGoodTask(id, address));
  }

  Task<void> pauseTask(QString id, QString address);
  Task<void> resumeTask(QString id, QString address);
  /// Begins a check of its connection and tells how that ends.
  Task<void> testTask(QString id, QString address);
  /// Into the archive, after a question. True when it is there now.
  Task<bool> removeTask(QString id, QString address);
  Task<void> restoreTask(QString id, QString address);
  /// Out of the archive, after a question.
  Task<void> removeForGoodTask(QString id, QString address);

  /// A check of the account has begun; tells how it ends, whatever becomes of who began it.
  void followCheck(const QString& id, const QString& address);

 Q_SIGNALS:
  void busyChanged();

 private:
  Task<void> removed(QString id, QString address);
  Task<void> followTask(QString id, QString address);
  Task<bool> checkEnded(QString id, QString address);
  void tell(const Mailbox& mailbox, const QString& address);

  BusySet m_busy;
  /// Accounts whose check is being followed.
  BusySet m_followed;
  Actions m_actions;
  Archive<Mailbox> m_archive;
};

}  // namespace orv
