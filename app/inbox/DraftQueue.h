#pragma once

#include "app/base/Resource.h"
#include "app/inbox/DraftDecisions.h"
#include "app/inbox/Writings.h"

namespace orv {

/// The drafts that wait, in the service's order, and the one that is shown. What was decided here is out of the way at
/// once; when few are left, the beginning of the list is read again. What a reading takes away while the person changes
/// it stays until they go on.
class DraftQueue final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(QString picked READ picked NOTIFY changed)
  Q_PROPERTY(bool forward READ forward NOTIFY changed)
  Q_PROPERTY(int waiting READ waiting NOTIFY changed)
  Q_PROPERTY(QString positionText READ positionText NOTIFY changed)
  Q_PROPERTY(bool hasPrevious READ hasPrevious NOTIFY changed)
  Q_PROPERTY(bool hasNext READ hasNext NOTIFY changed)

 public:
  static constexpr qsizetype few = 10;
  /// How long after an email its draft is there.
  static constexpr std::chrono::seconds writing{30};

  DraftQueue(WorkspaceContext& context, Store* whole, DraftDecisions& decisions, const Writings& writings);

  Resource<ReviewDraftPage>* list() { return &m_list; }
  /// The draft that is shown; empty for none.
  const QString& picked() const { return m_picked; }
  const ReviewDraft* shown() const { return find(m_picked); }
  /// The one that is shown next, if the person goes on as they went last.
  const ReviewDraft* next() const;
  const ReviewDraft* find(const QString& draftId) const;
  /// Another draft of its conversation waits beside it.
  bool hasBeside(const ReviewDraft& item) const;
  /// Which way the person went last.
  bool forward() const { return m_forward; }
  int waiting() const { return int(m_visible.size()) - (isOver() ? 1 : 0); }
  /// What is shown has been decided in another place.
  bool isOver() const { return m_isOver; }
  /// "3 of 7 waiting"; empty for none, and beside what waits no more.
  QString positionText() const;
  bool hasPrevious() const { return m_at > 0; }
  bool hasNext() const { return m_at + 1 < m_visible.size(); }

  /// So many conversations have a draft that waits, by another count: one that knows of more has the list read again.
  Q_INVOKABLE void expect(int conversations);
  Q_INVOKABLE void goForward() { go(1); }
  Q_INVOKABLE void goBack() { go(-1); }
  void pick(const QString& draftId);
  /// From one that is over.
  void leave();

 Q_SIGNALS:
  void changed();
  /// Another draft is shown, or the same one says something else.
  void shownChanged();
  /// A reading put another draft in the place of the one that was shown: what is typed now is not meant for it.
  void replaced();
  /// The list is asked for, and has been read.
  void asked();
  void heard();
  /// Waited when the list was read before and does so no more, without a decision from here.
  void lost(const orv::ReviewDraft& item);

 private:
  Task<ReviewDraftPage> loadTask();
  Task<void> mailTask();
  void go(int by);
  void arrange();
  bool isTyped(const ReviewDraft& item) const;
  void keepTyped(QList<ReviewDraft>& before);
  void tellDecisions(const QList<ReviewDraft>& before);
  void takeBack(const ReviewDraft& item, DraftDecisions::Return how);
  void follow(const Change<Draft>& change);
  QList<ReviewDraft> visible() const;

  DraftDecisions& m_decisions;
  const Writings& m_writings;
  Resource<ReviewDraftPage> m_list;
  QList<ReviewDraft> m_visible;
  /// Of the reading whose list is about to be shown.
  std::optional<QSet<QString>> m_settledWhenAsked;
  QString m_picked;
  std::optional<ReviewDraft> m_told;
  /// The one that is shown although no reading has it.
  QString m_kept;
  bool m_isOver = false;
  /// Of the draft that is shown; where it was, once it is gone.
  qsizetype m_at = 0;
  bool m_forward = true;
  /// One that counts otherwise is believed once.
  int m_expected = -1;
};

}  // namespace orv
