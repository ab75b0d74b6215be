#include "demo/Roadmaps.h"

#include <algorithm>

#include "demo/WarmupFigures.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qsizetype mostStages = 6, longestName = 60;
constexpr qint64 mostDaysAStage = 90, mostDaysInAll = 180, mostADay = 2000;

const RoadmapLeg& legOn(const DemoRoadmap& roadmap, const QDate& day) {
  const auto after = std::ranges::upper_bound(roadmap.legs, day, {}, &RoadmapLeg::from);
  return after == roadmap.legs.cbegin() ? roadmap.legs.first() : *std::prev(after);
}

qint64 indexOn(const RoadmapLeg& leg, const QDate& day) {
  return leg.startedOn.daysTo(leg.paused ? leg.from : day) + 1 - leg.shiftDays;
}

bool rests(const RoadmapLeg& leg, const QDate& day) {
  constexpr int saturday = 6;
  return leg.off || (leg.weekdaysOnly && day.dayOfWeek() >= saturday);
}

RoadmapTemplate makeTemplate(qint64 number, const QString& name, const QString& provider,
                             const QList<RoadmapStage>& stages, const QDate& today) {
  RoadmapTemplate made;
  made.id = u"rt_%1"_s.arg(number);
  made.number = number;
  made.name = name + u" · %1 days"_s.arg(lengthOf(stages));
  if (!provider.isEmpty()) made.provider = provider;
  made.stages = stages;
  made.isDefault = number == 1;
  made.length = lengthOf(stages);
  made.version = 1;
  made.updatedAt = formatPlatformDate(QDateTime(today.addDays(-30 * number), QTime(10, 0), Qt::UTC));
  return made;
}

RoadmapStage stage(const QString& key, const QString& name, qint64 days, RoadmapStage::Range warmup,
                   RoadmapStage::Range campaign) {
  return {key, name, days, warmup, campaign};
}

Standing standingAt(const DemoMailbox& mailbox, const RoadmapLeg& leg, qint64 index, const QDate& day) {
  Standing standing;
  standing.length = lengthOf(leg.stages);
  if (index < 1 || leg.stages.isEmpty()) return standing;
  standing.ended = index > standing.length;
  standing.dayIndex = std::min(index, standing.length);
  qint64 before = 0;
  for (const RoadmapStage& each : leg.stages) {
    standing.stage = &each;
    standing.stageDay = standing.dayIndex - before;
    if (standing.dayIndex <= before + each.days) break;
    before += each.days;
  }
  const auto volume = [&standing](const RoadmapStage::Range& range) {
    return qRound64(volumeOn(range, standing.stageDay, standing.stage->days));
  };
  standing.warmup = rests(leg, day) ? 0 : std::min(mailbox.record.dailyCap, volume(standing.stage->warmup));
  standing.campaign = volume(standing.stage->campaign);
  return standing;
}

/// The last day, if nothing stops it any more.
QDate endOf(const DemoRoadmap& roadmap, const QDate& today) {
  const RoadmapLeg& leg = roadmap.legs.last();
  return today.addDays(lengthOf(leg.stages) - indexOn(leg, today));
}

bool isVolume(const RoadmapStage::Range& range) {
  return range.from >= 0 && range.from <= mostADay && range.to >= 0 && range.to <= mostADay;
}

}  // namespace

Standing standingOn(const DemoMailbox& mailbox, const QDate& day) {
  if (!mailbox.roadmap) return {};
  const RoadmapLeg& leg = legOn(*mailbox.roadmap, day);
  return standingAt(mailbox, leg, indexOn(leg, day), day);
}

QList<PlannedDay> daysOf(const DemoMailbox& mailbox, const QDate& today) {
  QList<PlannedDay> days;
  const RoadmapLeg& leg = mailbox.roadmap->legs.last();
  const QDate last = endOf(*mailbox.roadmap, today);
  for (QDate day = leg.startedOn; day <= std::min(today, last); day = day.addDays(1))
    days.append({day, standingOn(mailbox, day)});
  const qint64 index = indexOn(leg, today), length = lengthOf(leg.stages);
  for (qint64 next = std::max<qint64>(index + 1, 1); next <= length; ++next)
    days.append({today.addDays(next - index), standingAt(mailbox, leg, next, today.addDays(next - index))});
  return days;
}

