#include <algorithm>

#include "demo/DailyFigures.h"
#include "demo/Mailboxes.h"
#include "demo/Roadmaps.h"
#include "demo/WarmupFigures.h"
#include "kit/models/rampup/rampupChanges.h"
#include "kit/models/rampup/rampupDetail.h"
#include "kit/models/rampup/warmupStats.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int healthDays = 30;
constexpr qint64 lowScore = 80, mostExtended = 90, mostDays = 180;

MailboxHealth healthOf(const DemoMailbox& mailbox, const QDateTime& localNow) {
  MailboxHealth health;
  for (int back = 0; back < healthDays; ++back) {
    const auto day = warmupDayOf(mailbox, localNow.date().addDays(-back), localNow);
    health.inbox += day.inbox;
    health.spam += day.spam;
    health.saved += day.rescued;
    health.missing += day.failed;
  }
  health.checked = health.inbox + health.spam + health.missing;
  if (health.checked > 0) health.score = health.inbox * 100 / health.checked;
  health.low = health.score && *health.score < lowScore;
  return health;
}

/// Accounts with their roadmaps, as everybody is told of them.
class ShownRoadmaps {
 public:
  explicit ShownRoadmaps(const Call& call)
      : m_call(call),
        m_localNow(localTimeIn(*call.workspace, call.now)),
        m_sentToday(sentTodayBy(*call.workspace, call.now)) {}

  RampupItem of(const DemoMailbox& mailbox) const {
    const Mailbox& record = mailbox.record;
    const auto warmup = warmupOf(mailbox, m_localNow);
    RampupItem item;
    item.mailboxId = record.id;
    item.mailboxNumber = record.number;
    item.address = record.address;
    item.displayName = record.displayName;
    item.provider = record.provider;
    item.role = record.role;
    item.status = record.status;
    item.today = today().toString(Qt::ISODate);
    if (mailbox.roadmap && !record.isPool()) item.plan = planOf(mailbox, today());
    item.sent = {warmup.sentToday, warmup.plannedToday, m_sentToday.value(record.id)};
    item.inboxPct7d = inboxShareOf(warmup);
    item.settings = mailbox.warmup;
    item.settings.dailyLimit = record.dailyCap;
    item.health = healthOf(mailbox, m_localNow);
    return item;
  }

  RampupDetail detailOf(const DemoMailbox& mailbox) const {
    const RampupItem item = of(mailbox);
    RampupDetail detail{
        item.mailboxId, item.mailboxNumber, item.address, item.displayName, item.provider, item.role,   item.status,
        item.today,     item.plan,          item.sent,    item.inboxPct7d,  item.settings, item.health, {}};
    if (!item.plan) return detail;
    const auto days = daysOf(mailbox, today());
    const QDate first = days.isEmpty() ? today() : std::min(today(), days.first().day);
    const auto sent = figuresOf(*m_call.workspace, first, today(), {{}, mailbox.id(), {}}, m_call.now);
    for (const PlannedDay& each : days) detail.days.append(dayOf(mailbox, each, sent));
    return detail;
  }

  QDate today() const { return m_localNow.date(); }

 private:
  RoadmapDay dayOf(const DemoMailbox& mailbox, const PlannedDay& planned, const RangeFigures& sent) const {
    const Standing& standing = planned.standing;
    RoadmapDay day;
    day.day = planned.day.toString(Qt::ISODate);
    day.dayIndex = standing.dayIndex;
    if (standing.stage) {
      day.stageKey = standing.stage->key;
      day.stageName = standing.stage->name;
      day.stageDays = standing.stage->days;
    }
    day.stageDay = standing.stageDay;
    day.warmup = standing.warmup;
    day.campaign = standing.campaign;
    day.when = planned.day < today() ? u"past"_s : planned.day == today() ? u"today"_s : u"future"_s;
    if (day.isFuture()) return day;
    day.warmupSent = warmupDayOf(mailbox, planned.day, m_localNow).sent;
    day.campaignSent = std::min(mostSentADay, sent.days.at(sent.from.daysTo(planned.day)).sent);
    return day;
  }

