#pragma once

#include <QList>
#include <QString>
#include <QUuid>
#include <optional>

#include "kit/models/campaigns/sequence.h"

namespace orv {

constexpr qint64 minutesPerDay = 1440;
/// The nearest number of them.
qint64 wholeDays(qint64 minutes);

/// One of a step's texts between which its sends are split.
struct DraftVariant {
  /// Local identity, stable while editing.
  QUuid key;
  /// The service's; absent until a save has answered for it.
  std::optional<QString> id;
  /// One capital letter, unique in the step.
  QString label;
  QString subject;
  QString body;
  /// Share of sends relative to the step's other enabled variants.
  qint64 weight = 1;
  bool enabled = true;
  bool operator==(const DraftVariant&) const = default;
};

/// One email of the sequence as it is being written.
struct DraftStep {
  /// Local identity, stable while editing.
  QUuid key;
  /// The service's; absent until a save has answered for it.
  std::optional<QString> id;
  qint64 delayMinutes = 0;
  bool sameThread = true;
  /// Never empty.
  QList<DraftVariant> variants;
  /// Index of the variant that the editor shows.
  qsizetype shown = 0;
  bool operator==(const DraftStep&) const = default;

  /// What the wait field shows; the minutes stay as they are until the person edits it.
  qint64 waitDays() const;
  /// Percentage of the step's sends that go out with this variant.
  int sharePercent(const DraftVariant& variant) const;
  bool canAddVariant() const { return !freeLabel().isEmpty(); }
  bool hasLabel(const QString& label) const;
  /// The next variant's; empty when the alphabet is used up.
  QString freeLabel() const;
};

/// A draft as the service's steps give it, with keys of its own.
QList<DraftStep> draftOf(QList<CampaignStep> steps);
QList<StepIn> inputsOf(const QList<DraftStep>& steps);
/// Steps as the service would give them back.
QList<CampaignStep> stepsOf(const QList<StepIn>& inputs);
/// The texts alone.
QList<StepIn> withoutIds(QList<StepIn> steps);
/// `sent` with the ids that the service answered with. It tells nothing of our keys, so places in the lists decide.
QList<DraftStep> withAnsweredIds(QList<DraftStep> sent, QList<CampaignStep> answered);

}  // namespace orv
