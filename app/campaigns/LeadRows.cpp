#include "app/campaigns/LeadRows.h"

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int archiveDays = 30;
const auto nothing = u"–"_s;

QString text(const std::optional<QString>& field) { return field.value_or(QString()); }

QString day(const std::optional<QString>& instant, int daysLater = 0) {
  const auto date = parsePlatformDate(instant);
  return date ? Format::shortDate(date->toLocalTime().date().addDays(daysLater)) : nothing;
}

/// What comes next for the lead or, when nothing does, what was last.
QString when(const CampaignLead& lead) {
  if (lead.nextSendAt) return leadMoment(lead.nextSendAt);
  return leadMoment(lead.repliedAt ? lead.repliedAt : lead.lastSentAt);
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
  return date ? Format::moment(date->toLocalTime()) : nothing;
}

// A line each, so that no text matches across two of them.
LeadText::LeadText(const CampaignLead& lead)
    : searched(QStringList{lead.email, text(lead.firstName) + u' ' + text(lead.lastName), text(lead.company),
                           text(lead.title)}
                   .join(u'\n')
                   .toLower()) {}

void LeadRowsModel::addExtraRoles(QHash<int, QByteArray>& roles) const {
  roles.insert({{NameRole, "name"},
                {EmailRole, "email"},
                {DetailRole, "detail"},
                {CompanyRole, "company"},
                {TitleRole, "jobTitle"},
                {StatusWordRole, "statusWord"},
                {StatusLabelRole, "statusLabel"},
                {StepRole, "stepText"},
                {WhenRole, "whenText"},
                {WhenDetailRole, "whenDetail"},
                {SenderRole, "sender"},
                {RemovedRole, "removedText"},
                {GoneRole, "goneText"}});
}

QVariant LeadRowsModel::extraData(const LeadRow& row, int, int role) const {
  const CampaignLead& lead = row.record();
  switch (role) {
    case NameRole:
      return leadName(lead);
    case EmailRole:
      return lead.email;
    case DetailRole:
      // Without a name the address is the first line already.
      return leadName(lead) == lead.email ? text(lead.source) : lead.email;
    case CompanyRole:
      return lead.company.value_or(nothing);
    case TitleRole:
      return text(lead.title);
    case StatusWordRole:
      return lead.status.rawValue;
    case StatusLabelRole:
      return lead.status.label();
    case StepRole:
      return lead.currentStep ? u"Step "_s + QString::number(*lead.currentStep) : nothing;
    case WhenRole:
      return when(lead);
    case WhenDetailRole:
      return whenDetail(lead);
    case SenderRole:
      return lead.senderAddress.value_or(nothing);
    case RemovedRole:
      return day(lead.removedAt);
    case GoneRole:
      return day(lead.removedAt, archiveDays);
    default:
      return {};
  }
}

}  // namespace orv
