#pragma once

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Recovery.h"
#include "app/base/Resource.h"
#include "app/setup/SecretField.h"
#include "app/setup/SetupRules.h"

namespace orv {

/// A project while it is edited: its fields, its domains among them, and its secrets.
class SetupForm final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(orv::SecretField* password READ password CONSTANT)
  Q_PROPERTY(orv::SecretField* newPassword READ newPassword CONSTANT)
  Q_PROPERTY(orv::SecretField* recoveryEmail READ recoveryEmail CONSTANT)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY changed)
  Q_PROPERTY(QString conflict READ conflict NOTIFY changed)
  Q_PROPERTY(QString savedText READ savedText NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tags READ tags NOTIFY changed)

 public:
  SetupForm(QString id, Actions& actions, Resource<SetupProject>& project, Store& whole);

  DraftOf<SetupFields>* draft() { return &m_draft; }
  /// In the field that adds domains, and not among them yet.
  const QString& typedDomains() const { return m_typedDomains; }
  void setTypedDomains(const QString& text);
  Recovery* recovery() { return &m_recovery; }
  SecretField* password() { return &m_password; }
  SecretField* newPassword() { return &m_newPassword; }
  SecretField* recoveryEmail() { return &m_recoveryEmail; }
  bool dirty() const;
  bool saving() const { return !m_busy.ids().isEmpty(); }
  bool canSave() const;
  /// Why the last save, or the last wish to run, came to nothing.
  const QString& problem() const { return m_problem; }
  /// What somebody else made of fields that were changed here as well.
  QString conflict() const;
  /// "Saved 09:41"; empty before something was saved here.
  QString savedText() const;
  QList<Choice> tags() const;

  Q_INVOKABLE void set(const QString& field, const QVariant& value);
  Q_INVOKABLE void addTags(const QStringList& texts);
  Q_INVOKABLE void removeTag(const QString& tag);
  Q_INVOKABLE void discard();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Task<void> saveTask();
  /// Saves what is unsaved, behind a save that is under way; true when nothing is left. This object may go while the
  /// task waits, which then gives false.
  Task<bool> saveAll();
  /// Saves what is unsaved; then, or otherwise, whether the project can run. What keeps it from that is shown.
  Task<bool> readyToRun();

  QStringList unsavedWork() const override;
  Task<bool> flush() override { co_return unsavedWork().isEmpty(); }
  void close() override;

 Q_SIGNALS:
  void changed();
  void typedDomainsChanged();
  /// A save, or a wish to run, came to nothing: what is in its way may stand where nobody looks.
  void refused();

 private:
  Recovery::Hooks hooks();
  void follow();
  void show(const std::optional<RunProblem>& problem);
  void setProblem(const QString& problem);
  bool check();
  Task<bool> settled();
  SetupProjectPatch patch(const SetupFields& base, const SetupFields& now) const;
  QList<SecretField*> secrets() { return {&m_password, &m_newPassword, &m_recoveryEmail}; }

  QString m_id;
  Actions& m_actions;
  Resource<SetupProject>& m_project;
  BusySet m_busy;
  DraftOf<SetupFields> m_draft;
  QString m_typedDomains;
  Recovery m_recovery;
  SecretField m_password;
  SecretField m_newPassword;
  SecretField m_recoveryEmail;
  QString m_problem;
  /// A refused save has the project read.
  bool m_readsAgain = false;
  QDateTime m_savedAt;
};

}  // namespace orv
