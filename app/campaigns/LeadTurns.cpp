#include "app/campaigns/LeadTurns.h"

#include <QSet>

namespace orv {

void LeadTurns::recordsGone() {
  for (RecordTurns::Turn& turn : turns) turn.recordGone();
}

Task<LeadTurns> leadTurns(RecordTurns* turns, QStringList ids) {
  // Two who take several in different orders would wait for each other, for good.
  QStringList order = ids;
  order.sort();
  order.removeDuplicates();
  LeadTurns reached;
  QSet<QString> gone;
  for (const QString& id : std::as_const(order)) {
    auto turn = co_await turns->next(id);
    if (turn)
      reached.turns.push_back(std::move(turn));
    else
      gone.insert(id);
  }
  ids.removeIf([&gone](const QString& id) { return gone.contains(id); });
  reached.ids = std::move(ids);
  co_return reached;
}

}  // namespace orv
