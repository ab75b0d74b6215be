#include "kit/models/rampup/warmupSettings.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(WarmupSettings)
ORV_RECORD_CODERS(WarmupSettingsPatch)

WarmupSettingsPatch patchBetween(const WarmupSettings& from, const WarmupSettings& to) {
  WarmupSettingsPatch patch;
  const auto take = [&](auto field, auto into) {
    if (from.*field != to.*field) patch.*into = to.*field;
  };
  take(&WarmupSettings::enabled, &WarmupSettingsPatch::enabled);
  take(&WarmupSettings::dailyLimit, &WarmupSettingsPatch::dailyLimit);
  if (from.increasePerDay != to.increasePerDay)
    patch.increasePerDay = to.increasePerDay ? Clearable<qint64>(*to.increasePerDay) : Clearable<qint64>::cleared();
  take(&WarmupSettings::replyRate, &WarmupSettingsPatch::replyRate);
  take(&WarmupSettings::openRate, &WarmupSettingsPatch::openRate);
  take(&WarmupSettings::importantRate, &WarmupSettingsPatch::importantRate);
  take(&WarmupSettings::spamSaveRate, &WarmupSettingsPatch::spamSaveRate);
  take(&WarmupSettings::filterTag, &WarmupSettingsPatch::filterTag);
  take(&WarmupSettings::readEmulation, &WarmupSettingsPatch::readEmulation);
  take(&WarmupSettings::warmTrackingDomain, &WarmupSettingsPatch::warmTrackingDomain);
  take(&WarmupSettings::weekdaysOnly, &WarmupSettingsPatch::weekdaysOnly);
  return patch;
}

}  // namespace orv
