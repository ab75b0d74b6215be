#include "kit/models/setup/setupRun.h"

#include <algorithm>

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(SetupRunSettings)
ORV_RECORD_CODERS(SetupRunDomain)
ORV_RECORD_CODERS(SetupRow)
ORV_RECORD_CODERS(SetupRun)
ORV_RECORD_CODERS(NewSetupRunBody)
ORV_RECORD_CODERS(DomainChecks::Dns)
ORV_RECORD_CODERS(DomainChecks::Inbox)
ORV_RECORD_CODERS(DomainChecks)

bool SetupRun::isOver() const {
  if (control.isTerminated()) return true;
  return !rows.isEmpty() && std::ranges::all_of(rows, [](const SetupRow& row) { return row.state.isEnd(); });
}

LatestRun detail::AnswerDecoder<LatestRun>::decode(const HTTPAnswer& answer) {
  const QByteArray body = answer.body.trimmed();
  if (body.isEmpty() || body == "null") return {};
  return {decodeJSON<SetupRun>(body)};
}

}  // namespace orv
