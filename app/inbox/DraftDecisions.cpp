#include "app/inbox/DraftDecisions.h"

#include "app/inbox/DraftTexts.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/threadDetail.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto cannotApprove = u"Couldn’t approve the draft."_s;
const auto cannotReject = u"Couldn’t reject the draft."_s;
const auto undoKey = u"undo/"_s;

DraftDecisionRow rowOf(const DraftDecisions::Undoable& decision, const QDateTime& now) {
  return {.id = decision.item.draft.id,
          .approved = decision.approved,
          .text = decisionText(decision.item, decision.approved),
          .seconds = decision.dueAt ? secondsText(now, *decision.dueAt) : QString(),
          .settled = decision.taken && !decision.undoing};
}

}  // namespace

ORV_DEFINE_ROW(DraftDecisionRow)

DraftDecisions::DraftDecisions(WorkspaceContext& context, Store* whole)
    : Store(context, whole), m_actions(context, m_busy, [] {}) {
  connect(&m_busy, &BusySet::changed, this, [this] {
    if (m_busy.ids().isEmpty())
      for (const OneShot<bool>& waiting : std::exchange(m_waiting, {})) OneShot(waiting).give(true);
    Q_EMIT changed();
  });
  context.changes().watch<Draft>(this, [this](const Change<Draft>& change) { follow(change); });
}

const DraftDecisions::Undoable* DraftDecisions::find(const QString& draftId) const {
  return const_cast<DraftDecisions*>(this)->entry(draftId);
}

DraftDecisions::Undoable* DraftDecisions::entry(const QString& draftId, quint64 number) {
  const auto found = std::ranges::find_if(m_done, [&](const Undoable& decision) {
    return decision.item.draft.id == draftId && (number == 0 || decision.number == number);
  });
  return found == m_done.end() ? nullptr : &*found;
}

bool DraftDecisions::isInFlight(const QString& draftId) const {
  const Undoable* decision = find(draftId);
  return isBusy(draftId) || (decision && (!decision->taken || decision->undoing));
}

QSet<QString> DraftDecisions::settled() const {
  QSet<QString> ids = m_gone;
  for (const Undoable& decision : m_done) ids.insert(decision.item.draft.id);
  ids.removeIf([this](const QString& id) { return isInFlight(id); });
  return ids;
}

void DraftDecisions::waiting(const QSet<QString>& ids, const QSet<QString>& settledBefore) {
  const QSet<QString> now = settled();
  for (const QString& id : now) {
    if (ids.contains(id) && !settledBefore.contains(id)) continue;
    m_gone.remove(id);
    const Undoable* decision = ids.contains(id) ? find(id) : nullptr;
    if (decision) giveBack(decision->item, {}, Return::putBack);
  }
  show();
}

Task<void> DraftDecisions::approveTask(ReviewDraft item, ApproveDraftBody body) {
  const auto build = [id = item.draft.id, body] { return Requests::approveDraft(id, body); };
  co_await decide({.item = std::move(item), .approved = true}, build, cannotApprove);
}

Task<void> DraftDecisions::skipTask(ReviewDraft item) {
  const auto build = [id = item.draft.id] { return Requests::rejectDraft(id, {}); };
  co_await decide({.item = std::move(item)}, build, cannotReject);
}

Task<void> DraftDecisions::decide(Undoable decision, std::function<Request<Draft>()> build, QString failure) {
  const ReviewDraft item = decision.item;
  const QString id = item.draft.id;
  // Whoever holds the key down, or presses it in two places, decides once.
  if (!canWrite() || m_gone.contains(id)) co_return;
  const auto mark = m_busy.mark(id);
  if (!mark) co_return;
  const quint64 number = decision.number = ++m_last;
  decision.at = services().clock.now();
  m_done.push_back(std::move(decision));
  m_gone.insert(id);
  m_back.remove(id);
  if (m_ticker.isIdle()) m_ticker.start(tick());
  show();
  const auto turn = co_await context().turns().next(id);
  if (m_unsure.contains(id) && !co_await standsUndecided(item, failure)) co_return;
  const Outcome outcome = co_await ask(item, std::move(build), false, std::move(failure));
  if (!outcome.done) co_return giveBack(item, outcome.draft, Return::failed);
  if (Undoable* const standing = entry(id, number)) {
    standing->taken = true;
    if (outcome.draft) standing->dueAt = parsePlatformDate(outcome.draft->dueAt);
    const Undoable taken = *standing;
    show();
    Q_EMIT decided(taken);
  }
  // Last: what others make of it themselves is older than what the service then says.
  tellThread(item.thread.id);
}

