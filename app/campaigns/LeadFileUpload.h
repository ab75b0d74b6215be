#pragma once

#include "kit/api/APIRequest.h"
#include "kit/models/campaigns/addLeads.h"

namespace orv {

/// The request that adds a file of leads to a campaign. Takes as long as the file is: not for the main thread.
Request<AddLeadsResult> leadFileUpload(const QString& campaignId, const QString& fileName, const QString& dedupe,
                                       QByteArrayView bytes);

}  // namespace orv
