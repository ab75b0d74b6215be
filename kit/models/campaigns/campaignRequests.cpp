#include "kit/models/campaigns/campaign.h"

#include "kit/api/JSONCodingImpl.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(CampaignSummary)
ORV_RECORD_CODERS(CampaignList)
ORV_RECORD_CODERS(Campaign)
ORV_RECORD_CODERS(PreviewResponse)
ORV_RECORD_CODERS(TestEmail)
ORV_RECORD_CODERS(Qc)
ORV_RECORD_CODERS(SubsequenceList)
ORV_RECORD_CODERS(SpintaxOut)
ORV_RECORD_CODERS(CreateCampaignBody)
ORV_RECORD_CODERS(CampaignPatch)
ORV_RECORD_CODERS(StepsBody)
ORV_RECORD_CODERS(LaunchBody)
ORV_RECORD_CODERS(PreviewBody)
ORV_RECORD_CODERS(TestEmailBody)
ORV_RECORD_CODERS(SpintaxBody)
ORV_RECORD_CODERS(SubsequenceBody)

QString CampaignStatus::label() const {
  if (rawValue == "draft"_L1) return u"Draft"_s;
  if (rawValue == "running"_L1) return u"Running"_s;
  if (rawValue == "paused"_L1) return u"Paused"_s;
  if (rawValue == "completed"_L1) return u"Completed"_s;
  if (rawValue == "archived"_L1) return u"Archived"_s;
  return rawValue;
}

QString LeadStatus::label() const {
  if (rawValue == "queued"_L1) return u"Queued"_s;
  if (rawValue == "active"_L1) return u"In sequence"_s;
  if (rawValue == "paused"_L1) return u"Paused"_s;
  if (rawValue == "completed"_L1) return u"Finished"_s;
  if (rawValue == "replied"_L1) return u"Replied"_s;
  if (rawValue == "bounced"_L1) return u"Bounced"_s;
  if (rawValue == "unsubscribed"_L1) return u"Unsubscribed"_s;
  if (rawValue == "stopped"_L1) return u"Stopped"_s;
  return rawValue;
}

namespace Requests {
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

}  // namespace Requests
}  // namespace orv
