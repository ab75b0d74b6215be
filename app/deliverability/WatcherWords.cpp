#include "app/deliverability/WatcherWords.h"

#include <QHash>
#include <algorithm>

#include "app/base/cellText.h"
#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::WatcherWords {
namespace {

struct Stage {
  QString label;
  QString tone = u"neutral"_s;
  QString group = {};
};

const QHash<QString, Stage>& stages() {
  static const QHash<QString, Stage> known{{u"setup"_s, {u"Setup"_s}},
                                           {u"warmup"_s, {u"Warm-up"_s}},
                                           {u"placement"_s, {u"Placement test"_s}},
                                           {u"repair"_s, {u"Repair"_s, u"warning"_s, u"repair"_s}},
                                           {u"rampup"_s, {u"Ramp-up"_s, u"accent"_s, u"rampup"_s}},
                                           {u"live"_s, {u"Live"_s, u"positive"_s, u"live"_s}},
                                           {u"quarantine"_s, {u"Quarantine"_s, u"negative"_s, u"repair"_s}},
                                           {u"retired"_s, {u"Retired"_s, u"negative"_s}}};
  return known;
}

const Stage& stageOf(const QString& word) {
  static const Stage unknown;
  const auto known = stages().constFind(word);
  return known == stages().cend() ? unknown : *known;
}

constexpr double lowRate = 0.8;

QString groups(const DeliverabilityReport& report) {
  qint64 live = 0, ramping = 0, repairing = 0;
  for (const DeliverabilityInbox& inbox : report.inboxes) {
    const QString group = groupOf(inbox.stage.value_or(QString()));
    live += group == "live"_L1;
    ramping += group == "rampup"_L1;
    repairing += group == "repair"_L1;
  }
  return u"%1 of your %2 inboxes are live, %3 are ramping and %4 are repairing."_s.arg(
      Format::grouped(live), Format::grouped(report.inboxes.size()), Format::grouped(ramping),
      Format::grouped(repairing));
}

}  // namespace

QString stageLabel(const QString& stage) {
  const auto known = stages().constFind(stage);
  if (known != stages().cend()) return known->label;
  return stage.isEmpty() ? noValue : shownName(stage.first(1).toUpper() + stage.sliced(1));
}

QString stageTone(const QString& stage) { return stageOf(stage).tone; }
QString groupOf(const QString& stage) { return stageOf(stage).group; }

QString percent(const std::optional<double>& fraction) {
  return fraction ? Format::fixed(*fraction * 100, 1) + u'%' : QString();
}

bool isLow(const std::optional<double>& fraction) { return fraction && *fraction < lowRate; }

QString checks(qint64 count) { return u"From "_s + Format::grouped(count) + u" checks, last 7 days"_s; }

QString summary(const DeliverabilityReport& report) {
  if (report.inboxes.isEmpty()) return u"No sending inboxes yet. I start watching as soon as one is connected."_s;
  QString text;
  const qint64 checked = std::ranges::count_if(report.inboxes, [](const auto& inbox) { return inbox.n > 0; });
  if (!report.lastScanAt)
    text = u"I can see "_s + Format::grouped(report.inboxes.size()) +
           u" inboxes and haven’t scanned them yet. The first scan runs within the hour."_s;
  else if (checked > 0)
    text =
        groups(report) + u' ' +
        (report.pool.inboxRate ? u"Sending inboxes are at "_s + percent(report.pool.inboxRate) + u", "_s : QString()) +
        Format::grouped(checked) + u" have real checks behind them."_s;
  else
    text = groups(report) + u" None have warm-up checks in the last 7 days, so I have no placement numbers yet."_s;
  if (!report.automatic) text += u" Watching only. I log what I would do and change nothing on your inboxes."_s;
  return text;
}

QString moment(const std::optional<QString>& instant, const QDateTime& now) {
  const auto at = parsePlatformDate(instant);
  if (!at) return {};
  const QDateTime local = at->toLocalTime();
  if (local.date() == now.toLocalTime().date()) return u"Today, "_s + local.toString(u"HH:mm");
  return Format::moment(local);
}

QString lastScan(const std::optional<QString>& instant, const QDateTime& now) {
  QString when = moment(instant, now);
  if (when.isEmpty()) return u"Last scan not yet"_s;
  when[0] = when[0].toLower();
  return u"Last scan "_s + when;
}

}  // namespace orv::WatcherWords
