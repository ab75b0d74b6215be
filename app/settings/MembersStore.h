#pragma once

#include "app/base/Actions.h"
#include "app/base/Resource.h"
#include "app/settings/InviteForm.h"
#include "app/settings/MemberRows.h"

namespace orv {

class InvitesStore;

/// The workspace's members. What can be done with one stands in offered().
class MembersStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(QStringList busy READ busyIds NOTIFY changed)
  Q_PROPERTY(bool canManage READ canManage NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> roles READ roles CONSTANT)

 public:
  explicit MembersStore(Store& whole);

  Resource<MemberPage>* list() { return &m_list; }
  RecordModel<MemberRow>* rows() { return &m_rows; }
  QStringList busyIds() const { return m_busy.ids().values(); }
  /// Owners and admins do.
  bool canManage() const;
  QList<Choice> roles() const;

  void ensureLoaded() override { m_list.ensureLoaded(); }
  /// Key of the member's role, to be ticked among roles().
  Q_INVOKABLE QString roleOf(const QString& id) const;
  /// Neither oneself nor while something is under way with them.
  Q_INVOKABLE bool canChange(const QString& id) const;
  Q_INVOKABLE void changeRole(const QString& id, const QString& role) { m_tasks.start(changeRoleTask(id, role)); }
  Q_INVOKABLE void remove(const QString& id) { m_tasks.start(removeTask(id)); }
  Task<void> changeRoleTask(QString id, QString role);
  Task<void> removeTask(QString id);

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  const Member* find(const QString& id) const;
  void show();

  Resource<MemberPage> m_list;
  RecordModel<MemberRow> m_rows;
  BusySet m_busy;
  Actions m_actions;
};

/// The invites that wait, and the form that sends one.
class InvitesStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(QStringList busy READ busyIds NOTIFY changed)
  Q_PROPERTY(orv::InviteForm* form READ form CONSTANT)

 public:
  explicit InvitesStore(Store& whole);

  Resource<InvitePage>* list() { return &m_list; }
  RecordModel<InviteRow>* rows() { return &m_rows; }
  QStringList busyIds() const { return m_busy.ids().values(); }
  InviteForm* form() { return &m_form; }

  void ensureLoaded() override { m_list.ensureLoaded(); }
  Q_INVOKABLE void revoke(const QString& id) { m_tasks.start(revokeTask(id)); }
  Task<void> revokeTask(QString id);
  Task<void> inviteTask(InviteFields fields);

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  Resource<InvitePage> m_list;
  RecordModel<InviteRow> m_rows;
  BusySet m_busy;
  Actions m_actions;
  InviteForm m_form;
};

}  // namespace orv
