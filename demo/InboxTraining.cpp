#include <algorithm>

#include "demo/Inbox.h"
#include "demo/InboxTexts.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 learningSeconds = 4, window = 20, target = 17, mostRefreshed = 4;

/// What somebody decided about the agent's drafts, the last decision first.
QList<const Draft*> decisionsIn(const DemoInbox& inbox) {
  QList<const Draft*> decided;
  for (const DemoDraft& draft : inbox.drafts)
    if (draft.record.reviewOutcome && draft.record.source == u"agent"_s) decided.append(&draft.record);
  std::ranges::stable_sort(decided, std::greater(), [](const Draft* draft) { return draft->reviewedAt; });
  return decided;
}

/// Drafts that wait are written anew, so that they follow the rule.
qint64 refreshDrafts(DemoInbox& inbox, const QDateTime& now) {
  qint64 refreshed = 0;
  for (DemoDraft& draft : inbox.drafts) {
    if (refreshed == mostRefreshed || !draft.record.isWaiting()) continue;
    draft.record.lessonsUsed = draft.record.lessonsUsed.value_or(0) + 1;
    draft.record.updatedAt = formatPlatformDate(now);
    ++refreshed;
  }
  return refreshed;
}

/// The rule that the decision teaches: one that the agent has already, or a new one.
SetterLesson& learn(DemoWorkspace& workspace, const Draft& draft, const QDateTime& now) {
  auto& lessons = workspace.inbox.lessons;
  const QString text = DemoRandom::of(draft.id, 3).pick(lessonTexts());
  const auto known = std::ranges::find_if(lessons, [&text](const SetterLesson& lesson) {
    return lesson.text == text && lesson.status == orv::words::lessonActive;
  });
  if (known != lessons.end()) {
    ++known->times;
    return *known;
  }
  const DemoThread* const thread = findThread(workspace, draft.threadId);
  lessons.prepend({u"le_%1_%2"_s.arg(workspace.slug).arg(++workspace.inbox.lastNumber), text,
                   orv::words::lessonFromReview, orv::words::lessonActive, 1,
                   thread ? thread->record.contactName : std::nullopt, formatPlatformDate(now)});
  return lessons.first();
}

}  // namespace

DraftTraining trainOn(DemoWorkspace& workspace, DemoDraft& draft, const QDateTime& now) {
  Draft& record = draft.record;
  const auto decided = parsePlatformDate(record.reviewedAt);
  if (!decided) return {.done = true};
  if (draft.training && draft.training->done) return *draft.training;
  // Nobody waits for ever: there is one draft that the agent never comes back from.
  if (decided->secsTo(now) < learningSeconds || record.subject.value_or(QString()).contains("endless"_L1)) return {};
  DraftTraining training{.done = true, .kind = record.reviewOutcome};
  const bool teaches = record.reviewOutcome == QString(orv::words::draftEdited) || record.reviewText;
  if (teaches) {
    const SetterLesson& lesson = learn(workspace, record, now);
    training.kind = lesson.times > 1 ? u"again"_s : u"new"_s;
    training.lesson = DraftTraining::Lesson{lesson.id, lesson.text, lesson.times};
    record.learnedKind = training.kind;
    record.learnedText = lesson.text;
    training.refreshed = refreshDrafts(workspace.inbox, now);
  }
  draft.training = training;
  return training;
}

SetterTraining trainingOf(const DemoInbox& inbox) {
  SetterTraining training;
  training.window = window;
  training.target = target;
  training.lastFlip = inbox.lastFlip;
  SetterTraining::Record& all = training.record;
  for (const Draft* draft : decisionsIn(inbox)) {
    const bool asWritten = draft->reviewOutcome == QString(orv::words::draftAsWritten);
    const bool edited = draft->reviewOutcome == QString(orv::words::draftEdited);
    const bool picked = draft->reviewStyle && draft->reviewStyle != QString(orv::words::styleOriginal);
    if (all.total++ < window) {
      ++training.reviewed;
      training.matched += asWritten;
    }
    all.asWritten += asWritten && !picked;
    all.picked += asWritten && picked;
    all.edited += edited;
    all.skipped += !asWritten && !edited;
  }
  for (const DemoDraft& draft : inbox.drafts) all.usedIn += draft.record.lessonsUsed.value_or(0) > 0;
  for (const SetterLesson& lesson : inbox.lessons) {
    all.rules += lesson.status == orv::words::lessonActive;
    all.fromYou += lesson.source != orv::words::lessonFromReview;
  }
  return training;
}

}  // namespace orv::demo
