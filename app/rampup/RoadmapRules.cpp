#include "app/rampup/RoadmapRules.h"

#include <array>
#include <limits>

#include "kit/api/wholeNumber.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr std::array volumes{&TypedStage::warmupFrom, &TypedStage::warmupTo, &TypedStage::campaignFrom,
                             &TypedStage::campaignTo};
constexpr std::array volumeNames{"warmupFrom"_L1, "warmupTo"_L1, "campaignFrom"_L1, "campaignTo"_L1};

std::optional<int> numberOf(const QString& text) {
  return wholeNumber(text, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

/// The first of a stage's volumes that fails; empty when none does.
template <class Fails>
QString firstVolume(const TypedStage& stage, Fails fails) {
  for (size_t at = 0; at < volumes.size(); ++at)
    if (fails(stage.*volumes[at])) return volumeNames[at];
  return {};
}

/// What every stage must keep, in the order in which it is said: the field that breaks it, or an empty one.
struct StageRule {
  QString (*broken)(const QList<TypedStage>& stages, qsizetype at);
  /// Behind "Stage 2: ".
  QString message;
};

QString nameRule(const QList<TypedStage>& stages, qsizetype at) {
  const QString name = stages[at].name.trimmed();
  return name.isEmpty() || name.size() > RoadmapRules::longestName ? u"name"_s : QString();
}

QString daysRule(const QList<TypedStage>& stages, qsizetype at) {
  return wholeNumber(stages[at].days, 1, RoadmapRules::mostDaysAStage) ? QString() : u"days"_s;
}

QString numbersRule(const QList<TypedStage>& stages, qsizetype at) {
  return firstVolume(stages[at], [](const QString& text) { return !numberOf(text); });
}

QString volumeRule(const QList<TypedStage>& stages, qsizetype at) {
  return firstVolume(stages[at], [](const QString& text) { return !wholeNumber(text, 0, RoadmapRules::mostADay); });
}

QString kindRule(const QList<TypedStage>& stages, qsizetype at) {
  for (qsizetype before = 0; before < at; ++before)
    if (stages[before].key == stages[at].key) return u"key"_s;
  return {};
}

QString firstRule(const QList<TypedStage>& stages, qsizetype at) {
  if (at > 0) return {};
  if (numberOf(stages[at].campaignFrom) != 0) return u"campaignFrom"_s;
  return numberOf(stages[at].campaignTo) != 0 ? u"campaignTo"_s : QString();
}

const QList<StageRule>& stageRules() {
  static const QString most = QString::number(RoadmapRules::mostADay);
  static const QList<StageRule> rules{
      {nameRule, u"give the stage a name (up to 60 characters)"_s},
      {daysRule, u"days is a whole number from 1 to 90"_s},
      {numbersRule, u"volumes are whole numbers up to "_s + most + u" a day"_s},
      {volumeRule, u"warmup/campaign from and to are whole numbers up to "_s + most},
      {kindRule, u"each kind appears once"_s},
      {firstRule, u"the first stage is warm-up only, so campaign starts at 0"_s},
  };
  return rules;
}

}  // namespace

TypedStage typedStage(const RoadmapStage& stage) {
  const auto text = [](qint64 number) { return QString::number(number); };
  return {stage.key,
          stage.name,
          text(stage.days),
          text(stage.warmup.from),
          text(stage.warmup.to),
          text(stage.campaign.from),
          text(stage.campaign.to)};
}

RoadmapStage readStage(const TypedStage& stage) {
  const auto number = [](const QString& text) { return numberOf(text).value_or(0); };
  return {stage.key,
          stage.name.trimmed(),
          number(stage.days),
          {number(stage.warmupFrom), number(stage.warmupTo)},
          {number(stage.campaignFrom), number(stage.campaignTo)}};
}

QList<RoadmapStage> readStages(const QList<TypedStage>& stages) {
  QList<RoadmapStage> read;
  for (const TypedStage& stage : stages) read.append(readStage(stage));
  return read;
}

std::optional<RoadmapProblem> RoadmapRules::firstProblem(const QList<TypedStage>& stages) {
  if (stages.isEmpty()) return RoadmapProblem{u"A roadmap needs at least one stage"_s};
  if (stages.size() > mostStages)
    return RoadmapProblem{u"A roadmap has at most "_s + QString::number(mostStages) + u" stages"_s};
  for (qsizetype at = 0; at < stages.size(); ++at)
    for (const StageRule& rule : stageRules())
      if (const QString field = rule.broken(stages, at); !field.isEmpty())
        return RoadmapProblem{u"Stage "_s + QString::number(at + 1) + u": "_s + rule.message, int(at), field};
  qint64 days = 0;
  for (const TypedStage& stage : stages) days += numberOf(stage.days).value_or(0);
  if (days > mostDays) return RoadmapProblem{u"A roadmap is at most 180 days long"_s};
  return std::nullopt;
}

}  // namespace orv
