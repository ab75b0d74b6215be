#include "kit/models/rampup/rampupDetail.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(RampupDetail)

RampupItem RampupDetail::item() const {
  return {mailboxId, mailboxNumber, address, displayName, provider, role,  status,
          today,     plan,          sent,    inboxPct7d,  settings, health};
}

}  // namespace orv
