#include "app/inbox/ThreadActions.h"

#include "app/base/Undo.h"
#include "app/base/shownName.h"
#include "app/inbox/addresses.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto writes = u"/draft"_s, reads = u"/read"_s;

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
    : Store(context, whole), m_threads(threads), m_writings(writings), m_actions(context, m_busy, [&context] {
        context.changes().stale<InboxThread>();
        // A draft may have been written, or have been replaced by a reply.
        context.changes().stale<Draft>();
      }) {
  connect(&m_busy, &BusySet::changed, this, &ThreadActions::busyChanged);
}

bool ThreadActions::isMarkingRead(const QString& threadId) const { return m_busy.contains(threadId + reads); }

bool ThreadActions::isGenerating(const QString& threadId) const { return m_busy.contains(threadId + writes); }

InboxThread ThreadActions::latest(const InboxThread& thread) const {
  const InboxThread* listed = m_threads.find(thread.id);
  return listed ? *listed : thread;
}

Task<std::optional<InboxThread>> ThreadActions::patch(InboxThread thread, ThreadPatch change, QString failure) {
  const auto before = std::make_shared<InboxThread>(thread);
  auto answer = co_await m_actions.perform<InboxThread>(
      {thread.id, thread.id},
      [this, before, change] {
        *before = latest(*before);
        return Requests::updateThread(before->id, change);
      },
      failure);
  if (!answer) co_return answer;
  // As of now: a reading that was asked for while this was under way may not know it yet.
  context().changes().publish(*answer, context().changes().stamp(), true);
  m_threads.count(*before, *answer);
  co_return answer;
}

Task<void> ThreadActions::archiveTask(InboxThread thread) {
  if (m_busy.contains(thread.id)) co_return;
  m_threads.setLeaving(thread.id, true);
  const auto archived =
      co_await patch(thread, statusPatch(words::threadArchived), u"Couldn’t archive the conversation."_s);
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
  try {
    const InboxThread thread = co_await context->api().send(Requests::updateThread(id, statusPatch(words::threadOpen)));
    context->changes().publish(thread, context->changes().stamp(), true);
    // Where it stands in a list that had lost it, and what is counted, only the service knows.
    context->changes().stale<InboxThread>();
    context->services().toasts.success(u"Moved back to the inbox"_s);
  } catch (const APIError& error) {
    context->services().toasts.failure(u"Couldn’t move it back to the inbox."_s, error);
    if (mayHaveActed(error)) context->changes().stale<InboxThread>();
  }
}

Task<void> ThreadActions::moveToInboxTask(InboxThread thread) {
  if (m_busy.contains(thread.id)) co_return;
  m_threads.setLeaving(thread.id, true);
  const auto moved = co_await patch(thread, statusPatch(words::threadOpen), u"Couldn’t move it back to the inbox."_s);
  m_threads.setLeaving(thread.id, false);
  if (!moved) co_return Q_EMIT stayed(thread.id);
  services().toasts.success(u"Moved back to the inbox"_s);
}

Task<void> ThreadActions::markUnreadTask(InboxThread thread) {
  if (m_busy.contains(thread.id)) co_return;
  const bool wasShownRead = m_threads.rows().isShownRead(thread.id);
  m_threads.setShownRead(thread.id, false);
  const auto marked = co_await patch(thread, unreadPatch(true), u"Couldn’t mark it unread."_s);
  if (marked)
    services().toasts.success(u"Marked unread"_s);
  else
    m_threads.setShownRead(thread.id, wasShownRead);
}

/// Not by patch(): nobody asked for it, so nobody is told, and what the person does meanwhile is not held up.
Task<void> ThreadActions::markReadTask(InboxThread thread) {
  const auto mark = m_busy.mark(thread.id + reads);
  if (!mark) co_return;
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
  ThreadPatch change;
  change.label = key.isEmpty() ? Clearable<QString>::cleared() : Clearable<QString>(key);
  if (!co_await patch(thread, change, u"Couldn’t change the label."_s)) co_return;
  services().toasts.success(key.isEmpty() ? u"Label cleared"_s
                                          : u"Labelled "_s + shownName(m_threads.read(ThreadLabel(key)).title()));
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
      {thread.id + writes, thread.id}, [id = thread.id] { return Requests::draftReply(id); },
      u"Couldn’t write a draft."_s);
  if (!draft) co_return;
  if (Writing* edit = isEdited ? m_writings.findEdit(*waiting) : nullptr) edit->discard();
}

/// The last sending has an unknown end. Nothing goes out twice: the thread says whether it arrived.
Task<std::optional<bool>> ThreadActions::hasArrived(InboxThread thread, QPointer<Writing> writing) {
  const auto detail = co_await m_actions.send(Requests::getThread(thread.id), u"Couldn’t load this conversation."_s);
  if (!detail || !writing) co_return std::nullopt;
  Q_EMIT readAgain(*detail);
  const QString body = writing->body().trimmed();
  const auto says = [&body](const QString& text) { return text.trimmed() == body; };
  // Whoever says the same a second time has not said it yet.
  co_return !(outgoing(*detail, says) - writing->leftBefore()).isEmpty();
}

void ThreadActions::send(const InboxThread& thread, const ThreadDetail* shown, bool asksFirst) {
  Writing* writing = m_writings.findReply(thread.id);
  if (writing && !writing->sending() && !writing->uncertain())
    writing->setLeftBefore(shown ? outgoing(*shown, [](const QString&) { return true; }) : QSet<QString>());
  m_tasks.start(sendTask(thread, asksFirst));
}

Task<void> ThreadActions::sendTask(InboxThread thread, bool asksFirst) {
  const QPointer writing = m_writings.reply(thread.id, contactOf(thread));
  if (!writing->canSend()) co_return;
  if (asksFirst && !writing->uncertain() &&
      !co_await services().overlays.confirm({.title = u"Reply anyway?"_s,
                                             .text = u"An AI draft is waiting in this conversation. It stays there."_s,
                                             .confirm = u"Send email"_s}))
    co_return;
  if (!writing || !writing->canSend()) co_return;
  OnItsWay way(writing);
  const WrittenFields fields = writing->typed();
  if (writing->uncertain()) {
    way.setUncertain(true);
    const auto arrived = co_await hasArrived(thread, writing);
    if (!arrived) co_return;
    if (*arrived) {
      way.setUncertain(false);
      if (writing) writing->sent(fields);
      services().toasts.show({.message = u"Your reply had been sent already."_s});
      Q_EMIT sent(thread.id);
      co_return;
    }
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
  Q_EMIT sent(thread.id);
}

}  // namespace orv
