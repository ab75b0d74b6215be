#pragma once

#include "app/base/ReadAhead.h"
#include "app/base/Store.h"
#include "kit/models/rampup/rampupDetail.h"

namespace orv {

/// Accounts that were read ahead, while somebody looked at their rows, so that they open at once.
class RampupDetails final : public Store {
  Q_OBJECT

 public:
  /// What was read ahead is as good as new for so long.
  static constexpr std::chrono::seconds freshFor{60};

  RampupDetails(WorkspaceContext& context, Store& whole);

  /// Somebody looks at the row; none of them with an empty id.
  Q_INVOKABLE void look(const QString& id) { m_ahead.look(id); }
  /// Reads the account ahead, unless it is known or being read already.
  void prefetch(const QString& id) { m_ahead.prefetch(id); }
  bool isPrefetching(const QString& id) const { return m_ahead.isReading(id); }

  /// What is known of the account, while that is fresh.
  const RampupDetail* find(const QString& id) const { return m_ahead.find(id); }
  void put(const RampupDetail& detail) { m_ahead.put(detail.mailboxId, detail); }
  /// It is another one by now; with no id, each of them may be.
  void forget(const QString& id = {}) { m_ahead.forget(id); }
  void trim() override { forget(); }
  void close() override;

 private:
  ReadAhead<RampupDetail> m_ahead;
};

}  // namespace orv
