#pragma once

#include "kit/models/leads/leadFilter.h"
#include "kit/models/leads/leadList.h"

namespace orv {

/// Makes a list, or adds to one: these leads, or every match of a search up to a limit.
struct ListAddBody {
  std::optional<QString> name;
  std::optional<QString> description;
  std::optional<QList<QString>> leadIds;
  std::optional<LeadFilterBody> filter;
  std::optional<qint64> limit;
  /// Whether the count that the person saw was.
  std::optional<bool> exact;
  bool skipInLists = false;
  bool skipInCampaigns = false;
  bool operator==(const ListAddBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ListAddBody, (), (name, description, leadIds, filter, limit, exact, skipInLists, skipInCampaigns))

struct ListCreated {
  LeadList list;
  qint64 added = 0;
  qint64 already = 0;
  qint64 skipped = 0;
  /// Still to be added, without anybody waiting for it.
  qint64 queued = 0;
  bool operator==(const ListCreated&) const = default;
};
BOOST_DESCRIBE_STRUCT(ListCreated, (), (list, added, already, skipped, queued))

struct ListAddResult {
  qint64 added = 0;
  qint64 already = 0;
  qint64 skipped = 0;
  qint64 queued = 0;
  /// The list's new size.
  std::optional<qint64> leadCount;
  bool operator==(const ListAddResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(ListAddResult, (), (added, already, skipped, queued, leadCount))

struct ListRemoved {
  qint64 removed = 0;
  qint64 leadCount = 0;
  bool operator==(const ListRemoved&) const = default;
};
BOOST_DESCRIBE_STRUCT(ListRemoved, (), (removed, leadCount))

}  // namespace orv
