#include "demo/CampaignDoor.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "demo/DailyFigures.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int archiveDays = 30;

HTTPAnswer invalid(const QString& detail, const QString& path) {
  return problemAnswer(422, u"invalid_input"_s, u"Invalid input"_s, detail,
                       {{u"errors"_s, QJsonArray{QJsonObject{{u"path"_s, path}, {u"message"_s, detail}}}}});
}

template <class Body>
std::optional<Body> bodyOf(const DemoRequest& request) {
  try {
    return decodeJSON<Body>(request.body);
  } catch (const DecodeError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<HTTPAnswer> CampaignDoor::answer(const DemoRequest& request, const QStringList& parts) {
  purge();
  const QByteArray& method = request.method;
  if (parts == QStringList{u"analytics"_s, u"summary"_s} && method == "GET") return summary(request.query);
  if (parts.value(0) != "campaigns"_L1) return std::nullopt;
  if (parts.size() == 1) {
    if (method == "GET") return list(request.query.queryItemValue(u"archived"_s) == "1"_L1);
    if (method == "POST") return create(request);
    return std::nullopt;
  }
  DemoCampaign* campaign = m_workspace.find(parts[1]);
  if (!campaign) return problemAnswer(404, u"not_found"_s, u"This campaign no longer exists"_s);
  return one(request, *campaign, QString::fromLatin1(method) + u' ' + parts.mid(2).join(u'/'));
}

std::optional<HTTPAnswer> CampaignDoor::one(const DemoRequest& request, DemoCampaign& campaign, const QString& verb) {
  if (verb == "GET "_L1) return jsonAnswer(toJSON(campaign.record));
  if (verb == "PATCH "_L1) return patch(request, campaign);
  if (verb == "PUT steps"_L1) return steps(request, campaign);
  if (verb == "POST launch"_L1) return launch(campaign);
  if (verb == "POST pause"_L1) return pause(campaign);
  if (verb == "POST duplicate"_L1) return duplicate(campaign);
  if (verb == "POST restore"_L1) return restore(campaign);
  if (verb == "GET leads"_L1) return leads(request, campaign);
  if (verb == "DELETE "_L1)
    return request.query.queryItemValue(u"permanent"_s) == "1"_L1 ? remove(campaign.record.id) : archive(campaign);
  return std::nullopt;
}

HTTPAnswer CampaignDoor::list(bool archived) const {
  CampaignList list;
  qint64 archivedCount = 0;
  for (const DemoCampaign& campaign : m_workspace.campaigns) {
    archivedCount += campaign.archivedAt.has_value();
    if (campaign.archivedAt.has_value() == archived) list.items.append(campaign.summary());
  }
  list.archivedCount = archivedCount;
  return jsonAnswer(toJSON(list));
}

HTTPAnswer CampaignDoor::create(const DemoRequest& request) {
  const auto body = bodyOf<CreateCampaignBody>(request);
  if (!body || body->name.trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  DemoCampaign campaign;
  campaign.record.id = m_random.id(u"c"_s);
  campaign.record.number = ++m_workspace.lastNumber;
  campaign.record.name = body->name.trimmed();
  campaign.record.status = CampaignStatus(u"draft"_s);
  campaign.record.createdAt = stamp();
  campaign.record.version = 1;
  campaign.record.tags.emplace();
  campaign.record.senders.emplace();
  campaign.record.steps.emplace();
  campaign.record.stats.emplace();
  m_workspace.campaigns.prepend(campaign);
  return jsonAnswer(toJSON(campaign.record), 201);
}

HTTPAnswer CampaignDoor::patch(const DemoRequest& request, DemoCampaign& campaign) {
  const QByteArray match = request.headers.value("if-match");
  if (!match.isEmpty() && match != '"' + QByteArray::number(campaign.record.version.value_or(0)) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"Someone changed this campaign meanwhile"_s,
                         u"The list shows the latest; make your change again."_s);
  const auto patch = bodyOf<CampaignPatch>(request);
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (patch->name && patch->name->trimmed().isEmpty()) return invalid(u"Name is required."_s, u"name"_s);
  Campaign& record = campaign.record;
  if (patch->name) record.name = patch->name->trimmed();
  if (patch->schedule) record.schedule = patch->schedule;
  if (patch->dailyCapPerInbox) record.dailyCapPerInbox = patch->dailyCapPerInbox;
  if (patch->gapSeconds) record.gapSeconds = patch->gapSeconds;
  if (patch->stopOnReply) record.stopOnReply = patch->stopOnReply;
  if (patch->settings) record.settings = patch->settings;
  if (patch->tags) record.tags = patch->tags;
  if (patch->trigger) record.trigger = patch->trigger;
  return changed(campaign);
}

HTTPAnswer CampaignDoor::steps(const DemoRequest& request, DemoCampaign& campaign) {
  const auto body = bodyOf<StepsBody>(request);
  if (!body) return invalid(u"These steps can’t be read."_s, u"steps"_s);
  QList<CampaignStep> saved;
  for (const StepIn& in : body->steps) {
    CampaignStep step{in.id.value_or(m_random.id(u"st"_s)), saved.size() + 1, in.delayMinutes, in.sameThread, {}, {}};
    for (const VariantIn& variant : in.variants)
      step.variants.append({variant.id.value_or(m_random.id(u"va"_s)),
                            variant.label,
                            variant.subject,
                            variant.body,
                            variant.weight,
                            variant.enabled,
                            {}});
    saved.append(step);
  }
  campaign.record.steps = saved;
  return changed(campaign);
}

HTTPAnswer CampaignDoor::launch(DemoCampaign& campaign) {
  Campaign& record = campaign.record;
  const QString status = record.status.rawValue;
  if (status == "running"_L1) return problemAnswer(409, u"already_running"_s, u"This campaign is running already"_s);
  if (!record.senders || record.senders->isEmpty())
    return problemAnswer(422, u"not_ready"_s, u"Not ready to send"_s, u"Choose at least one inbox to send from."_s);
  record.status = CampaignStatus(u"running"_s);
  if (!record.launchedAt) record.launchedAt = stamp();
  record.pausedAt.reset();
  LeadCounts& counts = record.stats->leads;
  counts.active += std::exchange(counts.paused, 0) + std::exchange(counts.queued, 0);
  return changed(campaign);
}

HTTPAnswer CampaignDoor::pause(DemoCampaign& campaign) {
  Campaign& record = campaign.record;
  if (record.status.rawValue != "running"_L1)
    return problemAnswer(409, u"not_running"_s, u"This campaign isn’t running"_s);
  record.status = CampaignStatus(u"paused"_s);
  record.pausedAt = stamp();
  LeadCounts& counts = record.stats->leads;
  counts.paused += std::exchange(counts.active, 0);
  return changed(campaign);
}

HTTPAnswer CampaignDoor::duplicate(const DemoCampaign& campaign) {
  DemoCampaign copy;
  copy.record = campaign.record;
  copy.record.id = m_random.id(u"c"_s);
  copy.record.number = ++m_workspace.lastNumber;
  copy.record.name += u" (copy)"_s;
  copy.record.status = CampaignStatus(u"draft"_s);
  copy.record.createdAt = stamp();
  copy.record.launchedAt.reset();
  copy.record.pausedAt.reset();
  copy.record.completedAt.reset();
  copy.record.stats = CampaignStats{};
  copy.record.version = 1;
  m_workspace.campaigns.prepend(copy);
  return jsonAnswer(toJSON(copy.record), 201);
}

HTTPAnswer CampaignDoor::archive(DemoCampaign& campaign) {
  if (campaign.archivedAt) return emptyAnswer();
  if (campaign.record.status.rawValue == "running"_L1) campaign.record.status = CampaignStatus(u"paused"_s);
  campaign.archivedAt = stamp();
  campaign.record.version = campaign.record.version.value_or(0) + 1;
  return emptyAnswer();
}

HTTPAnswer CampaignDoor::remove(const QString& id) {
  m_workspace.campaigns.removeIf([&id](const DemoCampaign& campaign) { return campaign.record.id == id; });
  return emptyAnswer();
}

HTTPAnswer CampaignDoor::restore(DemoCampaign& campaign) {
  if (!campaign.archivedAt) return problemAnswer(409, u"not_archived"_s, u"This campaign isn’t archived"_s);
  campaign.archivedAt.reset();
  return changed(campaign);
}

HTTPAnswer CampaignDoor::leads(const DemoRequest& request, const DemoCampaign& campaign) const {
  const qint64 limit = std::clamp<qint64>(request.query.queryItemValue(u"limit"_s).toLongLong(), 1, 500);
  const qint64 from = request.query.queryItemValue(u"cursor"_s).toLongLong();
  const QString status = request.query.queryItemValue(u"status"_s);
  const bool archived = request.query.queryItemValue(u"archived"_s) == "1"_L1;
  LeadPage page;
  page.counts.emplace();
  page.archivedCount = 0;
  qint64 matching = 0;
  for (const CampaignLead& lead : campaign.leads) {
    if (lead.removedAt) ++*page.archivedCount;
    if (lead.removedAt.has_value() != archived) continue;
    ++(*page.counts)[lead.status.rawValue];
    if (!status.isEmpty() && lead.status.rawValue != status) continue;
    if (matching >= from && page.items.size() < limit) page.items.append(lead);
    ++matching;
  }
  if (from + limit < matching) page.nextCursor = QString::number(from + limit);
  return jsonAnswer(toJSON(page));
}

HTTPAnswer CampaignDoor::summary(const QUrlQuery& query) const {
  const QDate from = QDate::fromString(query.queryItemValue(u"from"_s), Qt::ISODate);
  const QDate to = QDate::fromString(query.queryItemValue(u"to"_s), Qt::ISODate);
  if (!from.isValid() || !to.isValid() || from > to) return invalid(u"Choose a range of dates."_s, u"from"_s);
  const QString only = query.queryItemValue(u"campaigns"_s);
  QList<const DemoCampaign*> campaigns;
  for (const DemoCampaign& campaign : m_workspace.campaigns)
    if (only.isEmpty() || campaign.record.id == only) campaigns.append(&campaign);
  return jsonAnswer(toJSON(analyticsOf(campaigns, from, to, m_now.date(), m_workspace.timeZone)));
}

HTTPAnswer CampaignDoor::changed(DemoCampaign& campaign) {
  campaign.record.version = campaign.record.version.value_or(0) + 1;
  return jsonAnswer(toJSON(campaign.record));
}

void CampaignDoor::purge() {
  m_workspace.campaigns.removeIf([this](const DemoCampaign& campaign) {
    const auto archived = campaign.archivedAt ? parsePlatformDate(*campaign.archivedAt) : std::nullopt;
    return archived && archived->addDays(archiveDays) <= m_now;
  });
}

QString CampaignDoor::stamp() const { return formatPlatformDate(m_now); }

}  // namespace orv::demo
