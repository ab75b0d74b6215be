#pragma once

#include <variant>

#include "app/base/CampaignAdding.h"
#include "app/base/CsvUpload.h"

namespace orv {

/// Whom to add to a campaign, as the dialog had it when it was sent off. What goes on from there needs no dialog.
struct LeadBatch {
  struct File {
    CsvAttachment file;
    QString dedupe;
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
