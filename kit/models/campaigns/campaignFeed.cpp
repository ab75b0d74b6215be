#include "kit/models/campaigns/campaignFeed.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(FeedPage)

}  // namespace orv
