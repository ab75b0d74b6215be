#include "app/figures/AnalyticsCsv.h"

#include "app/base/Csv.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString count(qint64 value) { return QString::number(value); }
QString count(const std::optional<qint64>& value) { return value ? count(*value) : QString(); }
QString money(const std::optional<double>& value) { return value ? Format::fixed(*value, 2) : QString(); }

}  // namespace

QByteArray campaignsCsv(std::span<const AnalyticsSummary::CampaignRow> rows) {
  CsvWriter csv;
  csv.addLine({u"Campaign"_s, u"Status"_s, u"Leads"_s, u"Contacted"_s, u"Sent"_s, u"Opened"_s, u"Replied"_s,
               u"Clicked"_s, u"Bounced"_s, u"Interested"_s, u"Opportunities"_s, u"Value"_s});
  for (const auto& row : rows) {
    csv.addLine({row.name, row.status, count(row.leads), count(row.contacted), count(row.sent), count(row.opens),
                 count(row.replies), count(row.clicks), count(row.bounces), count(row.interested),
                 count(row.opportunities), money(row.opportunityValue)});
  }
  return csv.bytes();
}

QByteArray accountsCsv(std::span<const AnalyticsSummary::AccountRow> rows) {
  CsvWriter csv;
  csv.addLine({u"Account"_s, u"Status"_s, u"Health"_s, u"Inbox 7d %"_s, u"Contacted"_s, u"Sent"_s, u"Opened"_s,
               u"Replied"_s, u"Clicked"_s, u"Bounced"_s, u"Interested"_s});
  for (const auto& row : rows) {
    csv.addLine({row.address, row.status, row.health.value_or(QString()), count(row.inboxPct7d), count(row.contacted),
                 count(row.sent), count(row.opens), count(row.replies), count(row.clicks), count(row.bounces),
                 count(row.interested)});
  }
  return csv.bytes();
}

}  // namespace orv
