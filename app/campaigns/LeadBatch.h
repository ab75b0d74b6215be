#pragma once

#include <variant>

#include "app/base/Jobs.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/leads.h"

namespace orv {

/// News of a campaign's leads: told under its id when some may have come in from elsewhere.
struct AddedLeads;
/// Tells it, and whoever counts the campaign's leads.
void leadsCameTo(WorkspaceContext& workspace, const QString& campaignId);

/// Whom to add to a campaign, as the dialog had it when it was sent off. What goes on from there needs no dialog.
struct LeadBatch {
  struct File {
    QString path;
    QString dedupe;
    qint64 bytes = 0;
  };
  /// The newest of the workspace's own leads.
  struct Own {
    qint64 count = 0;
    bool allowOtherCampaigns = false;
  };

  QString campaignId;
  std::variant<AddLeadsBody, File, Own> source;
  /// Where the journal has what was filled in, until it is taken; empty for nowhere.
  QString journalKey = {};
};

/// Adds them, in as many requests as that takes.
Task<JobOutcome> addLeads(Job* job, LeadBatch batch);

}  // namespace orv
