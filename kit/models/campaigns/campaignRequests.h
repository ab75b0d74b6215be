#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct Campaign;
struct CampaignList;
struct CampaignPatch;
struct CreateCampaignBody;
struct FeedPage;
struct LaunchBody;
struct MessagePage;
struct PreviewBody;
struct PreviewResponse;
struct Qc;
struct SpintaxBody;
struct SpintaxOut;
struct StepsBody;
struct SubsequenceBody;
struct SubsequenceList;
struct TestEmail;
struct TestEmailBody;

namespace Requests {

Request<CampaignList> listCampaigns(bool archived);
Request<Campaign> getCampaign(const QString& id);
Request<Campaign> createCampaign(const CreateCampaignBody& body);
/// `version` as last read, when it is known.
Request<Campaign> updateCampaign(const QString& id, const CampaignPatch& patch, std::optional<qint64> version);
/// Without a version: the last save of a sequence wins.
Request<Campaign> saveSteps(const QString& id, const StepsBody& body);
Request<PreviewResponse> previewCampaign(const QString& id, const PreviewBody& body);
Request<TestEmail> sendTestEmail(const QString& id, const TestEmailBody& body);
Request<TestEmail> testEmailState(const QString& testId);
Request<Qc> checkCampaign(const QString& id);
/// Also resumes a paused campaign.
Request<Campaign> launchCampaign(const QString& id, const LaunchBody& body);
Request<Campaign> pauseCampaign(const QString& id);
Request<Campaign> duplicateCampaign(const QString& id);
/// Archives, or deletes for good.
Request<Empty> deleteCampaign(const QString& id, bool permanent);
Request<Campaign> restoreCampaign(const QString& id);
Request<SubsequenceList> listSubsequences(const QString& id);
Request<Campaign> createSubsequence(const QString& id, const SubsequenceBody& body);
Request<SpintaxOut> spinText(const SpintaxBody& body);
Request<FeedPage> campaignActivity(const QString& id, qint64 limit, std::optional<QString> cursor);
Request<MessagePage> campaignMessages(const QString& id);

}  // namespace Requests
}  // namespace orv
