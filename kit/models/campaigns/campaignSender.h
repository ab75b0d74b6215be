#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// One sender mailbox as the campaign sees it.
struct CampaignSender {
  QString mailboxId;
  QString address;
  QString displayName;
  QString status;
  bool ready = false;
  /// Why not ready.
  std::optional<QString> reason;
  qint64 capToday = 0;
  std::optional<qint64> rampToday;
  qint64 sentToday = 0;
  /// Sends because it carries one of the sender tags, not because it was picked.
  bool viaTag = false;
  std::optional<QString> signature;
  bool operator==(const CampaignSender&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignSender, (),
                      (mailboxId, address, displayName, status, ready, reason, capToday, rampToday, sentToday, viaTag,
                       signature))

}  // namespace orv
