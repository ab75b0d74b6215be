#include "kit/api/APITransport.h"

#include <QCoreApplication>
#include <QLocale>
#include <QLoggingCategory>
#include <algorithm>
#include <cmath>

namespace orv {

Q_LOGGING_CATEGORY(lcApi, "orvella.api")

std::optional<QString> HTTPAnswer::header(QByteArrayView name) const {
  for (const auto& [key, value] : headers)
    if (key.compare(name, Qt::CaseInsensitive) == 0) return QString::fromUtf8(value);
  return std::nullopt;
}

std::optional<QDateTime> HTTPAnswer::date() const {
  const auto text = header("Date");
  if (!text) return std::nullopt;
  QDateTime found = QLocale::c().toDateTime(*text, QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"));
  found.setTimeSpec(Qt::UTC);
  return found.isValid() ? std::optional(found) : std::nullopt;
}

void AnswerReceiver::connect(QObject* listener) {
  const std::lock_guard lock(m_mutex);
  m_listener = listener;
}

void AnswerReceiver::disconnect() {
  const std::lock_guard lock(m_mutex);
  m_listener = nullptr;
}

bool AnswerReceiver::hasListener() {
  const std::lock_guard lock(m_mutex);
  return m_listener != nullptr;
}

void AnswerReceiver::receive(ExchangeResult result) {
  if (!hasListener()) return;
  // Decoding may take long and must not hold the lock that the asking thread takes to let go.
  interpret(result);
  const std::lock_guard lock(m_mutex);
  if (m_listener) QCoreApplication::postEvent(m_listener, new QEvent(QEvent::User));
}

namespace detail {
namespace {

APIError ofFailure(TransportFailure failure) {
  switch (failure) {
    case TransportFailure::offline:
      return APIError::of(APIError::Kind::offline);
    case TransportFailure::timedOut:
      return APIError::of(APIError::Kind::timedOut);
    case TransportFailure::cancelled:
      return APIError::of(APIError::Kind::cancelled);
    case TransportFailure::unreachable:
      return APIError::of(APIError::Kind::unreachable);
    case TransportFailure::invalidResponse:
      return APIError::of(APIError::Kind::invalidResponse);
  }
  Q_UNREACHABLE();
}

APIError rateLimit(const HTTPAnswer& answer) {
  bool isNumber = false;
  const double seconds = answer.header("Retry-After").value_or(QString()).trimmed().toDouble(&isNumber);
  // "inf" and "nan" are numbers to Qt.
  return APIError::rateLimited(isNumber && std::isfinite(seconds)
                                   ? std::optional(std::clamp(seconds, 0.0, double(Problem::longestRetry)))
                                   : std::nullopt);
}

APIError refusal(const HTTPAnswer& answer) {
  try {
    auto problem = decodeJSON<Problem>(answer.body);
    if (problem.title || problem.detail || problem.code)
      return APIError::problem(std::move(problem), answer.header("x-request-id"));
  } catch (const DecodeError&) {
    // A proxy's HTML page is an answer too; it just says nothing.
  }
  return APIError::server(answer.status);
}

}  // namespace

std::optional<APIError> errorOf(const ExchangeResult& result) {
  if (const auto* none = std::get_if<NoAnswer>(&result)) return ofFailure(none->why).withContext({.sent = none->sent});
  const auto& answer = std::get<HTTPAnswer>(result);
  if (answer.status >= 200 && answer.status < 300) return std::nullopt;
  const APIError::Context context{.httpStatus = answer.status};
  if (answer.status == 429) return rateLimit(answer).withContext(context);
  if (answer.status == 401) return APIError::of(APIError::Kind::unauthorized).withContext(context);
  return refusal(answer).withContext(context);
}

APIError undecodable() {
  try {
    throw;
  } catch (const std::exception& error) {
    qCWarning(lcApi, "Undecodable answer: %s", error.what());
  }
  return APIError::of(APIError::Kind::invalidResponse);
}

}  // namespace detail

WorkspaceTransport::WorkspaceTransport(APITransport& transport, QString slug, QString token)
    : m_transport(transport), m_slug(std::move(slug)), m_token(std::move(token)) {}

std::unique_ptr<APITransport::Exchange> WorkspaceTransport::exchange(APICall call,
                                                                     std::shared_ptr<AnswerReceiver> receiver) {
  if (m_isClosed) {
    receiver->receive(TransportFailure::cancelled);
    return nullptr;
  }
  if (!call.request.isAccountLevel()) call.slug = m_slug;
  call.token = m_token;
  return m_transport.exchange(std::move(call), std::move(receiver));
}

}  // namespace orv
