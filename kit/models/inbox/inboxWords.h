#pragma once

#include <QLatin1String>

/// The words of the inbox and its agent on the wire, as far as the client names them; the service may know others.
namespace orv::words {

/// A thread's status.
inline constexpr QLatin1String threadOpen("open"), threadArchived("archived");
/// What the agent does: in a campaign, in a thread, or by default.
inline constexpr QLatin1String modeDraft("draft"), modeAuto("auto"), modeOff("off");
/// A draft that waits for its decision.
inline constexpr QLatin1String draftPending("pending"), draftHeld("held");
/// What became of one, as the history asks for it.
inline constexpr QLatin1String draftAsWritten("as_written"), draftEdited("edited"), draftSkipped("skipped");
/// The outcomes of those that were not sent, beside `draftSkipped`.
inline constexpr QLatin1String draftRejected("rejected"), draftReplaced("replaced");
/// What a draft is.
inline constexpr QLatin1String kindReply("reply"), kindFollowup("followup"), kindForward("forward");
/// A version's style: the agent's own text, and the others.
inline constexpr QLatin1String styleOriginal("original"), styleProfessional("professional"), styleCasual("casual"),
    styleExcited("excited");
/// How the agent writes.
inline constexpr QLatin1String toneFriendly("friendly"), toneProfessional("professional"), toneCasual("casual");
/// What a decision taught: a rule of its own, or one that was known.
inline constexpr QLatin1String learnedNew("new"), learnedAgain("again");
/// A lesson's source; any other was typed by a member.
inline constexpr QLatin1String lessonFromReview("review");
/// A lesson's status: whether the agent follows it.
inline constexpr QLatin1String lessonActive("active"), lessonOff("off");

}  // namespace orv::words
