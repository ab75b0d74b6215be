#include "kit/api/APIError.h"

#include <QHash>
#include <algorithm>

#include "kit/api/plainText.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qsizetype longestText = 1000;
constexpr qsizetype mostFieldErrors = 100;

void bound(std::optional<QString>& text) {
  if (text) text = cutTo(*text, longestText);
}

Problem bounded(Problem problem) {
  for (auto* text : {&problem.type, &problem.title, &problem.detail, &problem.code}) bound(*text);
  if (problem.errors) {
    if (problem.errors->size() > mostFieldErrors) problem.errors->resize(mostFieldErrors);
    for (auto& each : *problem.errors) {
      bound(each.path);
      bound(each.message);
    }
  }
  if (problem.requestId && !isPlainId(*problem.requestId)) problem.requestId.reset();
  if (problem.retryIn) problem.retryIn = std::clamp<qint64>(*problem.retryIn, 0, Problem::longestRetry);
  if (problem.triesLeft) problem.triesLeft = std::max<qint64>(*problem.triesLeft, 0);
  return problem;
}

/// An empty text counts as absent: ": Name is required." reads like a fault of ours.
bool says(const std::optional<QString>& text) { return text && !text->isEmpty(); }

QString problemMessage(const Problem& problem) {
  if (says(problem.title) && says(problem.detail)) return *problem.title + ": "_L1 + *problem.detail;
  if (says(problem.detail)) return *problem.detail;
  if (says(problem.title)) return *problem.title;
  return u"Something went wrong. Please try again."_s;
}

}  // namespace

APIError APIError::rateLimited(std::optional<double> retryAfter) {
  APIError error(Kind::rateLimited);
  error.m_retryAfter = retryAfter;
  return error;
}

APIError APIError::problem(Problem problem, std::optional<QString> requestId) {
  APIError error(Kind::problem);
  error.m_problem = bounded(std::move(problem));
  if (requestId && isPlainId(*requestId)) error.m_requestId = std::move(requestId);
  return error;
}

APIError APIError::server(int status) {
  APIError error(Kind::server);
  error.m_status = status;
  return error;
}

APIError APIError::of(Kind kind) { return APIError(kind); }

QString APIError::message() const {
  switch (m_kind) {
    case Kind::rateLimited:
      return u"Too many requests. Wait a minute and try again."_s;
    case Kind::problem:
      return problemMessage(m_problem);
    case Kind::server:
      return u"Something went wrong on our side. Please try again."_s;
    case Kind::offline:
      return u"You’re offline. Connect to the internet and try again."_s;
    case Kind::unreachable:
      return u"Orvella can’t be reached right now. Try again in a moment."_s;
    case Kind::timedOut:
      return u"That took too long. Check your connection and try again."_s;
    case Kind::cancelled:
      return u"Cancelled."_s;
    case Kind::unauthorized:
      return u"This workspace’s connection ended. Sign in again."_s;
    case Kind::invalidResponse:
      return u"Something went wrong on our side. Please try again."_s;
  }
  Q_UNREACHABLE();
}

std::optional<QString> APIError::requestId() const {
  if (m_kind != Kind::problem) return std::nullopt;
  return m_requestId ? m_requestId : m_problem.requestId;
}

std::optional<QString> APIError::code() const { return m_kind == Kind::problem ? m_problem.code : std::nullopt; }

APIError APIError::withContext(Context context) const {
  APIError copy = *this;
  copy.m_context = context;
  return copy;
}

const char* APIError::what() const noexcept {
  switch (m_kind) {
    case Kind::rateLimited:
      return "rateLimited";
    case Kind::problem:
      return "problem";
    case Kind::server:
      return "server";
    case Kind::offline:
      return "offline";
    case Kind::unreachable:
      return "unreachable";
    case Kind::timedOut:
      return "timedOut";
    case Kind::cancelled:
      return "cancelled";
    case Kind::unauthorized:
      return "unauthorized";
    case Kind::invalidResponse:
      return "invalidResponse";
  }
  return "";
}

QString APIError::description() const {
  QString text = QString::fromLatin1(what());
  if (const auto word = code()) text += u' ' + *word;
  if (m_context.httpStatus > 0) text += u", status "_s + QString::number(m_context.httpStatus);
  if (const auto id = requestId()) text += u", request "_s + *id;
  return text;
}

bool APIError::operator==(const APIError& other) const {
  return m_kind == other.m_kind && m_retryAfter == other.m_retryAfter && m_problem == other.m_problem &&
         m_requestId == other.m_requestId && m_status == other.m_status;
}

size_t qHash(const APIError& error, size_t seed) {
  return qHashMulti(seed, int(error.kind()), error.retryAfter().value_or(-1), error.status(),
                    error.code().value_or(QString()), error.problem().title.value_or(QString()),
                    error.problem().detail.value_or(QString()), error.requestId().value_or(QString()));
}

bool isVersionConflict(const APIError& error) {
  const APIError::Context& context = error.context();
  return context.conditional && (context.httpStatus == 409 || context.httpStatus == 412);
}

bool mayHaveActed(const APIError& error) {
  const APIError::Context& context = error.context();
  const bool refused = context.httpStatus >= 400 && context.httpStatus < 500;
  return context.sent && !refused;
}

}  // namespace orv
