#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <exception>
#include <optional>

namespace orv {

/// The service's own account of a refusal (problem details, RFC 7807, with the service's members).
struct Problem {
  struct FieldError {
    /// Name or dotted path of the input field.
    std::optional<QString> path;
    std::optional<QString> message;
    bool operator==(const FieldError&) const = default;
  };

  std::optional<QString> type;
  std::optional<QString> title;
  std::optional<qint64> status;
  std::optional<QString> detail;
  /// What stores compare against.
  std::optional<QString> code;
  std::optional<QString> requestId;
  std::optional<QList<FieldError>> errors;
  /// Seconds until the action may be tried again.
  std::optional<qint64> retryIn;
  static constexpr qint64 longestRetry = 3600;
  /// Attempts left before a lock-out.
  std::optional<qint64> triesLeft;
  bool operator==(const Problem&) const = default;
};
BOOST_DESCRIBE_STRUCT(Problem::FieldError, (), (path, message))
BOOST_DESCRIBE_STRUCT(Problem, (), (type, title, status, detail, code, requestId, errors, retryIn, triesLeft))

/// How a call to the service failed: exactly one of these, whatever went wrong beneath.
class APIError final : public std::exception {
 public:
  enum class Kind {
    rateLimited,
    problem,
    server,
    offline,
    unreachable,
    timedOut,
    cancelled,
    unauthorized,
    invalidResponse
  };

  static APIError rateLimited(std::optional<double> retryAfter);
  /// Cuts what the problem says to what fits a screen, and its numbers to what they can mean.
  static APIError problem(Problem problem, std::optional<QString> requestId);
  static APIError server(int status);
  /// For the kinds without a payload.
  static APIError of(Kind kind);

  Kind kind() const { return m_kind; }
  bool is(Kind kind) const { return m_kind == kind; }

  /// The sentence to show, as it stands.
  QString message() const;
  /// For copied diagnostics; never part of message(). Only a `problem` has one.
  std::optional<QString> requestId() const;
  /// The service's machine code of a `problem`.
  std::optional<QString> code() const;
  /// Seconds, of `rateLimited`.
  std::optional<double> retryAfter() const { return m_retryAfter; }
  /// What the service said of a `problem`, as it came; empty for every other kind.
  const Problem& problem() const { return m_problem; }
  /// The status of `server`; 0 for every other kind.
  int status() const { return m_status; }

  /// What the exchange was, beside the error itself and so outside its equality.
  struct Context {
    /// 0 when there was no answer.
    int httpStatus = 0;
    /// The request named the version it was based on.
    bool conditional = false;
    /// The request may have reached the service. False when no connection came about.
    bool sent = true;
  };
  const Context& context() const { return m_context; }
  APIError withContext(Context context) const;

  /// A kind's name in ASCII, for the log.
  const char* what() const noexcept override;
  /// The same with what helps to find the call in the service's own log: "problem bad_code, status 400, request r-1".
  QString description() const;

  bool operator==(const APIError& other) const;

 private:
  explicit APIError(Kind kind) : m_kind(kind) {}

  Kind m_kind;
  std::optional<double> m_retryAfter;
  Problem m_problem;
  std::optional<QString> m_requestId;
  int m_status = 0;
  Context m_context;
};

size_t qHash(const APIError& error, size_t seed = 0);

/// Whether the service refused a change because the record had moved on since the caller read it.
bool isVersionConflict(const APIError& error);

/// Whether the service may have done what was asked of it although the call failed. Only a request that never went out
/// and one that the service refused are certain to have changed nothing: a time-out, a lost connection, an answer that
/// cannot be read and a fault on its side all leave that open.
bool mayHaveActed(const APIError& error);

}  // namespace orv
