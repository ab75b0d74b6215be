#include "app/leads/LeadImportJob.h"

#include <QFileInfo>

#include "app/base/shownName.h"
#include "kit/models/leads/leadImport.h"
#include "kit/models/leads/leadList.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// On every way out, being stopped included: the service may have begun with it.
struct ImportNews {
  Changes& changes;
  bool mayHaveBegun = true;
  ~ImportNews() {
    if (!mayHaveBegun) return;
    changes.stale<LeadImport>();
    changes.stale<LeadList>();
  }
};

}  // namespace

Task<JobOutcome> importLeads(Job* job, LeadImportBatch batch) {
  ImportNews news{job->context().changes()};
  const QString fileName = QFileInfo(batch.file.path).fileName();
  QString reason;
  try {
    const CsvImportBody body{fileName, {}, QList<QString>(batch.mapping), batch.listId, batch.listName};
    co_await sendCsv(job, batch.file, Requests::startCsvImport(body));
    co_return JobOutcome{.kind = JobOutcome::Kind::open,
                         .title = u"The import of "_s + shownName(fileName) + u" has begun"_s,
                         .text = u"Leads › Lists › Import history shows how far it is."_s};
  } catch (const FileTrouble& trouble) {
    reason = trouble.reason;
    news.mayHaveBegun = false;
  } catch (const APIError& error) {
    reason = error.message();
    news.mayHaveBegun = mayHaveActed(error);
  }
  co_return JobOutcome{
      .kind = JobOutcome::Kind::failed, .title = u"Couldn’t import "_s + shownName(fileName), .text = reason};
}

}  // namespace orv
