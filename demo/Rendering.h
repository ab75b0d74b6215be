#pragma once

#include "demo/DemoState.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignSender.h"

namespace orv::demo {

/// A text as one lead would get it.
struct Rendering {
  QString text;
  /// Variables that the lead has no value for.
  QStringList missing;
};

/// What the lead's fields and the sender put in the place of each variable.
QMap<QString, QString> valuesOf(const CampaignLead& lead, const std::optional<CampaignSender>& sender);

/// Names of the variables that every lead has, whether filled or not.
const QStringList& standardVariables();
QStringList variablesIn(const QString& text);

/// Fills in the variables, then takes one option of each {a|b}. The same lead always gets the same text.
Rendering render(const QString& text, const QMap<QString, QString>& values, DemoRandom random);

/// Always the same for the same lead and email.
DemoRandom randomFor(const CampaignLead& lead, qint64 position);

/// The place of the variant that a lead gets, by weight among the enabled ones; -1 when there is none.
template <class Variants>
qsizetype pickVariant(const Variants& variants, DemoRandom random) {
  qint64 total = 0;
  for (const auto& variant : variants) total += variant.enabled ? variant.weight : 0;
  qint64 at = random.below(total);
  for (qsizetype i = 0; i < variants.size(); ++i) {
    if (!variants[i].enabled) continue;
    at -= variants[i].weight;
    if (at < 0) return i;
  }
  return -1;
}

/// What an inbox shows of an email before it is opened; nothing in it when the sequence has no such email any more.
struct EmailHead {
  std::optional<QString> variant;
  std::optional<QString> subject;
};
EmailHead headOf(const DemoCampaign& campaign, const CampaignLead& lead, qint64 position);
/// The text of that email; empty when the sequence has no such email any more.
QString bodyOf(const DemoCampaign& campaign, const CampaignLead& lead, qint64 position);

QString asReply(const QString& subject);

/// The text with options put in where this knows some.
QString withOptions(const QString& text);

}  // namespace orv::demo
