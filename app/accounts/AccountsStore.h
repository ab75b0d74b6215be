#pragma once

#include "app/accounts/AccountActions.h"
#include "app/accounts/AccountBulk.h"
#include "app/accounts/AccountRows.h"
#include "app/accounts/AddAccount.h"
#include "app/base/Choice.h"
#include "app/base/PagedList.h"
#include "app/base/RowSelection.h"
#include "kit/models/mailboxes/mailboxPage.h"

namespace orv {

/// The email accounts of one workspace: all of them, read page by page and shown as they come, filtered, sorted and
/// ticked here; and the archive of those removed. Accounts of the warm-up pool are nobody's own and are left out of
/// both.
class AccountsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* list READ list CONSTANT)
  Q_PROPERTY(orv::PagedListBase* archived READ archived CONSTANT)
  Q_PROPERTY(orv::RowSelection* selection READ selection CONSTANT)
  Q_PROPERTY(orv::AccountBulk* bulk READ bulk CONSTANT)
  Q_PROPERTY(orv::AddAccount* adding READ adding CONSTANT)
  Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY changed)
  Q_PROPERTY(QString provider READ provider WRITE setProvider NOTIFY changed)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)
  Q_PROPERTY(QString archivedSortKey READ archivedSortKey NOTIFY changed)
  Q_PROPERTY(bool archivedSortDescending READ archivedSortDescending NOTIFY changed)
  Q_PROPERTY(bool showArchived READ showArchived WRITE setShowArchived NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> statusCounts READ statusCounts NOTIFY figuresChanged)
  Q_PROPERTY(QList<orv::Choice> providers READ providers CONSTANT)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY figuresChanged)
  Q_PROPERTY(QString summary READ summary NOTIFY figuresChanged)
  Q_PROPERTY(QString attention READ attention NOTIFY figuresChanged)
  Q_PROPERTY(QString countText READ countText NOTIFY countsChanged)
  Q_PROPERTY(QString archivedCountText READ archivedCountText NOTIFY countsChanged)
  Q_PROPERTY(QString addHint READ addHint NOTIFY roleChanged)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)

 public:
  /// `actions` are the workspace's.
  AccountsStore(WorkspaceContext& context, AccountActions& actions);

  using List = PagedList<MailboxPage, AccountRowsModel>;
  List* list() { return &m_list; }
  List* archived() { return &m_archived; }
  RowSelection* selection() { return &m_selection; }
  AccountBulk* bulk() { return &m_bulk; }
  AddAccount* adding() { return &m_adding; }

  /// A status word; empty for all.
  const QString& filter() const { return m_query.status; }
  void setFilter(const QString& status);
  const QString& provider() const { return m_query.provider; }
  void setProvider(const QString& provider);
  const QString& query() const { return m_query.text; }
  void setQuery(const QString& text);
  /// Empty for the service's order.
  QString sortKey() const { return m_sort ? m_sort->key : QString(); }
  bool sortDescending() const { return m_sort && m_sort->descending; }
  QString archivedSortKey() const { return m_archivedSort ? m_archivedSort->key : QString(); }
  bool archivedSortDescending() const { return m_archivedSort && m_archivedSort->descending; }
  bool showArchived() const { return m_showArchived; }
  void setShowArchived(bool shown);

  /// "All" and each status that the service counts, with how many of those read are in it.
  QList<Choice> statusCounts() const;
  static QList<Choice> providers();
  /// -1 while unknown.
  int archivedCount() const;
  /// "48 connected · 41 accounts campaigns can use today · 1,206 of 1,640 campaign emails of today’s limit".
  QString summary() const;
  /// "3 need attention"; empty for none.
  QString attention() const;
  QString countText() const;
  QString archivedCountText() const;
  /// Every tag that an account has, with how many have it.
  /// Why nothing can be added; empty when it can.
  QString addHint() const;
  /// Tags that accounts carry.
  QList<Choice> knownTags() const;
  QStringList busyIds() const { return m_actions.busyIds(); }

  /// Loads what is on the screen again.
  void refresh() override;
  QList<FoundRecord> found() const override;
  void ensureFound() override { m_list.ensureLoaded(); }
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override { setShowArchived(false); }

  /// An empty key is the service's order.
  Q_INVOKABLE void sort(const QString& key, bool descending);
  Q_INVOKABLE void sortArchived(const QString& key, bool descending);
  /// Clears the filters.
  Q_INVOKABLE void showAll();
  Q_INVOKABLE void open(const QString& id);

 Q_SIGNALS:
  void changed();
  /// What is counted over all accounts, apart from `changed` so that a keystroke counts nothing.
  void figuresChanged();
  void countsChanged();
  void busyChanged();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  QList<PageAction> offeredLive(const Mailbox& mailbox);
  QList<PageAction> offeredArchived(const Mailbox& mailbox);
  Task<MailboxPage> readPage(bool archived, PageRequest page);
  void ask(const AccountQuery& query);
  void arrived();
  void bulkEnded(const AccountBulk::Ended& ended);
  void countArchived(qint64 by);
  void copyAddress(const QString& address);
  Task<void> follow();
  Task<bool> lookAgain();

  struct Figures {
    qint64 accounts = 0;
    qint64 usable = 0;
    qint64 sent = 0;
    qint64 limit = 0;
    qint64 attention = 0;
    QMap<QString, int> byStatus;
  };

  AccountActions& m_actions;
  AccountQuery m_query;
  AccountFilter m_filter;
  std::optional<OrvSort> m_sort;
  std::optional<OrvSort> m_archivedSort;
  List m_list;
  List m_archived;
  RowSelection m_selection{m_list};
  AccountBulk m_bulk;
  AddAccount m_adding;
  Figures m_figures;
  TaskSlot m_following;
  bool m_showArchived = false;
};

}  // namespace orv
