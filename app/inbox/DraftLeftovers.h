#pragma once

#include "app/inbox/DraftQueue.h"
#include "app/inbox/DraftReason.h"
#include "app/inbox/Writings.h"

namespace orv {

struct DraftLeftoverRow {
  /// What the journal calls it.
  QString id;
  /// "Your edit was not sent: Hi Ana, Tuesday works."
  QString text;
  bool operator==(const DraftLeftoverRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftLeftoverRow, (), (id, text))
ORV_DECLARE_ROW(DraftLeftoverRow)

class DraftLeftoverRows final : public RecordModel<DraftLeftoverRow> {
 public:
  using RecordModel::RecordModel;
};

/// What the person wrote about drafts that were decided without it, in this run or an earlier one: nothing sends it any
/// more, and it stays until they throw it away.
///
/// The journal has it, and the list of waiting drafts tells what it lacks: of a text that was there when the list was
/// asked for.
class DraftLeftovers final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)

 public:
  DraftLeftovers(WorkspaceContext& context, Store* whole, DraftQueue& queue, DraftDecisions& decisions,
                 DraftReason& reason, Writings& writings);

  DraftLeftoverRows* rows() { return &m_rows; }
  /// Has the list read where there are such texts.
  void look();
  Q_INVOKABLE void copy(const QString& id);
  Q_INVOKABLE void discard(const QString& id);

 private:
  struct Kept {
    QString key;
    Draft draft;
    /// Why it was skipped; an edit of it otherwise.
    bool isReason;
    QString text;
    /// By the journal; whoever holds it open knows better.
    bool mayBeSent;
  };

  QList<Kept> kept() const;
  void follow(const Change<InboxThread>& change);
  void sort();
  void show();
  QString saidOf(const Kept& one) const;

  DraftQueue& m_queue;
  DraftDecisions& m_decisions;
  DraftReason& m_reason;
  Writings& m_writings;
  DraftLeftoverRows m_rows;
  QList<Kept> m_keptWhenAsked;
  /// How many drafts their threads had waiting when that was last heard, by the threads.
  QHash<QString, qint64> m_pending;
  /// By their keys.
  QSet<QString> m_over;
};

}  // namespace orv
