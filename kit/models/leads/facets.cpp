#include "kit/models/leads/facets.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(FacetPage)

}  // namespace orv
