#pragma once

#include <QRegularExpression>
#include <QStringList>
#include <boost/describe/class.hpp>

#include "app/base/Draft.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxPatch.h"

namespace orv {

/// An account's settings as they are typed: numbers are text until they are saved.
struct AccountFields {
  QString displayName;
  QString signature;
  QString sendLimit;
  /// Minutes.
  QString gap;
  QString trackingDomain;
  QStringList tags;
  bool operator==(const AccountFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(AccountFields, (), (displayName, signature, sendLimit, gap, trackingDomain, tags))

AccountFields accountFieldsOf(const Mailbox& mailbox);

/// A sentence per field, of the fields that were changed: what the service has already is not the person's to mend.
QVariantMap problemsIn(const AccountFields& typed, const AccountFields& base);

/// What was changed, of fields without problems. Numbers that were taken away stay as they are: nothing clears them.
MailboxPatch patchOf(const AccountFields& typed, const AccountFields& base);

/// Of a tracking host that one account gets. Four characters at least, while many accounts together may get one of a
/// single character and new domains need three: the three lengths, and their patterns, differ deliberately.
const QRegularExpression& accountTrackingPattern();

}  // namespace orv
