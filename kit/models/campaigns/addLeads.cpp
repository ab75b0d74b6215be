#include "kit/models/campaigns/addLeads.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(AddLeadsBody::List)
ORV_RECORD_CODERS(AddLeadsBody::Csv)
ORV_RECORD_CODERS(AddLeadsBody::Manual)
ORV_RECORD_CODERS(AddLeadsBody::Leads)
ORV_RECORD_CODERS(AddLeadsResult)

}  // namespace orv
