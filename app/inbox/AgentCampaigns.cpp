#include "app/inbox/AgentCampaigns.h"

#include "app/base/shownName.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/inbox/inboxThread.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(AgentCampaignRow)

AgentCampaigns::AgentCampaigns(WorkspaceContext& context, Store* whole, Resource<SetterSettings>& settings)
    : Store(context, whole),
      m_settings(settings),
      m_modes(*whole, [this] { return api().send(Requests::setterCampaignModes()); },
              {.failed = u"Couldn’t load the campaigns’ modes"_s,
               .isEmpty = [](const SetterCampaignModes&) { return false; }}),
      m_campaigns(*whole, [this] { return api().send(Requests::listCampaigns(false)); },
                  {.failed = u"Couldn’t load the campaigns"_s, .isEmpty = [](const CampaignList&) { return false; }}),
      m_actions(context, m_busy, [this] { m_modes.load(); }) {
  for (ResourceBase* resource : {static_cast<ResourceBase*>(&settings), static_cast<ResourceBase*>(&m_modes),
                                 static_cast<ResourceBase*>(&m_campaigns)})
    connect(resource, &ResourceBase::valueChanged, this, &AgentCampaigns::arrange);
  connect(&m_busy, &BusySet::changed, this, &AgentCampaigns::arrange);
  context.changes().watch<Campaign>(this, [this](const Change<Campaign>&) {
    m_campaigns.markStale();
    // One that is back from the archive has the mode that it had.
    m_modes.markStale();
  });
}

bool AgentCampaigns::isActive(const std::optional<QString>& mode) const {
  const QString now = mode.value_or(m_settings.value() ? m_settings.value()->defaultMode : QString());
  return now != words::modeOff;
}

std::optional<QString> AgentCampaigns::modeOf(const QString& campaignId) const {
  if (!m_modes.value()) return std::nullopt;
  const auto found = std::ranges::find(m_modes.value()->items, campaignId, &SetterCampaignMode::campaignId);
  return found == m_modes.value()->items.end() ? std::nullopt : found->mode;
}

void AgentCampaigns::arrange() {
  if (!m_modes.value() || !m_settings.value() || !m_campaigns.value()) return;
  QHash<QString, std::optional<QString>> modes;
  for (const SetterCampaignMode& each : m_modes.value()->items) modes.insert(each.campaignId, each.mode);
  const bool byDefault = isActive(std::nullopt);
  std::vector<AgentCampaignRow> active, inactive;
  (byDefault ? active : inactive)
      .push_back({.id = {},
                  .name = u"New campaigns"_s,
                  .hint = byDefault ? u"Active by default"_s : u"Inactive by default"_s});
  m_activeCount = m_inactiveCount = 0;
  for (const CampaignSummary& campaign : m_campaigns.value()->items) {
    const bool isOn = isActive(modes.value(campaign.id));
    ++(isOn ? m_activeCount : m_inactiveCount);
    (isOn ? active : inactive)
        .push_back({.id = campaign.id, .name = campaign.name, .hint = {}, .busy = m_busy.contains(campaign.id)});
  }
  m_active.update(std::move(active));
  m_inactive.update(std::move(inactive));
  Q_EMIT changed();
}

Task<void> AgentCampaigns::moveTask(QString campaignId) {
  if (!canWrite() || campaignId.isEmpty() || !m_modes.value()) co_return;
  // Back to what the default says, unless that is nothing.
  std::optional<QString> mode;
  if (isActive(modeOf(campaignId)))
    mode = QString(words::modeOff);
  else if (!isActive(std::nullopt))
    mode = QString(words::modeDraft);
  const auto set = co_await m_actions.perform<Empty>(
      {campaignId, u"setter/campaigns/"_s + campaignId},
      [campaignId, mode] { return Requests::setSetterMode(campaignId, {.mode = mode}); },
      u"Couldn’t move the campaign."_s);
  if (!set) co_return;
  m_modes.update([&](SetterCampaignModes& modes) {
    const auto found = std::ranges::find(modes.items, campaignId, &SetterCampaignMode::campaignId);
    if (found == modes.items.end())
      modes.items.append({campaignId, mode});
    else
      found->mode = mode;
  });
  m_modes.load();
  // Each says how the agent goes about it.
  context().changes().stale<InboxThread>();
}

}  // namespace orv
