#pragma once

#include <QStringList>

#include "app/base/Choice.h"
#include "app/base/NameForm.h"
#include "app/base/Resource.h"
#include "app/campaigns/CampaignRecords.h"
#include "app/campaigns/CampaignRows.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignSummary.h"

namespace orv {

/// The campaigns of one workspace: the list with its filters, the archive, and what can be done to a row.
///
/// Actions take the campaign's id as it was when the person acted. Each has a Task for C++ callers and a slot of the
/// same name without "Task" for the page.
class CampaignsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ResourceBase* archived READ archived CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::ListModel* archivedRows READ archivedRows CONSTANT)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)
  Q_PROPERTY(orv::NameForm* newCampaign READ newCampaign CONSTANT)
  Q_PROPERTY(orv::NameForm* rename READ rename CONSTANT)
  Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY changed)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
  Q_PROPERTY(QStringList tags READ tags NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tagOptions READ tagOptions NOTIFY tagsChanged)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)
  Q_PROPERTY(QString archivedSortKey READ archivedSortKey NOTIFY changed)
  Q_PROPERTY(bool archivedSortDescending READ archivedSortDescending NOTIFY changed)
  Q_PROPERTY(bool showArchived READ showArchived WRITE setShowArchived NOTIFY changed)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY figuresChanged)
  Q_PROPERTY(QList<orv::Choice> statusCounts READ statusCounts NOTIFY figuresChanged)
  Q_PROPERTY(QString summary READ summary NOTIFY figuresChanged)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(QString archivedCountText READ archivedCountText NOTIFY changed)
  Q_PROPERTY(QString createHint READ createHint NOTIFY changed)

 public:
  /// Has the sequence of a campaign saved that somebody is writing elsewhere; gives why that failed, or nothing.
  using SaveFirst = std::function<Task<QString>(QString id)>;
  /// Opens the campaign and does there what the action is for.
  using ActInside = std::function<void(const QString& id, const QString& action)>;

  explicit CampaignsStore(WorkspaceContext& context, SaveFirst saveFirst = {}, ActInside actInside = {});

  Resource<CampaignList>* list() { return &m_list; }
  Resource<CampaignList>* archived() { return &m_archived; }
  CampaignRowsModel* rows() { return &m_rows; }
  CampaignRowsModel* archivedRows() { return &m_archivedRows; }
  NameForm* newCampaign() { return &m_newCampaign; }
  NameForm* rename() { return &m_rename; }
  const BusySet& busy() const { return m_busy; }
  /// Campaigns with an action in flight.
  QStringList busyIds() const { return m_busy.ids().values(); }

  /// "all" or a status.
  QString filter() const { return m_query.filter; }
  void setFilter(const QString& filter);
  QString query() const { return m_query.query; }
  void setQuery(const QString& query);
  /// The tags filtered by.
  QStringList tags() const;
  /// Every tag that a campaign carries.
  QList<Choice> tagOptions() const;
  /// Empty for the service's order.
  QString sortKey() const { return m_query.sort ? m_query.sort->key : QString(); }
  bool sortDescending() const { return m_query.sort && m_query.sort->descending; }
  QString archivedSortKey() const { return m_archivedSort ? m_archivedSort->key : QString(); }
  bool archivedSortDescending() const { return m_archivedSort && m_archivedSort->descending; }
  bool showArchived() const { return m_showArchived; }
  void setShowArchived(bool shown);

  /// Archived campaigns there are; -1 while unknown.
  int archivedCount() const;
  /// Key, label and count of each status filter; the count is -1 while unknown.
  QList<Choice> statusCounts() const;
  /// "4 running · 28,448 emails sent · 226 positive replies".
  QString summary() const;
  QString countText() const;
  QString archivedCountText() const;
  /// Why nothing can be created; empty when it can.
  QString createHint() const;

  /// Loads what is on screen again.
  void refresh() override;
  QList<FoundRecord> found() const override;
  void ensureFound() override { m_list.ensureLoaded(); }
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override { setShowArchived(false); }
  Q_INVOKABLE void toggleTag(const QString& tag);
  /// An empty key is the service's order.
  Q_INVOKABLE void sort(const QString& key, bool descending);
  Q_INVOKABLE void sortArchived(const QString& key, bool descending);
  /// Clears the filters.
  Q_INVOKABLE void showAll();

  Q_INVOKABLE void open(const QString& id);
  Q_INVOKABLE void beginCreate();
  Q_INVOKABLE void beginRename(const QString& id);
  Q_INVOKABLE void pause(const QString& id) { m_tasks.start(pauseTask(id)); }
  Q_INVOKABLE void resume(const QString& id) { m_tasks.start(resumeTask(id)); }
  Q_INVOKABLE void duplicate(const QString& id) { m_tasks.start(duplicateTask(id)); }
  Q_INVOKABLE void remove(const QString& id) { m_tasks.start(removeTask(id)); }
  Q_INVOKABLE void restore(const QString& id) { m_tasks.start(restoreTask(id)); }
  Q_INVOKABLE void removeForGood(const QString& id) { m_tasks.start(removeForGoodTask(id)); }
  Q_INVOKABLE void downloadAnalytics(const QString& id) { m_tasks.start(downloadAnalyticsTask(id)); }
  Q_INVOKABLE void copyLink(const QString& id);

  Task<void> createTask(QString name);
  Task<void> renameTask(QString id, QString name);
  Task<void> pauseTask(QString id);
  Task<void> resumeTask(QString id);
  Task<void> duplicateTask(QString id);
  Task<void> removeTask(QString id);
  Task<void> restoreTask(QString id);
  Task<void> removeForGoodTask(QString id);
  Task<void> downloadAnalyticsTask(QString id);

 Q_SIGNALS:
  void changed();
  /// What is counted over the whole list. Apart from `changed`, so that a keystroke in the search field counts nothing.
  void figuresChanged();
  void tagsChanged();
  void busyChanged();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<PageAction> offeredLive(const CampaignSummary& campaign);
  QList<PageAction> offeredInside(const CampaignSummary& campaign);
  QList<PageAction> offeredArchived(const QString& id);
  Task<bool> savedFirst(QString id);
  const CampaignSummary* find(const QString& id) const;
  void take(const Change<Campaign>& change);
  void takeArchived(const Change<Archived<Campaign>>& change);
  void listArrived();
  void archiveArrived();
  void ask(const CampaignQuery& query);
  void showArchivedRows(bool newQuestion);

  SaveFirst m_saveFirst;
  ActInside m_actInside;
  BusySet m_busy;
  Actions m_actions;
  Archive<Campaign> m_archive;
  Resource<CampaignList> m_list;
  Resource<CampaignList> m_archived;
  CampaignIndex m_index;
  CampaignIndex m_archiveIndex;
  CampaignRowsModel m_rows;
  CampaignRowsModel m_archivedRows;
  NameForm m_newCampaign;
  NameForm m_rename;
  RenamedCampaign m_renamed;
  CampaignQuery m_query;
  std::optional<OrvSort> m_archivedSort;
  bool m_showArchived = false;
};

}  // namespace orv
