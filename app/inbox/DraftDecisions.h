#pragma once

#include <vector>

#include "app/base/Actions.h"
#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/Store.h"
#include "kit/models/inbox/draftReview.h"

namespace orv {

/// A decision as the list of those that can be taken back shows it.
struct DraftDecisionRow {
  /// The draft's.
  QString id;
  bool approved = false;
  /// "Sending to ana@a.example in", with the seconds after it, or "Skipped."
  QString text;
  /// Until it goes out; empty when nobody knows, or it is out.
  QString seconds;
  /// The service has the decision, and it is not being taken back just now.
  bool settled = false;
  bool operator==(const DraftDecisionRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftDecisionRow, (), (id, approved, text, seconds, settled))
ORV_DECLARE_ROW(DraftDecisionRow)

class DraftDecisionRows final : public RecordModel<DraftDecisionRow> {
 public:
  using RecordModel::RecordModel;
};

/// What is decided about the agent's drafts, and how it is taken back.
///
/// A decision can be taken back for a minute, by the clock and not by a timer: the minute passes while the machine
/// sleeps. Where nobody knows what became of a request, the conversation is read again, and what it says counts.
class DraftDecisions final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(QStringList busyIds READ busyIds NOTIFY changed)

 public:
  static constexpr std::chrono::seconds undoable{60};

  /// One that can still be taken back.
  struct Undoable {
    ReviewDraft item;
    /// False when the draft was skipped.
    bool approved = false;
    /// When the person decided.
    QDateTime at;
    std::optional<QDateTime> dueAt = {};
    /// The service has it.
    bool taken = false;
    bool undoing = false;
    /// Tells it from another decision about the same draft.
    quint64 number = 0;
  };

  /// How a draft comes to wait again: the service did not take the decision, the person took it back within its
  /// minute, or somebody did later or elsewhere.
  enum class Return { failed, undone, putBack };
  Q_ENUM(Return)

  DraftDecisions(WorkspaceContext& context, Store* whole);

  DraftDecisionRows* rows() { return &m_rows; }
  /// The newest last.
  const std::vector<Undoable>& done() const { return m_done; }
  const Undoable* find(const QString& draftId) const;
  QStringList busyIds() const { return m_busy.ids().values(); }
  bool isBusy(const QString& draftId) const { return m_busy.contains(draftId); }
  /// Something was sent about it, and nobody knows what came of it.
  bool isUncertain(const QString& draftId) const { return m_unsure.contains(draftId); }

  /// Decided here, as far as is known: no queue shows it.
  bool isGone(const QString& draftId) const { return m_gone.contains(draftId); }
  /// Those that a list of waiting drafts that is asked for now must not have.
  QSet<QString> settled() const;
  /// Such a list came, and has these. What it lacks need not be hidden; what it has although it was settled when it
  /// was asked for waits again: somebody else put it back.
  void waiting(const QSet<QString>& ids, const QSet<QString>& settledBefore);

  void approve(const ReviewDraft& item, const ApproveDraftBody& body) { m_tasks.start(approveTask(item, body)); }
  void skip(const ReviewDraft& item) { m_tasks.start(skipTask(item)); }
  /// Tells why a draft was skipped, which decides it once more. False, too, when it was taken back before.
  Task<bool> explainTask(ReviewDraft item, QString reason, Actions::Tell tell);
  Q_INVOKABLE void undo(const QString& draftId) { m_tasks.start(undoTask(draftId)); }
  /// The draft as its conversation has it now, which ends all doubt; nothing where that cannot be read.
  Task<std::optional<Draft>> readDraft(QString threadId, QString draftId);
  /// A draft that was skipped waits again, however long ago that was.
  Task<bool> putBackTask(ReviewDraft item);

  Task<void> approveTask(ReviewDraft item, ApproveDraftBody body);
  Task<void> skipTask(ReviewDraft item);
  Task<void> undoTask(QString draftId);

  QStringList unsavedWork() const override;
  Task<bool> flush() override;
  void close() override;

 Q_SIGNALS:
  void changed();
  /// The service has the decision.
  void decided(const orv::DraftDecisions::Undoable& decision);
  /// It waits again, as `item` has it.
  void returned(const orv::ReviewDraft& item, orv::DraftDecisions::Return how);
  /// It can no longer be taken back.
  void passed(const orv::DraftDecisions::Undoable& decision);
  /// It came to nothing: the draft had been decided before, and is as given now.
  void late(const orv::DraftDecisions::Undoable& decision, const orv::Draft& now);

 private:
  struct Outcome {
    /// The draft as it is now; nothing when nobody knows.
    std::optional<Draft> draft;
    /// What was asked for has come to be.
    bool done = false;
  };

  Task<void> decide(Undoable decision, std::function<Request<Draft>()> build, QString failure);
  Task<Outcome> ask(ReviewDraft item, std::function<Request<Draft>()> build, bool shallWait, QString failure);
  Task<bool> standsUndecided(ReviewDraft item, QString failure);
  bool isInFlight(const QString& draftId) const;
  Undoable* entry(const QString& draftId, quint64 number = 0);
  void remove(const QString& draftId);
  void giveBack(ReviewDraft item, const std::optional<Draft>& now, Return how);
  void follow(const Change<Draft>& change);
  void tellThread(const QString& threadId);
  bool isPast(const Undoable& decision) const;
  void dropPast();
  Task<void> tick();
  void show();

  BusySet m_busy;
  Actions m_actions;
  DraftDecisionRows m_rows;
  std::vector<Undoable> m_done;
  QSet<QString> m_gone;
  /// Something was sent about them, and nobody knows what came of it.
  QSet<QString> m_unsure;
  /// Decided once, and waiting again.
  QSet<QString> m_back;
  quint64 m_last = 0;
  QList<OneShot<bool>> m_waiting;
  TaskSlot m_ticker;
};

}  // namespace orv
