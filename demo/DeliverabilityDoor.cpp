#include <algorithm>
#include <cmath>

#include "demo/DailyFigures.h"
#include "demo/Mailboxes.h"
#include "demo/Roadmaps.h"
#include "demo/WarmupFigures.h"
#include "kit/models/deliverability/deliverabilityReport.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 trendDays = 14, placementDays = 2, mostDecisions = 50;
constexpr double repairUnder = 0.9, quarantineUnder = 0.8;

/// A stage with what the watcher says of an inbox in it.
struct Seen {
  QString stage, verdict, reason;
};

Seen seenIn(const DemoMailbox& mailbox, std::optional<double> rate, const QDate& today) {
  if (mailbox.record.status.isFailed() && mailbox.record.connection->kind == "ms_oauth"_L1)
    return {u"retired"_s, u"Leave it out"_s, u"It can’t sign in any more"_s};
  if (!mailbox.isActive() || !mailbox.roadmap) return {u"setup"_s, u"Wait"_s, u"It is not connected or not active"_s};
  const Standing standing = standingOn(mailbox, today);
  if (rate && *rate < quarantineUnder) return {u"quarantine"_s, u"Stop sending, warm up only"_s, u"3 days under 80%"_s};
  if (mailbox.roadmap->pausedBy == "auto"_L1)
    return {u"repair"_s, u"Hold at this level"_s, u"Paused by auto-protect"_s};
  if (!standing.stage) return {u"setup"_s, u"Wait"_s, u"Its roadmap has not begun"_s};
  if (standing.stage->key == RoadmapStage::warmupOnly) {
    if (standing.stageDay > standing.stage->days - placementDays)
      return {u"placement"_s, u"Test where it lands"_s, u"Warm-up is nearly done"_s};
    return {u"warmup"_s, u"Keep warming up"_s,
            u"%1 of %2 days done"_s.arg(standing.stageDay).arg(standing.stage->days)};
  }
  if (rate && *rate < repairUnder) return {u"repair"_s, u"Slow down for 3 days"_s, u"Under 90% of its checks"_s};
  if (standing.stage->key == RoadmapStage::slowRamp) return {u"rampup"_s, u"Go on"_s, u"Close to the pool"_s};
  return {u"live"_s, u"Nothing to do"_s, u"Close to the pool"_s};
}

/// Inboxes as the watcher sees them on its last round.
class Watch {
 public:
  explicit Watch(const Call& call)
      : m_workspace(*call.workspace),
        m_localNow(localTimeIn(*call.workspace, call.now)),
        // It goes round once an hour.
        m_scannedAt(QDateTime(call.now.date(), QTime(call.now.time().hour(), 0), Qt::UTC)) {
    for (const DemoMailbox& mailbox : m_workspace.mailboxes) {
      const auto week = warmupOf(mailbox, m_localNow);
      m_inbox += week.inbox7d;
      m_checks += week.placed7d;
    }
  }

  DeliverabilityReport report() const {
    DeliverabilityReport report;
    report.automatic = m_workspace.watcherActs;
    if (isScanned()) report.lastScanAt = formatPlatformDate(m_scannedAt);
    if (isScanned() && m_checks > 0) report.pool = {poolRate(), m_checks};
    for (const DemoMailbox& mailbox : m_workspace.mailboxes) {
      report.inboxes.append(of(mailbox));
      if (isScanned() && report.decisions.size() < mostDecisions) report.decisions += decisionsOn(mailbox).first(1);
    }
    return report;
  }

  DeliverabilityInboxDetail detail(const DemoMailbox& mailbox) const {
    DeliverabilityInboxDetail detail{of(mailbox), {}, {}};
    if (!isScanned()) return detail;
    for (qint64 back = trendDays - 1; back >= 0; --back) {
      const QDate day = m_localNow.date().addDays(-back);
      if (const auto rate = rateOn(mailbox, day)) detail.trend.append({day.toString(Qt::ISODate), *rate});
    }
    detail.decisions = decisionsOn(mailbox);
    return detail;
  }

 private:
  bool isScanned() const { return m_workspace.watcherScanned; }
  double poolRate() const { return double(m_inbox) / double(m_checks); }

