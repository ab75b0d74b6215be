#include "app/base/recordActions.h"
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
  if (m_index.find(record)) return offeredLive(*m_index.find(record));
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
                    .run = [this, id] { pause(id); }});
  if (campaign.status.isPaused())
    actions.append({.key = u"resume"_s,
                    .title = u"Resume"_s,
                    .icon = u"media-playback-start"_s,
                    .writes = true,
                    .possible = isFree,
                    .run = [this, id] { resume(id); }});
  actions.append({{.key = u"duplicate"_s,
                   .title = u"Duplicate"_s,
                   .icon = u"edit-copy"_s,
                   .keys = u"Ctrl+D"_s,
                   .writes = true,
                   .possible = isFree,
                   .run = [this, id] { duplicate(id); }},
                  {.key = u"copy-link"_s,
                   .title = u"Copy link"_s,
                   .icon = u"insert-link"_s,
                   .keys = u"Ctrl+C"_s,
                   .run = [this, id] { copyLink(id); }},
                  {.key = u"analytics"_s,
                   .title = u"Download analytics CSV"_s,
                   .icon = u"download"_s,
                   .possible = isFree,
                   .run = [this, id] { downloadAnalytics(id); }},
                  {.key = u"delete"_s,
                   .title = u"Delete"_s,
                   .icon = u"edit-delete"_s,
                   .keys = u"Del"_s,
                   .writes = true,
                   .danger = true,
                   .possible = isFree,
                   .run = [this, id] { remove(id); }}});
  return actions;
}

QList<PageAction> CampaignsStore::offeredArchived(const QString& id) {
  return archivedActions(
      !m_busy.contains(id), [this, id] { restore(id); }, [this, id] { removeForGood(id); });
}

}  // namespace orv
