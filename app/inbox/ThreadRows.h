#pragma once

#include <QDateTime>
#include <QSet>

#include "app/base/Choice.h"
#include "app/base/Listed.h"
#include "app/base/RowFields.h"
#include "app/base/TableModel.h"
#include "kit/models/inbox/inboxThread.h"

namespace orv {

/// What of a thread is read anew with every row that is drawn, made once.
struct ThreadFacts {
  explicit ThreadFacts(const InboxThread& thread);
  std::optional<QDateTime> at;
};

using ThreadRow = Listed<InboxThread, ThreadFacts>;
ORV_DECLARE_ROW(ThreadRow)

/// Whom a thread is with, by name or else by address.
QString contactOf(const InboxThread& thread);

/// When a message came, as short as it can be said: "09:42", "Yesterday", "Wed", "18 Nov".
QString shortMoment(const std::optional<QDateTime>& instant, const QDateTime& now);

/// What the list says of threads.
class ThreadRowsModel final : public TableModel<ThreadRowsModel, ThreadRow> {
 public:
  using TableModel::TableModel;
  static const Cells& cells();

  /// Labels as this workspace words them.
  void setLabels(const QList<ReplyLabel>& own);
  const QList<ReplyLabel>& labels() const { return m_labels; }
  void setNow(std::function<QDateTime()> now) { m_now = std::move(now); }
  QDateTime now() const { return m_now ? m_now() : QDateTime(); }

  /// Shown as read, though the service has not been told, or has not answered.
  void setShownRead(const QString& id, bool shown);
  const QSet<QString>& shownRead() const { return m_shownRead; }
  bool isShownRead(const QString& id) const { return m_shownRead.contains(id); }
  bool isUnread(const InboxThread& thread) const { return thread.unread && !isShownRead(thread.id); }
  /// Something that the person wrote waits there.
  void setWritten(const QString& id, bool written);
  bool isWritten(const QString& id) const { return m_written.contains(id); }

 private:
  void mark(QSet<QString>& marks, const QString& id, bool marked);

  QList<ReplyLabel> m_labels;
  std::function<QDateTime()> m_now;
  QSet<QString> m_shownRead;
  QSet<QString> m_written;
};

}  // namespace orv
