#include "app/setup/SetupProjectRow.h"

#include "app/base/cellText.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(SetupProjectRow)

SetupProjectRow setupRowOf(const SetupProject& project) {
  SetupProjectRow row;
  row.id = project.id;
  row.name = project.name;
  row.facts = u"No. "_s + QString::number(project.number);
  if (!project.tags.isEmpty()) row.facts += u" · "_s + project.tags.join(u", "_s);
  row.modeText = project.mode.label();
  row.domainsText = Format::grouped(project.domains.size());
  row.runText = runSummary(project.lastRun);
  row.runTone = runSummaryTone(project.lastRun);
  if (project.lastRun && project.lastRun->total > 0) {
    row.progressText = Format::grouped(project.lastRun->connected) + u" of "_s +
                       Format::grouped(project.lastRun->total) + u" connected"_s;
    row.progress = double(project.lastRun->connected) / double(project.lastRun->total);
  }
  row.updatedText = shortDay(project.updatedAt);
  row.archivedText = shortDay(project.archivedAt);
  row.goneText = shortDay(project.archivedAt, archiveDays);
  return row;
}

}  // namespace orv
