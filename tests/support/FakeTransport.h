#pragma once

#include <QStringList>
#include <vector>

#include "kit/api/APITransport.h"

namespace orv::test {

/// A service whose answers are given by hand, later and in any order. Requests are named by method and path
/// ("POST /campaigns/c1/pause"); one that the test did not expect fails it, and so does an expected one that never
/// came.
class FakeTransport final : public APITransport {
 public:
  FakeTransport() = default;
  ~FakeTransport() override;

  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

  /// The next request of this name is expected, once per call.
  void expect(const QString& label);

  /// Answers the oldest waiting request of this name and lets the answer be applied.
  void answer(const QString& label, const QByteArray& json, int status = 200,
              const QList<QPair<QByteArray, QByteArray>>& headers = {});
  void fail(const QString& label, NoAnswer failure);
  bool isWaiting(const QString& label) const;
  int waiting() const { return int(m_waiting.size()); }

  /// Every request so far, in the order sent, cancelled ones included.
  const std::vector<APICall>& sent() const { return m_sent; }
  const APICall& last() const { return m_sent.back(); }
  QStringList cancelled() const { return m_cancelled; }

 private:
  struct Waiting {
    quint64 id;
    QString label;
    std::shared_ptr<AnswerReceiver> receiver;
  };
  class FakeExchange;

  void give(const QString& label, ExchangeResult result);

  QStringList m_expected;
  std::vector<Waiting> m_waiting;
  std::vector<APICall> m_sent;
  QStringList m_cancelled;
  quint64 m_lastId = 0;
};

/// Runs everything posted so far, and what that posts.
void settle();

}  // namespace orv::test
