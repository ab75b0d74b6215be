#include "kit/models/leads/leadImport.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(LeadImportPage)
ORV_RECORD_CODERS(CsvImportBody)
ORV_RECORD_CODERS(ImportStarted)

}  // namespace orv
