#include "kit/models/campaigns/emailPreview.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(PreviewResponse)
ORV_RECORD_CODERS(PreviewBody)

}  // namespace orv
