#include "app/campaigns/DraftStep.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

void inOrder(QList<CampaignStep>& steps) { std::ranges::stable_sort(steps, {}, &CampaignStep::position); }

}  // namespace

qint64 wholeDays(qint64 minutes) { return (minutes + minutesPerDay / 2) / minutesPerDay; }

bool DraftStep::hasLabel(const QString& label) const {
  return std::ranges::find(variants, label, &DraftVariant::label) != variants.end();
}

QString DraftStep::freeLabel() const {
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
    if (!hasLabel(QString(letter))) return QString(letter);
  return {};
}

qint64 DraftStep::waitDays() const { return wholeDays(delayMinutes); }

int DraftStep::sharePercent(const DraftVariant& variant) const {
  if (!variant.enabled) return 0;
  qint64 total = 0;
  for (const DraftVariant& each : variants) total += each.enabled ? each.weight : 0;
  return total > 0 ? qRound(100.0 * double(variant.weight) / double(total)) : 0;
}

QList<DraftStep> draftOf(QList<CampaignStep> steps) {
  inOrder(steps);
  QList<DraftStep> draft;
  for (const CampaignStep& step : std::as_const(steps)) {
    DraftStep one{QUuid::createUuid(), step.id, step.delayMinutes, step.sameThread, {}, 0};
    for (const CampaignVariant& variant : step.variants)
      one.variants.append({QUuid::createUuid(), variant.id, variant.label, variant.subject, variant.body,
                           variant.weight, variant.enabled});
    // The service may have a step without a text; there is none to edit without one.
    if (one.variants.isEmpty()) one.variants.append({QUuid::createUuid(), {}, u"A"_s, {}, {}, 1, true});
    draft.append(one);
  }
  return draft;
}

QList<StepIn> inputsOf(const QList<DraftStep>& steps) {
  QList<StepIn> inputs;
  inputs.reserve(steps.size());
  for (const DraftStep& step : steps) {
    StepIn in{step.id, step.delayMinutes, step.sameThread, {}};
    for (const DraftVariant& variant : step.variants)
      in.variants.append({variant.id, variant.label, variant.subject, variant.body, variant.weight, variant.enabled});
    inputs.append(in);
  }
  return inputs;
}

QList<CampaignStep> stepsOf(const QList<StepIn>& inputs) {
  QList<CampaignStep> steps;
  for (const StepIn& input : inputs) {
    CampaignStep step;
    step.id = input.id.value_or(QString());
    step.position = steps.size() + 1;
    step.delayMinutes = input.delayMinutes;
    step.sameThread = input.sameThread;
    for (const VariantIn& variant : input.variants)
      step.variants.append({variant.id.value_or(QString()),
                            variant.label,
                            variant.subject,
                            variant.body,
                            variant.weight,
                            variant.enabled,
                            {}});
    steps.append(step);
  }
  return steps;
}

QList<StepIn> withoutIds(QList<StepIn> steps) {
  for (StepIn& step : steps) {
    step.id.reset();
    for (VariantIn& variant : step.variants) variant.id.reset();
  }
  return steps;
}

QList<DraftStep> withAnsweredIds(QList<DraftStep> sent, QList<CampaignStep> answered) {
  // Lists of another length are not an answer to what was sent; any pairing would be a guess.
  if (answered.size() != sent.size()) return sent;
  inOrder(answered);
  for (qsizetype i = 0; i < sent.size(); ++i) {
    sent[i].id = answered[i].id;
    auto& variants = sent[i].variants;
    if (answered[i].variants.size() != variants.size()) continue;
    for (qsizetype j = 0; j < variants.size(); ++j) variants[j].id = answered[i].variants[j].id;
  }
  return sent;
}

}  // namespace orv
