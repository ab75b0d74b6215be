#include "app/campaigns/CampaignStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<PageAction> CampaignStore::offered(const QString& record) {
  if (!record.isEmpty()) return {};
  const bool isFree = m_campaign.value() && !busy();
  return {{.key = u"rename"_s,
           .title = u"Rename"_s,
           .icon = u"document-edit"_s,
           .keys = u"F2"_s,
           .inPalette = u"Rename "_s + name(),
           .writes = true,
           .possible = isFree,
           .run = [this] { beginRename(); }},
          {.key = u"refresh"_s, .title = u"Refresh"_s, .icon = u"view-refresh"_s, .keys = u"F5"_s, .run = [this] {
             refreshShown();
           }}};
}

}  // namespace orv
