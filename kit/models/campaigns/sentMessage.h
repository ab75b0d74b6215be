#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

struct SentMessage {
  QString id;
  std::optional<QString> leadId;
  QString to;
  QString from;
  std::optional<qint64> step;
  std::optional<QString> variant;
  std::optional<QString> subject;
  QString state;
  std::optional<QString> scheduledAt;
  std::optional<QString> sentAt;
  std::optional<QString> repliedAt;
  std::optional<QString> bouncedAt;
  std::optional<QString> error;
  bool operator==(const SentMessage&) const = default;
};
BOOST_DESCRIBE_STRUCT(SentMessage, (),
                      (id, leadId, to, from, step, variant, subject, state, scheduledAt, sentAt, repliedAt, bouncedAt,
                       error))

struct MessagePage {
  QList<SentMessage> items;
  std::optional<QString> nextCursor;
  bool operator==(const MessagePage&) const = default;
};
BOOST_DESCRIBE_STRUCT(MessagePage, (), (items, nextCursor))

}  // namespace orv
