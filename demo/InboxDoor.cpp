#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

#include "demo/Inbox.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/threadFilter.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::demo {
namespace {

constexpr qint64 mostPerPage = 100;
/// A member's own reply waits so long, as it would in a queue.
constexpr auto ownWait = 3s;

void settle(Call& call) { settleInbox(*call.workspace, call.state.repliesPerMinute, call.now); }

/// The newest first; of those at the same moment, by id.
bool isBefore(const std::pair<QString, QString>& one, const std::pair<QString, QString>& other) {
  return one.first != other.first ? one.first > other.first : one.second < other.second;
}

std::pair<QString, QString> placeOf(const DemoThread& thread) { return {lastAt(thread), thread.id()}; }

/// A cursor is the place of the last one shown: what comes in meanwhile makes no gap.
std::pair<QString, QString> placeOf(const QString& cursor) {
  return {cursor.section(u'|', 0, 0), cursor.section(u'|', 1)};
}

class Filter {
 public:
  Filter(const DemoRequest& request, const ShownThreads& shown) : m_request(request), m_shown(shown) {
    m_query = request.value(u"q"_s);
    m_label = request.value(u"label"_s);
    m_mailbox = request.value(u"mailbox"_s);
    m_since = request.value(u"since"_s);
    m_status = request.value(u"status"_s);
    if (m_status.isEmpty()) m_status = orv::words::threadOpen;
  }

  bool takes(const DemoThread& thread) const {
    const InboxThread& record = thread.record;
    const QString label = record.label ? record.label->rawValue : QString(ThreadFilter::unlabelled);
    if (record.status != m_status) return false;
    if (m_request.isSet(u"unread"_s) && !record.unread) return false;
    if (m_request.isSet(u"drafts"_s) && !m_shown.waiting().contains(thread.id())) return false;
    if (m_request.value(u"tab"_s) == "primary"_L1 && !isPrimary(thread)) return false;
    if (!m_label.isEmpty() && label != m_label) return false;
    if (!m_mailbox.isEmpty() && record.mailboxId != m_mailbox) return false;
    return (m_since.isEmpty() || lastInboundAt(thread) > m_since) && (m_query.isEmpty() || finds(thread));
  }

 private:
  bool finds(const DemoThread& thread) const {
    const InboxThread& record = thread.record;
    const QString company = record.lead ? record.lead->company.value_or(QString()) : QString();
    return std::ranges::any_of(std::initializer_list<QString>{record.contactName.value_or(QString()),
                                                              record.contactAddress, record.subject, company},
                               [this](const QString& text) { return text.contains(m_query, Qt::CaseInsensitive); });
  }

