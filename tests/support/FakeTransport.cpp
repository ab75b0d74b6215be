#include "tests/support/FakeTransport.h"

#include <QCoreApplication>
#include <QTest>
#include <algorithm>

namespace orv::test {

class FakeTransport::FakeExchange final : public Exchange {
 public:
  FakeExchange(FakeTransport& transport, quint64 id) : m_transport(transport), m_id(id) {}
  ~FakeExchange() override {
    auto& waiting = m_transport.m_waiting;
    const auto found = std::ranges::find(waiting, m_id, &Waiting::id);
    if (found == waiting.end()) return;
    m_transport.m_cancelled.append(found->label);
    waiting.erase(found);
  }

 private:
  FakeTransport& m_transport;
  quint64 m_id;
};

FakeTransport::~FakeTransport() {
  for (const QString& label : m_expected)
    QTest::qFail(qPrintable(QLatin1String("Expected but never sent: ") + label), __FILE__, __LINE__);
}

std::unique_ptr<APITransport::Exchange> FakeTransport::exchange(APICall call,
                                                                std::shared_ptr<AnswerReceiver> receiver) {
  const QString label = call.request.label();
  if (!m_expected.removeOne(label))
    QTest::qFail(qPrintable(QLatin1String("Unexpected request: ") + label), __FILE__, __LINE__);
  m_sent.push_back(std::move(call));
  m_waiting.push_back({++m_lastId, label, std::move(receiver)});
  return std::make_unique<FakeExchange>(*this, m_lastId);
}

void FakeTransport::expect(const QString& label) { m_expected.append(label); }

void FakeTransport::answer(const QString& label, const QByteArray& json, int status,
                           const QList<QPair<QByteArray, QByteArray>>& headers) {
  give(label, HTTPAnswer{status, headers, json});
}

void FakeTransport::fail(const QString& label, NoAnswer failure) { give(label, failure); }

bool FakeTransport::isWaiting(const QString& label) const {
  return std::ranges::find(m_waiting, label, &Waiting::label) != m_waiting.end();
}

void FakeTransport::give(const QString& label, ExchangeResult result) {
  const auto found = std::ranges::find(m_waiting, label, &Waiting::label);
  if (found == m_waiting.end())
    return QTest::qFail(qPrintable(QLatin1String("Nobody waits for: ") + label), __FILE__, __LINE__);
  const auto receiver = found->receiver;
  m_waiting.erase(found);
  receiver->receive(std::move(result));
  settle();
}

void settle() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
}

}  // namespace orv::test
