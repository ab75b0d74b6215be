#pragma once

#include <QPointer>

#include "app/inbox/Conversation.h"

namespace orv {

/// The messages of whichever conversation a pane shows.
///
/// A conversation's own rows, but for their ids: what stands at the same place, counted from the end, keeps its row
/// from one conversation to the next. So going on gives the items of a view other texts instead of making them anew,
/// which costs most of a frame. As long as one conversation is shown, a row stands for the same piece of it.
class ShownMessages : public WrittenRows<MessageRow> {
  Q_OBJECT
  Q_PROPERTY(orv::Conversation* conversation READ conversation WRITE setConversation NOTIFY conversationChanged)

 public:
  explicit ShownMessages(QObject* parent = nullptr) : WrittenRows({"text"}, parent) {}

  Conversation* conversation() const { return m_conversation; }
  /// Of none there are no messages.
  void setConversation(Conversation* conversation);

 Q_SIGNALS:
  /// The rows are already those of the other one.
  void conversationChanged();

 private:
  void follow();
  void takePlaces(const std::vector<MessageRow>& rows);

  QPointer<Conversation> m_conversation;
  /// Ids here by ids there.
  QHash<QString, QString> m_ids;
  quint64 m_made = 0;
};

}  // namespace orv
