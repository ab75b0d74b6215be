#pragma once

#include "demo/Door.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/emailPreview.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/sequence.h"

namespace orv::demo {

/// The requests about the emails of one campaign: saving, rendering, checking and trying them out.
class SequenceDoor {
 public:
  SequenceDoor(DoorContext& context, DemoCampaign& campaign) : m_context(context), m_campaign(campaign) {}

  /// `call` is method and path below the campaign. Nothing when there is no such call.
  std::optional<HTTPAnswer> answer(const DemoRequest& request, const QString& call);

  /// What the check before a launch finds now.
  Qc check() const;

  static HTTPAnswer spin(const DemoRequest& request);
  static HTTPAnswer testEmailState(const DoorContext& context, const QString& id);

 private:
  HTTPAnswer save(const DemoRequest& request);
  HTTPAnswer preview(const DemoRequest& request) const;
  HTTPAnswer keepCheck();
  HTTPAnswer sendTest(const DemoRequest& request);

  std::optional<CampaignLead> leadFor(const std::optional<QString>& id) const;
  QList<StepIn> savedSteps() const;
  std::optional<CampaignSender> sender() const;
  QList<QcPreview> rendered(const QList<StepIn>& steps, const CampaignLead& lead) const;
  QStringList missingValues() const;
  bool offersUnsubscribing() const;

  DoorContext& m_context;
  DemoCampaign& m_campaign;
};

}  // namespace orv::demo
