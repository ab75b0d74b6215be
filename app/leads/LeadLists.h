#pragma once

#include "app/base/Resource.h"
#include "app/leads/LeadActions.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// The workspace's lists of leads.
class LeadLists final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)

 public:
  LeadLists(WorkspaceContext& context, Store& whole, LeadActions& actions);

  Resource<LeadListPage>* list() { return &m_list; }
  /// -1 while unknown.
  int count() const;
  /// Those that are known, for filters and for whoever looks one up.
  QList<LeadList> all() const;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString&) override { return {}; }

 private:
  Resource<LeadListPage> m_list;
};

}  // namespace orv
