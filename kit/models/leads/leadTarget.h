#pragma once

#include <variant>

#include "kit/models/leads/leadCounts.h"
#include "kit/models/leads/leadSearch.h"

namespace orv {

/// What an action applies to, fixed when it begins.
struct LeadTarget {
  /// Leads that were ticked.
  using Ids = QList<QString>;
  /// Every match of a search.
  struct Filter {
    LeadSearch search;
    /// As it was shown.
    LeadCount count;
    /// Only so many of the matches, in their order.
    std::optional<qint64> first = {};
    bool operator==(const Filter&) const = default;
  };
  std::variant<Ids, Filter> leads;

  bool operator==(const LeadTarget&) const = default;
  const Ids* ids() const { return std::get_if<Ids>(&leads); }
  const Filter* filter() const { return std::get_if<Filter>(&leads); }
  /// How many leads that are, as far as is known.
  LeadCount count() const;
  /// "3 selected leads", "about 1,200 matching leads".
  QString description() const;
};

}  // namespace orv
