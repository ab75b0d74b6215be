#pragma once

#include "app/base/Archive.h"
#include "app/base/NameForm.h"
#include "app/base/Resource.h"
#include "app/setup/NewProject.h"
#include "app/setup/SetupProjectRow.h"
#include "app/setup/SetupRuns.h"

namespace orv {

/// The projects of inbox setup, those that wait in the archive, and the runs of all of them.
class InboxSetupStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ResourceBase* archived READ archived CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::ListModel* archivedRows READ archivedRows CONSTANT)
  Q_PROPERTY(orv::NewProject* newProject READ newProject CONSTANT)
  Q_PROPERTY(orv::NameForm* rename READ rename CONSTANT)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY changed)
  Q_PROPERTY(bool showArchived READ showArchived WRITE setShowArchived NOTIFY changed)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(QString createHint READ createHint NOTIFY changed)

 public:
  static constexpr std::chrono::seconds whileRunning{2}, otherwise{10};

  /// Saves what somebody is typing on the project's page; gives why that failed, or nothing.
  using SaveFirst = std::function<Task<QString>(QString id)>;

  explicit InboxSetupStore(WorkspaceContext& context, SaveFirst saveFirst = {});

  Resource<SetupProjectPage>* list() { return &m_list; }
  Resource<SetupProjectPage>* archived() { return &m_archived; }
  SetupProjectRows* rows() { return &m_rows; }
  SetupProjectRows* archivedRows() { return &m_archivedRows; }
  NewProject* newProject() { return &m_new; }
  NameForm* rename() { return &m_rename; }
  SetupRuns& runs() { return m_runs; }
  Actions& actions() { return m_actions; }
  const BusySet& busy() const { return m_busy; }
  QStringList busyIds() const;
  bool showArchived() const { return m_showArchived; }
  void setShowArchived(bool shown);
  /// -1 while unknown.
  int archivedCount() const;
  QString countText() const;
  QString summary() const;
  QString createHint() const;
  const SetupProject* find(const QString& id) const;

  void ensureLoaded() override;
  void refresh() override { m_showArchived ? m_archived.load() : m_list.load(); }
  PagePlace where() const override { return {.tab = m_showArchived ? QStringLiteral("archive") : QString()}; }
  void goTo(const PagePlace& place) override { setShowArchived(!place.tab.isEmpty()); }
  void begin() override { setShowArchived(false); }
  QList<FoundRecord> found() const override;
  void ensureFound() override { m_list.ensureLoaded(); }

  Q_INVOKABLE void beginCreate();
  Q_INVOKABLE void open(const QString& id) { context().openItem(Page::inboxSetup, id); }
  void beginRename(const SetupProject& project);
  /// Tells why it cannot run, or starts it.
  void run(const QString& id) { m_tasks.start(runTask(id)); }
  void remove(const QString& id) { m_tasks.start(removeTask(id)); }
  void restore(const QString& id) { m_tasks.start(restoreTask(id)); }
  void exportCredentials(const QString& id, const QString& name) { m_tasks.start(exportTask(id, name)); }

  Task<void> createTask(QString name, SetupMode mode);
  Task<void> renameTask(QString id, QString name);
  Task<void> runTask(QString id);
  Task<void> removeTask(QString id);
  Task<void> restoreTask(QString id);
  Task<void> exportTask(QString id, QString name);

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<PageAction> offeredOnPage();
  void take(const Change<SetupProject>& change);
  void takeArchived(const Change<Archived<SetupProject>>& change);
  void show();
  Task<void> pollTask();
  void followRuns();
  bool isRunning() const;

  SaveFirst m_saveFirst;
  BusySet m_busy;
  Actions m_actions;
  Archive<SetupProject> m_archive;
  Resource<SetupProjectPage> m_list;
  Resource<SetupProjectPage> m_archived;
  SetupProjectRows m_rows;
  SetupProjectRows m_archivedRows;
  NewProject m_new;
  NameForm m_rename;
  /// As it was when the form was filled.
  SetupProject m_renamed;
  SetupRuns m_runs;
  TaskSlot m_poller;
  /// What the poller goes by.
  std::optional<bool> m_polledRunning;
  bool m_showArchived = false;
};

}  // namespace orv
