#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// One line of a campaign's activity feed.
struct FeedItem {
  struct Who {
    QString id;
    QString email;
    std::optional<QString> name;
    bool operator==(const Who&) const = default;
  };
  QString kind;
  QString at;
  std::optional<qint64> step;
  std::optional<QString> variant;
  std::optional<QString> subject;
  std::optional<QString> detail;
  std::optional<QString> account;
  std::optional<QString> messageId;
  std::optional<Who> lead;
  /// How many like events the line stands for.
  std::optional<qint64> count;
  bool operator==(const FeedItem&) const = default;
};
BOOST_DESCRIBE_STRUCT(FeedItem::Who, (), (id, email, name))
BOOST_DESCRIBE_STRUCT(FeedItem, (), (kind, at, step, variant, subject, detail, account, messageId, lead, count))

struct FeedPage {
  QList<FeedItem> items;
  std::optional<QString> nextCursor;
  bool operator==(const FeedPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(FeedPage, (), (items, nextCursor))

}  // namespace orv
