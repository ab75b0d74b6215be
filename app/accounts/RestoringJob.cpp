#include "app/accounts/RestoringJob.h"

#include "app/accounts/AccountRows.h"
#include "app/base/EachOf.h"
#include "app/base/Jobs.h"
#include "app/base/Undo.h"
#include "kit/api/Format.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// On every way out, being stopped included: some may have come back.
struct News {
  Changes& changes;
  ~News() {
    changes.stale<Mailbox>();
    changes.stale<Archived<Mailbox>>();
  }
};

Task<void> restoreOne(APITransport* api, QString id) { co_await api->send(Requests::restoreMailbox(id)); }

Task<JobOutcome> restoreAll(Job* job, QStringList ids) {
  const News news{job->context().changes()};
  const qint64 all = ids.size();
  const auto tell = [job, all](qint64 ended) {
    job->setStage(Format::grouped(ended) + u" of "_s + countedAccounts(all), ended, all);
  };
  tell(0);
  const EachOutcome outcome = co_await eachOf(
      ids, [api = &job->context().api()](const QString& id) { return restoreOne(api, id); }, tell);
  const QString restored = countedAccounts(outcome.done.size()) + u" restored"_s;
  if (outcome.failed.isEmpty()) co_return JobOutcome{.title = restored};
  co_return JobOutcome{
      .kind = JobOutcome::Kind::failed,
      .title = restored + u' ' + Format::grouped(outcome.failed.size()) + u" failed: "_s + outcome.reason};
}

Task<void> start(std::shared_ptr<WorkspaceContext> workspace, QStringList ids) {
  workspace->services().jobs.start({.name = u"Restoring "_s + countedAccounts(ids.size()),
                                    .stopped = u"Accounts that were restored by then stay."_s},
                                   workspace, [ids](Job& job) { return restoreAll(&job, ids); });
  co_return;
}

}  // namespace

std::function<void()> undoBulkRemoval(WorkspaceContext& workspace, const QStringList& ids) {
  return undo(workspace, [ids](auto context) { return start(std::move(context), ids); });
}

}  // namespace orv
