#pragma once

#include "app/leads/LeadAllowance.h"
#include "kit/models/leads/leadTarget.h"

namespace orv {

/// What can be done with leads, wherever they are shown: in the search, in a list. One for the workspace, with the
/// forms that ask for more. Targets are given as they stood when the person acted.
class LeadActions final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::LeadAllowance* allowance READ allowance CONSTANT)

 public:
  explicit LeadActions(WorkspaceContext& context) : Store(context) {}

  LeadAllowance* allowance() { return &m_allowance; }

  void addToList(const LeadTarget& target);
  void addToCampaign(const LeadTarget& target);
  void unlock(const LeadTarget& target);

  void ensureLoaded() override { m_allowance.ensureLoaded(); }

 private:
  LeadAllowance m_allowance{context(), *this};
};

}  // namespace orv
