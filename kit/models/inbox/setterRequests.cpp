#include "kit/models/inbox/setterRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString lessons() { return u"/setter/lessons"_s; }
QString campaigns() { return u"/setter/campaigns"_s; }

}  // namespace

Request<SetterSettings> setterSettings() { return get<SetterSettings>(u"/setter/settings"_s); }

Request<SetterSettings> updateSetterSettings(const SetterSettingsPatch& patch, std::optional<qint64> version) {
  auto request = changing<SetterSettings>(HTTPMethod::patch, u"/setter/settings"_s, encodeJSON(patch));
  request.ifMatch = version;
  return request;
}

Request<SetterTraining> setterTraining() { return get<SetterTraining>(u"/setter/training"_s); }

Request<SetterLessons> setterLessons() { return get<SetterLessons>(lessons()); }

Request<Empty> addSetterLesson(const SetterLessonBody& body) {
  return changing<Empty>(HTTPMethod::post, lessons(), encodeJSON(body));
}

Request<Empty> updateSetterLesson(const QString& id, const SetterLessonPatch& patch) {
  return changing<Empty>(HTTPMethod::patch, lessons() + u'/' + pathSegment(id), encodeJSON(patch));
}

Request<SetterCampaignModes> setterCampaignModes() { return get<SetterCampaignModes>(campaigns()); }

Request<Empty> setSetterMode(const QString& campaignId, const SetterModeBody& body) {
  return changing<Empty>(HTTPMethod::put, campaigns() + u'/' + pathSegment(campaignId) + u"/mode"_s, encodeJSON(body));
}

}  // namespace orv::Requests
