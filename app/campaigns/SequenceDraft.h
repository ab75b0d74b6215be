#pragma once

#include <QHash>

#include "app/campaigns/DraftStep.h"

namespace orv {

/// The sequence being written, and every way to change it.
///
/// Steps and variants are addressed by key; an operation on one that is gone does nothing. What was removed is kept,
/// with its place, and restoring everything that was removed gives back the very sequence that was there before.
class SequenceDraft {
 public:
  const QList<DraftStep>& steps() const { return m_steps; }
  QList<StepIn> inputs() const { return inputsOf(m_steps); }
  /// Moves on with every change of what is sent, and with nothing else.
  quint64 revision() const { return m_revision; }
  /// -1 when it is gone.
  qsizetype placeOf(const QUuid& step) const;
  const DraftVariant* variant(const QUuid& key) const;
  /// Of the step that has the variant; -1 when it is gone.
  qsizetype placeOfVariant(const QUuid& variant) const;

  /// "Sends first", or the wait before the step at `place`.
  QString waitText(qsizetype place) const;
  /// Whole days from a lead's start to the step at `place`, nobody having replied.
  qint64 day(qsizetype place) const;
  /// Nothing stands before the first step that it could reply to, whatever its flag says.
  bool repliesInThread(qsizetype place) const { return place > 0 && m_steps[place].sameThread; }

  /// The new step's key. A place outside the list means its end.
  QUuid insertStep(qsizetype place);
  bool removeStep(const QUuid& step);
  bool restoreStep(const QUuid& step);
  void setWaitDays(const QUuid& step, qint64 days);
  /// A wait that the step had before, which need not be whole days.
  void setDelay(const QUuid& step, qint64 minutes);
  /// A reply has no subject of its own: those written so far wait aside for the way back.
  void setSameThread(const QUuid& step, bool sameThread);
  /// Which variant the editor shows is no change of the sequence.
  void show(const QUuid& step, qsizetype variant);

  /// The new variant's key; null when the alphabet is used up.
  QUuid addVariant(const QUuid& step);
  /// False for a step's last variant.
  bool removeVariant(const QUuid& variant);
  /// False when the alphabet is used up meanwhile.
  bool restoreVariant(const QUuid& variant);
  void setSubject(const QUuid& variant, const QString& subject);
  void setBody(const QUuid& variant, const QString& body);
  void setWeight(const QUuid& variant, qint64 weight);
  void setEnabled(const QUuid& variant, bool enabled);

  /// The service has exactly `held`: its ids count for what is in it, and what is not in it has no id any more, be it
  /// restored since or still to be.
  void takeIds(const QList<DraftStep>& held);
  /// Lets go of the ids that the service's steps do not have.
  void keepIdsOf(const QList<CampaignStep>& steps);
  /// Starts over from the service's steps. Keys, and with them the place in the editor, stay where the ids do.
  void rebuild(const QList<CampaignStep>& steps);

 private:
  struct RemovedStep {
    DraftStep step;
    bool wasFirst = false;
  };
  struct RemovedVariant {
    QUuid step;
    DraftVariant variant;
  };
  /// Where a variant stands.
  struct Spot {
    DraftStep* step = nullptr;
    qsizetype index = -1;
  };

  DraftStep* find(const QUuid& step);
  Spot findVariant(const QUuid& variant);
  template <class Visit>
  void each(const Visit& visit);
  template <class Value>
  void set(Value& field, const Value& value);
  template <class Value>
  void setOfVariant(const QUuid& variant, Value DraftVariant::*field, const Value& value);
  void startFirstAtOnce();
  void giveWaitBack(qsizetype place);

  QList<DraftStep> m_steps;
  quint64 m_revision = 0;
  QHash<QUuid, RemovedStep> m_removedSteps;
  QHash<QUuid, RemovedVariant> m_removedVariants;
  /// Keys in order, with those of the removed in their places.
  QList<QUuid> m_stepPlaces;
  QList<QUuid> m_variantPlaces;
  /// The waits of steps that became the first because the one before was removed.
  QHash<QUuid, qint64> m_waitsBeforeFirst;
  /// By variant, the subjects put aside when the step joined the thread.
  QHash<QUuid, QString> m_subjectsAside;
};

}  // namespace orv