  const Call& m_call;
  const QDateTime m_localNow;
  const QHash<QString, qint64> m_sentToday;
};

HTTPAnswer list(Call& call) {
  const ShownRoadmaps shown(call);
  RampupList list;
  for (const auto* all : {&call.workspace->mailboxes, &call.workspace->pool})
    for (const DemoMailbox& mailbox : *all) list.items.append(shown.of(mailbox));
  return jsonAnswer(toJSON(list));
}

HTTPAnswer detail(Call& call, DemoMailbox& mailbox) {
  return jsonAnswer(toJSON(ShownRoadmaps(call).detailOf(mailbox)));
}

HTTPAnswer stats(Call& call, DemoMailbox& mailbox) {
  const QDateTime local = localTimeIn(*call.workspace, call.now);
  const qint64 days = std::clamp<qint64>(call.request.value(u"days"_s).toLongLong(), 1, mostDays);
  WarmupStats stats;
  for (qint64 back = days - 1; back >= 0; --back) {
    const auto day = warmupDayOf(mailbox, local.date().addDays(-back), local);
    stats.days.append({day.day, day.sent, day.inbox, day.spam, day.rescued, day.received, day.replies});
    stats.totals.sent += day.sent;
    stats.totals.inbox += day.inbox;
    stats.totals.spam += day.spam;
    stats.totals.saved += day.rescued;
    stats.totals.received += day.received;
    stats.totals.replies += day.replies;
  }
  return jsonAnswer(toJSON(stats));
}

/// One change of one account's roadmap. A sentence when it can't be made.
struct Change {
  const RampupBulkBody& body;
  const Call& call;
  QDate today;
};
using Refusal = std::optional<QString>;

Refusal pauseOne(const Change& change, DemoMailbox& mailbox) {
  const RoadmapPlan plan = planOf(mailbox, change.today);
  if (plan.isPaused()) return u"It is paused already."_s;
  if (plan.isDone()) return u"Its roadmap is finished."_s;
  pauseRoadmap(*mailbox.roadmap, change.call.now, change.today, u"member"_s, {});
  return {};
}

Refusal resumeOne(const Change& change, DemoMailbox& mailbox) {
  DemoRoadmap& roadmap = *mailbox.roadmap;
  if (!roadmap.legs.last().paused) return u"It is not paused."_s;
  changedLeg(roadmap, change.today).paused = false;
  roadmap.pausedAt = roadmap.pausedBy = roadmap.pauseReason = std::nullopt;
  return {};
}

/// The stage that it is in gets longer; after its end, the last one.
Refusal extendOne(const Change& change, DemoMailbox& mailbox) {
  const qint64 days = change.body.days.value_or(0);
  QList<RoadmapStage> stages = mailbox.roadmap->legs.last().stages;
  const Standing standing = standingOn(mailbox, change.today);
  const auto at =
      std::ranges::find(stages, standing.stage ? standing.stage->key : stages.first().key, &RoadmapStage::key);
  at->days += days;
  if (auto refusal = refusalOf(stages)) return refusal;
  RoadmapLeg& leg = changedLeg(*mailbox.roadmap, change.today);
  leg.stages = stages;
  // One that had ended goes on where it was.
  if (standing.ended) leg.shiftDays = leg.startedOn.daysTo(change.today) + 1 - standing.dayIndex - 1;
  return {};
}

Refusal editOne(const Change& change, DemoMailbox& mailbox) {
  changedLeg(*mailbox.roadmap, change.today).stages = *change.body.stages;
  return {};
}

Refusal restartOne(const Change& change, DemoMailbox& mailbox) {
  const auto& templates = change.call.workspace->templates;
  const std::optional<QString> own = mailbox.roadmap ? mailbox.roadmap->templateId : std::nullopt;
  const QString wanted = change.body.templateId.value_or(own.value_or(QString()));
  const auto found = std::ranges::find(templates, wanted, &RoadmapTemplate::id);
  if (change.body.templateId && (found == templates.end() || found->archivedAt))
    return u"This template is no longer here."_s;
  putOnRoadmap(mailbox, found == templates.end() ? defaultTemplate(*change.call.workspace) : *found, change.today);
  return {};
}

