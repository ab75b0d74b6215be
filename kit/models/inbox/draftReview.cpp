#include "kit/models/inbox/draftReview.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(ReviewDraft)
ORV_RECORD_CODERS(ReviewDraftPage)
ORV_RECORD_CODERS(DraftVersion)
ORV_RECORD_CODERS(DraftVersions)
ORV_RECORD_CODERS(ApproveDraftBody)
ORV_RECORD_CODERS(RejectDraftBody)
ORV_RECORD_CODERS(DraftTraining)

}  // namespace orv