RoadmapPlan planOf(const DemoMailbox& mailbox, const QDate& today) {
  const DemoRoadmap& roadmap = *mailbox.roadmap;
  const RoadmapLeg& leg = roadmap.legs.last();
  const Standing standing = standingOn(mailbox, today);
  RoadmapPlan plan;
  plan.id = roadmap.id;
  plan.state = !standing.stage ? u"scheduled"_s : leg.paused ? u"paused"_s : standing.ended ? u"done"_s : u"running"_s;
  plan.templateId = roadmap.templateId;
  plan.templateName = roadmap.templateName;
  plan.stages = leg.stages;
  plan.startedOn = leg.startedOn.toString(Qt::ISODate);
  plan.shiftDays = leg.shiftDays;
  plan.pausedAt = roadmap.pausedAt;
  plan.pausedBy = roadmap.pausedBy;
  plan.pauseReason = roadmap.pauseReason;
  plan.length = standing.length;
  plan.dayIndex = standing.dayIndex;
  if (standing.stage)
    plan.stage =
        RoadmapPlan::StageNow{standing.stage->key, standing.stage->name, standing.stageDay, standing.stage->days};
  if (!leg.off) plan.warmupToday = standing.warmup;
  plan.campaignCapToday = standing.campaign;
  plan.endsOn = endOf(roadmap, today).toString(Qt::ISODate);
  plan.version = roadmap.version;
  return plan;
}

QList<RoadmapTemplate> firstTemplates(const QDate& today) {
  const QString warmup = RoadmapStage::warmupOnly, slow = RoadmapStage::slowRamp, full = RoadmapStage::full;
  const QString only = u"Warm-up only"_s, ramp = u"Slow ramp"_s, all = u"Full schedule"_s;
  auto google = makeTemplate(1, u"Google schedule"_s, u"google"_s,
                             {stage(warmup, only, 14, {4, 20}, {0, 0}), stage(slow, ramp, 21, {20, 30}, {5, 30}),
                              stage(full, all, 7, {18, 18}, {40, 40})},
                             today);
  auto microsoft = makeTemplate(2, u"Microsoft schedule"_s, u"microsoft"_s,
                                {stage(warmup, only, 21, {3, 18}, {0, 0}), stage(slow, ramp, 28, {18, 24}, {2, 20}),
                                 stage(full, all, 7, {16, 16}, {30, 30})},
                                today);
  auto gentle = makeTemplate(
      3, u"Gentle start"_s, {},
      {stage(warmup, u"First weeks"_s, 28, {2, 12}, {0, 0}), stage(slow, u"Slowly up"_s, 42, {12, 20}, {1, 15}),
       stage(full, u"Full volume"_s, 14, {14, 14}, {20, 25})},
      today);
  auto old = makeTemplate(4, u"Two weeks, 2025"_s, {}, {stage(warmup, only, 14, {8, 30}, {0, 0})}, today);
  old.archivedAt = formatPlatformDate(QDateTime(today.addDays(-6), QTime(16, 0), Qt::UTC));
  return {google, microsoft, gentle, old};
}

const RoadmapTemplate& defaultTemplate(const DemoWorkspace& workspace) {
  return *std::ranges::find_if(workspace.templates, &RoadmapTemplate::isDefault);
}

qint64 lengthOf(const QList<RoadmapStage>& stages) {
  qint64 days = 0;
  for (const RoadmapStage& each : stages) days += each.days;
  return days;
}

WarmupSettings firstWarmup(const QString& mailboxId) {
  WarmupSettings settings;
  settings.enabled = true;
  settings.increasePerDay = 1;
  settings.replyRate = 32;
  settings.openRate = 58;
  settings.importantRate = 20;
  settings.spamSaveRate = 80;
  settings.filterTag = u"nw-%1"_s.arg(DemoRandom::of(mailboxId, 3).between(1000, 9999));
  settings.readEmulation = true;
  return settings;
}

