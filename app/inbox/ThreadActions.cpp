#include "app/inbox/ThreadActions.h"

#include "app/base/Undo.h"
#include "app/base/shownName.h"
#include "app/base/wayTo.h"
#include "app/inbox/addresses.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

ThreadPatch statusPatch(QLatin1String status) {
  ThreadPatch patch;
  patch.status = status;
  return patch;
}

ThreadPatch unreadPatch(bool unread) {
  ThreadPatch patch;
  patch.unread = unread;
  return patch;
}

ThreadPatch labelPatch(const QString& key) {
  ThreadPatch patch;
  patch.label = key.isEmpty() ? Clearable<QString>::cleared() : Clearable<QString>(key);
  return patch;
}

/// What has left a thread, or is about to; a message that was a draft counts as that.
template <class Holds>
QSet<QString> outgoing(const ThreadDetail& detail, Holds says) {
  QSet<QString> ids;
  for (const InboxMessage& one : detail.messages)
    if (!one.isInbound() && says(one.body)) ids.insert(one.draftId.value_or(one.id));
  for (const Draft& one : detail.drafts)
    if (one.approvedAt && says(one.body)) ids.insert(one.id);
  return ids;
}

ReplyBody replyOf(const WrittenFields& fields) {
  ReplyBody reply{.body = fields.body, .cc = {}, .bcc = {}};
  const QStringList cc = splitAddresses(fields.cc).addresses, bcc = splitAddresses(fields.bcc).addresses;
  if (!cc.isEmpty()) reply.cc = cc;
  if (!bcc.isEmpty()) reply.bcc = bcc;
  return reply;
}

/// A writing on its way. However the way ends, it says so.
class OnItsWay {
 public:
  explicit OnItsWay(Writing* writing) : m_writing(writing) { writing->setState(true, writing->uncertain()); }
  OnItsWay(const OnItsWay&) = delete;
  OnItsWay& operator=(const OnItsWay&) = delete;
  ~OnItsWay() {
    if (m_writing) m_writing->setState(false, m_uncertain);
  }
  /// What is true of it from now on, if nothing else comes.
  void setUncertain(bool uncertain) { m_uncertain = uncertain; }

 private:
  QPointer<Writing> m_writing;
  bool m_uncertain = false;
};

}  // namespace

ThreadActions::ThreadActions(WorkspaceContext& context, Store* whole, ThreadList& threads, Writings& writings)
    : Store(context, whole),
      m_threads(threads),
      m_writings(writings),
      m_actions(context, m_busy[size_t(Kind::draft)], [&context] {
        context.changes().stale<InboxThread>();
        // A draft may have been written, or have been replaced by a reply.
        context.changes().stale<Draft>();
      }) {
  for (const BusySet& kind : m_busy) connect(&kind, &BusySet::changed, this, &ThreadActions::busyChanged);
}

QStringList ThreadActions::busyIds() const {
  QSet<QString> ids;
  for (const Kind kind : {Kind::status, Kind::unread, Kind::label}) ids += m_busy[size_t(kind)].ids();
  return ids.values();
}

QString ThreadActions::labelOf(const InboxThread& thread) const {
  return m_labels.value(thread.id, thread.label ? thread.label->rawValue : QString());
}

InboxThread ThreadActions::latest(const InboxThread& thread) const {
  const InboxThread* listed = m_threads.find(thread.id);
  return listed ? *listed : thread;
}

Task<std::optional<InboxThread>> ThreadActions::patch(InboxThread thread, std::function<ThreadPatch()> change,
                                                      QString failure) {
  const auto before = std::make_shared<InboxThread>(thread);
  auto answer = co_await m_actions.change<InboxThread>(
      thread.id,
      [this, before, change] {
        *before = latest(*before);
        return Requests::updateThread(before->id, change());
      },
      failure);
  if (!answer) co_return answer;
  // As of now: a reading that was asked for while this was under way may not know it yet.
  context().changes().publish(*answer, context().changes().stamp(), true);
  m_threads.count(*before, *answer);
  co_return answer;
}

Task<void> ThreadActions::archiveTask(InboxThread thread) {
  const auto busy = mark(thread.id, Kind::status);
  if (!busy) co_return;
  m_threads.setLeaving(thread.id, true);
  const auto archived = co_await patch(
      thread, [] { return statusPatch(words::threadArchived); }, u"Couldn’t archive the conversation."_s);
  m_threads.setLeaving(thread.id, false);
  if (!archived) co_return Q_EMIT stayed(thread.id);
  services().toasts.show({.message = u"Archived"_s,
                          .tone = Toasts::Tone::success,
                          .actionLabel = u"Undo"_s,
                          .action = undo(context(),
                                         [id = thread.id](const std::shared_ptr<WorkspaceContext>& there) {
                                           return undoArchive(there, id);
                                         }),
                          .accumulates = true});
}

