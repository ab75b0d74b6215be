#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct DomainChecks;
struct LatestRun;
struct NewSetupProjectBody;
struct NewSetupRunBody;
struct RegistrarLookup;
struct SetupDomainBody;
struct SetupDomainsBody;
struct SetupPhotoBody;
struct SetupProject;
struct SetupProjectPage;
struct SetupProjectPatch;
struct SetupRun;

namespace Requests {

Request<SetupProjectPage> listSetupProjects(bool archived);
Request<SetupProject> getSetupProject(const QString& id);
Request<SetupProject> createSetupProject(const NewSetupProjectBody& body);
/// The patch may hold secrets, so its body is overwritten once it has gone out.
Request<SetupProject> updateSetupProject(const QString& id, const SetupProjectPatch& patch,
                                         std::optional<qint64> version);
/// Into the archive; nothing deletes one for good.
Request<Empty> deleteSetupProject(const QString& id);
Request<SetupProject> restoreSetupProject(const QString& id);
Request<SetupProject> restoreSetupDomain(const QString& id, const SetupDomainBody& body);
Request<SetupProject> uploadSetupPhoto(const QString& id, const SetupPhotoBody& body);
Request<Empty> removeSetupPhoto(const QString& id);
/// `seen` is counted up by whoever changes the photo, past caches.
Request<RawData> setupPhoto(const QString& id, int seen);
/// Holds passwords.
Request<RawData> setupCredentials(const QString& id);

Request<LatestRun> latestSetupRun(const QString& projectId);
Request<SetupRun> getSetupRun(const QString& id);
Request<SetupRun> startSetupRun(const NewSetupRunBody& body);
/// What failed is tried again: on the whole run, or on one of its domains.
Request<SetupRun> retrySetupRun(const QString& id, const std::optional<QString>& domain = {});
Request<SetupRun> pauseSetupRun(const QString& id);
Request<SetupRun> resumeSetupRun(const QString& id);
Request<SetupRun> terminateSetupRun(const QString& id);
Request<DomainChecks> setupDomainChecks(const QString& runId, const QString& domain);
Request<RegistrarLookup> lookUpRegistrars(const SetupDomainsBody& body);

}  // namespace Requests
}  // namespace orv
