#pragma once

#include <QHash>
#include <chrono>
#include <functional>
#include <limits>

#include "app/base/BusySet.h"
#include "app/base/WorkspaceContext.h"

namespace orv {

/// Details that were read ahead, while somebody looked at their rows, so that they open at once.
template <class Detail>
class ReadAhead final {
 public:
  /// Somebody rests on a row that long before its detail is read.
  static constexpr std::chrono::milliseconds restFor{250};
  static constexpr qsizetype keptAtMost = 40;
  using Read = std::function<Task<Detail>(QString id)>;

  /// What was read ahead is as good as new for `freshFor`.
  ReadAhead(WorkspaceContext& context, Read read, std::chrono::seconds freshFor = std::chrono::seconds::max())
      : m_context(context), m_read(std::move(read)), m_freshFor(freshFor) {}

  /// Somebody looks at the row; none of them with an empty id.
  void look(const QString& id) {
    m_look.cancel();
    if (!id.isEmpty() && !find(id)) m_look.start(lookTask(id));
  }
  /// Reads the detail ahead, unless it is known or being read already.
  void prefetch(const QString& id) {
    if (!find(id)) m_tasks.start(prefetchTask(id));
  }
  bool isReading(const QString& id) const { return m_reading.contains(id); }

  /// What is known, while that is fresh.
  const Detail* find(const QString& id) const {
    const auto known = m_known.constFind(id);
    const bool isFresh =
        known != m_known.cend() && (m_freshFor == std::chrono::seconds::max() ||
                                    known->readAt.secsTo(m_context.services().clock.now()) <= m_freshFor.count());
    return isFresh ? &known->detail : nullptr;
  }
  void put(const QString& id, const Detail& detail) {
    if (m_known.size() >= keptAtMost && !m_known.contains(id)) {
      auto oldest = m_known.begin();
      for (auto each = m_known.begin(); each != m_known.end(); ++each)
        if (each->readAt < oldest->readAt) oldest = each;
      m_known.erase(oldest);
    }
    m_known.insert(id, {detail, m_context.services().clock.now()});
  }
  /// It is another one by now; with no id, each of them may be.
  void forget(const QString& id = {}) {
    m_forgotten[id] = ++m_round;
    id.isEmpty() ? m_known.clear() : (void)m_known.remove(id);
  }
  /// Lets go of what is being read.
  void cancel() {
    m_look.cancel();
    m_tasks.cancel();
  }

 private:
  struct Known {
    Detail detail;
    QDateTime readAt;
  };

  Task<void> lookTask(QString id) {
    co_await m_context.services().clock.sleep(restFor);
    prefetch(id);
  }
  Task<void> prefetchTask(QString id) {
    const auto mark = m_reading.mark(id);
    if (!mark) co_return;
    const int round = ++m_round;
    try {
      const Detail detail = co_await m_read(id);
      if (std::max(m_forgotten.value(id), m_forgotten.value({})) < round) put(id, detail);
    } catch (const APIError&) {
      // Nobody has asked for it; whoever opens it is told.
    }
  }

  WorkspaceContext& m_context;
  Read m_read;
  std::chrono::seconds m_freshFor;
  QHash<QString, Known> m_known;
  BusySet m_reading;
  /// Counts what was forgotten: an answer that was asked for before is not kept.
  int m_round = 0;
  QHash<QString, int> m_forgotten;
  TaskScope m_tasks;
  TaskSlot m_look;
};

}  // namespace orv