/// Of the workspace, since the store may be gone by then.
Task<void> ThreadActions::undoArchive(std::shared_ptr<WorkspaceContext> context, QString id) {
  const auto turn = co_await context->turns().next(id);
  if (!turn) co_return;
  WorkspaceContext::Sending sending(*context);
  try {
    const InboxThread thread = co_await context->api().send(Requests::updateThread(id, statusPatch(words::threadOpen)));
    context->changes().publish(thread, context->changes().stamp(), true);
    // Where it stands in a list that had lost it, and what is counted, only the service knows.
    context->changes().stale<InboxThread>();
    context->services().toasts.success(u"Moved back to the inbox"_s);
  } catch (const APIError& error) {
    context->services().toasts.failure(u"Couldn’t move it back to the inbox."_s, error);
    sending.failed();
    if (mayHaveActed(error)) context->changes().stale<InboxThread>();
  }
}

Task<void> ThreadActions::moveToInboxTask(InboxThread thread) {
  const auto busy = mark(thread.id, Kind::status);
  if (!busy) co_return;
  m_threads.setLeaving(thread.id, true);
  const auto moved = co_await patch(
      thread, [] { return statusPatch(words::threadOpen); }, u"Couldn’t move it back to the inbox."_s);
  m_threads.setLeaving(thread.id, false);
  if (!moved) co_return Q_EMIT stayed(thread.id);
  services().toasts.success(u"Moved back to the inbox"_s);
}

Task<void> ThreadActions::markUnreadTask(InboxThread thread) {
  const auto busy = mark(thread.id, Kind::unread);
  if (!busy) co_return;
  const bool wasShownRead = m_threads.rows().isShownRead(thread.id);
  m_threads.setShownRead(thread.id, false);
  const auto marked = co_await patch(
      thread, [] { return unreadPatch(true); }, u"Couldn’t mark it unread."_s);
  if (marked)
    services().toasts.success(u"Marked unread"_s);
  else
    m_threads.setShownRead(thread.id, wasShownRead);
}

/// Not by patch(): nobody asked for it, so nobody is told, and what the person does meanwhile is not held up.
Task<void> ThreadActions::markReadTask(InboxThread thread) {
  const auto busy = mark(thread.id, Kind::read);
  if (!busy) co_return;
  const auto turn = co_await context().turns().next(thread.id);
  // Marked unread again before its turn came.
  if (!turn || !m_threads.rows().isShownRead(thread.id)) co_return;
  const InboxThread before = latest(thread);
  try {
    const InboxThread answer = co_await api().send(Requests::updateThread(thread.id, unreadPatch(false)));
    context().changes().publish(answer, context().changes().stamp(), true);
    m_threads.count(before, answer);
  } catch (const APIError& error) {
    if (!error.is(APIError::Kind::cancelled)) m_threads.setShownRead(thread.id, false);
  }
}

Task<void> ThreadActions::setLabelTask(InboxThread thread, QString key) {
  m_labels.insert(thread.id, key);
  const auto busy = mark(thread.id, Kind::label);
  // Who is under way goes once more for it, or has not yet gone.
  if (!busy) co_return;
  std::optional<QString> sent;
  do {
    sent.reset();
    const auto labelled = co_await patch(
        thread,
        [this, &sent, id = thread.id] {
          sent = m_labels.value(id);
          return labelPatch(*sent);
        },
        u"Couldn’t change the label."_s);
    if (labelled)
      services().toasts.success(sent->isEmpty()
                                    ? u"Label cleared"_s
                                    : u"Labelled "_s + shownName(m_threads.read(ThreadLabel(*sent)).title()));
  } while (sent && *sent != m_labels.value(thread.id));
  m_labels.remove(thread.id);
}

void ThreadActions::generate(const InboxThread& thread, const Draft* waiting) {
  m_tasks.start(generateTask(thread, waiting ? std::optional(*waiting) : std::nullopt));
}

