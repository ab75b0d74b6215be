#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

struct Stats4 {
  qint64 sent = 0;
  qint64 replied = 0;
  qint64 positive = 0;
  qint64 bounced = 0;
  bool operator==(const Stats4&) const = default;
};
BOOST_DESCRIBE_STRUCT(Stats4, (), (sent, replied, positive, bounced))

struct CampaignVariant {
  QString id;
  /// The variant's letter.
  QString label;
  QString subject;
  QString body;
  /// Share of sends relative to the step's other enabled variants.
  qint64 weight = 0;
  bool enabled = false;
  std::optional<Stats4> stats;
  bool operator==(const CampaignVariant&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignVariant, (), (id, label, subject, body, weight, enabled, stats))

struct CampaignStep {
  QString id;
  /// From 1.
  qint64 position = 0;
  /// Wait after the previous step; the first step's wait counts from enrolment.
  qint64 delayMinutes = 0;
  bool sameThread = false;
  QList<CampaignVariant> variants;
  std::optional<Stats4> stats;
  bool operator==(const CampaignStep&) const = default;
};
BOOST_DESCRIBE_STRUCT(CampaignStep, (), (id, position, delayMinutes, sameThread, variants, stats))

struct VariantIn {
  /// Absent for a new variant.
  std::optional<QString> id;
  QString label;
  QString subject;
  QString body;
  qint64 weight = 0;
  bool enabled = false;
  bool operator==(const VariantIn&) const = default;
};
BOOST_DESCRIBE_STRUCT(VariantIn, (), (id, label, subject, body, weight, enabled))

struct StepIn {
  /// Absent for a new step.
  std::optional<QString> id;
  qint64 delayMinutes = 0;
  bool sameThread = false;
  QList<VariantIn> variants;
  bool operator==(const StepIn&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepIn, (), (id, delayMinutes, sameThread, variants))

/// The whole sequence; a step's position is its place in the list.
struct StepsBody {
  QList<StepIn> steps;
  bool operator==(const StepsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepsBody, (), (steps))

struct SpintaxBody {
  QString text;
  /// Which field the text is: the subject or the body.
  QString field;
  bool operator==(const SpintaxBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SpintaxBody, (), (text, field))

struct SpintaxOut {
  QString text;
  bool operator==(const SpintaxOut&) const = default;
};
BOOST_DESCRIBE_STRUCT(SpintaxOut, (), (text))

}  // namespace orv
