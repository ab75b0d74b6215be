#pragma once

#include <QStringList>
#include <QVariantList>

#include "app/base/Actions.h"
#include "app/base/CursorPages.h"
#include "app/base/Selection.h"
#include "app/base/Store.h"
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
  Q_PROPERTY(orv::ResourceBase* leads READ leads CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::LeadAdding* adding READ adding CONSTANT)
  Q_PROPERTY(orv::LeadMove* move READ move CONSTANT)
  Q_PROPERTY(orv::LeadPanel* panel READ panel CONSTANT)
  Q_PROPERTY(QString leadStatus READ leadStatus WRITE setLeadStatus NOTIFY changed)
  Q_PROPERTY(QString leadQuery READ leadQuery WRITE setLeadQuery NOTIFY changed)
  Q_PROPERTY(bool leadsArchived READ leadsArchived WRITE setLeadsArchived NOTIFY changed)
  Q_PROPERTY(QString question READ question NOTIFY changed)
  Q_PROPERTY(QStringList selected READ selected NOTIFY selectionChanged)
  Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
  Q_PROPERTY(bool canLoadMore READ canLoadMore NOTIFY changed)
  Q_PROPERTY(bool loadingMore READ loadingMore NOTIFY changed)
  Q_PROPERTY(bool moreFailed READ moreFailed NOTIFY changed)
  Q_PROPERTY(int totalCount READ totalCount NOTIFY changed)
  Q_PROPERTY(QVariantList statusCounts READ statusCounts NOTIFY figuresChanged)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY figuresChanged)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(bool bulkBusy READ bulkBusy NOTIFY changed)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)

 public:
  static constexpr qint64 pageSize = 200;

  explicit CampaignLeads(CampaignContext& context);

  /// The first page of what is asked for; the rows read so far are in rows().
  Resource<LeadPage>* leads() { return &m_leads; }
  LeadRowsModel* rows() { return &m_rows; }
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
  /// Changes with whatever makes the rows the answer to another question.
  QString question() const;

  QStringList selected() const { return m_selection.ids().values(); }
  int selectedCount() const { return int(m_selection.ids().size()); }

  bool canLoadMore() const { return m_pages.hasMore(); }
  bool loadingMore() const { return m_pages.loading(); }
  bool moreFailed() const { return m_pages.failed(); }
  /// Rows there will be once all are read; -1 while unknown.
  int totalCount() const;
  /// Key and label, with the count, of each status that leads are in.
  QVariantList statusCounts() const;
  /// -1 while unknown.
  int archivedCount() const;
  QString countText() const;

  bool bulkBusy() const { return !m_bulk.ids().isEmpty(); }
  QStringList busyIds() const { return m_busy.ids().values(); }

  /// Reads again as much as has been read, leaving it on screen meanwhile.
  void refresh() override;
  Q_INVOKABLE void loadMore();
  /// Clears status and search.
  Q_INVOKABLE void showAll();

  Q_INVOKABLE void toggle(const QString& id);
  Q_INVOKABLE void extendTo(const QString& from, const QString& to);
  Q_INVOKABLE void toggleAll();
  Q_INVOKABLE void clearSelection();

  /// Opens the drawer.
  Q_INVOKABLE void open(const QString& id);
  Q_INVOKABLE void copyAddress(const QString& id);
  Q_INVOKABLE void pause(const QStringList& ids) { m_tasks.start(pauseTask(ids)); }
  Q_INVOKABLE void resume(const QStringList& ids) { m_tasks.start(resumeTask(ids)); }
  Q_INVOKABLE void remove(const QStringList& ids) { m_tasks.start(removeTask(ids)); }
  Q_INVOKABLE void restore(const QStringList& ids) { m_tasks.start(restoreTask(ids)); }
  Q_INVOKABLE void removeForGood(const QString& id) { m_tasks.start(removeForGoodTask(id)); }
  Q_INVOKABLE void beginMove(const QStringList& ids) { m_move.show(ids); }

  Task<void> pauseTask(QStringList ids);
  Task<void> resumeTask(QStringList ids);
  Task<void> removeTask(QStringList ids);
  /// `name` is what the message calls them; empty when the rows know it.
  Task<void> restoreTask(QStringList ids, QString name = {});
  Task<void> removeForGoodTask(QString id);

  void close() override;

 Q_SIGNALS:
  void changed();
  /// What is counted over all leads, apart from `changed` so that a keystroke counts nothing.
  void figuresChanged();
  void selectionChanged();
  void busyChanged();

 private:
  Task<LeadPage> readPage(std::optional<QString> cursor);
  Task<void> searchLater();
  Task<void> bulkTask(QString action, QStringList ids, QString done, QString failure);
  void askAnew();
  void firstPageArrived();
  void pageArrived(const LeadPage& page);
  void takeAll(const LeadPage& page);
  void search();
  void searchOn();
  void pruneSelection();
  void takeOut(const QStringList& ids);
  void changedElsewhere();
  QString named(const QStringList& ids) const;
  /// For who takes back what they removed, wherever they are by then.
  static Task<void> undoRemoval(std::shared_ptr<WorkspaceContext> workspace, QPointer<CampaignLeads> leads,
                                QString campaign, QStringList ids, QString name);

  CampaignContext& m_context;
  BusySet m_busy;
  /// Marked while an action on ticked leads is under way: one at a time.
  BusySet m_bulk;
  Actions m_actions;
  Resource<LeadPage> m_leads;
  CursorPages<LeadPage> m_pages;
  LeadIndex m_index;
  LeadRowsModel m_rows;
  LeadAdding m_adding;
  LeadMove m_move;
  LeadPanel m_panel;
  Selection m_selection;
  TaskSlot m_searchTask;
  QString m_status;
  QString m_query;
  /// What the rows have been searched for.
  QString m_appliedQuery;
  bool m_isArchive = false;
  /// The rows still answer the question before.
  bool m_asksAnew = true;
};

}  // namespace orv
