#pragma once

#include "app/base/Program.h"
#include "app/settings/ClientForm.h"
#include "app/settings/MembersStore.h"
#include "app/settings/OutreachLists.h"
#include "app/settings/WorkspaceForm.h"

namespace orv {

/// The settings, tab by tab: the person's own, the workspace's, its members'. What a tab shows is read when it is
/// opened.
class SettingsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString tab READ tabName WRITE setTab NOTIFY changed)
  Q_PROPERTY(QVariantList tabs READ tabs CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(orv::Program* program READ program CONSTANT)
  Q_PROPERTY(orv::ResourceBase* workspace READ workspace CONSTANT)
  Q_PROPERTY(QString role READ role NOTIFY changed)
  Q_PROPERTY(QString publicId READ publicId NOTIFY changed)
  Q_PROPERTY(QString slug READ slug NOTIFY changed)
  Q_PROPERTY(QString plan READ plan NOTIFY changed)
  Q_PROPERTY(bool canManage READ canManage NOTIFY changed)
  Q_PROPERTY(bool canDelete READ canDelete NOTIFY changed)
  Q_PROPERTY(bool deleting READ deleting NOTIFY changed)
  Q_PROPERTY(bool unsubscribesToBlocklist READ unsubscribesToBlocklist NOTIFY changed)
  Q_PROPERTY(bool savingBlocklist READ savingBlocklist NOTIFY changed)
  Q_PROPERTY(bool positiveReplies READ positiveReplies WRITE setPositiveReplies NOTIFY changed)
  Q_PROPERTY(bool accountErrors READ accountErrors WRITE setAccountErrors NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> themes READ themes CONSTANT)
  Q_PROPERTY(QList<orv::Choice> features READ features NOTIFY changed)
  Q_PROPERTY(QStringList migrationPick READ migrationPick NOTIFY changed)
  Q_PROPERTY(orv::WorkspaceForm* workspaceForm READ workspaceForm CONSTANT)
  Q_PROPERTY(orv::WorkspaceForm* companyForm READ companyForm CONSTANT)
  Q_PROPERTY(orv::MembersStore* members READ members CONSTANT)
  Q_PROPERTY(orv::InvitesStore* invites READ invites CONSTANT)
  Q_PROPERTY(orv::OutreachLists* lists READ lists CONSTANT)
  Q_PROPERTY(orv::ClientForm* clientForm READ clientForm CONSTANT)

 public:
  explicit SettingsStore(WorkspaceContext& context);

  QString tabName() const { return Pages::name(m_tab); }
  /// Opens it, by name. The agent's stands elsewhere, and is led to.
  void setTab(const QString& name);
  /// Name, title and section of each.
  QVariantList tabs() const;
  QString title() const;

  Program* program() const;
  Resource<WorkspaceDetail>* workspace() { return &m_workspace; }
  QString role() const;
  QString publicId() const;
  QString slug() const { return context().workspace().slug; }
  QString plan() const;
  bool canManage() const;
  bool canDelete() const;
  bool deleting() const;
  bool unsubscribesToBlocklist() const;
  bool savingBlocklist() const;
  bool positiveReplies() const;
  void setPositiveReplies(bool on);
  bool accountErrors() const;
  void setAccountErrors(bool on);
  /// Ways that the program can look.
  QList<Choice> themes() const;
  /// Of each page that can be switched off, whether it is on.
  QList<Choice> features() const;
  QStringList migrationPick() const;

  WorkspaceForm* workspaceForm() { return &m_workspaceForm; }
  WorkspaceForm* companyForm() { return &m_companyForm; }
  MembersStore* members() { return &m_members; }
  InvitesStore* invites() { return &m_invites; }
  OutreachLists* lists() { return &m_lists; }
  ClientForm* clientForm() { return &m_clientForm; }

  void ensureLoaded() override;
  void refresh() override;
  PagePlace where() const override { return {.tab = tabName()}; }
  void goTo(const PagePlace& place) override;
  void showRecord(const QString& tab) override { goTo({.tab = tab}); }

  Q_INVOKABLE void setUnsubscribesToBlocklist(bool on) { m_tasks.start(blocklistTask(on)); }
  /// Asks, then deletes the workspace, which nothing brings back.
  Q_INVOKABLE void deleteWorkspace() { m_tasks.start(deleteTask()); }
  Q_INVOKABLE void invite();
  Q_INVOKABLE void createClient();
  Q_INVOKABLE void copyWorkspaceId();
  /// A page of the web app about this workspace.
  Q_INVOKABLE void openOnWeb(const QString& path);
  Task<void> blocklistTask(bool on);
  Task<void> deleteTask();
  Task<void> clientTask(ClientWorkspaceBody body);

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<ResourceBase*> shown();
  bool isSaidOtherwise() const;
  void taken(const WorkspaceDetail& saved, FieldDraft::Version madeOn);
  const WorkspaceDetail* detail() const { return m_workspace.value(); }

  SettingsTab m_tab = SettingsTab::account;
  BusySet m_busy;
  Actions m_actions;
  Resource<WorkspaceDetail> m_workspace;
  WorkspaceForm m_workspaceForm;
  WorkspaceForm m_companyForm;
  MembersStore m_members;
  InvitesStore m_invites;
  OutreachLists m_lists;
  ClientForm m_clientForm;
};

}  // namespace orv
