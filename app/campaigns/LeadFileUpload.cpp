#include "app/campaigns/LeadFileUpload.h"

#include "app/base/CsvText.h"
#include "kit/models/campaigns/campaignLeadRequests.h"

namespace orv {

Request<AddLeadsResult> leadFileUpload(const QString& campaignId, const QString& fileName, const QString& dedupe,
                                       QByteArrayView bytes) {
  auto request = Requests::addLeads(campaignId, {AddLeadsBody::Csv{{}, fileName, dedupe}});
  // The body as it is without its text, which goes in where the empty one stands.
  constexpr QByteArrayView empty = R"("csv":"")";
  const QByteArray shell = *request.body;
  const qsizetype place = shell.indexOf(empty) + empty.size() - 1;
  request.body = packText(bytes, QByteArrayView(shell).first(place), QByteArrayView(shell).sliced(place));
  return request;
}

}  // namespace orv
