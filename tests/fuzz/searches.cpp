#include <QUrl>
#include <QUrlQuery>

#include "kit/api/APITransport.h"
#include "kit/api/WireRequest.h"
#include "kit/models/leads/leadFilter.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadSearch.h"
#include "kit/models/leads/savedSearch.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

namespace {

/// As the service reads it off the address.
QList<QueryItem> readBack(const LeadSearch& search) {
  APICall call;
  call.request = Requests::searchLeads(search);
  call.slug = u"northgate"_s;
  call.token = u"orv_sess_1"_s;
  const WireRequest wire = wireRequest(call, {QUrl(u"https://a.example"_s)}, ClientIdentity::current());
  QList<QueryItem> items;
  for (const auto& [name, value] : QUrlQuery(QUrl::fromEncoded(wire.url)).queryItems(QUrl::FullyDecoded))
    items.append({name, value});
  return items;
}

void readSearch(LeadSearch search) {
  auto asked = search.query();
  asked.append({u"limit"_s, u"30"_s});
  fuzz::require(readBack(search) == asked, "what is asked for arrives");

  const QByteArray body = encodeJSON(decodeJSON<LeadFilterBody>(encodeJSON(filterBody(search))));
  fuzz::require(encodeJSON(decodeJSON<LeadFilterBody>(body)) == body, "a filter is read as it is");

  const auto parts = search.parts();
  for (const auto& part : parts) {
    fuzz::require(!part.value.isEmpty(), "a chip says something");
    LeadSearch again = search;
    if (LeadSearch::takesSeveral(part.key)) again.add(part.key, part.value);
    fuzz::require(again.parts() == parts, "what is chosen already changes nothing");
  }
  for (const auto& part : parts) search.remove(part);
  fuzz::require(search.parts().isEmpty(), "every chip can be taken away");
}

}  // namespace

/// Saved searches as they come; the person opens each, looks at its chips and takes them away.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  HTTPAnswer answer;
  answer.body = fuzz::input(bytes, size);
  SavedSearchList saved;
  try {
    saved = detail::AnswerDecoder<SavedSearchList>::decode(answer);
  } catch (const DecodeError&) {
    return 0;
  }
  for (const SavedSearch& one : std::as_const(saved.items)) readSearch({one.search, {}});
  return 0;
}
