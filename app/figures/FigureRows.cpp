#include "app/figures/FigureRows.h"

#include <numeric>

#include "app/base/cellText.h"
#include "kit/api/Format.h"
#include "kit/models/campaigns/campaignStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using CampaignRow = AnalyticsSummary::CampaignRow;
using AccountRow = AnalyticsSummary::AccountRow;

QString text(const std::optional<qint64>& count) { return count ? Format::grouped(*count) : noValue; }

template <class Row>
QString rate(const Row& row, const std::optional<qint64>& count) {
  return count ? Format::rate(*count, row.sent) : QString();
}

/// The service's words for an account's state and health; others are shown as they stand.
QString accountWord(const QString& word) {
  static const QHash<QString, QString> labels{
      {u"verifying"_s, u"Verifying"_s}, {u"active"_s, u"Active"_s},     {u"paused"_s, u"Paused"_s},
      {u"failed"_s, u"Failed"_s},       {u"disabled"_s, u"Disabled"_s}, {u"healthy"_s, u"Healthy"_s},
      {u"warning"_s, u"Warning"_s},     {u"at_risk"_s, u"At risk"_s},   {u"error"_s, u"Error"_s}};
  return labels.value(word, word);
}

QString statusLabel(const CampaignRow& row) { return CampaignStatus(row.status).label(); }
QString statusLabel(const AccountRow& row) { return accountWord(row.status); }

const CampaignFigureRows::Cells campaignCells{
    {"leadsText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.leads); }},
    {"opportunitiesText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.opportunities); }},
    {"valueText",
     [](auto&, auto& row) -> QVariant {
       return row.opportunityValue ? Format::money(*row.opportunityValue) : noValue;
     }},
};

const AccountFigureRows::Cells accountCells{
    {"healthLabel", [](auto&, auto& row) -> QVariant { return row.health ? accountWord(*row.health) : noValue; }},
    {"inboxText",
     [](auto&, auto& row) -> QVariant { return row.inboxPct7d ? QString::number(*row.inboxPct7d) + u'%' : noValue; }},
};

using Number = std::optional<double>;

Number number(const std::optional<qint64>& count) { return count ? Number(double(*count)) : std::nullopt; }

Number ownNumber(const CampaignRow& row, const QString& key) {
  if (key == "leads"_L1) return double(row.leads);
  if (key == "opportunities"_L1) return double(row.opportunities);
  if (key == "value"_L1) return row.opportunityValue;
  return {};
}

Number ownNumber(const AccountRow& row, const QString& key) {
  return key == "inbox"_L1 ? number(row.inboxPct7d) : std::nullopt;
}

template <class Row>
Number numberOf(const Row& row, const QString& key) {
  if (key == "sent"_L1) return double(row.sent);
  if (key == "contacted"_L1) return double(row.contacted);
  if (key == "opened"_L1) return number(row.opens);
  if (key == "replied"_L1) return double(row.replies);
  if (key == "clicked"_L1) return number(row.clicks);
  if (key == "bounced"_L1) return double(row.bounces);
  if (key == "interested"_L1) return double(row.interested);
  return ownNumber(row, key);
}

std::optional<QString> ownWord(const CampaignRow& row, const QString& key) {
  return key == "name"_L1 ? std::optional(row.name) : std::nullopt;
}

std::optional<QString> ownWord(const AccountRow& row, const QString& key) {
  if (key == "address"_L1) return row.address;
  return key == "health"_L1 && row.health ? std::optional(accountWord(*row.health)) : std::nullopt;
}

bool isWord(const QString& key) {
  return key == "name"_L1 || key == "address"_L1 || key == "status"_L1 || key == "health"_L1;
}

template <class Row>
void sortByWord(std::vector<qsizetype>& order, const QList<Row>& rows, const OrvSort& sort) {
  const QCollator collator = nameCollator();
  std::vector<std::optional<QCollatorSortKey>> keys;
  keys.reserve(size_t(rows.size()));
  for (const Row& row : rows) {
    const auto word = sort.key == "status"_L1 ? std::optional(statusLabel(row)) : ownWord(row, sort.key);
    keys.push_back(word ? std::optional(collator.sortKey(*word)) : std::nullopt);
  }
  sortByKey(order, keys, sort.descending);
}

}  // namespace

template <class Row>
const typename FigureRows<Row>::Cells& FigureRows<Row>::cells() {
  static const Cells cells = [] {
    Cells all{
        {"statusLabel", [](auto&, auto& row) -> QVariant { return statusLabel(row); }},
        {"sentText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.sent); }},
        {"contactedText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.contacted); }},
        {"openedText", [](auto&, auto& row) -> QVariant { return text(row.opens); }},
        {"openedRate", [](auto&, auto& row) -> QVariant { return rate(row, row.opens); }},
        {"repliedText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.replies); }},
        {"repliedRate", [](auto&, auto& row) -> QVariant { return rate(row, row.replies); }},
        {"clickedText", [](auto&, auto& row) -> QVariant { return text(row.clicks); }},
        {"clickedRate", [](auto&, auto& row) -> QVariant { return rate(row, row.clicks); }},
        {"bouncedText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.bounces); }},
        {"bouncedRate", [](auto&, auto& row) -> QVariant { return rate(row, row.bounces); }},
        {"bouncesHigh", [](auto&, auto& row) -> QVariant { return bouncesAreHigh(row.bounces, row.sent); }},
        {"interestedText", [](auto&, auto& row) -> QVariant { return Format::grouped(row.interested); }},
    };
    if constexpr (std::is_same_v<Row, CampaignRow>)
      all.insert(all.end(), campaignCells.begin(), campaignCells.end());
    else
      all.insert(all.end(), accountCells.begin(), accountCells.end());
    return all;
  }();
  return cells;
}

template <class Row>
std::vector<Row> inOrder(const QList<Row>& rows, const std::optional<OrvSort>& sort) {
  if (!sort) return {rows.begin(), rows.end()};
  std::vector<qsizetype> order(size_t(rows.size()));
  std::iota(order.begin(), order.end(), 0);
  if (isWord(sort->key)) {
    sortByWord(order, rows, *sort);
  } else {
    std::vector<Number> numbers;
    numbers.reserve(order.size());
    for (const Row& row : rows) numbers.push_back(numberOf(row, sort->key));
    sortByKey(order, numbers, sort->descending);
  }
  std::vector<Row> sorted;
  sorted.reserve(order.size());
  for (const qsizetype at : order) sorted.push_back(rows[at]);
  return sorted;
}

template class FigureRows<CampaignRow>;
template class FigureRows<AccountRow>;
template std::vector<CampaignRow> inOrder(const QList<CampaignRow>&, const std::optional<OrvSort>&);
template std::vector<AccountRow> inOrder(const QList<AccountRow>&, const std::optional<OrvSort>&);

}  // namespace orv
