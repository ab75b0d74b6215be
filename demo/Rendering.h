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

/// The text with options put in where this knows some.
QString withOptions(const QString& text);

}  // namespace orv::demo
