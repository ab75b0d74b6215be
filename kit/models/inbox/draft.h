#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// The checks that held a draft back.
struct DraftGate {
  struct Failure {
    std::optional<QString> code;
    std::optional<QString> detail;
    bool operator==(const Failure&) const = default;
  };
  std::optional<QList<Failure>> failures;
  bool operator==(const DraftGate&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftGate::Failure, (), (code, detail))
BOOST_DESCRIBE_STRUCT(DraftGate, (), (failures))

/// Why the agent answered as it did.
struct DraftStrategy {
  struct Classification {
    std::optional<QString> reason;
    bool operator==(const Classification&) const = default;
  };
  std::optional<Classification> classification;
  bool operator==(const DraftStrategy&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftStrategy::Classification, (), (reason))
BOOST_DESCRIBE_STRUCT(DraftStrategy, (), (classification))

/// A reply on its way out: written by the agent and waiting for a decision, or decided and waiting to be sent.
struct Draft {
  using Record = Draft;

  QString id;
  QString threadId;
  QString kind;
  /// Which follow-up it is.
  std::optional<qint64> step;
  std::optional<QString> toAddress;
  std::optional<QString> subject;
  QString body;
  std::optional<QString> source;
  QString status;
  std::optional<QString> holdReason;
  /// When an approved draft goes out.
  std::optional<QString> dueAt;
  std::optional<QString> approvedAt;
  std::optional<bool> edited;
  std::optional<QString> error;
  std::optional<QString> createdAt;
  std::optional<QString> updatedAt;
  std::optional<DraftGate> gate;
  std::optional<DraftStrategy> strategy;
  /// What the agent wrote, kept beside an edited body.
  std::optional<QString> aiBody;
  std::optional<QString> reviewOutcome;
  std::optional<QString> reviewedAt;
  std::optional<QString> reviewStyle;
  /// The reviewer's reason.
  std::optional<QString> reviewText;
  /// The lesson that was learned from it.
  std::optional<QString> learnedKind;
  std::optional<QString> learnedText;
  /// How many of the agent's rules shaped it.
  std::optional<qint64> lessonsUsed;

  /// The agent held it back; it waits for a decision all the same.
  bool isHeld() const { return status == QLatin1String("held"); }
  bool isWaiting() const { return status == QLatin1String("pending") || isHeld(); }
  bool operator==(const Draft&) const = default;
};
BOOST_DESCRIBE_STRUCT(Draft, (),
                      (id, threadId, kind, step, toAddress, subject, body, source, status, holdReason, dueAt,
                       approvedAt, edited, error, createdAt, updatedAt, gate, strategy, aiBody, reviewOutcome,
                       reviewedAt, reviewStyle, reviewText, learnedKind, learnedText, lessonsUsed))

}  // namespace orv
