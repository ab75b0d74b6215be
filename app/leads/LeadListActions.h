#pragma once

#include "app/base/Archive.h"
#include "app/leads/LeadExport.h"
#include "app/leads/LeadListForm.h"

namespace orv {

/// News of who is in a list, told under the list's id.
struct ListedLeads;
/// Leads have come into a list or left it: tells it, and whoever shows the list, its leads or how many are new.
void listFilled(WorkspaceContext& context, const QString& listId);

/// What is done with one list, wherever it is shown: among the others, on its own page, in the archive. One for the
/// workspace, so that a list is busy on all of them at once.
///
/// Each action takes the list as it was when the person acted. Answers go to the change feed.
class LeadListActions final : public Store {
  Q_OBJECT
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)
  Q_PROPERTY(orv::LeadListForm* form READ form CONSTANT)
  Q_PROPERTY(orv::LeadExport* exporting READ exporting CONSTANT)

 public:
  LeadListActions(WorkspaceContext& context, Store& whole);

  const BusySet& busy() const { return m_busy; }
  QStringList busyIds() const { return m_busy.ids().values(); }
  LeadListForm* form() { return &m_form; }
  LeadExport* exporting() { return &m_export; }

  void beginCreate();
  void beginEdit(const LeadList& list);
  void remove(const LeadList& list) { m_tasks.start(removeTask(list)); }
  void restore(const LeadList& list) { m_tasks.start(restoreTask(list)); }
  void removeForGood(const LeadList& list) { m_tasks.start(removeForGoodTask(list)); }
  void removeLeads(const LeadList& list, const QStringList& ids) { m_tasks.start(removeLeadsTask(list, ids)); }
  /// What can be done with it, by the list's state.
  QList<PageAction> offeredFor(const LeadList& list);

  Task<void> createTask();
  Task<void> editTask(LeadList list);
  /// Into the archive, after a question.
  Task<void> removeTask(LeadList list);
  Task<void> restoreTask(LeadList list);
  /// Out of the archive, after a question.
  Task<void> removeForGoodTask(LeadList list);
  Task<void> removeLeadsTask(LeadList list, QStringList ids);

 Q_SIGNALS:
  void busyChanged();
  /// They are no longer in the list.
  void leadsRemoved(const QString& listId, const QStringList& ids);

 private:
  void submit();
  void tellSaved(const LeadList& before, const LeadList& now);

  BusySet m_busy;
  Actions m_actions;
  Archive<LeadList, Empty> m_archive;
  LeadListForm m_form;
  LeadExport m_export;
};

}  // namespace orv