/// What was sent the last time may have come through: before anything is sent again, it is looked for.
Task<bool> DraftDecisions::standsUndecided(ReviewDraft item, QString failure) {
  const auto now = co_await readDraft(item.thread.id, item.draft.id);
  if (!now) {
    services().toasts.show(
        {.message = failure, .tone = Toasts::Tone::error, .detail = u"It may have been sent already."_s});
    giveBack(item, {}, Return::failed);
    co_return false;
  }
  if (now->isWaiting()) co_return true;
  const Undoable* standing = find(item.draft.id);
  const std::optional<Undoable> before = standing ? std::optional(*standing) : std::nullopt;
  remove(item.draft.id);
  services().toasts.show({.message = alreadyDecided()});
  if (before) Q_EMIT late(*before, *now);
  tellThread(item.thread.id);
  co_return false;
}

Task<DraftDecisions::Outcome> DraftDecisions::ask(ReviewDraft item, std::function<Request<Draft>()> build,
                                                  bool shallWait, QString failure) {
  const QString id = item.draft.id;
  std::optional<APIError> failed;
  auto answer = co_await m_actions.send<Draft>(build(), failure, {}, [&failed](const APIError& error) {
    failed = error;
    return mayHaveActed(error);
  });
  if (answer) {
    m_unsure.remove(id);
    co_return Outcome{std::move(answer), true};
  }
  if (!failed || !mayHaveActed(*failed)) co_return Outcome{};
  m_unsure.insert(id);
  auto now = co_await readDraft(item.thread.id, id);
  if (!now) {
    services().toasts.show({.message = failure,
                            .tone = Toasts::Tone::error,
                            .detail = failed->message() + (shallWait ? QString() : u" It may have been sent."_s)});
    co_return Outcome{};
  }
  const bool done = now->isWaiting() == shallWait;
  if (!done) services().toasts.failure(failure, *failed);
  co_return Outcome{std::move(now), done};
}

Task<std::optional<Draft>> DraftDecisions::readDraft(QString threadId, QString draftId) {
  const Stamp asked = context().changes().stamp();
  const auto thread = co_await m_actions.send<ThreadDetail>(Requests::getThread(threadId), {}, {},
                                                            [](const APIError&) { return true; });
  if (!thread) co_return std::nullopt;
  m_unsure.remove(draftId);
  const auto found = std::ranges::find(thread->drafts, draftId, &Draft::id);
  // A conversation need not name what was decided.
  if (found == thread->drafts.end()) co_return Draft{.id = draftId, .threadId = threadId};
  context().changes().publish(*found, asked, true);
  co_return *found;
}

Task<void> DraftDecisions::undoTask(QString draftId) {
  Undoable* decision = entry(draftId);
  if (!decision || decision->undoing) co_return;
  if (isPast(*decision)) co_return dropPast();
  decision->undoing = true;
  const quint64 number = decision->number;
  const bool approved = decision->approved;
  const ReviewDraft item = decision->item;
  // Beside the decision, which may still be on its way: what is being taken back is waited for, too.
  const auto mark = m_busy.mark(undoKey + draftId);
  show();
  const auto turn = co_await context().turns().next(draftId);
  // The decision failed before it could be taken back.
  if (!entry(draftId, number)) co_return;
  const auto build = [draftId, approved] {
    return approved ? Requests::undoApproveDraft(draftId) : Requests::restoreDraft(draftId);
  };
  const Outcome outcome = co_await ask(item, build, true, u"Couldn’t undo that."_s);
  if (outcome.done) co_return giveBack(item, outcome.draft, Return::undone);
  decision = entry(draftId, number);
  if (!decision) co_return;
  decision->undoing = false;
  dropPast();
  show();
  // Whether it waits again the list knows.
  if (isUncertain(draftId)) context().changes().stale<Draft>();
}

