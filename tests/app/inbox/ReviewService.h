#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>
#include <vector>

#include "kit/api/PlatformDate.h"
#include "kit/async/ManualClock.h"
#include "tests/support/FakeTransport.h"

namespace orv::test {

/// The service as the drafts' review sees it: drafts that change, requests that are carried out in any order, and
/// answers that come late or never.
class ReviewService final : public APITransport {
 public:
  enum class Fault { none, lostRequest, lostAnswer, broken, refused };

  struct Sent {
    QString label;
    QJsonObject body;
  };

  explicit ReviewService(ManualClock& clock) : m_clock(clock) {}

  /// One of its own conversation, or of that of the draft `beside`.
  void add(const QString& id, const QString& status = QStringLiteral("pending"), const QString& beside = {}) {
    m_order.append(id);
    m_conversation[id] = beside.isEmpty() ? id : beside;
    m_status[id] = status;
  }
  void set(const QString& id, const QString& status) { m_status[id] = status; }
  /// What the agent has written, and what went out in its place.
  void write(const QString& id, const QString& body) { m_body[id] = body; }
  void send(const QString& id, const QString& body) { m_sentBody[id] = body; }
  /// One more message in its conversation.
  void say(const QString& id) { ++m_said[id]; }
  QString status(const QString& id) const { return m_status.at(id); }
  QStringList pending() const {
    QStringList ids = m_order;
    ids.removeIf([this](const QString& id) { return !isWaiting(id); });
    return ids;
  }
  const std::vector<Sent>& sent() const { return m_sent; }
  int count(const QString& label) const { return int(std::ranges::count(m_sent, label, &Sent::label)); }
  QJsonObject lastBody(const QString& label) const {
    for (auto sent = m_sent.rbegin(); sent != m_sent.rend(); ++sent)
      if (sent->label == label) return sent->body;
    return {};
  }
  /// How many must be asked for training before it is done, and what it says then.
  int trainingAfter = 1;
  QJsonObject training{{QStringLiteral("done"), true}};
  /// The list goes on.
  bool more = false;

  bool isIdle() const { return m_waiting.empty(); }
  size_t waiting() const { return m_waiting.size(); }
  /// Carries out the oldest of that name, and brings its answer.
  void answer(const QString& label, Fault fault) {
    const auto at = size_t(std::ranges::find(m_waiting, label, &Waiting::label) - m_waiting.begin());
    carryOut(at, fault);
    deliver(at);
  }
  /// Carries out what waits at that place, if it has not been.
  void carryOut(size_t at, Fault fault) {
    Waiting& waiting = m_waiting[at];
    if (waiting.result) return;
    const bool acts = fault == Fault::none || fault == Fault::lostAnswer;
    auto answer = acts ? answerTo(waiting) : HTTPAnswer{};
    if (fault == Fault::lostAnswer || fault == Fault::lostRequest)
      waiting.result = NoAnswer(TransportFailure::timedOut);
    else if (fault == Fault::broken)
      waiting.result = HTTPAnswer{502, {}, "{}"};
    else if (fault == Fault::refused)
      waiting.result = HTTPAnswer{422, {}, R"({"title":"Not now","status":422})"};
    else
      waiting.result = std::move(answer);
  }
  /// Brings the answer of what was carried out.
  void deliver(size_t at) {
    if (!m_waiting[at].result) return;
    const auto receiver = m_waiting[at].receiver;
    auto result = std::move(*m_waiting[at].result);
    m_waiting.erase(m_waiting.begin() + qsizetype(at));
    receiver->receive(std::move(result));
    settle();
  }
  /// Everything, in order, until nobody waits.
  void run(Fault fault = Fault::none) {
    settle();
    while (!m_waiting.empty()) {
      carryOut(0, fault);
      deliver(0);
    }
  }

  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override {
    const QString label = call.request.label();
    const QJsonObject body = QJsonDocument::fromJson(call.request.body.value_or("{}")).object();
    m_sent.push_back({label, body});
    m_waiting.push_back({++m_last, label, body, std::move(receiver), {}});
    return std::make_unique<Ending>(*this, m_last);
  }

 private:
  struct Waiting {
    quint64 id;
    QString label;
    QJsonObject body;
    std::shared_ptr<AnswerReceiver> receiver;
    std::optional<ExchangeResult> result;
  };
  class Ending final : public Exchange {
   public:
    Ending(ReviewService& service, quint64 id) : m_service(service), m_id(id) {}
    ~Ending() override {
      std::erase_if(m_service.m_waiting, [this](const Waiting& waiting) { return waiting.id == m_id; });
    }

   private:
    ReviewService& m_service;
    quint64 m_id;
  };

