#pragma once

#include "app/base/Actions.h"
#include "app/base/Choice.h"
#include "app/base/PagedList.h"
#include "app/base/RowSelection.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/LeadAdding.h"
#include "app/campaigns/LeadMove.h"
#include "app/campaigns/LeadPanel.h"
#include "app/campaigns/LeadRows.h"
#include "kit/models/campaigns/campaignLead.h"

namespace orv {

/// The leads of one campaign: read page by page, filtered, ticked, and what can be done to them.
///
/// The service filters by status and knows the archive; the search looks through what has been read, and reads on while
/// it finds little. Actions take ids as they were when the person acted.
class CampaignLeads final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* leads READ leads CONSTANT)
  Q_PROPERTY(orv::RowSelection* selection READ selection CONSTANT)
  Q_PROPERTY(orv::LeadAdding* adding READ adding CONSTANT)
  Q_PROPERTY(orv::LeadMove* move READ move CONSTANT)
  Q_PROPERTY(orv::LeadPanel* panel READ panel CONSTANT)
  Q_PROPERTY(QString leadStatus READ leadStatus WRITE setLeadStatus NOTIFY changed)
  Q_PROPERTY(QString leadQuery READ leadQuery WRITE setLeadQuery NOTIFY changed)
  Q_PROPERTY(bool leadsArchived READ leadsArchived WRITE setLeadsArchived NOTIFY changed)
  Q_PROPERTY(int totalCount READ totalCount NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> statusCounts READ statusCounts NOTIFY figuresChanged)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY figuresChanged)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(bool bulkBusy READ bulkBusy NOTIFY changed)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)

 public:
  static constexpr qint64 pageSize = 200;

  explicit CampaignLeads(CampaignContext& context);

  PagedList<LeadPage, LeadRowsModel>* leads() { return &m_leads; }
  LeadRowsModel* rows() { return m_leads.rows(); }
  RowSelection* selection() { return &m_selection; }
  LeadAdding* adding() { return &m_adding; }
  LeadMove* move() { return &m_move; }
  LeadPanel* panel() { return &m_panel; }
  const LeadPanel& panel() const { return m_panel; }

  /// Empty for all.
  const QString& leadStatus() const { return m_status; }
  void setLeadStatus(const QString& status);
  /// As typed; the rows follow a moment later.
  const QString& leadQuery() const { return m_query; }
  void setLeadQuery(const QString& query);
  /// Shows the leads that were removed.
  bool leadsArchived() const { return m_isArchive; }
  void setLeadsArchived(bool archived);

  /// Rows there will be once all are read; -1 while unknown.
  int totalCount() const;
  /// Each status that leads are in, with how many.
  QList<Choice> statusCounts() const;
  /// -1 while unknown.
  int archivedCount() const;
  QString countText() const;

  bool bulkBusy() const { return !m_bulk.ids().isEmpty(); }
  QStringList busyIds() const { return m_busy.ids().values(); }

  /// Clears status and search.
  Q_INVOKABLE void showAll();

  /// Opens the drawer.
  Q_INVOKABLE void open(const QString& id);
  Q_INVOKABLE void copyAddress(const QString& id);
  Q_INVOKABLE void pause(const QStringList& ids) { m_tasks.start(pauseTask(ids)); }
  Q_INVOKABLE void resume(const QStringList& ids) { m_tasks.start(resumeTask(ids)); }
  Q_INVOKABLE void remove(const QStringList& ids) { m_tasks.start(removeTask(ids)); }
  Q_INVOKABLE void restore(const QStringList& ids) { m_tasks.start(restoreTask(ids)); }
  Q_INVOKABLE void removeForGood(const QString& id) { m_tasks.start(removeForGoodTask(id)); }
  Q_INVOKABLE void beginMove(const QStringList& ids) { m_tasks.start(beginMoveTask(ids)); }

  Task<void> pauseTask(QStringList ids);
  Task<void> resumeTask(QStringList ids);
  Task<void> removeTask(QStringList ids);
  Task<void> restoreTask(QStringList ids);
  Task<void> removeForGoodTask(QString id);
  Task<void> beginMoveTask(QStringList ids);

  void close() override;

 protected:
  QList<PageAction> offered(const QString& record) override;

 Q_SIGNALS:
  void changed();
  /// What is counted over all leads, apart from `changed` so that a keystroke counts nothing.
  void figuresChanged();
  void busyChanged();

 private:
  Task<LeadPage> readPage(PageRequest page);
  Task<void> searchLater();
  Task<void> bulkTask(QString action, QStringList ids, QString done, QString failure);
  void askAnew();
  void leadsArrived();
  void search();
  void searchOn();
  void takeOut(const QStringList& ids);
  void readAgain();
  void changedElsewhere();
  QList<PageAction> offeredOf(const CampaignLead& lead);
  const CampaignLead* find(const QString& id) const;
  QString named(const QStringList& ids) const;

  CampaignContext& m_context;
  BusySet m_busy;
  /// Marked while an action on ticked leads is under way: one at a time.
  BusySet m_bulk;
  Actions m_actions;
  PagedList<LeadPage, LeadRowsModel> m_leads;
  RowSelection m_selection{m_leads};
  LeadAdding m_adding;
  LeadMove m_move;
  LeadPanel m_panel;
  TaskSlot m_searchTask;
  QString m_status;
  QString m_query;
  /// What the rows have been searched for.
  QString m_appliedQuery;
  /// The same as rows are searched for it.
  QString m_needle;
  bool m_isArchive = false;
};

}  // namespace orv