Task<bool> DraftDecisions::putBackTask(ReviewDraft item) {
  const QString id = item.draft.id;
  const auto mark = m_busy.mark(id);
  if (!mark || !canWrite()) co_return false;
  const auto turn = co_await context().turns().next(id);
  const Outcome outcome = co_await ask(
      item, [id] { return Requests::restoreDraft(id); }, true, u"Couldn’t put the draft back."_s);
  if (!outcome.done) co_return false;
  giveBack(item, outcome.draft, Return::putBack);
  co_return true;
}

Task<bool> DraftDecisions::explainTask(ReviewDraft item, QString reason, Actions::Tell tell) {
  const QString id = item.draft.id;
  const auto turn = co_await context().turns().next(id);
  if (m_back.contains(id)) co_return false;
  const auto answer =
      co_await m_actions.send<Draft>(Requests::rejectDraft(id, {.reason = reason}), cannotReject, {}, std::move(tell));
  co_return answer.has_value();
}

void DraftDecisions::remove(const QString& draftId) {
  std::erase_if(m_done, [&draftId](const Undoable& decision) { return decision.item.draft.id == draftId; });
  show();
}

void DraftDecisions::giveBack(ReviewDraft item, const std::optional<Draft>& now, Return how) {
  m_gone.remove(item.draft.id);
  m_back.insert(item.draft.id);
  if (now) item.draft = *now;
  remove(item.draft.id);
  Q_EMIT returned(item, how);
  if (how != Return::failed) tellThread(item.thread.id);
}

/// Somebody else, or this person in another place, may have put it back.
void DraftDecisions::follow(const Change<Draft>& change) {
  if (change.kind != Change<Draft>::Kind::is || !change.record->isWaiting()) return;
  if (isInFlight(change.id)) return;
  if (const Undoable* decision = find(change.id)) return giveBack(decision->item, *change.record, Return::putBack);
  if (m_gone.remove(change.id)) Q_EMIT changed();
}

void DraftDecisions::tellThread(const QString& threadId) { context().changes().stale<InboxThread>(threadId); }

bool DraftDecisions::isPast(const Undoable& decision) const {
  return decision.taken && !decision.undoing && decision.at.secsTo(services().clock.now()) >= undoable.count();
}

void DraftDecisions::dropPast() {
  std::vector<Undoable> past;
  std::erase_if(m_done, [&](const Undoable& decision) {
    if (isPast(decision)) past.push_back(decision);
    return isPast(decision);
  });
  if (past.empty()) return;
  show();
  for (const Undoable& decision : past) Q_EMIT passed(decision);
}

Task<void> DraftDecisions::tick() {
  while (!m_done.empty()) {
    co_await services().clock.sleep(std::chrono::seconds(1));
    dropPast();
    show();
  }
}

void DraftDecisions::show() {
  std::vector<DraftDecisionRow> rows;
  const QDateTime now = services().clock.now();
  for (auto decision = m_done.rbegin(); decision != m_done.rend(); ++decision) rows.push_back(rowOf(*decision, now));
  m_rows.update(std::move(rows));
  Q_EMIT changed();
}

QStringList DraftDecisions::unsavedWork() const {
  if (m_busy.ids().isEmpty()) return {};
  return {u"A decision about a draft is still being sent."_s};
}

Task<bool> DraftDecisions::flush() {
  if (m_busy.ids().isEmpty()) co_return true;
  const OneShot<bool> ended;
  m_waiting.append(ended);
  // From here on this object may be gone.
  co_return co_await ended.wait();
}

void DraftDecisions::close() {
  Store::close();
  m_ticker.cancel();
  for (const OneShot<bool>& waiting : std::exchange(m_waiting, {})) OneShot(waiting).give(false);
}

}  // namespace orv
