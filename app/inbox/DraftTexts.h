#pragma once

#include <QDateTime>
#include <QStringList>

#include "kit/models/inbox/draftReview.h"

namespace orv {

/// What the screens say of a draft.

/// "Reply", "Follow-up 2", "Forward"; a kind that is not known stands as it is.
QString draftKindText(const Draft& draft);
/// "Written with your 3 rules"; empty without any.
QString rulesText(const Draft& draft);
/// ", held" behind the headline of one that the agent held back.
QString draftHeadline(const Draft& draft);
/// Why it is held, a sentence for each check that it failed.
QStringList holdReasons(const Draft& draft);
/// Why the agent answers so; empty when it does not say.
QString draftReason(const Draft& draft);
/// Whom the draft goes to, by address.
QString draftAddress(const ReviewDraft& item);
/// Who that is, as people call them.
QString contactName(const InboxThread& thread);

/// "Sending to ana@a.example", or "Skipped."
QString decisionText(const ReviewDraft& item, bool approved);
/// To whom decides about a draft that waits no more.
QString alreadyDecided();
/// Whole seconds until then; empty once it has passed.
QString secondsText(const QDateTime& now, const QDateTime& dueAt);

/// What the agent made of a decision.
QString trainingText(const DraftTraining& training, bool asWritten);
/// "Your next 4 drafts now follow it."; empty when none does.
QString refreshedText(const DraftTraining& training);
/// It is a rule that the agent did not have before.
bool isNewLesson(const DraftTraining& training);

}  // namespace orv
