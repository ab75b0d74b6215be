#include "app/campaigns/LeadBatch.h"

#include <QFileInfo>

#include "app/base/Journal.h"
#include "app/campaigns/LeadRows.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaignLeadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// What the parts of the work share.
struct Adding {
  Job& job;
  const QString campaignId;
  /// What the service has taken of work that goes in several requests.
  AddLeadsResult soFar = {};
  /// Until the service has refused for certain.
  bool mayHaveAdded = true;

  Adding(Job& of, QString campaign) : job(of), campaignId(std::move(campaign)) {}
  Adding(const Adding&) = delete;
  Adding& operator=(const Adding&) = delete;
  /// On every way out, being stopped included.
  ~Adding() {
    if (mayHaveAdded) leadsCameTo(job.context(), campaignId);
  }

  APITransport& api() const { return job.context().api(); }
};

void addTo(AddLeadsResult& sum, const AddLeadsResult& more) {
  sum.added += more.added;
  sum.skipped.alreadyInCampaign += more.skipped.alreadyInCampaign;
  sum.skipped.inOtherCampaign += more.skipped.inOtherCampaign;
  sum.skipped.inList += more.skipped.inList;
  sum.skipped.suppressed += more.skipped.suppressed;
  sum.skipped.invalid += more.skipped.invalid;
  sum.skipped.duplicateInFile += more.skipped.duplicateInFile;
  sum.total += more.total;
}

QString headline(const AddLeadsResult& result) {
  return result.added == 0 ? u"No leads added"_s : countedLeads(result.added) + u" added"_s;
}

/// A plain sentence for each kind of lead that was left out.
QStringList leftOut(const AddLeadsResult& result) {
  QStringList lines;
  const auto tell = [&lines](qint64 count, const QString& one, const QString& many) {
    if (count > 0) lines.append(Format::counted(count, one, many));
  };
  const auto& skipped = result.skipped;
  tell(skipped.alreadyInCampaign, u"was in this campaign already"_s, u"were in this campaign already"_s);
  tell(skipped.inOtherCampaign, u"is in another campaign"_s, u"are in another campaign"_s);
  tell(skipped.inList, u"is in another list"_s, u"are in another list"_s);
  tell(skipped.suppressed, u"is on the block list and never gets an email"_s,
       u"are on the block list and never get an email"_s);
  tell(skipped.invalid, u"has no valid email address"_s, u"have no valid email address"_s);
  tell(skipped.duplicateInFile, u"came more than once"_s, u"came more than once"_s);
  return lines;
}

Task<AddLeadsResult> addFile(Adding* adding, LeadBatch::File wanted) {
  const AddLeadsBody body{AddLeadsBody::Csv{{}, QFileInfo(wanted.file.path).fileName(), wanted.dedupe}};
  co_return co_await sendCsv(&adding->job, wanted.file, Requests::addLeads(adding->campaignId, body));
}

Task<AddLeadsResult> addOwn(Adding* adding, LeadBatch::Own wanted) {
  co_await addOwnLeads(&adding->job, adding->campaignId, {.limit = wanted.count}, wanted.allowOtherCampaigns,
                       [adding](const AddLeadsResult& more) { addTo(adding->soFar, more); });
  co_return adding->soFar;
}

Task<AddLeadsResult> addAtOnce(Adding* adding, AddLeadsBody body) {
  adding->job.setStage(u"Adding…"_s);
  co_return co_await adding->api().send(Requests::addLeads(adding->campaignId, body));
}

Task<AddLeadsResult> addFrom(Adding* adding, LeadBatch batch) {
  if (const auto* file = std::get_if<LeadBatch::File>(&batch.source)) return addFile(adding, *file);
  if (const auto* own = std::get_if<LeadBatch::Own>(&batch.source)) return addOwn(adding, *own);
  return addAtOnce(adding, std::get<AddLeadsBody>(batch.source));
}

}  // namespace

Task<JobOutcome> addLeads(Job* job, LeadBatch batch) {
  Adding adding(*job, batch.campaignId);
  const QString journalKey = batch.journalKey;
  QString reason;
  try {
    const AddLeadsResult result = co_await addFrom(&adding, std::move(batch));
    if (!journalKey.isEmpty()) job->context().services().journal.drop({job->context().workspace().slug, journalKey});
    const QStringList lines = leftOut(result);
    co_return JobOutcome{
        .title = headline(result), .text = lines.isEmpty() ? QString() : u"Left out:"_s, .lines = lines};
  } catch (const FileTrouble& trouble) {
    reason = trouble.reason;
    adding.mayHaveAdded = false;
  } catch (const APIError& error) {
    reason = error.message();
    adding.mayHaveAdded = mayHaveActed(error) || adding.soFar.added > 0;
  }
  if (adding.soFar.added > 0) reason += u" Before that, "_s + headline(adding.soFar) + u'.';
  co_return JobOutcome{.kind = JobOutcome::Kind::failed, .title = u"Couldn’t add the leads"_s, .text = reason};
}

}  // namespace orv
