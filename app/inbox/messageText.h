#pragma once

#include <QList>
#include <QString>

namespace orv {

struct InboxMessage;
struct Draft;

/// A run of lines of a message: what its sender wrote, or what they quote.
struct TextSegment {
  QString text;
  bool quoted = false;
  bool operator==(const TextSegment&) const = default;
};

/// The message without the blank lines around its segments. A quotation goes from its attribution ("… wrote:") to the
/// message's end or, where its lines are marked by ">", to the last of these: an answer below it is not hidden.
QList<TextSegment> foldQuotes(const QString& body);

/// The text in pieces of about `most` characters, ended at line ends where there are some: a list draws those that are
/// seen, and a megabyte in one piece would hold up a frame.
QStringList inPieces(const QString& text, qsizetype most = 2000);

/// Addresses in a text that may be opened, each once, as they will be: in plain letters, whatever they looked like.
/// Only http, https and mailto; none that has a name before its host, which is there to be taken for the host.
QStringList linksIn(const QString& text);

/// "Manual reply", "AI follow-up #2", "Inbound reply". `drafts` are the thread's.
QString messageCaption(const InboxMessage& message, const QList<Draft>& drafts);

}  // namespace orv