struct Action {
  Refusal (*apply)(const Change&, DemoMailbox&);
  bool needsRoadmap = true;
};

Refusal apply(const Action& action, const Change& change, DemoMailbox& mailbox) {
  if (mailbox.record.isPool()) return u"Accounts of the pool have no roadmap."_s;
  if (action.needsRoadmap && !mailbox.roadmap) return u"This account is not on a roadmap."_s;
  return action.apply(change, mailbox);
}

HTTPAnswer changeOne(Call& call, DemoMailbox& mailbox, const RampupBulkBody& body, const Action& action) {
  const Change change{body, call, dayIn(*call.workspace, call.now)};
  if (const auto refusal = apply(action, change, mailbox))
    return problemAnswer(422, u"not_possible"_s, u"This can’t be done now"_s, *refusal);
  retellSenders(*call.workspace, call.now);
  return detail(call, mailbox);
}

HTTPAnswer pause(Call& call, DemoMailbox& mailbox) { return changeOne(call, mailbox, {}, {pauseOne}); }
HTTPAnswer resume(Call& call, DemoMailbox& mailbox) { return changeOne(call, mailbox, {}, {resumeOne}); }

bool isExtension(qint64 days) { return days >= 1 && days <= mostExtended; }

HTTPAnswer extend(Call& call, DemoMailbox& mailbox) {
  const auto body = call.request.bodyAs<ExtendBody>();
  if (!body || !isExtension(body->days)) return invalid(u"Extend it by 1 to 90 days."_s, u"days"_s);
  return changeOne(call, mailbox, {.mailboxIds = {}, .action = {}, .days = body->days}, {extendOne});
}

HTTPAnswer restart(Call& call, DemoMailbox& mailbox) {
  const auto body = call.request.bodyAs<RestartBody>();
  if (!body) return invalid(u"This template can’t be read."_s, u"templateId"_s);
  return changeOne(call, mailbox, {.mailboxIds = {}, .action = {}, .days = {}, .templateId = body->templateId},
                   {restartOne, false});
}

HTTPAnswer edit(Call& call, DemoMailbox& mailbox) {
  const auto body = call.request.bodyAs<StagesBody>();
  if (!body) return invalid(u"These stages can’t be read."_s, u"stages"_s);
  if (const auto refusal = refusalOf(body->stages)) return invalid(*refusal, u"stages"_s);
  const QByteArray match = call.request.headers.value("if-match");
  if (mailbox.roadmap && !match.isEmpty() && match != '"' + QByteArray::number(mailbox.roadmap->version) + '"')
    return problemAnswer(409, u"version_conflict"_s, u"This roadmap changed meanwhile"_s);
  return changeOne(call, mailbox,
                   {.mailboxIds = {}, .action = {}, .days = {}, .templateId = {}, .stages = body->stages}, {editOne});
}

bool isRate(const std::optional<qint64>& rate) { return !rate || (*rate >= 0 && *rate <= 100); }

HTTPAnswer settings(Call& call, DemoMailbox& mailbox) {
  const auto patch = call.request.bodyAs<WarmupSettingsPatch>();
  if (!patch) return invalid(u"This change can’t be read."_s, {});
  if (patch->dailyLimit && (*patch->dailyLimit < 0 || *patch->dailyLimit > 2000))
    return invalid(u"The daily limit is a number from 0 to 2000."_s, u"dailyLimit"_s);
  if (!isRate(patch->replyRate) || !isRate(patch->openRate) || !isRate(patch->importantRate) ||
      !isRate(patch->spamSaveRate))
    return invalid(u"Rates are numbers from 0 to 100."_s, u"replyRate"_s);
  WarmupSettings& into = mailbox.warmup;
  if (patch->enabled) into.enabled = *patch->enabled;
  if (patch->dailyLimit) mailbox.record.dailyCap = *patch->dailyLimit;
  if (patch->increasePerDay.isPresent()) into.increasePerDay = patch->increasePerDay.value();
  if (patch->replyRate) into.replyRate = *patch->replyRate;
  if (patch->openRate) into.openRate = *patch->openRate;
  if (patch->importantRate) into.importantRate = *patch->importantRate;
  if (patch->spamSaveRate) into.spamSaveRate = *patch->spamSaveRate;
  if (patch->filterTag) into.filterTag = *patch->filterTag;
  if (patch->readEmulation) into.readEmulation = *patch->readEmulation;
  if (patch->warmTrackingDomain) into.warmTrackingDomain = *patch->warmTrackingDomain;
  if (patch->weekdaysOnly) into.weekdaysOnly = *patch->weekdaysOnly;
  if (mailbox.roadmap && (patch->enabled || patch->weekdaysOnly)) {
    RoadmapLeg& leg = changedLeg(*mailbox.roadmap, dayIn(*call.workspace, call.now));
    leg.off = !into.enabled;
    leg.weekdaysOnly = into.weekdaysOnly;
  }
  mailbox.record.version = mailbox.record.version.value_or(0) + 1;
  return detail(call, mailbox);
}

