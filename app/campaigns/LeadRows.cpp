#include "app/campaigns/LeadRows.h"

#include "app/base/cellText.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString text(const std::optional<QString>& field) { return field.value_or(QString()); }

/// What comes next for the lead or, when nothing does, what was last.
QString when(const CampaignLead& lead) {
  if (lead.nextSendAt) return leadMoment(lead.nextSendAt);
  return leadMoment(lead.repliedAt ? lead.repliedAt : lead.lastSentAt);
}

/// Without a name the address is the first line already.
QString secondLine(const CampaignLead& lead) { return leadName(lead) == lead.email ? text(lead.source) : lead.email; }

QString step(const CampaignLead& lead) {
  return lead.currentStep ? u"Step "_s + QString::number(*lead.currentStep) : noValue;
}

QString whenDetail(const CampaignLead& lead) {
  if (lead.nextSendAt) return u"Next email"_s;
  if (lead.repliedAt) return u"Replied"_s;
  return lead.lastSentAt ? u"Last email"_s : u"Nothing sent yet"_s;
}

}  // namespace

ORV_DEFINE_ROW(LeadRow)

QString countedLeads(qint64 count) { return Format::counted(count, u"lead"_s, u"leads"_s); }

QString leadName(const CampaignLead& lead) {
  const QString name = (text(lead.firstName) + u' ' + text(lead.lastName)).trimmed();
  return name.isEmpty() ? lead.email : name;
}

QString leadMoment(const std::optional<QString>& instant) {
  const auto date = parsePlatformDate(instant);
  return date ? Format::moment(date->toLocalTime()) : noValue;
}

// A line each, so that no text matches across two of them.
LeadText::LeadText(const CampaignLead& lead)
    : searched(QStringList{lead.email, text(lead.firstName) + u' ' + text(lead.lastName), text(lead.company),
                           text(lead.title)}
                   .join(u'\n')
                   .toLower()) {}

const LeadRowsModel::Cells& LeadRowsModel::cells() {
  static const Cells cells{
      {"name", [](auto&, auto& row) -> QVariant { return leadName(row.record()); }},
      {"email", [](auto&, auto& row) -> QVariant { return row.record().email; }},
      {"detail", [](auto&, auto& row) -> QVariant { return secondLine(row.record()); }},
      {"company", [](auto&, auto& row) -> QVariant { return row.record().company.value_or(noValue); }},
      {"jobTitle", [](auto&, auto& row) -> QVariant { return text(row.record().title); }},
      {"statusWord", [](auto&, auto& row) -> QVariant { return row.record().status.rawValue; }},
      {"statusLabel", [](auto&, auto& row) -> QVariant { return row.record().status.label(); }},
      {"stepText", [](auto&, auto& row) -> QVariant { return step(row.record()); }},
      {"whenText", [](auto&, auto& row) -> QVariant { return when(row.record()); }},
      {"whenDetail", [](auto&, auto& row) -> QVariant { return whenDetail(row.record()); }},
      {"sender", [](auto&, auto& row) -> QVariant { return row.record().senderAddress.value_or(noValue); }},
      {"removedText", [](auto&, auto& row) -> QVariant { return shortDay(row.record().removedAt); }},
      {"goneText", [](auto&, auto& row) -> QVariant { return shortDay(row.record().removedAt, archiveDays); }},
  };
  return cells;
}

}  // namespace orv
