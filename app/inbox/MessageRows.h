#pragma once

#include <QSet>

#include "app/base/RowFields.h"
#include "app/base/WrittenRows.h"
#include "app/inbox/messageText.h"
#include "kit/models/inbox/threadDetail.h"

namespace orv {

/// Something of a conversation that is drawn by itself: who wrote a message, a piece of its text, what folds away what
/// it quotes, the addresses in it.
struct MessageRow {
  QString id;
  /// "head", "text", "quote", "fold" or "links".
  QString part;
  /// What fold() is called with.
  QString foldId;
  QString sender;
  QString address;
  QString recipients;
  QString caption;
  QString time;
  /// Of "text" and "quote": as it came.
  QString text;
  QStringList links;
  bool inbound = false;
  /// The first message has no line above it.
  bool first = false;
  /// A fold that is open.
  bool open = false;
  bool operator==(const MessageRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(MessageRow, (),
                      (id, part, foldId, sender, address, recipients, caption, time, text, links, inbound, first, open))
ORV_DECLARE_ROW(MessageRow)

/// The messages of one conversation, oldest first, in rows that are each drawn within a frame.
class MessageRowsModel final : public WrittenRows<MessageRow> {
  Q_OBJECT

 public:
  explicit MessageRowsModel(QObject* parent = nullptr) : WrittenRows({"text"}, parent) {}

  void show(const ThreadDetail& detail, const QDateTime& now);
  /// Opens or closes what a message quotes.
  void fold(const QString& foldId);

 Q_SIGNALS:
  /// All rows are what they are now to be.
  void arranged();

 private:
  void arrange();
  std::vector<MessageRow> rowsOf(const InboxMessage& message, bool first) const;

  ThreadDetail m_detail;
  QDateTime m_now;
  QSet<QString> m_open;
  /// The texts are looked through once: a message does not change.
  struct Read {
    QString body;
    QList<TextSegment> segments;
    QStringList links;
  };
  QHash<QString, Read> m_read;
};

}  // namespace orv
