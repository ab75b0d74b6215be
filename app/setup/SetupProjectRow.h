#pragma once

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/setup/SetupRules.h"

namespace orv {

/// A project in the list, or in the archive.
struct SetupProjectRow {
  QString id;
  QString name;
  QString facts;
  QString modeText;
  QString domainsText;
  QString runText;
  QString runTone;
  /// "14 of 24 connected"; empty before the first run.
  QString progressText;
  double progress = 0;
  QString updatedText;
  QString archivedText;
  QString goneText;
  bool operator==(const SetupProjectRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetupProjectRow, (),
                      (id, name, facts, modeText, domainsText, runText, runTone, progressText, progress, updatedText,
                       archivedText, goneText))
ORV_DECLARE_ROW(SetupProjectRow)

SetupProjectRow setupRowOf(const SetupProject& project);

class SetupProjectRows final : public RecordModel<SetupProjectRow> {
 public:
  using RecordModel::RecordModel;
};

}  // namespace orv
