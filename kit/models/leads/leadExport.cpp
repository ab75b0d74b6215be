#include "kit/models/leads/leadExport.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(ExportTickedBody)

}  // namespace orv
