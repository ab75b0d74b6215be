#include "app/campaigns/LeadRows.h"

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int archiveDays = 30;
const auto nothing = u"–"_s;

LeadRow rowOf(const CampaignLead& lead) { return {lead.id, std::make_shared<const CampaignLead>(lead)}; }

QString text(const std::optional<QString>& field) { return field.value_or(QString()); }

QString searched(const CampaignLead& lead) {
  // A line each, so that no text matches across two of them.
  return QStringList{lead.email, text(lead.firstName) + u' ' + text(lead.lastName), text(lead.company),
                     text(lead.title)}
      .join(u'\n')
      .toLower();
}

QString day(const std::optional<QString>& instant, int daysLater = 0) {
  const auto date = instant ? parsePlatformDate(*instant) : std::nullopt;
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
  const auto date = instant ? parsePlatformDate(*instant) : std::nullopt;
  return date ? Format::moment(date->toLocalTime()) : nothing;
}

const CampaignLead* LeadIndex::find(const QString& id) const {
  const auto place = m_places.constFind(id);
  return place == m_places.constEnd() ? nullptr : m_rows[*place].lead.get();
}

QSet<QString> LeadIndex::ids() const {
  QSet<QString> ids;
  ids.reserve(size());
  for (const LeadRow& row : m_rows) ids.insert(row.id);
  return ids;
}

void LeadIndex::replace(const QList<CampaignLead>& leads) {
  m_rows.clear();
  m_texts.clear();
  m_places.clear();
  append(leads);
}

std::vector<LeadRow> LeadIndex::append(const QList<CampaignLead>& leads) {
  std::vector<LeadRow> added;
  for (const CampaignLead& lead : leads) {
    const auto place = m_places.constFind(lead.id);
    if (place != m_places.constEnd()) {
      if (*m_rows[*place].lead == lead) continue;
      m_rows[*place] = rowOf(lead);
      m_texts[*place] = searched(lead);
      continue;
    }
    m_places.insert(lead.id, m_rows.size());
    m_rows.push_back(rowOf(lead));
    m_texts.push_back(searched(lead));
    added.push_back(m_rows.back());
  }
  return added;
}

void LeadIndex::remove(const QSet<QString>& ids) {
  size_t kept = 0;
  for (size_t row = 0; row < m_rows.size(); ++row) {
    if (ids.contains(m_rows[row].id)) {
      m_places.remove(m_rows[row].id);
      continue;
    }
    if (kept != row) {
      m_rows[kept] = std::move(m_rows[row]);
      m_texts[kept] = std::move(m_texts[row]);
      m_places[m_rows[kept].id] = kept;
    }
    ++kept;
  }
  m_rows.resize(kept);
  m_texts.resize(kept);
}

std::vector<LeadRow> LeadIndex::matching(const QString& query) const {
  const QString needle = query.trimmed().toLower();
  if (needle.isEmpty()) return m_rows;
  std::vector<LeadRow> rows;
  for (size_t row = 0; row < m_rows.size(); ++row)
    if (m_texts[row].contains(needle)) rows.push_back(m_rows[row]);
  return rows;
}

std::vector<LeadRow> LeadIndex::matching(const QString& query, std::vector<LeadRow> rows) {
  const QString needle = query.trimmed().toLower();
  if (!needle.isEmpty())
    std::erase_if(rows, [&needle](const LeadRow& row) { return !searched(*row.lead).contains(needle); });
  return rows;
}

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
  const CampaignLead& lead = *row.lead;
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
