#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// A test send and how far it got.
struct TestEmail {
  QString id;
  QString state;
  std::optional<QString> from;
  std::optional<QString> to;
  std::optional<QString> subject;
  std::optional<QString> error;
  std::optional<QList<QString>> warnings;
  bool operator==(const TestEmail&) const = default;
};
BOOST_DESCRIBE_STRUCT(TestEmail, (), (id, state, from, to, subject, error, warnings))

struct TestEmailBody {
  QString to;
  std::optional<QString> mailboxId;
  std::optional<QString> leadId;
  qint64 stepPosition = 0;
  std::optional<QString> variantId;
  std::optional<QString> subject;
  std::optional<QString> body;
  bool operator==(const TestEmailBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(TestEmailBody, (), (to, mailboxId, leadId, stepPosition, variantId, subject, body))

}  // namespace orv