Task<void> ThreadActions::generateTask(InboxThread thread, std::optional<Draft> waiting) {
  if (isGenerating(thread.id)) co_return;
  const bool isEdited = waiting && m_writings.editOf(*waiting);
  if (isEdited && !co_await services().overlays.confirm({.title = u"Write a new draft?"_s,
                                                         .text = u"Your edit of this draft is discarded."_s,
                                                         .confirm = u"Regenerate AI reply"_s,
                                                         .destructive = true}))
    co_return;
  const auto draft = co_await m_actions.perform<Draft>(
      {thread.id, thread.id}, [id = thread.id] { return Requests::draftReply(id); }, u"Couldn’t write a draft."_s);
  if (!draft) co_return;
  if (Writing* edit = isEdited ? m_writings.findEdit(*waiting) : nullptr) edit->discard();
  tellDrafted(thread);
}

/// Last: what others make of the draft themselves is older than what the service then says.
void ThreadActions::tellDrafted(const InboxThread& thread) {
  context().changes().stale<InboxThread>(thread.id);
  if (context().openedItem(Page::inbox) == thread.id) return;
  services().toasts.show({.message = u"The draft for %1 is ready"_s.arg(shownName(contactOf(thread))),
                          .tone = Toasts::Tone::success,
                          .actionLabel = u"Open"_s,
                          .action = wayTo(context(), Page::inbox, thread.id)});
}

/// The last sending has an unknown end. Nothing goes out twice: the thread says whether it arrived.
Task<std::optional<bool>> ThreadActions::hasArrived(QString threadId, Writing::Trace trace) {
  const auto detail = co_await m_actions.send(Requests::getThread(threadId), u"Couldn’t load this conversation."_s);
  if (!detail) co_return std::nullopt;
  Q_EMIT readAgain(*detail);
  const QString body = trace.sent.body.trimmed();
  const auto says = [&body](const QString& text) { return text.trimmed() == body; };
  // Whoever says the same a second time has not said it yet.
  co_return !(outgoing(*detail, says) - trace.leftBefore).isEmpty();
}

void ThreadActions::send(const InboxThread& thread, const ThreadDetail* shown, bool asksFirst) {
  const auto leftBefore = shown ? outgoing(*shown, [](const QString&) { return true; }) : QSet<QString>();
  m_tasks.start(sendTask(thread, leftBefore, asksFirst));
}

Task<void> ThreadActions::sendTask(InboxThread thread, QSet<QString> leftBefore, bool asksFirst) {
  const QPointer writing = m_writings.reply(thread.id, contactOf(thread));
  if (!writing->canSend()) co_return;
  if (asksFirst && !writing->uncertain() &&
      !co_await services().overlays.confirm(
          {.title = u"Reply anyway?"_s,
           .text = u"An AI draft is waiting in this conversation. Your reply takes its place."_s,
           .confirm = u"Send email"_s}))
    co_return;
  if (!writing || !writing->canSend()) co_return;
  const WrittenFields fields = writing->typed();
  if (!writing->uncertain()) writing->setTrace({fields, leftBefore});
  OnItsWay way(writing);
  if (writing->uncertain()) {
    way.setUncertain(true);
    const Writing::Trace trace = writing->trace();
    const auto arrived = co_await hasArrived(thread.id, trace);
    if (!arrived || !writing) co_return;
    if (*arrived) {
      way.setUncertain(false);
      writing->sent(trace.sent);
      // What the text was made into since is another reply, and waits.
      const bool isLeft = writing->dirty();
      services().toasts.show({.message = u"Your reply had been sent already."_s});
      tellReplied(thread, asksFirst);
      if (!isLeft) Q_EMIT sent(thread.id);
      co_return;
    }
    writing->setTrace({fields, trace.leftBefore});
  }
  // A store that goes meanwhile leaves an answer behind that nobody reads.
  way.setUncertain(true);
  const auto accepted = co_await m_actions.change<ReplyAccepted>(
      thread.id, [id = thread.id, fields] { return Requests::replyToThread(id, replyOf(fields)); }, u"Couldn’t send."_s,
      {},
      [&way](const APIError& error) {
        way.setUncertain(mayHaveActed(error));
        return false;
      });
  if (!accepted) co_return;
  way.setUncertain(false);
  if (writing) writing->sent(fields);
  context().changes().publish(accepted->draft, context().changes().stamp(), true);
  services().toasts.success(u"Sending to "_s + shownName(contactOf(thread)) + u" from "_s +
                            shownAddress(thread.mailboxAddress));
  tellReplied(thread, asksFirst);
  Q_EMIT sent(thread.id);
}

/// A draft that waited is replaced, and what stands in the list is older than the reply.
void ThreadActions::tellReplied(const InboxThread& thread, bool besideDraft) {
  if (besideDraft || latest(thread).pendingDrafts > 0) context().changes().stale<Draft>();
  context().changes().stale<InboxThread>(thread.id);
}

}  // namespace orv
