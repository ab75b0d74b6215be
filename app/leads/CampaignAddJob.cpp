#include "app/leads/CampaignAddJob.h"

#include "app/base/CampaignAdding.h"
#include "app/base/shownName.h"
#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/leads/leadList.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The list whose every lead is meant; empty for any other target.
QString wholeListOf(const LeadTarget& target) {
  const auto* filter = target.filter();
  if (!filter || filter->first || filter->search.parts().size() != 1) return {};
  return filter->search.value(u"list"_s);
}

OwnLeadsBody ownLeadsOf(const LeadTarget& target) {
  if (const auto* ids = target.ids()) return {.leadIds = *ids};
  return {.filter = filterBody(target.filter()->search), .limit = target.filter()->first};
}

/// On every way out, being stopped included: some may have come into the campaign.
struct LeadsNews {
  WorkspaceContext& workspace;
  const CampaignAdded& added;
  ~LeadsNews() {
    if (!added.campaignId.isEmpty()) leadsCameTo(workspace, added.campaignId);
  }
};

Task<void> make(Job* job, std::shared_ptr<CampaignAdded> added) {
  job->setStage(u"Creating "_s + shownName(added->campaignName) + u"…"_s);
  Changes& changes = job->context().changes();
  const Stamp asked = changes.stamp();
  const Campaign campaign = co_await job->context().api().send(Requests::createCampaign({added->campaignName}));
  added->campaignId = campaign.id;
  added->campaignName = campaign.name;
  added->isMade = true;
  changes.publish(campaign, asked, true);
}

Task<void> add(Job* job, LeadTarget target, bool skipOthers, std::shared_ptr<CampaignAdded> added) {
  const auto took = [added](const AddLeadsResult& more) { added->sum += more; };
  if (const QString list = wholeListOf(target); !list.isEmpty()) {
    job->setStage(u"Adding…"_s);
    const AddLeadsBody::List body{list, skipOthers ? u"workspace"_s : u"campaign"_s};
    took(co_await job->context().api().send(Requests::addLeads(added->campaignId, {body})));
  } else {
    co_await addOwnLeads(job, added->campaignId, ownLeadsOf(target), !skipOthers, took);
  }
}

}  // namespace

Task<JobOutcome> addToCampaign(Job* job, LeadTarget target, bool skipOthers, std::shared_ptr<CampaignAdded> added) {
  const LeadsNews news{job->context(), *added};
  try {
    if (added->campaignId.isEmpty()) co_await make(job, added);
    co_await add(job, target, skipOthers, added);
    QStringList lines;
    for (const Choice& line : campaignAddLines(added->sum)) lines.append(line.label + u": "_s + line.detail);
    co_return JobOutcome{.title = campaignAddSummary(*added), .lines = lines};
  } catch (const APIError& error) {
    QString reason = error.message();
    if (added->sum.added > 0) reason += u" Before that, "_s + campaignAddSummary(*added) + u'.';
    co_return JobOutcome{.kind = JobOutcome::Kind::failed,
                         .title = u"Couldn’t add the leads to "_s + shownName(added->campaignName),
                         .text = reason};
  }
}

QString campaignAddSummary(const CampaignAdded& added) {
  if (added.sum.total == 0 && added.sum.added == 0) return u"Nothing to add."_s;
  const QString name = shownName(added.campaignName);
  return added.sum.added > 0 ? LeadWords::counted(added.sum.added) + u" added to "_s + name
                             : u"No leads added to "_s + name;
}

QList<Choice> campaignAddLines(const CampaignAddSum& sum) {
  if (sum.total == 0 && sum.added == 0) return {};
  QList<Choice> lines{{.key = u"added"_s, .label = u"Added to campaign"_s, .detail = Format::grouped(sum.added)}};
  const auto tell = [&lines](const QString& key, const QString& label, qint64 count) {
    if (count > 0) lines.append({.key = key, .label = label, .detail = Format::grouped(count)});
  };
  tell(u"already"_s, u"Already in this campaign"_s, sum.alreadyInCampaign);
  tell(u"other"_s, u"Skipped: already in another campaign"_s, sum.inOtherCampaign);
  tell(u"list"_s, u"Skipped: already in a list"_s, sum.inList);
  tell(u"suppressed"_s, u"Skipped: unsubscribed or bounced before"_s, sum.suppressed);
  tell(u"invalid"_s, u"Skipped: no valid email"_s, sum.invalid);
  return lines;
}

}  // namespace orv
