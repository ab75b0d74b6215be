#include "kit/models/rampup/rampupRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/rampup/rampupChanges.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/roadmapTemplate.h"
#include "kit/models/rampup/warmupStats.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString account(const QString& mailboxId, const QString& rest = {}) {
  return u"/rampup/"_s + pathSegment(mailboxId) + rest;
}

constexpr QLatin1String templates("/rampup/templates");

QString oneTemplate(const QString& id, const QString& rest = {}) { return templates + u'/' + pathSegment(id) + rest; }

}  // namespace

Request<RampupList> listRampup() {
  auto request = get<RampupList>(u"/rampup"_s);
  request.answerAtMost = wholeListAtMost;
  return request;
}

Request<RampupDetail> getRampup(const QString& mailboxId) { return get<RampupDetail>(account(mailboxId)); }

Request<WarmupStats> warmupStats(const QString& mailboxId, int days) {
  return get<WarmupStats>(account(mailboxId, u"/stats"_s), {{u"days"_s, QString::number(days)}});
}

Request<RampupDetail> editRoadmap(const QString& mailboxId, const StagesBody& body, std::optional<qint64> version) {
  auto request = changing<RampupDetail>(HTTPMethod::patch, account(mailboxId), encodeJSON(body));
  request.ifMatch = version;
  return request;
}

Request<RampupDetail> updateWarmup(const QString& mailboxId, const WarmupSettingsPatch& patch) {
  return changing<RampupDetail>(HTTPMethod::patch, account(mailboxId, u"/settings"_s), encodeJSON(patch));
}

Request<RampupDetail> pauseRoadmap(const QString& mailboxId) {
  return changing<RampupDetail>(HTTPMethod::post, account(mailboxId, u"/pause"_s));
}

Request<RampupDetail> resumeRoadmap(const QString& mailboxId) {
  return changing<RampupDetail>(HTTPMethod::post, account(mailboxId, u"/resume"_s));
}

Request<RampupDetail> extendRoadmap(const QString& mailboxId, const ExtendBody& body) {
  return changing<RampupDetail>(HTTPMethod::post, account(mailboxId, u"/extend"_s), encodeJSON(body));
}

Request<RampupDetail> restartRoadmap(const QString& mailboxId, const RestartBody& body) {
  return changing<RampupDetail>(HTTPMethod::post, account(mailboxId, u"/restart"_s), encodeJSON(body));
}

Request<RampupBulkResult> bulkRampup(const RampupBulkBody& body) {
  return changing<RampupBulkResult>(HTTPMethod::post, u"/rampup/bulk"_s, encodeJSON(body));
}

Request<TemplatePage> listTemplates(bool archived) {
  auto request = get<TemplatePage>(QString(templates));
  addFlag(request.query, u"archived"_s, archived);
  return request;
}

Request<RoadmapTemplate> createTemplate(const NewTemplateBody& body) {
  return changing<RoadmapTemplate>(HTTPMethod::post, QString(templates), encodeJSON(body));
}

Request<RoadmapTemplate> updateTemplate(const QString& id, const TemplatePatch& patch, std::optional<qint64> version) {
  auto request = changing<RoadmapTemplate>(HTTPMethod::put, oneTemplate(id), encodeJSON(patch));
  request.ifMatch = version;
  return request;
}

Request<Empty> deleteTemplate(const QString& id, bool permanent) {
  auto request = changing<Empty>(HTTPMethod::del, oneTemplate(id));
  addFlag(request.query, u"permanent"_s, permanent);
  return request;
}

Request<RoadmapTemplate> restoreTemplate(const QString& id) {
  return changing<RoadmapTemplate>(HTTPMethod::post, oneTemplate(id, u"/restore"_s));
}

}  // namespace orv::Requests
