#include "app/campaigns/LaunchPath.h"

#include "app/campaigns/scheduleText.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignSchedule.h"
#include "kit/models/campaigns/campaignSender.h"
#include "kit/models/campaigns/campaignStats.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Something of it would go out, and has a text.
bool isWritten(const DraftStep& step) {
  return std::ranges::any_of(step.variants, &DraftVariant::enabled) &&
         std::ranges::all_of(step.variants, [](const DraftVariant& variant) {
           return !variant.enabled || !variant.body.trimmed().isEmpty();
         });
}

}  // namespace

QList<Choice> launchPath(const Campaign& campaign, const QList<DraftStep>& steps) {
  const auto counted = [](const QString& key, const QString& label, qint64 count) {
    return Choice{.key = key, .label = label, .count = saturated(count), .ticked = count > 0};
  };
  QList<Choice> path{counted(u"sequence"_s, u"Emails"_s, steps.size())};
  path.last().ticked = !steps.isEmpty() && std::ranges::all_of(steps, isWritten);
  // A subsequence gets its leads from replies.
  if (!campaign.parent) path.append(counted(u"leads"_s, u"Leads"_s, campaign.stats ? campaign.stats->leads.total : 0));
  path.append(counted(u"senders"_s, u"Senders"_s, campaign.senders ? campaign.senders->size() : 0));
  const auto hours = campaign.schedule.value_or(CampaignSchedule()).schedules;
  path.append({.key = u"schedules"_s,
               .label = u"Schedule"_s,
               .detail = hours.isEmpty() ? u"not set"_s : hoursText(hours),
               .ticked = !hours.isEmpty()});
  return path;
}

}  // namespace orv
