#pragma once

#include "app/leads/LeadColumns.h"
#include "app/leads/LeadLists.h"
#include "app/leads/LeadResults.h"

namespace orv {

/// The page of one list: who is in it, and what can be done with them and with the list.
class LeadListStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::LeadResults* results READ results CONSTANT)
  Q_PROPERTY(orv::LeadColumns* columns READ columns CONSTANT)
  Q_PROPERTY(orv::LeadActions* leadActions READ leadActions CONSTANT)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(QString description READ description NOTIFY changed)
  Q_PROPERTY(QString countText READ countText NOTIFY changed)
  Q_PROPERTY(bool known READ known NOTIFY changed)
  Q_PROPERTY(bool missing READ missing NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)

 public:
  /// `lists` are the workspace's, and outlive this.
  LeadListStore(const QString& id, WorkspaceContext& context, LeadActions& actions, LeadLists& lists);

  LeadResults* results() { return &m_results; }
  LeadColumns* columns() { return &m_columns; }
  LeadActions* leadActions() { return &m_actions; }
  QString name() const;
  QString description() const;
  /// "2,600 leads".
  QString countText() const;
  bool known() const { return list() != nullptr; }
  /// The lists have been read, and it is not among them.
  bool missing() const { return !known() && m_lists.count() >= 0; }
  bool busy() const { return m_actions.lists()->busy().contains(m_id); }

  Q_INVOKABLE void openLists() { context().open(Page::leads); }
  /// Those that are ticked leave the list.
  Q_INVOKABLE void removeTicked();
  Q_INVOKABLE void importInto() { m_actions.importing()->showFor(m_id); }
  /// A file was dropped on the page.
  Q_INVOKABLE void dropFile(const QUrl& file);
  /// All of it, or what is ticked.
  Q_INVOKABLE void exportCsv();

  void ensureLoaded() override;
  void refresh() override;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  const LeadList* list() const;
  void follow(const Change<LeadList>& change);
  void takeOut(const QString& listId, const QStringList& ids);
  QList<PageAction> offeredOnPage(const LeadList& list);

  const QString m_id;
  LeadActions& m_actions;
  LeadLists& m_lists;
  LeadResults m_results;
  LeadColumns m_columns{services().preferences};
};

}  // namespace orv
