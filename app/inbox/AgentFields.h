#pragma once

#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "kit/models/inbox/setterSettings.h"

namespace orv {

/// The agent's settings as they are typed; numbers as the texts that they are.
struct AgentFields {
  QString repName;
  QString signatureName;
  QString title;
  QString company;
  QString phone;
  QString website;
  QString extra;
  QString tone;
  QString knowledgeBase;
  QString instructions;
  QString training;
  QString bookingUrl;
  /// Minutes.
  QString followupInterval;
  QString followupMax;
  bool operator==(const AgentFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(AgentFields, (),
                      (repName, signatureName, title, company, phone, website, extra, tone, knowledgeBase, instructions,
                       training, bookingUrl, followupInterval, followupMax))

inline constexpr int mostFollowups = 4;
/// A year.
inline constexpr int mostFollowupMinutes = 525600;

AgentFields agentFields(const SetterSettings& settings);
/// A sentence for each field that was changed and cannot be saved.
QVariantMap problemsIn(const AgentFields& typed, const AgentFields& base);
/// What the fields make of the settings; they have no problems.
SetterSettings settingsOf(const AgentFields& typed, const SetterSettings& loaded);
/// The tones that are offered, and the stored one as it stands.
QList<Choice> toneChoices(const QString& stored);
/// How the form names its sections and fields.
QString agentSectionOf(const QString& field);
QString agentFieldLabel(const QString& field);

}  // namespace orv
