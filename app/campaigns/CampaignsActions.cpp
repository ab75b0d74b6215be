#include "app/base/recordActions.h"
#include "app/base/shownName.h"
#include "app/campaigns/CampaignsStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<FoundRecord> CampaignsStore::found() const {
  QList<FoundRecord> records;
  for (const CampaignSummary& campaign : m_index.items())
    records.append({campaign.id, campaign.name, campaign.status.label()});
  return records;
}

QList<PageAction> CampaignsStore::offered(const QString& record) {
  if (const CampaignSummary* campaign = m_index.find(record)) return offeredLive(*campaign) + offeredInside(*campaign);
  if (m_archiveIndex.find(record)) return offeredArchived(record);
  if (!record.isEmpty()) return {};
  const QList<PageAction> actions{
      newAction(u"New campaign"_s, createHint(), [this] { beginCreate(); }),
      archiveAction(u"Archived campaigns"_s, m_showArchived, [this] { setShowArchived(true); })};
  return actions + Store::offered(record);
}

QList<PageAction> CampaignsStore::offeredLive(const CampaignSummary& campaign) {
  const QString id = campaign.id;
  const bool isFree = !m_busy.contains(id);
  QList<PageAction> actions{{.key = u"rename"_s,
                             .title = u"Rename"_s,
                             .icon = u"document-edit"_s,
                             .keys = u"F2"_s,
                             .writes = true,
                             .possible = isFree,
                             .run = [this, id] { beginRename(id); }}};
  if (campaign.status.isRunning())
    actions.append({.key = u"pause"_s,
                    .title = u"Pause"_s,
                    .icon = u"media-playback-pause"_s,
                    .writes = true,
                    .possible = isFree,
                    .anywhere = true,
                    .run = [this, id] { pause(id); }});
  if (campaign.status.isPaused())
    actions.append({.key = u"resume"_s,
                    .title = u"Resume"_s,
                    .icon = u"media-playback-start"_s,
                    .writes = true,
                    .possible = isFree,
                    .anywhere = true,
                    .run = [this, id] { resume(id); }});
  actions.append({{.key = u"duplicate"_s,
                   .title = u"Duplicate"_s,
                   .icon = u"edit-copy"_s,
                   .keys = u"Ctrl+D"_s,
                   .writes = true,
                   .possible = isFree,
                   .anywhere = true,
                   .run = [this, id] { duplicate(id); }},
                  {.key = u"copy-link"_s,
                   .title = u"Copy link"_s,
                   .icon = u"insert-link"_s,
                   .anywhere = true,
                   .run = [this, id] { copyLink(id); }},
                  {.key = u"analytics"_s,
                   .title = u"Download analytics CSV"_s,
                   .icon = u"download"_s,
                   .possible = isFree,
                   .anywhere = true,
                   .run = [this, id] { downloadAnalytics(id); }},
                  {.key = u"delete"_s,
                   .title = u"Delete"_s,
                   .icon = u"edit-delete"_s,
                   .keys = u"Del"_s,
                   .writes = true,
                   .danger = true,
                   .possible = isFree,
                   .anywhere = true,
                   .run = [this, id] { remove(id); }}});
  return actions;
}

/// What is some way into its page; the palette leads straight there.
QList<PageAction> CampaignsStore::offeredInside(const CampaignSummary& campaign) {
  const QString id = campaign.id, name = shownName(campaign.name);
  QList<PageAction> actions;
  const auto add = [&](const QString& key, const QString& title, const QString& link, bool writes) {
    actions.append({.key = key,
                    .title = title,
                    .icon = u"go-next"_s,
                    .inPalette = title + link + name,
                    .writes = writes,
                    .possible = m_actInside != nullptr,
                    .inMenu = false,
                    .anywhere = true,
                    .run = [this, id, key] { m_actInside(id, key); }});
  };
  add(u"tab.sequence"_s, u"Sequence"_s, u" of "_s, false);
  add(u"tab.leads"_s, u"Leads"_s, u" of "_s, false);
  add(u"tab.stats"_s, u"Stats"_s, u" of "_s, false);
  add(u"tab.settings"_s, u"Settings"_s, u" of "_s, false);
  add(u"settings.schedules"_s, u"Settings › Schedules"_s, u" of "_s, false);
  add(u"add-leads.manual"_s, u"Add a lead by hand"_s, u" to "_s, true);
  add(u"add-leads.csv"_s, u"Add leads from a CSV file"_s, u" to "_s, true);
  return actions;
}

QList<PageAction> CampaignsStore::offeredArchived(const QString& id) {
  return archivedActions(
      !m_busy.contains(id), [this, id] { restore(id); }, [this, id] { removeForGood(id); });
}

}  // namespace orv
