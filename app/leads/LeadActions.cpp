#include "app/leads/LeadActions.h"

namespace orv {

void LeadActions::addToList(const LeadTarget&) {}

void LeadActions::addToCampaign(const LeadTarget&) {}

void LeadActions::unlock(const LeadTarget&) {}

}  // namespace orv
