#include "app/inbox/ShownMessages.h"

namespace orv {
namespace {

/// For each row where it stands: in which message from the end, and which of its kind there.
QStringList placesOf(const std::vector<MessageRow>& rows) {
  const auto isHead = [](const MessageRow& row) { return row.part == QLatin1StringView("head"); };
  qsizetype message = std::ranges::count_if(rows, isHead);
  QHash<QString, int> ofKind;
  QStringList places;
  for (const MessageRow& row : rows) {
    if (isHead(row)) {
      --message;
      ofKind.clear();
    }
    places.append(
        QStringLiteral("%1/%2/%3").arg(QString::number(message), row.part, QString::number(ofKind[row.part]++)));
  }
  return places;
}

}  // namespace

void ShownMessages::setConversation(Conversation* conversation) {
  if (m_conversation == conversation) return;
  if (m_conversation) m_conversation->messages()->disconnect(this);
  m_conversation = conversation;
  if (conversation) {
    connect(conversation->messages(), &MessageRowsModel::arranged, this, &ShownMessages::follow);
    takePlaces(conversation->messages()->records());
  }
  follow();
  Q_EMIT conversationChanged();
}

void ShownMessages::takePlaces(const std::vector<MessageRow>& rows) {
  QHash<QString, QString> free;
  const QStringList before = placesOf(records());
  for (qsizetype row = 0; row < before.size(); ++row) free.insert(before[row], records()[size_t(row)].id);
  const QStringList places = placesOf(rows);
  m_ids.clear();
  for (qsizetype row = 0; row < places.size(); ++row)
    if (const auto id = free.constFind(places[row]); id != free.cend()) m_ids.insert(rows[size_t(row)].id, *id);
}

void ShownMessages::follow() {
  std::vector<MessageRow> rows;
  if (m_conversation) rows = m_conversation->messages()->records();
  QHash<QString, QString> ids;
  for (MessageRow& row : rows) {
    const QString known = m_ids.value(row.id);
    const QString id = known.isEmpty() ? QString::number(++m_made) : known;
    ids.insert(row.id, id);
    row.id = id;
  }
  m_ids = std::move(ids);
  update(std::move(rows));
}

}  // namespace orv
