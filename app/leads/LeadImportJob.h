#pragma once

#include "app/base/CsvUpload.h"

namespace orv {

/// A file that is to be imported, as the form had it when it was sent off.
struct LeadImportBatch {
  CsvAttachment file;
  /// A target for each column.
  QStringList mapping;
  /// At most one of them.
  std::optional<QString> listId;
  std::optional<QString> listName;
};

/// Reads and sends the file. The service goes on with it by itself, as the import history tells.
Task<JobOutcome> importLeads(Job* job, LeadImportBatch batch);

}  // namespace orv
