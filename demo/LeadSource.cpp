#include "demo/LeadSource.h"

#include <QJsonDocument>

#include "demo/CsvRows.h"
#include "demo/Enrolment.h"
#include "demo/Leads.h"
#include "kit/models/campaigns/addLeads.h"
using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// The one duplicate rule that looks beyond the campaign.
bool looksEverywhere(const QString& dedupe) { return dedupe == "workspace"_L1; }

LeadSource fromCsv(Call& call, const AddLeadsBody::Csv& csv) {
  CsvRows rows(csv.csv);
  LeadSource source;
  source.onlyNew = looksEverywhere(csv.dedupe);
  source.columns = rows.next().value_or(QStringList());
  while (const auto row = rows.next()) {
    const QStringList& line = *row;
    CampaignLead lead;
    lead.id = call.random.id(u"l"_s);
    lead.source = csv.fileName.value_or(u"csv"_s);
    for (qsizetype i = 0; i < std::min(line.size(), source.columns->size()); ++i)
      setLeadField(lead, source.columns->at(i), line[i]);
    source.people.append(lead);
  }
  return source;
}

LeadSource fromHand(Call& call, const AddLeadsBody::Manual& manual) {
  CampaignLead lead;
  lead.id = call.random.id(u"l"_s);
  lead.email = manual.email;
  lead.source = u"manual"_s;
  for (const auto& [name, value] : manual.data.asKeyValueRange()) setLeadField(lead, name, value);
  return {{lead}, {}, looksEverywhere(manual.dedupe)};
}

std::optional<LeadSource> fromList(Call& call, const AddLeadsBody::List& body) {
  settleLeads(call);
  const DemoLeadList* list = call.workspace->findList(body.listId);
  if (!list || list->record.archivedAt) return std::nullopt;
  LeadSource source{{}, {}, looksEverywhere(body.dedupe)};
  for (const auto& member : list->members) {
    source.people.append(enrollable(call.workspace->leads, member.lead));
    source.people.last().source = list->record.name;
  }
  return source;
}

/// Somebody among the workspace's leads or in another campaign.
std::optional<CampaignLead> findAnywhere(Call& call, const QString& id) {
  if (const auto place = call.workspace->leads.placeOf(id)) return enrollable(call.workspace->leads, *place);
  for (DemoCampaign& campaign : call.workspace->campaigns)
    if (const CampaignLead* lead = findLead(campaign, id)) return *lead;
  return std::nullopt;
}

/// Leads of the workspace, as new as on their first day.
LeadSource fromLeads(Call& call, const AddLeadsBody::Leads& body) {
  LeadSource source{{}, {}, !body.allowOtherCampaigns};
  for (const QString& id : body.leadIds) {
    const auto known = findAnywhere(call, id);
    if (!known) continue;
    CampaignLead lead = *known;
    for (auto* instant : {&lead.firstSentAt, &lead.lastSentAt, &lead.repliedAt, &lead.nextSendAt, &lead.removedAt})
      instant->reset();
    lead.currentStep.reset();
    lead.interest.reset();
    lead.source = u"leads"_s;
    source.people.append(lead);
  }
  return source;
}

}  // namespace

void setLeadField(CampaignLead& lead, const QString& name, const QString& value) {
  const QString key = name.trimmed();
  if (key.compare("email"_L1, Qt::CaseInsensitive) == 0)
    lead.email = value;
  else if (key == "firstName"_L1)
    lead.firstName = value;
  else if (key == "lastName"_L1)
    lead.lastName = value;
  else if (key == "company"_L1)
    lead.company = value;
  else if (key == "title"_L1)
    lead.title = value;
  else if (key == "website"_L1)
    lead.website = value;
  else {
    if (!lead.data) lead.data.emplace();
    lead.data->insert(key, JSONValue::string(value));
  }
}

std::optional<LeadSource> readSource(Call& call) {
  const QByteArray& body = call.request.body;
  const QString source = QJsonDocument::fromJson(body).object().value("source"_L1).toString();
  try {
    if (source == "csv"_L1) return fromCsv(call, decodeJSON<AddLeadsBody::Csv>(body));
    if (source == "manual"_L1) return fromHand(call, decodeJSON<AddLeadsBody::Manual>(body));
    if (source == "list"_L1) return fromList(call, decodeJSON<AddLeadsBody::List>(body));
    if (source == "leads"_L1) return fromLeads(call, decodeJSON<AddLeadsBody::Leads>(body));
  } catch (const DecodeError&) {
    // Refused like any other body that is none.
  }
  return std::nullopt;
}

}  // namespace orv::demo
