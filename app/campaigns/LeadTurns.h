#pragma once

#include <QStringList>
#include <vector>

#include "app/base/RecordTurns.h"

namespace orv {

/// Leads whose turn has come. Those that were removed while theirs was waited for, which has been told, are not among
/// them.
struct LeadTurns {
  QStringList ids;
  std::vector<RecordTurns::Turn> turns;

  void recordsGone();
};

Task<LeadTurns> leadTurns(RecordTurns* turns, QStringList ids);

}  // namespace orv
