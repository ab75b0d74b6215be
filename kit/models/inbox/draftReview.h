#pragma once

#include "kit/models/inbox/draft.h"
#include "kit/models/inbox/inboxThread.h"

namespace orv {

/// A draft with the conversation that it answers.
struct ReviewDraft {
  Draft draft;
  InboxThread thread;
  bool operator==(const ReviewDraft&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReviewDraft, (), (draft, thread))

struct ReviewDraftPage {
  QList<ReviewDraft> items;
  /// Absent on the last page.
  std::optional<QString> nextCursor;
  bool operator==(const ReviewDraftPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReviewDraftPage, (), (items, nextCursor))

/// The same draft in another style.
struct DraftVersion {
  QString style;
  QString label;
  QString body;
  bool operator==(const DraftVersion&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftVersion, (), (style, label, body))

struct DraftVersions {
  QList<DraftVersion> versions;
  bool operator==(const DraftVersions&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftVersions, (), (versions))

/// Carries only what is set.
struct ApproveDraftBody {
  /// As the member edited it.
  std::optional<QString> body;
  std::optional<QString> subject;
  /// The draft waits for a while before it goes out, and can be taken back meanwhile.
  std::optional<bool> undo;
  /// Of the version that was chosen.
  std::optional<QString> style;
  bool operator==(const ApproveDraftBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ApproveDraftBody, (), (body, subject, undo, style))

struct RejectDraftBody {
  std::optional<QString> reason;
  bool operator==(const RejectDraftBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(RejectDraftBody, (), (reason))

/// What the agent makes of a decision.
struct DraftTraining {
  struct Lesson {
    QString id;
    QString text;
    /// How often it has been seen.
    qint64 times = 0;
    bool operator==(const Lesson&) const = default;
  };
  /// There is nothing more to wait for.
  bool done = false;
  std::optional<QString> kind;
  std::optional<Lesson> lesson;
  /// How many waiting drafts were rewritten to follow it.
  std::optional<qint64> refreshed;
  bool operator==(const DraftTraining&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftTraining::Lesson, (), (id, text, times))
BOOST_DESCRIBE_STRUCT(DraftTraining, (), (done, kind, lesson, refreshed))

}  // namespace orv