  DeliverabilityInbox of(const DemoMailbox& mailbox) const {
    DeliverabilityInbox inbox;
    inbox.id = mailbox.id();
    inbox.address = mailbox.record.address;
    inbox.provider = mailbox.record.provider;
    if (!isScanned()) return inbox;
    const auto week = warmupOf(mailbox, m_localNow);
    const double checks = double(week.placed7d);
    inbox.n = week.placed7d;
    if (inbox.n > 0) {
      inbox.inboxRate = double(week.inbox7d) / checks;
      inbox.spamRate = double(week.spam7d) / checks;
      DemoRandom random = DemoRandom::of(mailbox.id(), 11);
      const double apart = double(random.between(-30, 30)) / 1000;
      inbox.google = std::clamp(*inbox.inboxRate + apart, 0.0, 1.0);
      inbox.microsoft = std::clamp(*inbox.inboxRate - apart, 0.0, 1.0);
      inbox.bounceRate = double(random.between(2, 18)) / 1000;
      inbox.replyRate = double(random.between(10, 45)) / 1000;
      const double spread = std::sqrt(poolRate() * (1 - poolRate()) / checks);
      if (spread > 0) inbox.z = (*inbox.inboxRate - poolRate()) / spread;
    }
    const Seen seen = seenIn(mailbox, inbox.inboxRate, m_localNow.date());
    inbox.stage = seen.stage;
    inbox.stageSince = m_localNow.date().addDays(-sinceDays(mailbox)).toString(Qt::ISODate);
    inbox.verdict = seen.verdict;
    inbox.reason = seen.reason;
    if (const auto at = lastScanOf(mailbox)) inbox.lastScanAt = formatPlatformDate(*at);
    return inbox;
  }

  /// Only what is active and connected is scanned.
  std::optional<QDateTime> lastScanOf(const DemoMailbox& mailbox) const {
    if (mailbox.record.status.isVerifying()) return std::nullopt;
    return mailbox.idleSince ? std::min(*mailbox.idleSince, m_scannedAt) : m_scannedAt;
  }

  static qint64 sinceDays(const DemoMailbox& mailbox) { return DemoRandom::of(mailbox.id(), 12).between(0, 9); }

  std::optional<double> rateOn(const DemoMailbox& mailbox, const QDate& day) const {
    qint64 inbox = 0, checks = 0;
    for (int back = 0; back < 7; ++back) {
      const auto figures = warmupDayOf(mailbox, day.addDays(-back), m_localNow);
      inbox += figures.inbox;
      checks += figures.placed;
    }
    return checks > 0 ? std::optional(double(inbox) / double(checks)) : std::nullopt;
  }

  /// The newest first. What the watcher only logs changes no stage.
  QList<DeliverabilityDecision> decisionsOn(const DemoMailbox& mailbox) const {
    const DeliverabilityInbox inbox = of(mailbox);
    QList<DeliverabilityDecision> decisions;
    const auto add = [&](const QDateTime& at, const QString& action, const QString& rule, const QString& why,
                         bool executed) {
      decisions.append({u"dd_%1_%2"_s.arg(mailbox.id()).arg(decisions.size()),
                        mailbox.id(),
                        inbox.address,
                        formatPlatformDate(at),
                        {},
                        {},
                        action,
                        rule,
                        why,
                        executed});
    };
    add(lastScanOf(mailbox).value_or(m_scannedAt), *inbox.verdict, u"stage"_s, *inbox.reason, m_workspace.watcherActs);
    const QDateTime moved = m_scannedAt.addDays(-sinceDays(mailbox)).addSecs(-600);
    add(moved, u"Move"_s, u"placement"_s, u"Its checks of 7 days fit the stage"_s, m_workspace.watcherActs);
    decisions.last().fromStage = before(*inbox.stage);
    decisions.last().toStage = inbox.stage;
    if (DemoRandom::of(mailbox.id(), 13).chance(0.5))
      add(moved.addDays(-2), u"Halve campaign volume"_s, u"spam"_s, u"Spam above 10% on three days"_s, false);
    add(moved.addDays(-6), u"Watch closely"_s, u"trend"_s, u"Two scans below the pool in a row"_s,
        m_workspace.watcherActs);
    return decisions;
  }

  static QString before(const QString& stage) {
    static const QHash<QString, QString> previous{{u"warmup"_s, u"setup"_s},     {u"placement"_s, u"warmup"_s},
                                                  {u"rampup"_s, u"placement"_s}, {u"live"_s, u"rampup"_s},
                                                  {u"repair"_s, u"live"_s},      {u"quarantine"_s, u"repair"_s},
                                                  {u"retired"_s, u"repair"_s}};
    return previous.value(stage, u"setup"_s);
  }

  const DemoWorkspace& m_workspace;
  const QDateTime m_localNow, m_scannedAt;
  qint64 m_inbox = 0, m_checks = 0;
};

HTTPAnswer report(Call& call) { return jsonAnswer(toJSON(Watch(call).report())); }

HTTPAnswer inbox(Call& call, DemoMailbox& mailbox) {
  if (mailbox.record.isPool()) return noSuchMailbox();
  return jsonAnswer(toJSON(Watch(call).detail(mailbox)));
}

}  // namespace

const QList<Route>& deliverabilityRoutes() {
  static const QList<Route> routes{
      {"GET", u"/deliverability"_s, Access::readers, report},
      {"GET", u"/deliverability/inboxes/{id}"_s, Access::readers, onMailbox<inbox>},
  };
  return routes;
}

}  // namespace orv::demo
