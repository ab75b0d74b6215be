#pragma once

#include "app/accounts/AccountFields.h"
#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Recovery.h"
#include "app/base/Resource.h"
#include "kit/models/mailboxes/trackingDomainCheck.h"

namespace orv {

/// An account's settings while they are edited, and its tracking domain's check.
class AccountSettings final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(bool checking READ checking NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString conflict READ conflict NOTIFY changed)
  Q_PROPERTY(QString keptSendLimit READ keptSendLimit NOTIFY changed)
  Q_PROPERTY(QString keptGap READ keptGap NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tags READ tags NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tagSuggestions READ tagSuggestions NOTIFY changed)
  Q_PROPERTY(bool hasTrackingDomain READ hasTrackingDomain NOTIFY changed)
  Q_PROPERTY(bool trackingVerified READ trackingVerified NOTIFY changed)
  Q_PROPERTY(QString trackingHelp READ trackingHelp CONSTANT)
  Q_PROPERTY(QString trackingExample READ trackingExample CONSTANT)
  Q_PROPERTY(int mostSendLimit READ mostLimit CONSTANT)
  Q_PROPERTY(int mostSendingGap READ mostGap CONSTANT)

 public:
  /// Tags that the workspace's accounts carry, to be picked again.
  using KnownTags = std::function<QList<Choice>()>;

  AccountSettings(WorkspaceContext& context, Store* whole, QString id, Resource<Mailbox>& account, KnownTags knownTags);

  DraftOf<AccountFields>* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }
  bool dirty() const { return m_draft.dirty(); }
  bool saving() const;
  bool canSave() const { return dirty() && canWrite() && m_busy.ids().isEmpty(); }
  bool checking() const;
  /// Why the last save came to nothing.
  const QString& problem() const { return m_problem; }
  /// What somebody else made of fields that were changed here as well.
  QString conflict() const;
  /// What is said of a number that was emptied: there is no way to take one away, so that a save leaves it as it is.
  QString keptSendLimit() const;
  QString keptGap() const;
  QList<Choice> tags() const;
  QList<Choice> tagSuggestions() const;
  /// As the service has it.
  bool hasTrackingDomain() const;
  bool trackingVerified() const;
  QString trackingHelp() const;
  QString trackingExample() const;
  int mostLimit() const;
  int mostGap() const;

  Q_INVOKABLE void set(const QString& field, const QVariant& value);
  Q_INVOKABLE void addTags(const QStringList& texts);
  Q_INVOKABLE void removeTag(const QString& tag);
  Q_INVOKABLE void discard();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Q_INVOKABLE void checkTracking() { m_tasks.start(checkTrackingTask()); }

  Task<void> saveTask();
  Task<void> checkTrackingTask();

 Q_SIGNALS:
  void changed();

 private:
  QString kept(const QString& field) const;
  void follow();
  void setProblem(const QString& problem);
  void tell(const QString& problem);
  Task<void> rebuild();
  Task<std::optional<TrackingDomainCheck>> askTracking();

  QString m_id;
  Resource<Mailbox>& m_account;
  KnownTags m_knownTags;
  BusySet m_busy;
  Actions m_actions;
  DraftOf<AccountFields> m_draft;
  Recovery m_recovery;
  QString m_problem;
  /// Somebody else's version was newer than that of the save under way.
  bool m_conflicts = false;
};

}  // namespace orv
