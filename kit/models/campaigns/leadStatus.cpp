#include "kit/models/campaigns/leadStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString LeadStatus::label() const {
  if (rawValue == "queued"_L1) return u"Queued"_s;
  if (rawValue == "active"_L1) return u"In sequence"_s;
  if (rawValue == "paused"_L1) return u"Paused"_s;
  if (rawValue == "completed"_L1) return u"Finished"_s;
  if (rawValue == "replied"_L1) return u"Replied"_s;
  if (rawValue == "bounced"_L1) return u"Bounced"_s;
  if (rawValue == "unsubscribed"_L1) return u"Unsubscribed"_s;
  if (rawValue == "stopped"_L1) return u"Stopped"_s;
  return rawValue;
}

}  // namespace orv
