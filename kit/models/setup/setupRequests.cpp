#include "kit/models/setup/setupRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/setup/setupChanges.h"
#include "kit/models/setup/setupProject.h"
#include "kit/models/setup/setupRun.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

constexpr QLatin1String projects("/inbox-setup/templates"), runs("/inbox-setup/runs");
/// A photo may be 1 MB; what a service makes of it is not known.
constexpr qint64 photoAtMost = 8LL << 20;

QString project(const QString& id, const QString& rest = {}) { return projects + u'/' + pathSegment(id) + rest; }
QString run(const QString& id, const QString& rest = {}) { return runs + u'/' + pathSegment(id) + rest; }

}  // namespace

Request<SetupProjectPage> listSetupProjects(bool archived) {
  auto request = get<SetupProjectPage>(QString(projects));
  addFlag(request.query, u"archived"_s, archived);
  request.answerAtMost = wholeListAtMost;
  return request;
}

Request<SetupProject> getSetupProject(const QString& id) { return get<SetupProject>(project(id)); }

Request<SetupProject> createSetupProject(const NewSetupProjectBody& body) {
  return changing<SetupProject>(HTTPMethod::post, QString(projects), encodeJSON(body));
}

Request<SetupProject> updateSetupProject(const QString& id, const SetupProjectPatch& patch,
                                         std::optional<qint64> version) {
  auto request = changing<SetupProject>(HTTPMethod::patch, project(id), encodeJSON(patch));
  request.ifMatch = version;
  request.secret = true;
  return request;
}

Request<Empty> deleteSetupProject(const QString& id) { return changing<Empty>(HTTPMethod::del, project(id)); }

Request<SetupProject> restoreSetupProject(const QString& id) {
  return changing<SetupProject>(HTTPMethod::post, project(id, u"/restore"_s));
}

Request<SetupProject> restoreSetupDomain(const QString& id, const SetupDomainBody& body) {
  return changing<SetupProject>(HTTPMethod::post, project(id, u"/archived-domains/restore"_s), encodeJSON(body));
}

Request<SetupProject> uploadSetupPhoto(const QString& id, const SetupPhotoBody& body) {
  return changing<SetupProject>(HTTPMethod::put, project(id, u"/photo"_s), encodeJSON(body));
}

Request<Empty> removeSetupPhoto(const QString& id) {
  return changing<Empty>(HTTPMethod::del, project(id, u"/photo"_s));
}

Request<RawData> setupPhoto(const QString& id, int seen) {
  auto request = get<RawData>(project(id, u"/photo"_s), {{u"v"_s, QString::number(seen)}});
  request.answerAtMost = photoAtMost;
  return request;
}

Request<RawData> setupCredentials(const QString& id) { return get<RawData>(project(id, u"/credentials.csv"_s)); }

Request<LatestRun> latestSetupRun(const QString& projectId) {
  return get<LatestRun>(runs + u"/latest"_s, {{u"templateId"_s, projectId}});
}

Request<SetupRun> getSetupRun(const QString& id) { return get<SetupRun>(run(id)); }

Request<SetupRun> startSetupRun(const NewSetupRunBody& body) {
  return changing<SetupRun>(HTTPMethod::post, QString(runs), encodeJSON(body));
}

Request<SetupRun> retrySetupRun(const QString& id, const std::optional<QString>& domain) {
  if (domain) return changing<SetupRun>(HTTPMethod::post, run(id, u"/retry"_s), encodeJSON(SetupDomainBody{*domain}));
  return changing<SetupRun>(HTTPMethod::post, run(id, u"/retry"_s));
}

Request<SetupRun> pauseSetupRun(const QString& id) {
  return changing<SetupRun>(HTTPMethod::post, run(id, u"/pause"_s));
}

Request<SetupRun> resumeSetupRun(const QString& id) {
  return changing<SetupRun>(HTTPMethod::post, run(id, u"/resume"_s));
}

Request<SetupRun> terminateSetupRun(const QString& id) {
  return changing<SetupRun>(HTTPMethod::post, run(id, u"/terminate"_s));
}

Request<DomainChecks> setupDomainChecks(const QString& runId, const QString& domain) {
  return get<DomainChecks>(run(runId, u"/checks/"_s + pathSegment(domain)));
}

Request<RegistrarLookup> lookUpRegistrars(const SetupDomainsBody& body) {
  return changing<RegistrarLookup>(HTTPMethod::post, u"/inbox-setup/registrar-lookup"_s, encodeJSON(body));
}

}  // namespace orv::Requests
