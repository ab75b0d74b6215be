#include "app/inbox/ThreadRows.h"

#include "app/inbox/addresses.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(ThreadRow)

namespace {

QString companyOf(const InboxThread& thread) {
  return thread.lead ? thread.lead->company.value_or(QString()) : QString();
}

ReplyLabel labelOf(const ThreadRowsModel& model, const InboxThread& thread) {
  return thread.label ? replyLabel(*thread.label, model.labels()) : ReplyLabel();
}

QString said(const ThreadRowsModel& model, const ThreadRow& row) {
  const InboxThread& thread = row.record();
  QStringList words{contactOf(thread), companyOf(thread), thread.subject};
  if (model.isUnread(thread)) words.prepend(u"Unread"_s);
  if (thread.label) words.append(labelOf(model, thread).title());
  if (thread.pendingDrafts > 0) words.append(u"Draft ready"_s);
  if (model.isWritten(row.id)) words.append(u"Not sent"_s);
  words.append(shortMoment(row.prepared().at, model.now()));
  words.removeAll(QString());
  return words.join(u", "_s);
}

}  // namespace

ThreadFacts::ThreadFacts(const InboxThread& thread) : at(parsePlatformDate(thread.lastMessageAt)) {}

QString contactOf(const InboxThread& thread) {
  for (const auto& name : {thread.contactName, thread.lead ? thread.lead->fullName : std::nullopt})
    if (name && !name->trimmed().isEmpty()) return *name;
  return shownAddress(thread.contactAddress);
}

QString shortMoment(const std::optional<QDateTime>& instant, const QDateTime& now) {
  if (!instant) return {};
  const QDateTime local = instant->toLocalTime();
  const qint64 days = local.date().daysTo(now.toLocalTime().date());
  if (days == 0) return local.toString(u"HH:mm"_s);
  if (days == 1) return u"Yesterday"_s;
  if (days > 1 && days < 7) return QLocale().toString(local.date(), u"ddd"_s);
  return Format::shortDate(local.date());
}

void ThreadRowsModel::setLabels(const QList<ReplyLabel>& own) {
  m_labels = own;
  if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void ThreadRowsModel::setShownRead(const QString& id, bool shown) { mark(m_shownRead, id, shown); }

void ThreadRowsModel::setWritten(const QString& id, bool written) { mark(m_written, id, written); }

void ThreadRowsModel::mark(QSet<QString>& marks, const QString& id, bool marked) {
  if (marks.contains(id) == marked) return;
  if (marked)
    marks.insert(id);
  else
    marks.remove(id);
  touch(id);
}

const ThreadRowsModel::Cells& ThreadRowsModel::cells() {
  static const Cells cells{
      {"contact", [](auto&, auto& row) -> QVariant { return contactOf(row.record()); }},
      {"company", [](auto&, auto& row) -> QVariant { return companyOf(row.record()); }},
      {"timeText", [](auto& model, auto& row) -> QVariant { return shortMoment(row.prepared().at, model.now()); }},
      {"subject", [](auto&, auto& row) -> QVariant { return row.record().subject; }},
      {"snippet", [](auto&, auto& row) -> QVariant { return row.record().snippet.value_or(QString()); }},
      {"labelTitle", [](auto& model, auto& row) -> QVariant { return labelOf(model, row.record()).title(); }},
      {"labelTone",
       [](auto& model, auto& row) -> QVariant { return labelOf(model, row.record()).tone.value_or(QString()); }},
      {"draftReady", [](auto&, auto& row) -> QVariant { return row.record().pendingDrafts > 0; }},
      {"written", [](auto& model, auto& row) -> QVariant { return model.isWritten(row.id); }},
      {"unread", [](auto& model, auto& row) -> QVariant { return model.isUnread(row.record()); }},
      {"said", [](auto& model, auto& row) -> QVariant { return said(model, row); }},
  };
  return cells;
}

}  // namespace orv
