#include "kit/models/inbox/setterSettings.h"

#include "kit/api/recordCoders.h"

namespace orv {

ORV_RECORD_CODERS(SetterSettings)
ORV_RECORD_CODERS(SetterSettingsPatch)

SetterSettingsPatch patchBetween(const SetterSettings& from, const SetterSettings& to) {
  SetterSettingsPatch patch;
  const auto take = [&](auto field, auto into) {
    if (from.*field != to.*field) patch.*into = to.*field;
  };
  take(&SetterSettings::repName, &SetterSettingsPatch::repName);
  take(&SetterSettings::signature, &SetterSettingsPatch::signature);
  take(&SetterSettings::knowledgeBase, &SetterSettingsPatch::knowledgeBase);
  take(&SetterSettings::instructions, &SetterSettingsPatch::instructions);
  take(&SetterSettings::training, &SetterSettingsPatch::training);
  if (from.bookingUrl != to.bookingUrl)
    patch.bookingUrl = to.bookingUrl ? Clearable<QString>(*to.bookingUrl) : Clearable<QString>::cleared();
  take(&SetterSettings::tone, &SetterSettingsPatch::tone);
  take(&SetterSettings::defaultMode, &SetterSettingsPatch::defaultMode);
  take(&SetterSettings::autoSendEnabled, &SetterSettingsPatch::autoSendEnabled);
  take(&SetterSettings::followupIntervalMinutes, &SetterSettingsPatch::followupIntervalMinutes);
  take(&SetterSettings::followupMax, &SetterSettingsPatch::followupMax);
  return patch;
}

}  // namespace orv