void putOnRoadmap(DemoMailbox& mailbox, const RoadmapTemplate& from, const QDate& firstDay) {
  const RoadmapLeg fresh{
      firstDay, from.stages, firstDay, 0, false, !mailbox.warmup.enabled, mailbox.warmup.weekdaysOnly};
  if (!mailbox.roadmap) mailbox.roadmap = DemoRoadmap{u"rp_"_s + mailbox.id(), {}, {}, {}, {}, {}, {}, 0};
  DemoRoadmap& roadmap = *mailbox.roadmap;
  roadmap.templateId = from.id;
  roadmap.templateName = from.name;
  roadmap.legs.removeIf([&firstDay](const RoadmapLeg& leg) { return leg.from >= firstDay; });
  roadmap.legs.append(fresh);
  roadmap.pausedAt = roadmap.pausedBy = roadmap.pauseReason = std::nullopt;
  ++roadmap.version;
}

RoadmapLeg& changedLeg(DemoRoadmap& roadmap, const QDate& today) {
  if (roadmap.legs.last().from < today) {
    RoadmapLeg leg = roadmap.legs.last();
    if (leg.paused) leg.shiftDays += leg.from.daysTo(today);
    leg.from = today;
    roadmap.legs.append(leg);
  }
  ++roadmap.version;
  return roadmap.legs.last();
}

void pauseRoadmap(DemoRoadmap& roadmap, const QDateTime& now, const QDate& today, const QString& by,
                  const QString& reason) {
  changedLeg(roadmap, today).paused = true;
  roadmap.pausedAt = formatPlatformDate(now);
  roadmap.pausedBy = by;
  roadmap.pauseReason = reason.isEmpty() ? std::nullopt : std::optional(reason);
}

std::optional<QString> refusalOf(const QList<RoadmapStage>& stages) {
  if (stages.isEmpty() || stages.size() > mostStages) return u"A roadmap has 1 to 6 stages."_s;
  QSet<QString> kinds;
  for (const RoadmapStage& each : stages) {
    const QString name = each.name.trimmed();
    if (name.isEmpty() || name.size() > longestName) return u"A stage needs a name of up to 60 characters."_s;
    if (each.days < 1 || each.days > mostDaysAStage) return u"A stage lasts 1 to 90 days."_s;
    if (!isVolume(each.warmup) || !isVolume(each.campaign)) return u"Volumes go up to 2000 a day."_s;
    if (kinds.contains(each.key)) return u"Each kind of stage appears once."_s;
    kinds.insert(each.key);
  }
  if (lengthOf(stages) > mostDaysInAll) return u"A roadmap lasts 180 days at most."_s;
  return std::nullopt;
}

void varyRoadmaps(DemoWorkspace& workspace, const QDate& today) {
  constexpr qsizetype first = 46, needed = 6;
  if (workspace.mailboxes.size() < first + needed) return;
  const auto mailbox = [&workspace](qsizetype at) -> DemoMailbox& { return workspace.mailboxes[first + at]; };
  const RoadmapTemplate &microsoft = workspace.templates[1], &gentle = workspace.templates[2];
  const auto noon = [&today](int daysAgo) { return QDateTime(today.addDays(-daysAgo), QTime(12, 0), Qt::UTC); };
  mailbox(0).roadmap.reset();
  putOnRoadmap(mailbox(0), microsoft, today.addDays(-30));
  pauseRoadmap(*mailbox(0).roadmap, noon(2), today.addDays(-2), u"auto"_s,
               u"Under 80% of its checked warm-up emails reached the inbox over 7 days."_s);
  mailbox(1).roadmap.reset();
  putOnRoadmap(mailbox(1), gentle, today.addDays(-12));
  pauseRoadmap(*mailbox(1).roadmap, noon(1), today.addDays(-1), u"member"_s, {});
  mailbox(2).roadmap.reset();
  putOnRoadmap(mailbox(2), defaultTemplate(workspace), today.addDays(2));
  mailbox(3).roadmap.reset();
  mailbox(4).roadmap.reset();
  putOnRoadmap(mailbox(4), microsoft, today.addDays(-24));
  mailbox(5).roadmap.reset();
  putOnRoadmap(mailbox(5), defaultTemplate(workspace), today.addDays(-39));
  // What has a roadmap that old was connected before it.
  for (qsizetype at : {0, 1, 4, 5})
    mailbox(at).record.createdAt =
        formatPlatformDate(QDateTime(mailbox(at).roadmap->legs.first().startedOn, QTime(9, 12), Qt::UTC));
}

}  // namespace orv::demo
