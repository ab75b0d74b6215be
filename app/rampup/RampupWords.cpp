#include "app/rampup/RampupWords.h"

#include <QRegularExpression>

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/isoDay.h"
#include "kit/models/mailboxes/mailboxBrand.h"
#include "kit/models/rampup/rampupPhase.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::RampupWords {
namespace {

/// Which share of the checked emails protects an account, where the service does not say.
constexpr int protectedUnder = 80;

/// The service names the share in its reason.
QString shareOf(const std::optional<QString>& reason) {
  const QString number = u"([0-9]{1,3}(?:\\.[0-9]+)?) ?%"_s;
  // It may name what was reached as well.
  static const QRegularExpression bound(u"\\b(?:under|below) "_s + number, QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression any(number);
  for (const QRegularExpression* share : {&bound, &any})
    if (const auto found = share->match(reason.value_or(QString())); found.hasMatch()) return found.captured(1);
  return QString::number(protectedUnder);
}

QString dayOf(const RoadmapPlan& plan) {
  return u"Day "_s + QString::number(plan.dayIndex) + u" of "_s + QString::number(plan.length);
}

}  // namespace

Phase phaseOf(const RampupItem& item) {
  if (!item.plan) return Phase::pending;
  const auto stage = item.plan->stage ? std::optional(item.plan->stage->key) : std::nullopt;
  switch (rampupPhase(item.plan->state, stage)) {
    case RampupPhase::pending:
      return Phase::pending;
    case RampupPhase::warmup:
      return Phase::warmup;
    case RampupPhase::rampup:
      return Phase::rampup;
    case RampupPhase::live:
      return Phase::live;
  }
  Q_UNREACHABLE();
}

QString label(Phase phase) {
  switch (phase) {
    case Phase::pending:
      return u"Pending"_s;
    case Phase::warmup:
      return u"Warm-up"_s;
    case Phase::rampup:
      return u"Ramp-up"_s;
    case Phase::live:
      return u"Live-ready"_s;
  }
  return {};
}

QString tone(Phase phase) {
  if (phase == Phase::rampup) return u"accent"_s;
  return phase == Phase::live ? u"positive"_s : u"neutral"_s;
}

QString kindLabel(const QString& key) {
  if (key == RoadmapStage::warmupOnly) return u"Warm-up only"_s;
  if (key == RoadmapStage::slowRamp) return u"Slow ramp"_s;
  return key == RoadmapStage::full ? u"Full schedule"_s : shownName(key);
}

QString templateName(const QString& name) {
  static const QRegularExpression length(u"\\s*·\\s*[0-9]+\\s*days?$"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
  return shownName(QString(name).remove(length));
}

QString countedRoadmaps(qint64 count) { return Format::counted(count, u"roadmap"_s, u"roadmaps"_s); }
QString countedMailboxes(qint64 count) { return Format::counted(count, u"mailbox"_s, u"mailboxes"_s); }

QString day(const QString& date) {
  const QDate known = isoDay(date);
  return known.isValid() ? Format::shortDate(known) : QString();
}

QString stageDay(const QString& name, qint64 day, qint64 days) {
  return shownName(name) + u", day "_s + QString::number(day) + u" of "_s + QString::number(days);
}

Standing standing(const RampupItem& item) {
  if (item.isPool()) return {u"Only warms up the others"_s};
  if (!item.plan) return {u"Not on a roadmap"_s};
  const RoadmapPlan& plan = *item.plan;
  if (plan.isScheduled()) return {u"Starts "_s + day(plan.startedOn)};
  if (plan.isDone()) return {u"Finished · full volume"_s};
  if (plan.isProtected()) return {u"Day "_s + QString::number(plan.dayIndex), u"Paused by auto-protect"_s};
  if (plan.isPaused()) return {dayOf(plan) + u" · Paused"_s};
  return {plan.stage ? dayOf(plan) + u" · "_s + shownName(plan.stage->name) : dayOf(plan)};
}

QString stateLine(const RampupItem& item) {
  if (!item.plan) return {};
  const RoadmapPlan& plan = *item.plan;
  if (plan.isScheduled()) return u"The roadmap starts on its first day."_s;
  if (plan.isDone()) return u"Roadmap finished: the account sends at full volume."_s;
  return plan.isPaused() ? u"The roadmap is paused and holds its level."_s : dayOf(plan);
}

QString stateNote(const RampupItem& item) {
  if (!item.plan || !item.plan->isPaused()) return {};
  if (!item.plan->isProtected()) return u"Paused: the days ahead are laid out again on resume."_s;
  return u"Paused by auto-protect. Under "_s + shareOf(item.plan->pauseReason) +
         u"% of its checked warm-up emails reached the inbox over 7 days. Warm-up holds at its level. Send less from "
         u"it until placement recovers, then resume."_s;
}

Missing missing(const RampupItem& item) {
  if (item.plan) return {};
  const QString title = u"This account is not on a roadmap."_s;
  if (item.isPool()) return {title, u"This mailbox only warms up the others; it never sends campaigns."_s};
  return {title, u"Rampup has not started a roadmap for this account yet."_s};
}

QString warmupText(const WarmupSettings& settings) {
  if (!settings.enabled) return u"Warm-up is off: this account sends no warm-up emails."_s;
  QString text = u"Up to "_s + QString::number(settings.dailyLimit) + u" warm-up emails a day"_s;
  if (settings.increasePerDay && *settings.increasePerDay > 0)
    text += u", adding "_s + QString::number(*settings.increasePerDay) + u" a day until then"_s;
  return text + u". "_s + QString::number(settings.replyRate) + u"% of them get a reply."_s;
}

QString healthText(const MailboxHealth& health) {
  if (health.checked == 0) return u"No checked warm-up emails in 30 days yet"_s;
  return u"%1 of %2 checked warm-up emails reached the inbox over 30 days (%3 in spam, %4 missing)"_s.arg(
      Format::grouped(health.inbox), Format::grouped(health.checked), Format::grouped(health.spam),
      Format::grouped(health.missing));
}

QString healthWarning(const RampupItem& item) {
  if (!item.health.low) return {};
  const QString share = shareOf(item.plan ? item.plan->pauseReason : std::nullopt);
  return u"Health under "_s + share +
         u"%. Too many warm-up emails land in spam. Keep warm-up running, send fewer campaign emails from it, and "
         u"check its domain records."_s;
}

QString campaignText(const RampupItem& item) {
  if (!item.plan) return u"Campaign emails sent today."_s;
  return u"Campaign emails sent today. The roadmap suggests "_s + QString::number(item.plan->campaignCapToday) +
         u"; it is a guide and never stops a campaign."_s;
}

}  // namespace orv::RampupWords
