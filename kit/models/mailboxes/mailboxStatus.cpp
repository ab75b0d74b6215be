#include "kit/models/mailboxes/mailboxStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString MailboxStatus::label() const {
  if (isVerifying()) return u"Verifying"_s;
  if (isActive()) return u"Active"_s;
  if (isPaused()) return u"Paused"_s;
  if (isFailed()) return u"Failed"_s;
  if (is("disabled"_L1)) return u"Disabled"_s;
  return rawValue;
}

}  // namespace orv
