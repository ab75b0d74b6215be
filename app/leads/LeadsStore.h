#pragma once

#include "app/leads/LeadFinder.h"
#include "app/leads/LeadLists.h"

namespace orv {

/// The leads' page: the search, and the lists. The page of one list is a store of its own.
class LeadsStore final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::LeadFinder* finder READ finder CONSTANT)
  Q_PROPERTY(orv::LeadLists* lists READ lists CONSTANT)
  Q_PROPERTY(orv::LeadActions* leadActions READ leadActions CONSTANT)
  Q_PROPERTY(bool showLists READ showLists NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tabs READ tabs NOTIFY changed)
  Q_PROPERTY(QString tab READ tab WRITE setTab NOTIFY changed)

 public:
  /// `actions` are the workspace's.
  LeadsStore(WorkspaceContext& context, LeadActions& actions);

  LeadFinder* finder() { return &m_finder; }
  LeadLists* lists() { return &m_lists; }
  LeadActions* leadActions() { return &m_actions; }

  bool showLists() const { return m_showLists; }
  /// "search" or "lists".
  QString tab() const;
  void setTab(const QString& tab);
  QList<Choice> tabs() const;

  void ensureLoaded() override;
  /// Loads what is on the screen again.
  void refresh() override;
  QList<FoundRecord> found() const override { return m_lists.found(); }
  void ensureFound() override { m_lists.ensureFound(); }
  PagePlace where() const override;
  void goTo(const PagePlace& place) override;
  void begin() override { setTab({}); }
  void trim() override { m_finder.trim(); }

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  LeadActions& m_actions;
  LeadLists m_lists;
  LeadFinder m_finder;
  bool m_showLists = false;
};

}  // namespace orv
