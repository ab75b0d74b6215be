#pragma once

#include <QMap>

#include "kit/models/mailboxes/mailbox.h"

namespace orv {

struct MailboxPage {
  struct TagCount {
    QString tag;
    qint64 n = 0;
    bool operator==(const TagCount&) const = default;
  };
  QList<Mailbox> items;
  /// Absent on the last page, however full that is.
  std::optional<QString> nextCursor;
  /// By status.
  std::optional<QMap<QString, qint64>> counts;
  std::optional<qint64> archivedCount;
  std::optional<QList<TagCount>> tags;
  bool operator==(const MailboxPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxPage::TagCount, (), (tag, n))
BOOST_DESCRIBE_STRUCT(MailboxPage, (), (items, nextCursor, counts, archivedCount, tags))

}  // namespace orv
