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
  QList<PageAction> actions = Store::offered(record);
  if (!record.isEmpty()) return actions;
  actions.prepend({.key = u"archived"_s,
                   .title = u"Archived campaigns"_s,
                   .icon = u"archive-insert"_s,
                   .possible = !m_showArchived,
                   .inMenu = false,
                   .anywhere = true,
                   .run = [this] { setShowArchived(true); }});
  actions.prepend({.key = u"new"_s,
                   .title = u"New campaign"_s,
                   .icon = u"list-add"_s,
                   .keys = u"N"_s,
                   .writes = true,
                   .whyNot = createHint(),
                   .inMenu = false,
                   .anywhere = true,
                   .run = [this] { beginCreate(); }});
  return actions;
}

}  // namespace orv
