#include "app/base/Undo.h"
#include "app/base/recordActions.h"
#include "app/base/shownName.h"
#include "app/campaigns/CampaignLeads.h"
#include "app/campaigns/LeadBatch.h"
#include "app/campaigns/LeadTurns.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/leads/leadIds.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto bulk = u"bulk"_s;

ConfirmRequest removeForGoodQuestion(const QString& name) {
  return {.title = u"Delete "_s + name + u" for good?"_s,
          .text = u"The lead’s emails and replies in this campaign go with it. This can’t be undone."_s,
          .confirm = u"Delete for good"_s,
          .destructive = true};
}

QString restoredText(const RestoredResult& result, const QStringList& ids, const QString& name) {
  const bool isNamed = ids.size() == 1 && result.restored == 1;
  return (isNamed ? name : countedLeads(result.restored)) + u" restored"_s;
}

/// For who undoes a removal: whether the campaign's page is still there or not, it is told, and so are the lists that
/// the campaign stands in.
Task<void> takeBack(std::shared_ptr<WorkspaceContext> workspace, QString campaign, QStringList ids, QString name) {
  BusySet busy;
  const auto changed = [&workspace, &campaign] { leadsCameTo(*workspace, campaign); };
  Actions actions(*workspace, busy, changed);
  const auto result =
      co_await actions.send(Requests::restoreLeads(campaign, LeadIdsBody{ids}), u"Couldn’t restore "_s + name);
  if (!result) co_return;
  changed();
  workspace->services().toasts.success(restoredText(*result, ids, name));
}

}  // namespace

const CampaignLead* CampaignLeads::find(const QString& id) const {
  const LeadRow* row = m_leads.find(id);
  return row ? &row->record() : nullptr;
}

QString CampaignLeads::named(const QStringList& ids) const {
  const CampaignLead* lead = ids.size() == 1 ? find(ids.first()) : nullptr;
  return lead ? shownName(leadName(*lead)) : countedLeads(ids.size());
}

QList<PageAction> CampaignLeads::offered(const QString& record) {
  // What the tab itself offers, the campaign's page does.
  const CampaignLead* lead = find(record);
  if (!lead) return {};
  const QString id = lead->id;
  QList<PageAction> actions{
      {.key = u"open"_s,
       .title = u"Open"_s,
       .icon = u"system-users"_s,
       .keys = u"Enter"_s,
       .run = [this, id] { open(id); }},
      {.key = u"copy-address"_s, .title = u"Copy address"_s, .icon = u"edit-copy"_s, .run = [this, id] {
         copyAddress(id);
       }}};
  if (m_isArchive)
    return actions + archivedActions(
                         !bulkBusy(), [this, id] { restore({id}); }, [this, id] { removeForGood(id); });
  return actions + offeredOf(*lead);
}

/// What can be done with one that is in the campaign.
QList<PageAction> CampaignLeads::offeredOf(const CampaignLead& lead) {
  const QString id = lead.id;
  QList<PageAction> actions;
  const auto add = [&](const QString& key, const QString& title, const QString& icon, std::function<void()> run) {
    actions.append(
        {.key = key, .title = title, .icon = icon, .writes = true, .possible = !bulkBusy(), .run = std::move(run)});
  };
  if (lead.status.isActive() || lead.status.isQueued())
    add(u"pause"_s, u"Pause"_s, u"media-playback-pause"_s, [this, id] { pause({id}); });
  if (lead.status.isPaused()) add(u"resume"_s, u"Resume"_s, u"media-playback-start"_s, [this, id] { resume({id}); });
  add(u"move"_s, u"Move to another campaign"_s, u"go-next"_s, [this, id] { beginMove({id}); });
  add(u"remove"_s, u"Remove"_s, u"edit-delete"_s, [this, id] { remove({id}); });
  actions.last().keys = u"Del"_s;
  actions.last().danger = true;
  return actions;
}

void CampaignLeads::open(const QString& id) {
  if (const CampaignLead* lead = find(id)) m_panel.show(*lead);
}

void CampaignLeads::copyAddress(const QString& id) {
  const CampaignLead* lead = find(id);
  if (!lead) return;
  m_context.services.clipboard.setText(lead->email);
  m_context.services.toasts.success(u"Copied "_s + shownName(lead->email));
}

Task<void> CampaignLeads::pauseTask(QStringList ids) {
  return bulkTask(u"pause"_s, ids, u"Paused "_s, u"Couldn’t pause "_s + named(ids));
}

Task<void> CampaignLeads::resumeTask(QStringList ids) {
  return bulkTask(u"resume"_s, ids, u"Resumed "_s, u"Couldn’t resume "_s + named(ids));
}

Task<void> CampaignLeads::beginMoveTask(QStringList ids) {
  // Where they go, nobody would find what was typed about them here.
  if (co_await m_panel.mayGiveUp(ids)) m_move.show(ids);
}

