#pragma once

#include "app/base/EnumName.h"
#include "app/setup/InboxSetupStore.h"
#include "app/setup/RunRows.h"
#include "app/setup/SetupChecks.h"
#include "app/setup/SetupDomains.h"
#include "app/setup/SetupPhoto.h"

namespace orv {

/// One project: its form, and its run.
class SetupProjectStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* project READ project CONSTANT)
  Q_PROPERTY(orv::SetupForm* form READ form CONSTANT)
  Q_PROPERTY(orv::SetupDomains* domains READ domains CONSTANT)
  Q_PROPERTY(orv::SetupPhoto* photo READ photo CONSTANT)
  Q_PROPERTY(orv::SetupChecks* checks READ checks CONSTANT)
  Q_PROPERTY(orv::NameForm* rename READ rename CONSTANT)
  Q_PROPERTY(orv::ListModel* runRows READ runRows CONSTANT)
  Q_PROPERTY(QString tab READ tabName WRITE setTab NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tabs READ tabs NOTIFY changed)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QString modeText READ modeText NOTIFY changed)
  Q_PROPERTY(bool makesInboxes READ makesInboxes NOTIFY changed)
  Q_PROPERTY(QString savedRecovery READ savedRecovery NOTIFY changed)
  Q_PROPERTY(QString runText READ runText NOTIFY changed)
  Q_PROPERTY(QString runTone READ runTone NOTIFY changed)
  Q_PROPERTY(bool archived READ isArchived NOTIFY changed)
  Q_PROPERTY(bool editable READ isEditable NOTIFY changed)
  Q_PROPERTY(bool missing READ isMissing NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString mainAction READ mainAction NOTIFY changed)
  Q_PROPERTY(QString runState READ runState NOTIFY changed)
  Q_PROPERTY(QString runEmptyTitle READ runEmptyTitle NOTIFY changed)
  Q_PROPERTY(QString runEmptyText READ runEmptyText NOTIFY changed)
  Q_PROPERTY(QString runFailure READ runFailure NOTIFY changed)
  Q_PROPERTY(QString runHeadline READ runHeadline NOTIFY changed)
  Q_PROPERTY(QString runFacts READ runFacts NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> runParts READ runParts NOTIFY changed)
  Q_PROPERTY(QString selectedRow READ selectedRow NOTIFY changed)

 public:
  enum class Tab { project, run };
  Q_ENUM(Tab)

  SetupProjectStore(QString id, InboxSetupStore& list);

  const QString& id() const { return m_id; }
  Resource<SetupProject>* project() { return &m_project; }
  SetupForm* form() { return &m_form; }
  SetupDomains* domains() { return &m_domains; }
  SetupPhoto* photo() { return &m_photo; }
  SetupChecks* checks() { return &m_checks; }
  NameForm* rename() { return m_list.rename(); }
  RunRows* runRows() { return &m_rows; }
  QString tabName() const { return enumName(m_tab); }
  /// By its name; another name changes nothing.
  void setTab(const QString& name);
  QList<Choice> tabs() const;
  QString name() const;
  QString modeText() const;
  /// It is for new inboxes; the reseller's password is then changed.
  bool makesInboxes() const;
  QString savedRecovery() const;
  QString runText() const;
  QString runTone() const;
  bool isArchived() const;
  bool isEditable() const { return canWrite() && !isArchived(); }
  bool isMissing() const { return m_missing; }
  bool busy() const;
  /// "run", "pause", "resume", "again" or "restore"; empty while nothing is known.
  QString mainAction() const;
  /// "loading", "empty", "error" or "ready".
  QString runState() const;
  /// Why there is nothing yet, and what to do.
  QString runEmptyTitle() const;
  QString runEmptyText() const;
  QString runFailure() const { return runs().of(m_id).failure; }
  /// "14 of 24 inboxes connected".
  QString runHeadline() const;
  /// "8 domains · started 09:31".
  QString runFacts() const;
  /// The bar's parts: key is the tone, count how many inboxes.
  QList<Choice> runParts() const;
  /// The row whose domain's checks show; empty for none.
  const QString& selectedRow() const { return m_selectedRow; }

  void ensureLoaded() override;
  void refresh() override;
  PagePlace where() const override { return {.tab = tabName(), .value = {}}; }
  void goTo(const PagePlace& place) override { setTab(place.tab); }
  Q_INVOKABLE void openList() { context().open(Page::inboxSetup); }
  Q_INVOKABLE void fold(const QString& domain);
  Q_INVOKABLE void select(const QString& row);
  Q_INVOKABLE void closeChecks();
  Q_INVOKABLE void authorize(const QString& domain);
  Q_INVOKABLE void retryDomain(const QString& domain) { runs().retry(m_id, domain); }
  Q_INVOKABLE void reloadRun() { runs().reload(m_id); }
  void run() { m_tasks.start(runTask()); }
  Task<void> runTask();

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  SetupRuns& runs() const { return m_list.runs(); }
  const SetupRun* known() const { return runs().runOf(m_id); }
  std::optional<SetupLastRun> lastRun() const;
  Task<SetupProject> load();
  void take(const Change<SetupProject>& change);
  void followRun(const QString& projectId);
  QList<PageAction> runActions(bool isFree);
  QList<PageAction> rowActions(const RunRow& row, bool isFree);

  QString m_id;
  InboxSetupStore& m_list;
  Resource<SetupProject> m_project;
  SetupForm m_form;
  SetupDomains m_domains;
  SetupPhoto m_photo;
  SetupChecks m_checks;
  RunRows m_rows;
  QSet<QString> m_folded;
  RunCounts m_counts;
  QString m_selectedRow;
  Tab m_tab = Tab::project;
  bool m_missing = false;
  bool m_starting = false;
};

}  // namespace orv
