#pragma once

#include "demo/Routes.h"

namespace orv::demo {

/// People somebody asks to enrol, before any is looked at twice.
struct LeadSource {
  QList<CampaignLead> people;
  /// The columns of an uploaded file.
  std::optional<QList<QString>> columns;
  /// Whether being in another campaign keeps a person out.
  bool onlyNew = false;
};

/// Reads the body of a call to add leads. Nothing when it is none, or names a list or leads that are not there.
std::optional<LeadSource> readSource(Call& call);

/// Sets a lead's field, one of its own or a custom one.
void setLeadField(CampaignLead& lead, const QString& name, const QString& value);

}  // namespace orv::demo
