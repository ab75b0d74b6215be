#pragma once

#include "kit/models/leads/leadFilter.h"

namespace orv {

/// How many leads can still be unlocked.
struct UnlockUsage {
  bool locked = false;
  qint64 used = 0;
  qint64 limit = 0;
  qint64 left = 0;
  /// A day, "2026-12-01".
  QString resetsAt;
  /// Paid from the workspace's credits, not from a month's allowance.
  std::optional<bool> credits;
  bool operator==(const UnlockUsage&) const = default;
};
BOOST_DESCRIBE_STRUCT(UnlockUsage, (), (locked, used, limit, left, resetsAt, credits))

/// These leads, or the first matches of a search.
struct UnlockBody {
  std::optional<QList<QString>> leadIds;
  std::optional<LeadFilterBody> filter;
  std::optional<qint64> limit;
  bool operator==(const UnlockBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(UnlockBody, (), (leadIds, filter, limit))

struct UnlockResult {
  struct Item {
    QString id;
    QString email;
    std::optional<QString> phone;
    bool operator==(const Item&) const = default;
  };
  QList<Item> items;
  qint64 unlocked = 0;
  UnlockUsage usage;
  bool operator==(const UnlockResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(UnlockResult::Item, (), (id, email, phone))
BOOST_DESCRIBE_STRUCT(UnlockResult, (), (items, unlocked, usage))

}  // namespace orv
