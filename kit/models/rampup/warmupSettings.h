#pragma once

#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/Clearable.h"

namespace orv {

/// How an account exchanges mail with the pool.
struct WarmupSettings {
  bool enabled = false;
  /// Warm-up emails a day.
  qint64 dailyLimit = 0;
  std::optional<qint64> increasePerDay;
  /// Per cent.
  qint64 replyRate = 0;
  qint64 openRate = 0;
  qint64 importantRate = 0;
  qint64 spamSaveRate = 0;
  QString filterTag;
  bool readEmulation = false;
  bool warmTrackingDomain = false;
  bool weekdaysOnly = false;
  bool operator==(const WarmupSettings&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupSettings, (),
                      (enabled, dailyLimit, increasePerDay, replyRate, openRate, importantRate, spamSaveRate, filterTag,
                       readEmulation, warmTrackingDomain, weekdaysOnly))

/// Carries only what is set. Of all its fields the increase alone can be taken away.
struct WarmupSettingsPatch {
  std::optional<bool> enabled;
  std::optional<qint64> dailyLimit;
  Clearable<qint64> increasePerDay;
  std::optional<qint64> replyRate;
  std::optional<qint64> openRate;
  std::optional<qint64> importantRate;
  std::optional<qint64> spamSaveRate;
  std::optional<QString> filterTag;
  std::optional<bool> readEmulation;
  std::optional<bool> warmTrackingDomain;
  std::optional<bool> weekdaysOnly;
  bool operator==(const WarmupSettingsPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(WarmupSettingsPatch, (),
                      (enabled, dailyLimit, increasePerDay, replyRate, openRate, importantRate, spamSaveRate, filterTag,
                       readEmulation, warmTrackingDomain, weekdaysOnly))

/// What makes `to` of `from`: the fields that differ, and nothing else.
WarmupSettingsPatch patchBetween(const WarmupSettings& from, const WarmupSettings& to);

}  // namespace orv
