#include "app/setup/SetupProjectRow.h"

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(SetupProjectRow)

namespace {

constexpr int archiveDays = 30;

QString dayOf(const std::optional<QString>& instant, int later = 0) {
  const auto at = parsePlatformDate(instant);
  return at ? Format::shortDate(at->toLocalTime().date().addDays(later)) : u"–"_s;
}

}  // namespace

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
  row.updatedText = dayOf(project.updatedAt);
  row.archivedText = dayOf(project.archivedAt);
  row.goneText = dayOf(project.archivedAt, archiveDays);
  return row;
}

}  // namespace orv
