#pragma once

#include "app/leads/LeadResults.h"
#include "kit/models/leads/leadCounts.h"

namespace orv {

class LeadLists;

/// The search for leads: what is searched for, what was found, and how much there is.
class LeadFinder final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::LeadResults* results READ results CONSTANT)

 public:
  LeadFinder(WorkspaceContext& context, Store& whole, LeadActions& actions);

  LeadResults* results() { return &m_results; }

  void ensureLoaded() override;
  void refresh() override;

 Q_SIGNALS:
  void changed();

 protected:
  QList<PageAction> offered(const QString& record) override;

 private:
  LeadResults m_results;
};

}  // namespace orv
