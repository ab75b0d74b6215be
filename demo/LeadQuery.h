#pragma once

#include "demo/Routes.h"

namespace orv::demo {

/// Leads that are counted one by one up to here; of more, the service gives its estimate.
constexpr qint64 countedExactly = 10'000;
LeadCount countShown(qint64 count);

/// What is asked for among the leads of a workspace.
class LeadQuery {
 public:
  LeadQuery(const Call& call, const LeadFilterBody& filter);
  LeadQuery(const LeadQuery&) = delete;
  LeadQuery& operator=(const LeadQuery&) = delete;

  /// What stands in a request's query, read as a body would say it.
  static LeadFilterBody filterOf(const DemoRequest& request);

  /// In the pool that is asked for. A match's order is its cursor; those at or below `before` alone are given, the
  /// newest first, until `use` wants no more.
  void each(std::optional<qint64> before, const std::function<bool(LeadPlace lead, qint64 order)>& use) const;
  /// The first so many at most.
  QList<LeadPlace> first(qint64 limit) const;

  struct Pools {
    qint64 all = 0;
    qint64 used = 0;
  };
  Pools pools() const;

 private:
  bool fits(LeadPlace lead) const;
  bool isInPool(LeadPlace lead) const;
  void eachOfAnyPool(std::optional<qint64> before, const std::function<bool(LeadPlace lead, qint64 order)>& use) const;

  const WorkspaceLeads& m_leads;
  LeadMatcher m_matcher;
  std::shared_ptr<const LeadBase::Plan> m_plan;
  QString m_pool;
  const DemoLeadList* m_list = nullptr;
  bool m_isOfNothing = false;
  std::optional<QSet<LeadPlace>> m_campaign;
};

}  // namespace orv::demo
