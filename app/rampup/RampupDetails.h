#pragma once

#include <QHash>
#include <chrono>

#include "app/base/BusySet.h"
#include "app/base/Store.h"
#include "kit/models/rampup/rampupDetail.h"

namespace orv {

/// Accounts that were read ahead, while somebody looked at their rows, so that they open at once.
class RampupDetails final : public Store {
  Q_OBJECT

 public:
  /// Somebody rests on a row that long before its account is read.
  static constexpr std::chrono::milliseconds restFor{250};
  /// What was read ahead is as good as new for so long.
  static constexpr std::chrono::seconds freshFor{60};

  RampupDetails(WorkspaceContext& context, Store& whole);

  /// Somebody looks at the row; none of them with an empty id.
  Q_INVOKABLE void look(const QString& id);
  /// Reads the account ahead, unless it is known or being read already.
  void prefetch(const QString& id);
  bool isPrefetching(const QString& id) const { return m_prefetching.contains(id); }

  /// What is known of the account, while that is fresh.
  const RampupDetail* find(const QString& id) const;
  void put(const RampupDetail& detail);
  /// It is another one by now; with no id, each of them may be.
  void forget(const QString& id = {});
  void trim() override { forget(); }

 private:
  struct Known {
    RampupDetail detail;
    QDateTime readAt;
  };
  static constexpr qsizetype keptAtMost = 40;

  Task<void> lookTask(QString id);
  Task<void> prefetchTask(QString id);

  QHash<QString, Known> m_known;
  BusySet m_prefetching;
  /// Counts what was forgotten: an answer that was asked for before is not kept.
  int m_round = 0;
  QHash<QString, int> m_forgotten;
  TaskSlot m_look;
};

}  // namespace orv
