#include "app/campaigns/LeadMove.h"

#include "app/base/Actions.h"
#include "app/base/shownName.h"
#include "app/campaigns/LeadBatch.h"
#include "app/campaigns/LeadRows.h"
#include "app/campaigns/LeadTurns.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/leadChanges.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadMove::LeadMove(CampaignContext& context, std::function<void(const QStringList&)> moved)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_moved(std::move(moved)),
      m_campaigns(*this, [&context] { return context.api.send(Requests::listCampaigns(false)); },
                  {.loadsByItself = false}) {
  connect(&m_campaigns, &ResourceBase::valueChanged, this, &LeadMove::optionsChanged);
  connect(&m_form, &Form::changed, this, &LeadMove::changed);
}

QString LeadMove::title() const { return u"Move "_s + countedLeads(m_leadIds.size()); }

QList<Choice> LeadMove::options() const {
  QList<Choice> options;
  if (!m_campaigns.value()) return options;
  const QString needle = m_query.trimmed();
  for (const CampaignSummary& campaign : m_campaigns.value()->items) {
    if (campaign.id == m_context.id || !campaign.name.contains(needle, Qt::CaseInsensitive)) continue;
    options.append({.key = campaign.id,
                    .label = campaign.name,
                    .detail = campaign.status.label() + u" · "_s + countedLeads(campaign.leads)});
  }
  return options;
}

void LeadMove::setQuery(const QString& query) {
  m_query = query;
  Q_EMIT changed();
  Q_EMIT optionsChanged();
}

void LeadMove::setTarget(const QString& campaignId) {
  m_target = campaignId;
  m_form.clearError();
  Q_EMIT changed();
}

void LeadMove::show(const QStringList& leadIds) {
  if (leadIds.isEmpty()) return;
  m_leadIds = leadIds;
  m_query.clear();
  m_target.clear();
  // Campaigns come and go: the list is read anew each time.
  m_campaigns.load();
  m_form.show();
  Q_EMIT optionsChanged();
}

void LeadMove::submit() {
  if (canSubmit()) m_tasks.start(move(m_leadIds, m_target));
}

void LeadMove::cancel() {
  m_campaigns.cancel();
  m_form.cancel();
}

Task<void> LeadMove::move(QStringList leadIds, QString target) {
  const QString name = shownName(nameOf(target));
  auto submission = m_form.begin();
  const auto turns = co_await leadTurns(&m_context.workspace.turns(), leadIds);
  leadIds = turns.ids;
  if (leadIds.isEmpty()) {
    submission.fail(deletedMeanwhile());
    co_return;
  }
  BusySet busy;
  // It may have moved them although its answer was lost.
  Actions actions(m_context.workspace, busy, [this, &target] { tellBoth(target, {}); });
  const auto result = co_await actions.send(
      Requests::moveLeads(m_context.id, MoveLeadsBody{leadIds, target}), u"Couldn’t move the leads"_s, {},
      [&submission](const APIError& error) { return submission.fail(error.message()); });
  if (!result) co_return;
  submission.succeed();
  const QString kept =
      result->skipped == 0 ? QString() : countedLeads(result->skipped) + u" stayed, already in "_s + name;
  if (result->moved == 0)
    m_context.services.toasts.show({.message = u"No leads moved"_s, .detail = kept});
  else
    m_context.services.toasts.show({.message = u"Moved "_s + countedLeads(result->moved) + u" to "_s + name,
                                    .tone = Toasts::Tone::success,
                                    .detail = kept});
  tellBoth(target, leadIds);
}

void LeadMove::tellBoth(const QString& target, const QStringList& moved) {
  leadsCameTo(m_context.workspace, target);
  m_moved(moved);
}

QString LeadMove::nameOf(const QString& campaignId) const {
  for (const CampaignSummary& campaign : m_campaigns.value()->items)
    if (campaign.id == campaignId) return campaign.name;
  return {};
}

}  // namespace orv
