#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct SetterCampaignModes;
struct SetterLessonBody;
struct SetterLessonPatch;
struct SetterLessons;
struct SetterModeBody;
struct SetterSettings;
struct SetterSettingsPatch;
struct SetterTraining;

/// The reply agent. What a change of lessons and modes answers is not read: they are read anew.
namespace Requests {

Request<SetterSettings> setterSettings();
/// `version` as last read.
Request<SetterSettings> updateSetterSettings(const SetterSettingsPatch& patch, std::optional<qint64> version);
Request<SetterTraining> setterTraining();
Request<SetterLessons> setterLessons();
Request<Empty> addSetterLesson(const SetterLessonBody& body);
Request<Empty> updateSetterLesson(const QString& id, const SetterLessonPatch& patch);
Request<SetterCampaignModes> setterCampaignModes();
Request<Empty> setSetterMode(const QString& campaignId, const SetterModeBody& body);

}  // namespace Requests
}  // namespace orv