  bool isWaiting(const QString& id) const {
    const QString& status = m_status.at(id);
    return status == QLatin1String("pending") || status == QLatin1String("held");
  }
  static QByteArray text(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }
  /// The drafts of a conversation, which has its name from the first of them.
  QStringList in(const QString& conversation) const {
    QStringList ids = m_order;
    ids.removeIf([&](const QString& id) { return m_conversation.at(id) != conversation; });
    return ids;
  }
  QJsonObject thread(const QString& draftId) const {
    const QString id = m_conversation.at(draftId);
    const QStringList drafts = in(id);
    return {{QStringLiteral("id"), QStringLiteral("t-") + id},
            {QStringLiteral("mailboxId"), QStringLiteral("m1")},
            {QStringLiteral("mailboxAddress"), QStringLiteral("ellen@a.example")},
            {QStringLiteral("contactAddress"), id + QStringLiteral("@b.example")},
            {QStringLiteral("subject"), QStringLiteral("Re: Slots")},
            {QStringLiteral("kind"), QStringLiteral("reply")},
            {QStringLiteral("status"), QStringLiteral("open")},
            {QStringLiteral("unread"), false},
            {QStringLiteral("messageCount"), 1 + (m_said.contains(id) ? m_said.at(id) : 0)},
            {QStringLiteral("pendingDrafts"),
             int(std::ranges::count_if(drafts, [this](const QString& each) { return isWaiting(each); }))},
            {QStringLiteral("followupsSent"), 0},
            {QStringLiteral("humanTookOver"), false},
            {QStringLiteral("createdAt"), QStringLiteral("2026-11-19T09:00:00Z")}};
  }
  QString body(const QString& id) const {
    if (!isWaiting(id) && m_sentBody.contains(id)) return m_sentBody.at(id);
    return m_body.contains(id) ? m_body.at(id) : QStringLiteral("Hello ") + id;
  }
  QJsonObject draft(const QString& id) const {
    QJsonObject draft{{QStringLiteral("id"), id},
                      {QStringLiteral("threadId"), QStringLiteral("t-") + m_conversation.at(id)},
                      {QStringLiteral("kind"), QStringLiteral("reply")},
                      {QStringLiteral("toAddress"), id + QStringLiteral("@b.example")},
                      {QStringLiteral("subject"), QStringLiteral("Re: Slots")},
                      {QStringLiteral("body"), body(id)},
                      {QStringLiteral("status"), m_status.at(id)}};
    if (m_status.at(id) == QLatin1String("held"))
      draft.insert(QStringLiteral("gate"),
                   QJsonDocument::fromJson(R"({"failures":[{"code":"price","detail":"It names a price."}]})").object());
    if (m_due.contains(id)) draft.insert(QStringLiteral("dueAt"), m_due.at(id));
    return draft;
  }
  HTTPAnswer answerTo(const Waiting& waiting) {
    const QStringList parts = waiting.label.section(u' ', 1).split(u'/', Qt::SkipEmptyParts);
    if (waiting.label == QLatin1String("GET /inbox/drafts")) return {200, {}, text(list())};
    if (waiting.label == QLatin1String("GET /inbox/threads")) return {200, {}, text(threads())};
    if (parts.size() == 1) return {200, {}, R"({"items":[]})"};
    if (parts.value(1) == QLatin1String("threads")) {
      const QString id = parts.value(2).mid(2);
      QJsonArray drafts;
      for (const QString& each : in(id)) drafts.append(draft(each));
      return {200,
              {},
              text({{QStringLiteral("thread"), thread(id)},
                    {QStringLiteral("messages"), QJsonArray()},
                    {QStringLiteral("drafts"), drafts}})};
    }
    if (parts.value(0) == QLatin1String("setter")) return {200, {}, "{}"};
    return decide(parts.value(2), parts.value(3), waiting.body);
  }
  /// The first page: the last conversation stands on another.
  QJsonObject threads() const {
    QJsonArray items;
    for (const QString& id : m_order.first(m_order.size() - 1)) items.append(thread(id));
    const qsizetype count = m_order.size();
    return {{QStringLiteral("items"), items},
            {QStringLiteral("nextCursor"), QStringLiteral("n")},
            {QStringLiteral("counts"), QJsonObject{{QStringLiteral("total"), count},
                                                   {QStringLiteral("unread"), 0},
                                                   {QStringLiteral("drafts"), pending().size()}}}};
  }
  QJsonObject list() const {
    QJsonArray items;
    for (const QString& id : pending())
      items.append(QJsonObject{{QStringLiteral("draft"), draft(id)}, {QStringLiteral("thread"), thread(id)}});
    QJsonObject page{{QStringLiteral("items"), items}};
    if (more) page.insert(QStringLiteral("nextCursor"), QStringLiteral("n"));
    return page;
  }
  HTTPAnswer decide(const QString& id, const QString& verb, const QJsonObject& sent) {
    const QString before = m_status.at(id);
    if (verb == QLatin1String("training"))
      return {200, {}, --trainingAfter < 0 ? text(training) : QByteArray(R"({"done":false})")};
    if (verb == QLatin1String("versions"))
      return {200, {}, R"({"versions":[{"style":"casual","label":"Casual","body":"Hey!"}]})"};
    const bool undoes = verb == QLatin1String("undo-approve"), restores = verb == QLatin1String("restore");
    const bool fits = undoes     ? before == QLatin1String("approved")
                      : restores ? before == QLatin1String("rejected")
                                 : isWaiting(id) || verb == QLatin1String("reject");
    if (!fits) return {409, {}, R"({"title":"It is decided already","status":409})"};
    if (verb == QLatin1String("approve")) {
      m_due[id] = formatPlatformDate(m_clock.now().addSecs(60));
      if (sent.contains(QLatin1String("body"))) m_sentBody[id] = sent.value(QLatin1String("body")).toString();
    }
    if (undoes || restores) {
      m_due.erase(id);
      m_sentBody.erase(id);
    }
    m_status[id] = undoes || restores                 ? QStringLiteral("pending")
                   : verb == QLatin1String("approve") ? QStringLiteral("approved")
                                                      : QStringLiteral("rejected");
    return {200, {}, text(draft(id))};
  }

  ManualClock& m_clock;
  QStringList m_order;
  std::map<QString, QString> m_conversation;
  std::map<QString, QString> m_status;
  std::map<QString, QString> m_due;
  std::map<QString, QString> m_body;
  std::map<QString, QString> m_sentBody;
  std::map<QString, int> m_said;
  std::vector<Sent> m_sent;
  std::vector<Waiting> m_waiting;
  quint64 m_last = 0;
};

}  // namespace orv::test
