#pragma once

#include "app/base/PagedList.h"
#include "app/leads/LeadActions.h"
#include "app/leads/LeadImports.h"
#include "app/leads/LeadListRows.h"

namespace orv {

/// The lists as the service gives them: all at once.
struct WholeLeadLists {
  QList<LeadList> items;
  std::optional<QString> nextCursor = {};
};

/// The workspace's lists of leads, those in the archive, and the imports that fill them.
class LeadLists final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::PagedListBase* list READ list CONSTANT)
  Q_PROPERTY(orv::PagedListBase* archived READ archived CONSTANT)
  Q_PROPERTY(orv::LeadImports* imports READ imports CONSTANT)
  Q_PROPERTY(orv::LeadActions* actions READ leadActions CONSTANT)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY busyChanged)
  Q_PROPERTY(bool showArchived READ showArchived WRITE setShowArchived NOTIFY changed)
  Q_PROPERTY(int archivedCount READ archivedCount NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(QString archivedCountText READ archivedCountText NOTIFY changed)
  Q_PROPERTY(QString createHint READ createHint NOTIFY roleChanged)
  Q_PROPERTY(QString sortKey READ sortKey NOTIFY changed)
  Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY changed)

 public:
  /// `actions` are the workspace's.
  LeadLists(WorkspaceContext& context, Store& whole, LeadActions& actions);

  using List = PagedList<WholeLeadLists, LeadListRowsModel>;
  List* list() { return &m_list; }
  List* archived() { return &m_archived; }
  LeadImports* imports() { return &m_imports; }
  LeadActions* leadActions() { return &m_actions; }
  QStringList busyIds() const;

  /// -1 while unknown.
  int count() const;
  int archivedCount() const;
  /// Those that are known, for filters and for whoever looks one up.
  QList<LeadList> all() const;
  /// "14 lists · 26,908 leads".
  QString countText() const;
  QString archivedCountText() const;
  /// Why nothing can be created; empty when it can.
  QString createHint() const;

  bool showArchived() const { return m_showArchived; }
  void setShowArchived(bool shown);
  QString sortKey() const { return m_sort ? m_sort->key : QString(); }
  bool sortDescending() const { return m_sort && m_sort->descending; }
  /// An empty key is the service's order.
  Q_INVOKABLE void sort(const QString& key, bool descending);
  Q_INVOKABLE void open(const QString& id) { context().openItem(Page::leads, id); }

  void ensureLoaded() override;
  void refresh() override;
  QList<FoundRecord> found() const override;
  void ensureFound() override { m_list.ensureLoaded(); }
  PagePlace where() const override;
  void goTo(const PagePlace& place) override { setShowArchived(!place.tab.isEmpty()); }

 Q_SIGNALS:
  void changed();
  void busyChanged();
  /// They are to be seen: an import has begun.
  void wanted();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  Task<WholeLeadLists> readPage(bool archived);
  QString nameOf(const QString& id) const;
  QList<PageAction> offeredOnPage();
  QList<PageAction> offeredLive(const LeadList& list);

  LeadActions& m_actions;
  List m_list;
  List m_archived;
  LeadImports m_imports;
  std::optional<OrvSort> m_sort;
  bool m_showArchived = false;
};

}  // namespace orv
