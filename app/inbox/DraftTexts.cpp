#include "app/inbox/DraftTexts.h"

#include "app/base/shownName.h"
#include "app/inbox/addresses.h"
#include "kit/api/Format.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString draftKindText(const Draft& draft) {
  if (draft.kind == words::kindReply) return u"Reply"_s;
  if (draft.kind == words::kindForward) return u"Forward"_s;
  if (draft.kind != words::kindFollowup) return draft.kind;
  return draft.step ? u"Follow-up "_s + QString::number(*draft.step) : u"Follow-up"_s;
}

QString rulesText(const Draft& draft) {
  const qint64 used = draft.lessonsUsed.value_or(0);
  return used > 0 ? u"Written with your "_s + Format::counted(used, u"rule"_s, u"rules"_s) : QString();
}

QString draftHeadline(const Draft& draft) {
  return draft.isHeld() ? u"The AI’s draft, ready for you, held."_s : u"The AI’s draft, ready for you."_s;
}

QStringList holdReasons(const Draft& draft) {
  QStringList reasons;
  if (draft.gate && draft.gate->failures)
    for (const DraftGate::Failure& failure : *draft.gate->failures) {
      const QString reason = failure.detail.value_or(failure.code.value_or(QString()));
      if (!reason.isEmpty()) reasons.append(reason);
    }
  if (reasons.isEmpty() && draft.isHeld() && draft.holdReason) reasons.append(*draft.holdReason);
  return reasons;
}

QString draftReason(const Draft& draft) {
  if (!draft.strategy || !draft.strategy->classification) return {};
  return draft.strategy->classification->reason.value_or(QString());
}

QString draftAddress(const ReviewDraft& item) { return item.draft.toAddress.value_or(item.thread.contactAddress); }

QString contactName(const InboxThread& thread) {
  if (thread.lead && thread.lead->fullName && !thread.lead->fullName->isEmpty()) return *thread.lead->fullName;
  const QString name = thread.contactName.value_or(QString());
  return name.isEmpty() ? thread.contactAddress : name;
}

QString decisionText(const ReviewDraft& item, bool approved) {
  return approved ? u"Sending to "_s + shownName(shownAddress(draftAddress(item))) : u"Skipped."_s;
}

QString alreadyDecided() { return u"This draft was decided already."_s; }

QString secondsText(const QDateTime& now, const QDateTime& dueAt) {
  const qint64 left = (now.msecsTo(dueAt) + 999) / 1000;
  return left > 0 ? QString::number(left) : QString();
}

bool isNewLesson(const DraftTraining& training) {
  return training.lesson && training.lesson->times <= 1 && training.kind != QString(words::learnedAgain);
}

QString trainingText(const DraftTraining& training, bool asWritten) {
  if (training.lesson) {
    const QString text = training.lesson->text;
    if (isNewLesson(training)) return u"Learned: "_s + text;
    return u"Seen "_s + QString::number(training.lesson->times) + u" times now: "_s + text;
  }
  return asWritten ? u"Your AI got this one right. Saved to its training."_s : u"Saved to your AI’s training."_s;
}

QString refreshedText(const DraftTraining& training) {
  const qint64 count = training.refreshed.value_or(0);
  if (!training.lesson || count <= 0) return {};
  // "follow" for one as well: the sentence is given so.
  return u"Your next "_s + Format::counted(count, u"draft"_s, u"drafts"_s) + u" now follow it."_s;
}

}  // namespace orv
