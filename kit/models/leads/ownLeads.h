#pragma once

#include "kit/models/leads/leadFilter.h"

namespace orv {

/// Which of the workspace's own leads are meant: these, or the matches of a search, up to a limit.
struct OwnLeadsBody {
  std::optional<QList<QString>> leadIds = {};
  std::optional<LeadFilterBody> filter = {};
  std::optional<qint64> limit = {};
  bool operator==(const OwnLeadsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(OwnLeadsBody, (), (leadIds, filter, limit))

struct OwnLeads {
  QList<QString> ids;
  bool operator==(const OwnLeads&) const = default;
};
BOOST_DESCRIBE_STRUCT(OwnLeads, (), (ids))

}  // namespace orv
