#include "kit/models/leads.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/recordCoders.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(LeadListPage)
ORV_RECORD_CODERS(OwnLeadsBody)
ORV_RECORD_CODERS(OwnLeads)

namespace Requests {

Request<LeadListPage> leadLists(bool archived) {
  auto request = get<LeadListPage>(u"/lead-lists"_s);
  addFlag(request.query, u"archived"_s, archived);
  return request;
}

Request<OwnLeads> ownLeads(const OwnLeadsBody& body) {
  auto request = changing<OwnLeads>(HTTPMethod::post, u"/leads/own"_s, encodeJSON(body));
  request.answerAtMost = wholeListAtMost;
  return request;
}

}  // namespace Requests
}  // namespace orv
