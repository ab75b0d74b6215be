#include "app/deliverability/DeliverabilityRows.h"

#include "app/base/cellText.h"
#include "app/deliverability/WatcherWords.h"
#include "kit/api/Format.h"
#include "kit/models/mailboxes/mailboxBrand.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

namespace {

QString orDash(const QString& text) { return text.isEmpty() ? noValue : text; }

QString rateOf(const DeliverabilityInbox& inbox) { return WatcherWords::percent(inbox.inboxRate); }

QString stageOf(const DeliverabilityInbox& inbox) { return inbox.stage.value_or(QString()); }

std::optional<double> rateBy(const DeliverabilityInbox& inbox, const QString& key) {
  if (key == "gmail"_L1) return inbox.google;
  if (key == "outlook"_L1) return inbox.microsoft;
  if (key == "checks"_L1) return double(inbox.n);
  return inbox.inboxRate;
}

std::optional<QString> wordsBy(const DeliverabilityInbox& inbox, const QString& key) {
  if (key == "stage"_L1) return inbox.stage ? std::optional(WatcherWords::stageLabel(*inbox.stage)) : std::nullopt;
  if (key == "verdict"_L1) return inbox.verdict;
  return inbox.address;
}

void sort(std::vector<qsizetype>& rows, const QList<DeliverabilityInbox>& inboxes, const OrvSort& sort) {
  const auto all = size_t(inboxes.size());
  if (sort.key == "address"_L1 || sort.key == "stage"_L1 || sort.key == "verdict"_L1) {
    const QCollator collator = nameCollator();
    std::vector<std::optional<QCollatorSortKey>> keys(all);
    for (const qsizetype row : rows)
      if (const auto words = wordsBy(inboxes[row], sort.key)) keys[size_t(row)] = collator.sortKey(*words);
    return sortByKey(rows, keys, sort.descending);
  }
  std::vector<std::optional<double>> keys(all);
  for (const qsizetype row : rows) keys[size_t(row)] = rateBy(inboxes[row], sort.key);
  sortByKey(rows, keys, sort.descending);
}

}  // namespace

const DeliverabilityRows::Cells& DeliverabilityRows::cells() {
  static const Cells cells{
      {"brand", [](auto&, auto& inbox) -> QVariant { return brandName(brandOf(inbox.provider)); }},
      {"stageLabel", [](auto&, auto& inbox) -> QVariant { return WatcherWords::stageLabel(stageOf(inbox)); }},
      {"stageTone", [](auto&, auto& inbox) -> QVariant { return WatcherWords::stageTone(stageOf(inbox)); }},
      {"rateText",
       [](auto&, auto& inbox) -> QVariant { return inbox.lastScanAt ? orDash(rateOf(inbox)) : u"Not scanned"_s; }},
      {"rateLow", [](auto&, auto& inbox) -> QVariant { return WatcherWords::isLow(inbox.inboxRate); }},
      {"checksText",
       [](auto&, auto& inbox) -> QVariant { return inbox.inboxRate ? WatcherWords::checks(inbox.n) : QString(); }},
      {"checkCount", [](auto&, auto& inbox) -> QVariant { return Format::grouped(inbox.n); }},
      {"gmailText", [](auto&, auto& inbox) -> QVariant { return orDash(WatcherWords::percent(inbox.google)); }},
      {"outlookText", [](auto&, auto& inbox) -> QVariant { return orDash(WatcherWords::percent(inbox.microsoft)); }},
      {"verdictText", [](auto&, auto& inbox) -> QVariant { return inbox.verdict.value_or(QString()); }},
      {"reasonText", [](auto&, auto& inbox) -> QVariant { return inbox.reason.value_or(QString()); }},
  };
  return cells;
}

std::vector<DeliverabilityInbox> rowsOf(const QList<DeliverabilityInbox>& inboxes, const DeliverabilityQuery& query) {
  std::vector<qsizetype> places;
  for (qsizetype place = 0; place < inboxes.size(); ++place)
    if (query.stage.isEmpty() || WatcherWords::groupOf(stageOf(inboxes[place])) == query.stage) places.push_back(place);
  if (query.sort) sort(places, inboxes, *query.sort);
  std::vector<DeliverabilityInbox> rows;
  rows.reserve(places.size());
  for (const qsizetype place : places) rows.push_back(inboxes[place]);
  return rows;
}

}  // namespace orv
