#include "app/inbox/MessageRows.h"

#include "app/base/momentText.h"
#include "app/inbox/ThreadRows.h"
#include "app/inbox/addresses.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(MessageRow)

namespace {

QString capitalised(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

QString addressesText(const QString& word, const std::optional<QList<QString>>& addresses) {
  if (!addresses || addresses->isEmpty()) return {};
  QStringList shown;
  for (const QString& address : *addresses) shown.append(shownAddress(address));
  return word + shown.join(u", "_s);
}

QString recipientsOf(const InboxMessage& message) {
  QStringList words;
  if (!message.isInbound() && message.toAddress) words.append(u"to "_s + shownAddress(*message.toAddress));
  words.append(addressesText(u"cc "_s, message.cc));
  words.append(addressesText(u"bcc "_s, message.bcc));
  words.removeAll(QString());
  return words.join(u" · "_s);
}

/// Who sent it: by the name that the message says, or by what the thread knows.
QString senderOf(const InboxMessage& message, const InboxThread& thread) {
  if (message.fromName && !message.fromName->trimmed().isEmpty()) return *message.fromName;
  if (message.isInbound()) return contactOf(thread);
  return shownAddress(message.fromAddress.value_or(thread.mailboxAddress));
}

}  // namespace

void MessageRowsModel::show(const ThreadDetail& detail, const QDateTime& now) {
  m_detail = detail;
  m_now = now;
  QHash<QString, Read> read;
  for (const InboxMessage& message : detail.messages) {
    const auto known = m_read.constFind(message.id);
    if (known != m_read.cend() && known->body == message.body)
      read.insert(message.id, *known);
    else
      read.insert(message.id, {message.body, foldQuotes(message.body), linksIn(message.body)});
  }
  m_read = std::move(read);
  arrange();
}

void MessageRowsModel::arrange() {
  std::vector<MessageRow> rows;
  bool first = true;
  for (const InboxMessage& message : m_detail.messages) {
    for (MessageRow& row : rowsOf(message, first)) rows.push_back(std::move(row));
    first = false;
  }
  update(std::move(rows));
  Q_EMIT arranged();
}

std::vector<MessageRow> MessageRowsModel::rowsOf(const InboxMessage& message, bool first) const {
  const QString sender = senderOf(message, m_detail.thread);
  const QString address = shownAddress(message.fromAddress.value_or(QString()));
  std::vector<MessageRow> rows;
  const auto add = [&](const QString& part, const QString& place) -> MessageRow& {
    MessageRow row;
    row.id = message.id + u'/' + part + place;
    row.part = part;
    row.inbound = message.isInbound();
    rows.push_back(row);
    return rows.back();
  };
  MessageRow& head = add(u"head"_s, {});
  head.sender = sender;
  head.address = message.isInbound() && address != sender ? address : QString();
  head.recipients = recipientsOf(message);
  head.caption = messageCaption(message, m_detail.drafts);
  head.time = capitalised(momentText(message.at, m_now));
  head.first = first;
  const Read read = m_read.value(message.id);
  const auto addText = [&](const QString& part, const QString& place, const QString& text) {
    const QStringList pieces = inPieces(text);
    for (qsizetype piece = 0; piece < pieces.size(); ++piece)
      add(part, place + u'.' + QString::number(piece)).text = pieces[piece];
  };
  for (qsizetype at = 0; at < read.segments.size(); ++at) {
    const TextSegment& segment = read.segments[at];
    const QString place = QString::number(at);
    if (!segment.quoted) {
      addText(u"text"_s, place, segment.text);
      continue;
    }
    MessageRow& fold = add(u"fold"_s, place);
    fold.foldId = fold.id;
    fold.open = m_open.contains(fold.id);
    if (fold.open) addText(u"quote"_s, place, segment.text);
  }
  if (read.segments.isEmpty()) add(u"text"_s, u"0"_s).text = u"(no text)"_s;
  if (!read.links.isEmpty()) add(u"links"_s, {}).links = read.links;
  return rows;
}

void MessageRowsModel::fold(const QString& foldId) {
  if (!m_open.remove(foldId)) m_open.insert(foldId);
  arrange();
}

}  // namespace orv
