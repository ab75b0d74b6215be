#include "kit/models/labels.h"

#include "kit/api/recordCoders.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(TagList)
ORV_RECORD_CODERS(ReplyLabelList)

namespace Requests {

Request<TagList> listTags() { return get<TagList>(u"/tags"_s); }

Request<ReplyLabelList> listReplyLabels() { return get<ReplyLabelList>(u"/reply-labels"_s); }

}  // namespace Requests
}  // namespace orv
