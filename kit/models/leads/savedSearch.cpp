#include "kit/models/leads/savedSearch.h"

#include "kit/api/APITransport.h"
#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(SavedSearchList)
ORV_RECORD_CODERS(SavedSearchBody)

SavedSearchList detail::AnswerDecoder<SavedSearchList>::decode(const HTTPAnswer& answer) {
  return decodeJSON<SavedSearchList>("{\"items\":" + answer.body + '}');
}

}  // namespace orv
