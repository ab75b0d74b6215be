#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QPair>
#include <functional>
#include <memory>
#include <mutex>
#include <variant>

#include "kit/api/APIError.h"
#include "kit/api/APIRequest.h"
#include "kit/api/JSONCoding.h"
#include "kit/async/Task.h"

namespace orv {

/// What came back over the wire.
struct HTTPAnswer {
  int status = 0;
  QList<QPair<QByteArray, QByteArray>> headers;
  QByteArray body;

  /// First value of the header, matched without regard to case.
  std::optional<QString> header(QByteArrayView name) const;
  /// By the service's own clock, when it tells.
  std::optional<QDateTime> date() const;
};

/// Why no whole answer came back.
enum class TransportFailure { offline, timedOut, cancelled, unreachable, invalidResponse };

struct NoAnswer {
  /// From the failure alone, which says it all most of the time.
  NoAnswer(TransportFailure reason, bool mayHaveArrived = true) : why(reason), sent(mayHaveArrived) {}
  TransportFailure why;
  /// See APIError::Context.
  bool sent;
};

using ExchangeResult = std::variant<HTTPAnswer, NoAnswer>;

/// A request with the workspace it is for and the credential it goes with.
struct APICall {
  APIRequest request;
  /// Empty for account-level calls.
  QString slug;
  /// Empty sends no credential.
  QString token;
  /// Name and value pairs that replace the body, form-encoded.
  std::optional<QList<QPair<QString, QString>>> form;
};

/// Takes the result of one exchange on whatever thread it arrives, decodes it there, and wakes the waiting task on the
/// thread that asked.
class AnswerReceiver {
 public:
  AnswerReceiver() = default;
  AnswerReceiver(const AnswerReceiver&) = delete;
  AnswerReceiver& operator=(const AnswerReceiver&) = delete;
  virtual ~AnswerReceiver() = default;

  /// Whether anything of a success but its head is wanted.
  virtual bool readsBody() const { return true; }

  /// Any thread, once. A receiver whose task is gone drops the result.
  void receive(ExchangeResult result);

  /// `listener` gets a QEvent::User through its own thread's event loop once the result is there.
  void connect(QObject* listener);
  /// Before the listener goes, and before the result is read: what the writing thread wrote is seen then.
  void disconnect();

 protected:
  virtual void interpret(const ExchangeResult& result) = 0;

 private:
  bool hasListener();

  std::mutex m_mutex;
  QObject* m_listener = nullptr;
};

namespace detail {

/// The error an exchange ended with, if it did.
std::optional<APIError> errorOf(const ExchangeResult& result);
/// What the exception that is being handled means to the caller: an answer that nobody can read.
APIError undecodable();

template <class R>
struct AnswerDecoder {
  static R decode(const HTTPAnswer& answer) { return decodeJSON<R>(answer.body); }
};
template <>
struct AnswerDecoder<Empty> {
  static Empty decode(const HTTPAnswer&) { return {}; }
};
template <>
struct AnswerDecoder<RawData> {
  static RawData decode(const HTTPAnswer& answer) { return {answer.body, answer.header("Content-Type")}; }
};

template <class R>
struct AnswerDecoder<Dated<R>> {
  static Dated<R> decode(const HTTPAnswer& answer) { return {AnswerDecoder<R>::decode(answer), answer.date()}; }
};

template <class R>
class TypedReceiver final : public AnswerReceiver {
 public:
  bool readsBody() const override { return !std::is_same_v<R, Empty>; }

  std::variant<std::monostate, R, APIError> outcome;

 protected:
  void interpret(const ExchangeResult& result) override {
    try {
      if (auto error = errorOf(result))
        outcome = std::move(*error);
      else
        outcome.template emplace<R>(AnswerDecoder<R>::decode(std::get<HTTPAnswer>(result)));
    } catch (const std::exception&) {
      // Memory runs out too, where an answer asks for enough of it.
      outcome = undecodable();
    }
  }
};

}  // namespace detail

/// The one way to the service. The network client, the demo transport and the tests' fake differ in exchange() only;
/// decoding and error mapping are above it, the same for all.
class APITransport {
 public:
  /// An exchange under way; destroying it stops it.
  class Exchange {
   public:
    virtual ~Exchange() = default;
  };
  using UnauthorizedHandler = std::function<void()>;

  APITransport() = default;
  APITransport(const APITransport&) = delete;
  APITransport& operator=(const APITransport&) = delete;
  virtual ~APITransport() = default;

  /// Begins the exchange of `call`, sent once. The receiver gets the result unless the returned object is destroyed
  /// first. May deliver from another thread, or before returning.
  virtual std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) = 0;

  /// Sends a request and gives its decoded answer, or throws APIError. The transport outlives the task.
  template <class R>
  Task<R> send(Request<R> request, QString slug = {}, QString token = {}) {
    return perform<R>({std::move(request), std::move(slug), std::move(token), std::nullopt});
  }

  /// The form-encoded variant: method and path of the request, body from the fields in the order given.
  template <class R>
  Task<R> sendForm(Request<R> request, QList<QPair<QString, QString>> fields, QString token = {}) {
    return perform<R>({std::move(request), {}, std::move(token), std::move(fields)});
  }

  /// Called on the sender's thread before an `unauthorized` error is thrown.
  void onUnauthorized(UnauthorizedHandler handler) { m_unauthorized = std::move(handler); }

 private:
  template <class R>
  class Awaiter;

  template <class R>
  Task<R> perform(APICall call);

  UnauthorizedHandler m_unauthorized;
};

template <class R>
class APITransport::Awaiter final : public QObject {
 public:
  Awaiter(APITransport& transport, APICall call) : m_transport(transport), m_call(std::move(call)) {}
  ~Awaiter() override { m_receiver->disconnect(); }

  bool await_ready() const { return false; }
  template <class Promise>
  void await_suspend(std::coroutine_handle<Promise> frame) {
    if (!m_resumption.arm(frame)) return;
    m_receiver->connect(this);
    m_exchange = m_transport.exchange(std::move(m_call), m_receiver);
  }
  std::variant<std::monostate, R, APIError> await_resume() {
    m_receiver->disconnect();
    return std::move(m_receiver->outcome);
  }

  /// The awaiter is gone afterwards.
  void customEvent(QEvent*) override { m_resumption(); }

 private:
  APITransport& m_transport;
  APICall m_call;
  Resumption m_resumption;
  std::shared_ptr<detail::TypedReceiver<R>> m_receiver = std::make_shared<detail::TypedReceiver<R>>();
  std::unique_ptr<Exchange> m_exchange;
};

template <class R>
Task<R> APITransport::perform(APICall call) {
  const bool conditional = call.request.ifMatch.has_value();
  auto outcome = co_await Awaiter<R>(*this, std::move(call));
  if (const auto* error = std::get_if<APIError>(&outcome)) {
    if (error->is(APIError::Kind::unauthorized) && m_unauthorized) m_unauthorized();
    APIError::Context context = error->context();
    context.conditional = conditional;
    throw error->withContext(context);
  }
  co_return std::move(std::get<R>(outcome));
}

/// A transport bound to one workspace and one credential: what stores are given.
class WorkspaceTransport final : public APITransport {
 public:
  WorkspaceTransport(APITransport& transport, QString slug, QString token);
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;
  /// Sends nothing any more: every further request is cancelled.
  void close() { m_isClosed = true; }

 private:
  APITransport& m_transport;
  bool m_isClosed = false;
  QString m_slug;
  QString m_token;
};

}  // namespace orv
