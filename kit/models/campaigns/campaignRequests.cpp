#include "kit/models/campaigns/campaignRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/emailPreview.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/campaigns/subsequence.h"
#include "kit/models/campaigns/testEmail.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString campaign(const QString& id, const QString& rest = {}) { return u"/campaigns/"_s + pathSegment(id) + rest; }

}  // namespace

Request<CampaignList> listCampaigns(bool archived) {
  auto request = get<CampaignList>(u"/campaigns"_s);
  addFlag(request.query, u"archived"_s, archived);
  return request;
}

Request<Campaign> getCampaign(const QString& id) { return get<Campaign>(campaign(id)); }

Request<Campaign> createCampaign(const CreateCampaignBody& body) {
  return changing<Campaign>(HTTPMethod::post, u"/campaigns"_s, encodeJSON(body));
}

Request<Campaign> updateCampaign(const QString& id, const CampaignPatch& patch, std::optional<qint64> version) {
  auto request = changing<Campaign>(HTTPMethod::patch, campaign(id), encodeJSON(patch));
  request.ifMatch = version;
  return request;
}

Request<Campaign> saveSteps(const QString& id, const StepsBody& body) {
  return changing<Campaign>(HTTPMethod::put, campaign(id, u"/steps"_s), encodeJSON(body));
}

Request<PreviewResponse> previewCampaign(const QString& id, const PreviewBody& body) {
  return changing<PreviewResponse>(HTTPMethod::post, campaign(id, u"/preview"_s), encodeJSON(body));
}

Request<TestEmail> sendTestEmail(const QString& id, const TestEmailBody& body) {
  return changing<TestEmail>(HTTPMethod::post, campaign(id, u"/test-email"_s), encodeJSON(body));
}

Request<TestEmail> testEmailState(const QString& testId) {
  return get<TestEmail>(u"/test-email/"_s + pathSegment(testId));
}

Request<Qc> checkCampaign(const QString& id) { return changing<Qc>(HTTPMethod::post, campaign(id, u"/qc"_s)); }

Request<Campaign> launchCampaign(const QString& id, const LaunchBody& body) {
  return changing<Campaign>(HTTPMethod::post, campaign(id, u"/launch"_s), encodeJSON(body));
}

Request<Campaign> pauseCampaign(const QString& id) {
  return changing<Campaign>(HTTPMethod::post, campaign(id, u"/pause"_s));
}

Request<Campaign> duplicateCampaign(const QString& id) {
  return changing<Campaign>(HTTPMethod::post, campaign(id, u"/duplicate"_s));
}

Request<Empty> deleteCampaign(const QString& id, bool permanent) {
  auto request = changing<Empty>(HTTPMethod::del, campaign(id));
  addFlag(request.query, u"permanent"_s, permanent);
  return request;
}

Request<Campaign> restoreCampaign(const QString& id) {
  return changing<Campaign>(HTTPMethod::post, campaign(id, u"/restore"_s));
}

Request<SubsequenceList> listSubsequences(const QString& id) {
  return get<SubsequenceList>(campaign(id, u"/subsequences"_s));
}

Request<Campaign> createSubsequence(const QString& id, const SubsequenceBody& body) {
  return changing<Campaign>(HTTPMethod::post, campaign(id, u"/subsequences"_s), encodeJSON(body));
}

Request<SpintaxOut> spinText(const SpintaxBody& body) {
  return changing<SpintaxOut>(HTTPMethod::post, u"/campaigns/spintax"_s, encodeJSON(body));
}

Request<FeedPage> campaignActivity(const QString& id, qint64 limit, std::optional<QString> cursor) {
  auto request = get<FeedPage>(campaign(id, u"/activity"_s), {{u"limit"_s, QString::number(limit)}});
  addOptional(request.query, u"cursor"_s, cursor);
  return request;
}

Request<MessagePage> campaignMessages(const QString& id) {
  return get<MessagePage>(campaign(id, u"/messages"_s), {{u"limit"_s, u"100"_s}});
}

}  // namespace orv::Requests