/// What the action's word means, and whether the body has what it needs.
std::optional<HTTPAnswer> incomplete(const RampupBulkBody& body) {
  if (body.action == "extend"_L1 && !isExtension(body.days.value_or(0)))
    return invalid(u"Extend them by 1 to 90 days."_s, u"days"_s);
  if (body.action == "edit"_L1)
    if (const auto refusal = refusalOf(body.stages.value_or(QList<RoadmapStage>())))
      return invalid(*refusal, u"stages"_s);
  return std::nullopt;
}

HTTPAnswer bulk(Call& call) {
  static const QHash<QString, Action> actions{{u"pause"_s, {pauseOne}},
                                              {u"resume"_s, {resumeOne}},
                                              {u"extend"_s, {extendOne}},
                                              {u"restart"_s, {restartOne, false}},
                                              {u"edit"_s, {editOne}}};
  const auto body = call.request.bodyAs<RampupBulkBody>();
  if (!body || body->mailboxIds.isEmpty()) return invalid(u"Choose at least one account."_s, u"mailboxIds"_s);
  const auto action = actions.constFind(body->action);
  if (action == actions.cend()) return invalid(u"There is no such action."_s, u"action"_s);
  if (auto refusal = incomplete(*body)) return *std::move(refusal);
  QHash<QString, DemoMailbox*> live;
  for (auto* all : {&call.workspace->mailboxes, &call.workspace->pool})
    for (DemoMailbox& mailbox : *all) live.insert(mailbox.id(), &mailbox);
  const Change change{*body, call, dayIn(*call.workspace, call.now)};
  RampupBulkResult result;
  for (const QString& id : body->mailboxIds) {
    DemoMailbox* mailbox = live.value(id);
    const Refusal refusal = mailbox ? apply(*action, change, *mailbox) : u"This account is no longer here."_s;
    if (refusal)
      result.failed.append({id, *refusal});
    else
      ++result.ok;
  }
  retellSenders(*call.workspace, call.now);
  return jsonAnswer(toJSON(result));
}

}  // namespace

const QList<Route>& rampupRoutes() {
  static const QList<Route> routes{
      {"GET", u"/rampup"_s, Access::readers, list},
      {"GET", u"/rampup/{id}"_s, Access::readers, onMailbox<detail>},
      {"GET", u"/rampup/{id}/stats"_s, Access::readers, onMailbox<stats>},
      {"PATCH", u"/rampup/{id}"_s, Access::members, onMailbox<edit>},
      {"PATCH", u"/rampup/{id}/settings"_s, Access::members, onMailbox<settings>},
      {"POST", u"/rampup/{id}/pause"_s, Access::members, onMailbox<pause>},
      {"POST", u"/rampup/{id}/resume"_s, Access::members, onMailbox<resume>},
      {"POST", u"/rampup/{id}/extend"_s, Access::members, onMailbox<extend>},
      {"POST", u"/rampup/{id}/restart"_s, Access::members, onMailbox<restart>},
      {"POST", u"/rampup/bulk"_s, Access::members, bulk},
  };
  return routes;
}

}  // namespace orv::demo
