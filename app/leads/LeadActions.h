#pragma once

#include "app/leads/AddToCampaign.h"
#include "app/leads/AddToList.h"
#include "app/leads/CsvImportForm.h"
#include "app/leads/LeadAllowance.h"
#include "app/leads/LeadListActions.h"
#include "kit/models/leads/leadTarget.h"

namespace orv {

/// The target that is a whole list.
LeadTarget wholeList(const LeadList& list);

/// What can be done with leads and their lists, wherever they are shown: in the search, among the lists, on the page of
/// one. One for the workspace, with the forms that ask for more. Targets are given as they stood when the person acted.
class LeadActions final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::LeadAllowance* allowance READ allowance CONSTANT)
  Q_PROPERTY(orv::LeadListActions* lists READ lists CONSTANT)
  Q_PROPERTY(orv::AddToList* listAdding READ listAdding CONSTANT)
  Q_PROPERTY(orv::AddToCampaign* campaignAdding READ campaignAdding CONSTANT)
  Q_PROPERTY(orv::CsvImportForm* importing READ importing CONSTANT)
  Q_PROPERTY(bool unlocking READ unlocking NOTIFY changed)

 public:
  explicit LeadActions(WorkspaceContext& context);

  LeadAllowance* allowance() { return &m_allowance; }
  LeadListActions* lists() { return &m_lists; }
  AddToList* listAdding() { return &m_listAdding; }
  AddToCampaign* campaignAdding() { return &m_campaignAdding; }
  CsvImportForm* importing() { return &m_importing; }
  /// Many are being unlocked, or somebody is asked about it.
  bool unlocking() const { return !m_unlocking.ids().isEmpty(); }

  void addToList(const LeadTarget& target) { m_listAdding.open(target); }
  void addToCampaign(const LeadTarget& target) { m_campaignAdding.open(target); }
  void unlock(const LeadTarget& target) { m_tasks.start(unlockTask(target)); }
  /// Says what it takes, asks once, and sends once.
  Task<void> unlockTask(LeadTarget target);

  void ensureLoaded() override { m_allowance.ensureLoaded(); }

 Q_SIGNALS:
  void changed();

 private:
  LeadAllowance m_allowance{context(), *this};
  LeadListActions m_lists{context(), *this};
  AddToList m_listAdding{context(), *this};
  AddToCampaign m_campaignAdding{context(), *this};
  CsvImportForm m_importing{context(), *this};
  BusySet m_unlocking;
};

}  // namespace orv
