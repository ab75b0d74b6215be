#include "kit/models/leads/leadVerification.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString LeadVerification::explanation() const {
  if (isInvalid()) return u"Will bounce, skip it"_s;
  if (rawValue == "catch_all"_L1) return u"Domain accepts all mail, may bounce"_s;
  if (rawValue == "unknown"_L1) return u"Checked, no clear answer"_s;
  return {};
}

}  // namespace orv