Task<void> CampaignLeads::bulkTask(QString action, QStringList ids, QString done, QString failure) {
  if (ids.isEmpty()) co_return;
  const auto mark = m_bulk.mark(bulk);
  if (!mark) co_return;
  const QString name = named(ids);
  const auto turn = co_await leadTurns(&m_context.workspace.turns(), ids);
  if (turn.ids.isEmpty()) co_return;
  const auto result =
      co_await m_actions.send(Requests::bulkLeads(m_context.id, BulkLeadsBody{action, turn.ids}), failure);
  if (!result) co_return;
  const QString rest = result->skipped == 0
                           ? QString()
                           : Format::counted(result->skipped, u"lead stays"_s, u"leads stay"_s) + u" as it was"_s;
  auto& toasts = m_context.services.toasts;
  if (result->changed == 0)
    toasts.show({.message = u"Nothing to change"_s, .detail = rest});
  else
    toasts.show({.message = done + (ids.size() == 1 ? name : countedLeads(result->changed)),
                 .tone = Toasts::Tone::success,
                 .detail = rest});
  changedElsewhere();
}

Task<void> CampaignLeads::removeTask(QStringList ids) {
  if (ids.isEmpty()) co_return;
  const auto mark = m_bulk.mark(bulk);
  if (!mark) co_return;
  const QString name = named(ids), failure = u"Couldn’t remove "_s + name;
  QString said = u"Removed "_s + name + u". It’s in Archived."_s;
  auto turn = co_await leadTurns(&m_context.workspace.turns(), ids);
  ids = turn.ids;
  if (ids.isEmpty()) co_return;
  if (ids.size() == 1) {
    const auto busy = m_busy.mark(ids.first());
    if (!busy || !co_await m_actions.send(Requests::removeLead(m_context.id, ids.first(), false), failure)) co_return;
  } else {
    const auto result =
        co_await m_actions.send(Requests::bulkLeads(m_context.id, BulkLeadsBody{u"remove"_s, ids}), failure);
    if (!result) co_return;
    said = u"Removed "_s + countedLeads(result->changed) +
           (result->changed == 1 ? u". It’s in Archived."_s : u". They’re in Archived."_s);
  }
  turn.recordsGone();
  takeOut(ids);
  m_context.services.toasts.show({.message = said,
                                  .actionLabel = u"Undo"_s,
                                  .action = undo(m_context.workspace,
                                                 [campaign = m_context.id, ids, name](auto workspace) {
                                                   return takeBack(std::move(workspace), campaign, ids, name);
                                                 }),
                                  .accumulates = true});
  changedElsewhere();
}

Task<void> CampaignLeads::restoreTask(QStringList ids) {
  if (ids.isEmpty()) co_return;
  const auto mark = m_bulk.mark(bulk);
  if (!mark) co_return;
  const QString name = named(ids);
  const auto turn = co_await leadTurns(&m_context.workspace.turns(), ids);
  ids = turn.ids;
  if (ids.isEmpty()) co_return;
  const auto result =
      co_await m_actions.send(Requests::restoreLeads(m_context.id, LeadIdsBody{ids}), u"Couldn’t restore "_s + name);
  if (!result) co_return;
  if (m_isArchive) takeOut(ids);
  m_context.services.toasts.success(restoredText(*result, ids, name));
  changedElsewhere();
}

Task<void> CampaignLeads::removeForGoodTask(QString id) {
  const CampaignLead* lead = find(id);
  if (!lead || m_busy.contains(id)) co_return;
  const QString name = shownName(leadName(*lead));
  if (!co_await m_context.services.overlays.confirm(removeForGoodQuestion(name))) co_return;
  const auto mark = m_busy.mark(id);
  if (!mark) co_return;
  auto turn = co_await leadTurns(&m_context.workspace.turns(), {id});
  if (turn.ids.isEmpty() ||
      !co_await m_actions.send(Requests::removeLead(m_context.id, id, true), u"Couldn’t delete "_s + name))
    co_return;
  turn.recordsGone();
  m_panel.leadGone(id);
  takeOut({id});
  m_context.services.toasts.success(name + u" deleted for good"_s);
  changedElsewhere();
}

/// Leads that have left what is shown go at once; how many are left is read again.
void CampaignLeads::takeOut(const QStringList& ids) {
  m_leads.takeOut(ids);
  m_panel.leadsLeft(ids);
}

void CampaignLeads::readAgain() {
  if (m_leads.isAsked()) m_leads.load();
  m_panel.refresh();
}

void CampaignLeads::changedElsewhere() {
  readAgain();
  // The campaign counts its leads, too, and so does every list that it stands in.
  m_context.workspace.changes().stale<Campaign>(m_context.id);
}

}  // namespace orv
