#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/Clearable.h"

namespace orv {

/// How the agent signs what it writes.
struct SetterSignature {
  std::optional<QString> name;
  std::optional<QString> title;
  std::optional<QString> company;
  std::optional<QString> phone;
  std::optional<QString> extra;
  std::optional<QString> website;
  bool operator==(const SetterSignature&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterSignature, (), (name, title, company, phone, extra, website))

/// The reply agent of one workspace.
struct SetterSettings {
  /// The person it writes as.
  QString repName;
  SetterSignature signature;
  /// The only facts of the company that it may state.
  QString knowledgeBase;
  QString instructions;
  QString training;
  std::optional<QString> bookingUrl;
  QString tone;
  QString defaultMode;
  bool autoSendEnabled = false;
  qint64 followupIntervalMinutes = 0;
  /// In one conversation.
  qint64 followupMax = 0;
  /// Without one it labels replies and writes nothing. Not theirs to change.
  bool hasOpenAiKey = false;
  qint64 version = 0;
  bool operator==(const SetterSettings&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterSettings, (),
                      (repName, signature, knowledgeBase, instructions, training, bookingUrl, tone, defaultMode,
                       autoSendEnabled, followupIntervalMinutes, followupMax, hasOpenAiKey, version))

/// Carries only what is set. Of all its fields the booking link alone can be taken away.
struct SetterSettingsPatch {
  std::optional<QString> repName;
  /// Whole: what it leaves out is gone.
  std::optional<SetterSignature> signature;
  std::optional<QString> knowledgeBase;
  std::optional<QString> instructions;
  std::optional<QString> training;
  Clearable<QString> bookingUrl;
  std::optional<QString> tone;
  std::optional<QString> defaultMode;
  std::optional<bool> autoSendEnabled;
  std::optional<qint64> followupIntervalMinutes;
  std::optional<qint64> followupMax;
  bool operator==(const SetterSettingsPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterSettingsPatch, (),
                      (repName, signature, knowledgeBase, instructions, training, bookingUrl, tone, defaultMode,
                       autoSendEnabled, followupIntervalMinutes, followupMax))

/// What makes `to` of `from`: the fields that differ, and nothing else.
SetterSettingsPatch patchBetween(const SetterSettings& from, const SetterSettings& to);

}  // namespace orv
