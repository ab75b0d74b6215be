#include "kit/models/mailboxes.h"

#include "kit/api/recordCoders.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(MailboxPage)

namespace Requests {

Request<MailboxPage> listMailboxes(bool archived, const std::optional<QString>& cursor) {
  auto request = get<MailboxPage>(u"/mailboxes"_s, {{u"limit"_s, u"200"_s}});
  addOptional(request.query, u"cursor"_s, cursor);
  addFlag(request.query, u"archived"_s, archived);
  return request;
}

}  // namespace Requests
}  // namespace orv
