#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct ExtendBody;
struct NewTemplateBody;
struct RampupBulkBody;
struct RampupBulkResult;
struct RampupDetail;
struct RampupList;
struct RestartBody;
struct RoadmapTemplate;
struct StagesBody;
struct TemplatePage;
struct TemplatePatch;
struct WarmupSettingsPatch;
struct WarmupStats;

namespace Requests {

/// The accounts with their roadmaps; each is named by its mailbox.
Request<RampupList> listRampup();
Request<RampupDetail> getRampup(const QString& mailboxId);
Request<WarmupStats> warmupStats(const QString& mailboxId, int days);
/// `version` of the plan, as last read.
Request<RampupDetail> editRoadmap(const QString& mailboxId, const StagesBody& body, std::optional<qint64> version);
Request<RampupDetail> updateWarmup(const QString& mailboxId, const WarmupSettingsPatch& patch);
Request<RampupDetail> pauseRoadmap(const QString& mailboxId);
Request<RampupDetail> resumeRoadmap(const QString& mailboxId);
Request<RampupDetail> extendRoadmap(const QString& mailboxId, const ExtendBody& body);
Request<RampupDetail> restartRoadmap(const QString& mailboxId, const RestartBody& body);
Request<RampupBulkResult> bulkRampup(const RampupBulkBody& body);

Request<TemplatePage> listTemplates(bool archived);
Request<RoadmapTemplate> createTemplate(const NewTemplateBody& body);
Request<RoadmapTemplate> updateTemplate(const QString& id, const TemplatePatch& patch, std::optional<qint64> version);
/// Archives, or deletes for good.
Request<Empty> deleteTemplate(const QString& id, bool permanent);
Request<RoadmapTemplate> restoreTemplate(const QString& id);

}  // namespace Requests
}  // namespace orv
