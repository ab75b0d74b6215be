#pragma once

#include "app/base/Listed.h"
#include "app/base/RowFields.h"
#include "app/base/TableModel.h"
#include "kit/models/campaigns/campaignLead.h"

namespace orv {

/// What a lead is searched by, in lower case, so that a keystroke over a hundred thousand of them makes nothing.
struct LeadText {
  explicit LeadText(const CampaignLead& lead);
  bool holds(const QString& needle) const { return searched.contains(needle); }
  QString searched;
};

using LeadRow = Listed<CampaignLead, LeadText>;
ORV_DECLARE_ROW(LeadRow)

/// What the table says of the leads.
class LeadRowsModel final : public TableModel<LeadRowsModel, LeadRow> {
 public:
  using TableModel::TableModel;
  static const Cells& cells();
};

/// "1 lead", "1,200 leads".
QString countedLeads(qint64 count);
/// The person's name, or the address where it is unknown.
QString leadName(const CampaignLead& lead);
/// An instant as the tab says it: "7 Mar, 14:20"; a dash for none.
QString leadMoment(const std::optional<QString>& instant);

}  // namespace orv
