#include "app/base/RecordTurns.h"

#include <QPointer>
#include <algorithm>

namespace orv {

/// One change in its record's queue; the first holds the turn.
class RecordTurns::Place {
 public:
  Place(RecordTurns* turns, QString record) : m_turns(turns), m_record(std::move(record)) {
    m_turns->m_queues[m_record].push_back(this);
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;
  ~Place() {
    if (m_turns) m_turns->leave(this);
  }

  const QString& record() const { return m_record; }
  bool isFirst() const { return m_turns && m_turns->m_queues[m_record].front() == this; }
  bool isVoid() const { return m_void; }
  void beVoid() { m_void = true; }
  OneShot<bool>& called() { return m_called; }
  RecordTurns* turns() const { return m_turns; }

 private:
  QPointer<RecordTurns> m_turns;
  QString m_record;
  OneShot<bool> m_called;
  bool m_void = false;
};

RecordTurns::Turn::Turn(std::unique_ptr<Place> place) : m_place(std::move(place)) {}
RecordTurns::Turn::Turn(Turn&&) noexcept = default;
RecordTurns::Turn::~Turn() = default;
RecordTurns::Turn::operator bool() const { return m_place && !m_place->isVoid(); }

void RecordTurns::Turn::recordGone() {
  if (!m_place || !m_place->turns()) return;
  for (Place* waiting : m_place->turns()->m_queues[m_place->record()])
    if (waiting != m_place.get()) waiting->beVoid();
}

Task<RecordTurns::Turn> RecordTurns::next(QString record) {
  // Dropped while it waits, the frame takes its place in the queue along.
  auto place = std::make_unique<Place>(this, std::move(record));
  if (!place->isFirst()) co_await place->called().wait();
  co_return Turn(std::move(place));
}

void RecordTurns::leave(Place* place) {
  const QString record = place->record();
  auto& queue = m_queues[record];
  const bool wasFirst = queue.front() == place;
  std::erase(queue, place);
  if (queue.empty())
    m_queues.remove(record);
  else if (wasFirst)
    // Not from within this: it is the end of somebody's frame.
    QMetaObject::invokeMethod(
        this, [this, record] { handOn(record); }, Qt::QueuedConnection);
}

void RecordTurns::handOn(const QString& record) {
  const auto queue = m_queues.constFind(record);
  if (queue != m_queues.cend()) OneShot<bool>(queue->front()->called()).give(true);
}

}  // namespace orv