  const DemoRequest& m_request;
  const ShownThreads& m_shown;
  QString m_query, m_label, m_mailbox, m_since, m_status;
};

ThreadPage::Counts countsOf(const DemoInbox& inbox, const ShownThreads& shown) {
  ThreadPage::Counts counts;
  auto& byLabel = counts.byLabel.emplace();
  QMap<QString, ThreadPage::Counts::MailboxCount> byMailbox;
  for (const DemoThread& thread : inbox.threads) {
    if (thread.record.isArchived()) continue;
    ++counts.total;
    counts.unread += thread.record.unread;
    counts.drafts += shown.waiting().contains(thread.id());
    ++byLabel[thread.record.label ? thread.record.label->rawValue : QString(ThreadFilter::unlabelled)];
    auto& mailbox = byMailbox[thread.record.mailboxAddress];
    mailbox = {thread.record.mailboxId, thread.record.mailboxAddress, mailbox.n + 1};
  }
  counts.byMailbox = byMailbox.values();
  return counts;
}

HTTPAnswer list(Call& call) {
  settle(call);
  const DemoInbox& inbox = call.workspace->inbox;
  const ShownThreads shown(*call.workspace);
  const Filter filter(call.request, shown);
  QList<std::pair<std::pair<QString, QString>, const DemoThread*>> found;
  const QString cursor = call.request.value(u"cursor"_s);
  for (const DemoThread& thread : inbox.threads) {
    const auto place = placeOf(thread);
    if ((cursor.isEmpty() || isBefore(placeOf(cursor), place)) && filter.takes(thread)) found.append({place, &thread});
  }
  std::ranges::sort(found, [](const auto& one, const auto& other) { return isBefore(one.first, other.first); });
  ThreadPage page;
  const qint64 room = call.request.limit(mostPerPage);
  for (const auto& [place, thread] : found.first(std::min<qsizetype>(room, found.size())))
    page.items.append(shown.of(*thread));
  if (found.size() > room) page.nextCursor = found[room - 1].first.first + u'|' + found[room - 1].first.second;
  page.counts = countsOf(inbox, shown);
  return jsonAnswer(toJSON(page));
}

template <HTTPAnswer (*answer)(Call&, DemoThread&)>
HTTPAnswer onThread(Call& call) {
  settle(call);
  DemoThread* const thread = findThread(*call.workspace, call.ids.first());
  return thread ? answer(call, *thread) : notFound(u"There is no such conversation"_s);
}

HTTPAnswer threadAnswer(const Call& call, const DemoThread& thread) {
  return jsonAnswer(toJSON(ShownThreads(*call.workspace).of(thread)));
}

HTTPAnswer detail(Call& call, DemoThread& thread) {
  ThreadDetail detail{ShownThreads(*call.workspace).of(thread), thread.messages, {}};
  for (const DemoDraft& draft : call.workspace->inbox.drafts) {
    const Draft& record = draft.record;
    // What went out stands among the messages.
    if (record.threadId == thread.id() && (record.isWaiting() || record.status == "approved"_L1 || record.error))
      detail.drafts.append(record);
  }
  return jsonAnswer(toJSON(detail));
}

HTTPAnswer patch(Call& call, DemoThread& thread) {
  const auto patch = call.request.bodyAs<ThreadPatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  InboxThread& record = thread.record;
  if (patch->status && *patch->status != orv::words::threadOpen && *patch->status != orv::words::threadArchived)
    return invalid(u"There is no such status."_s, u"status"_s);
  if (patch->label.isPresent()) {
    const auto& label = patch->label.value();
    record.label = label ? std::optional(ThreadLabel(*label)) : std::nullopt;
    record.labelSource = u"member"_s;
  }
  if (patch->status) record.status = *patch->status;
  if (patch->unread) record.unread = *patch->unread;
  if (patch->humanTookOver) record.humanTookOver = *patch->humanTookOver;
  return threadAnswer(call, thread);
}

bool areAddresses(const std::optional<QList<QString>>& addresses) {
  return !addresses || std::ranges::all_of(*addresses, [](const QString& one) { return one.contains(u'@'); });
}

HTTPAnswer reply(Call& call, DemoThread& thread) {
  const auto said = call.request.bodyAs<ReplyBody>();
  if (!said || said->body.trimmed().isEmpty()) return invalid(u"A reply needs a text."_s, u"body"_s);
  if (!areAddresses(said->cc) || !areAddresses(said->bcc)) return invalid(u"That is no address."_s, u"cc"_s);
  for (DemoDraft& waiting : call.workspace->inbox.drafts)
    if (waiting.record.threadId == thread.id() && waiting.record.isWaiting())
      putAside(waiting, orv::words::draftReplaced, call.now);
  DemoDraft draft;
  draft.record.id = u"dr_%1_%2"_s.arg(call.workspace->slug).arg(++call.workspace->inbox.lastNumber);
  draft.record.threadId = thread.id();
  draft.record.kind = orv::words::kindReply;
  draft.record.toAddress = thread.record.contactAddress;
  draft.record.subject = thread.record.subject;
  draft.record.body = said->body;
  draft.record.source = u"member"_s;
  draft.record.createdAt = call.stamp();
  draft.cc = said->cc.value_or(QList<QString>());
  draft.bcc = said->bcc.value_or(QList<QString>());
  approve(draft, call.now, ownWait);
  thread.record.humanTookOver = true;
  call.workspace->inbox.drafts.append(draft);
  return jsonAnswer(toJSON(ReplyAccepted{draft.record, call.random.id(u"job"_s)}), 202);
}

HTTPAnswer draft(Call& call, DemoThread& thread) {
  if (!call.workspace->inbox.settings.hasOpenAiKey)
    return problemAnswer(409, u"no_ai_key"_s, u"The agent can’t write yet"_s, u"It has no AI key."_s);
  return jsonAnswer(toJSON(writeDraft(*call.workspace, thread, call.now).record), 201);
}

/// Asking always finds somebody who has just written.
HTTPAnswer poll(Call& call) {
  settle(call);
  if (!call.workspace->mailboxes.isEmpty()) receiveAnother(*call.workspace, {}, call.now);
  return emptyAnswer();
}

HTTPAnswer labels(Call& call) {
  ReplyLabelList list;
  for (const ThreadLabel& label : ThreadLabel::known())
    list.items.append({label.rawValue, label.title(), label.tone().isEmpty() ? u"neutral"_s : label.tone()});
  list.items += call.workspace->inbox.ownLabels;
  return jsonAnswer(toJSON(list));
}

}  // namespace

const QList<Route>& inboxRoutes() {
  static const QList<Route> routes{
      {"GET", u"/inbox/threads"_s, Access::readers, list},
      {"GET", u"/inbox/threads/{id}"_s, Access::readers, onThread<detail>},
      {"PATCH", u"/inbox/threads/{id}"_s, Access::members, onThread<patch>},
      {"POST", u"/inbox/threads/{id}/reply"_s, Access::members, onThread<reply>},
      {"POST", u"/inbox/threads/{id}/draft"_s, Access::members, onThread<draft>},
      {"POST", u"/inbox/poll"_s, Access::members, poll},
      {"GET", u"/reply-labels"_s, Access::readers, labels},
  };
  return routes;
}

}  // namespace orv::demo
