#include <algorithm>

#include "demo/Inbox.h"
#include "demo/InboxTexts.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::demo {
namespace {

constexpr qint64 mostPerPage = 100;
/// So long a draft that may be taken back waits; another goes out as soon as it is its turn.
constexpr auto undoWait = 60s, sendWait = 5s;

template <HTTPAnswer (*answer)(Call&, DemoDraft&)>
HTTPAnswer onDraft(Call& call) {
  settleInbox(*call.workspace, call.state.repliesPerMinute, call.now);
  DemoDraft* const draft = findDraft(*call.workspace, call.ids.first());
  return draft ? answer(call, *draft) : notFound(u"There is no such draft"_s);
}

HTTPAnswer notWaiting() {
  return problemAnswer(409, u"not_waiting"_s, u"This draft was decided already"_s, u"Somebody was quicker."_s);
}

HTTPAnswer draftAnswer(const DemoDraft& draft) { return jsonAnswer(toJSON(draft.record)); }

bool isOf(const Draft& draft, const QString& status) {
  if (status == orv::words::draftPending) return draft.isWaiting();
  const QString outcome = draft.reviewOutcome.value_or(QString());
  const bool aside = outcome == orv::words::draftRejected || outcome == orv::words::draftReplaced;
  return outcome == status || (status == orv::words::draftSkipped && aside);
}

/// Those that wait as they came, those that were decided the last one first.
HTTPAnswer list(Call& call) {
  settleInbox(*call.workspace, call.state.repliesPerMinute, call.now);
  const QString status = call.request.value(u"status"_s);
  const bool waiting = status == orv::words::draftPending;
  QList<const Draft*> found;
  for (const DemoDraft& draft : call.workspace->inbox.drafts)
    if (isOf(draft.record, status)) found.append(&draft.record);
  if (waiting)
    std::ranges::stable_sort(found, {}, [](const Draft* draft) { return draft->createdAt; });
  else
    std::ranges::stable_sort(found, std::greater(), [](const Draft* draft) { return draft->reviewedAt; });
  const QString cursor = call.request.value(u"cursor"_s);
  const auto last = std::ranges::find(found, cursor, &Draft::id);
  const qsizetype from = last == found.end() ? 0 : last - found.begin() + 1;
  const qsizetype room = call.request.limit(mostPerPage);
  const ShownThreads shown(*call.workspace);
  ReviewDraftPage page;
  for (const Draft* draft : found.mid(from, room))
    if (const DemoThread* thread = findThread(*call.workspace, draft->threadId))
      page.items.append({*draft, shown.of(*thread)});
  if (from + room < found.size()) page.nextCursor = found[from + room - 1]->id;
  return jsonAnswer(toJSON(page));
}

HTTPAnswer approveOne(Call& call, DemoDraft& draft) {
  const auto decision = call.request.bodyAs<ApproveDraftBody>();
  if (!decision) return invalid(u"This can’t be read."_s, {});
  if (!draft.record.isWaiting()) return notWaiting();
  if (decision->body && decision->body->trimmed().isEmpty()) return invalid(u"A reply needs a text."_s, u"body"_s);
  Draft& record = draft.record;
  const QString styled = inStyle(record.body, decision->style.value_or(QString()));
  const QString written = decision->body.value_or(styled);
  const bool edited = written != styled;
  if (written != record.body) record.aiBody = std::exchange(record.body, written);
  if (decision->subject) record.subject = decision->subject;
  record.edited = edited;
  record.reviewStyle = decision->style;
  record.reviewOutcome = edited ? orv::words::draftEdited : orv::words::draftAsWritten;
  record.reviewedAt = call.stamp();
  approve(draft, call.now, decision->undo.value_or(false) ? undoWait : sendWait);
  return draftAnswer(draft);
}

/// Once more with a reason tells why it was rejected.
HTTPAnswer reject(Call& call, DemoDraft& draft) {
  const auto decision = call.request.bodyAs<RejectDraftBody>();
  if (!decision) return invalid(u"This can’t be read."_s, {});
  const bool again = draft.record.status == orv::words::draftRejected && decision->reason;
  if (!again && !draft.record.isWaiting()) return notWaiting();
  putAside(draft, orv::words::draftSkipped, call.now);
  if (decision->reason && !decision->reason->trimmed().isEmpty()) draft.record.reviewText = decision->reason;
  draft.training.reset();
  return draftAnswer(draft);
}

HTTPAnswer undoApprove(Call&, DemoDraft& draft) {
  if (draft.record.status != "approved"_L1 || draft.record.source != u"agent"_s)
    return problemAnswer(409, u"already_sent"_s, u"This reply has gone out"_s, u"It can’t be taken back any more."_s);
  putBack(draft);
  return draftAnswer(draft);
}

HTTPAnswer restore(Call&, DemoDraft& draft) {
  if (draft.record.status != orv::words::draftRejected)
    return problemAnswer(409, u"not_rejected"_s, u"This draft wasn’t skipped"_s);
  putBack(draft);
  return draftAnswer(draft);
}

HTTPAnswer versions(Call&, DemoDraft& draft) {
  if (!draft.record.isWaiting()) return notWaiting();
  DraftVersions versions;
  const QList<QPair<QLatin1String, QString>> styles{{orv::words::styleProfessional, u"Professional"_s},
                                                    {orv::words::styleCasual, u"Casual"_s},
                                                    {orv::words::styleExcited, u"Excited"_s}};
  for (const auto& [style, label] : styles) versions.versions.append({style, label, inStyle(draft.record.body, style)});
  return jsonAnswer(toJSON(versions));
}

HTTPAnswer training(Call& call, DemoDraft& draft) {
  return jsonAnswer(toJSON(trainOn(*call.workspace, draft, call.now)));
}

}  // namespace

const QList<Route>& draftRoutes() {
  static const QList<Route> routes{
      {"GET", u"/inbox/drafts"_s, Access::readers, list},
      {"POST", u"/inbox/drafts/{id}/approve"_s, Access::members, onDraft<approveOne>},
      {"POST", u"/inbox/drafts/{id}/reject"_s, Access::members, onDraft<reject>},
      {"POST", u"/inbox/drafts/{id}/undo-approve"_s, Access::members, onDraft<undoApprove>},
      {"POST", u"/inbox/drafts/{id}/restore"_s, Access::members, onDraft<restore>},
      {"POST", u"/inbox/drafts/{id}/versions"_s, Access::members, onDraft<versions>},
      {"GET", u"/inbox/drafts/{id}/training"_s, Access::readers, onDraft<training>},
  };
  return routes;
}

}  // namespace orv::demo
