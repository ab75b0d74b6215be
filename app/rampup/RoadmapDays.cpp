#include "app/rampup/RoadmapDays.h"

#include <QtNumeric>

#include "app/base/shownName.h"
#include "app/rampup/RampupWords.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// What warm-up and campaigns send look different on every chart, and what is planned of either looks the same.
enum Look { warmupLook, campaignLook, planLook };

QVariantMap series(const QString& key, const QString& label, const QVariantList& values, int look) {
  return {{u"key"_s, key}, {u"label"_s, label}, {u"values"_s, values}, {u"look"_s, look}};
}

QVariantMap plan(const QVariantList& values, int toCome) {
  QVariantMap planned = series(u"planned"_s, u"Planned"_s, values, planLook);
  planned.insert(u"planned"_s, true);
  planned.insert(u"toCome"_s, toCome);
  return planned;
}

QVariant orNothing(const std::optional<qint64>& count) { return count ? QVariant(double(*count)) : QVariant(qQNaN()); }

}  // namespace

RoadmapDays::RoadmapDays(const RampupDetail& detail) {
  QVariantList warmupSent, warmupPlanned, campaignSent, campaignPlanned;
  for (const RoadmapDay& day : detail.days) {
    if (day.isToday()) today = int(days.size());
    days.append(day.day);
    notes.append(day.stageName.isEmpty() ? QString()
                                         : RampupWords::stageDay(day.stageName, day.stageDay, day.stageDays));
    warmupSent.append(orNothing(day.warmupSent));
    warmupPlanned.append(double(day.warmup));
    campaignSent.append(orNothing(day.campaignSent));
    campaignPlanned.append(double(day.campaign));
  }
  const int toCome = today < 0 ? -1 : today + 1;
  warmup = {series(u"warmup"_s, u"Warm-up sent"_s, warmupSent, warmupLook), plan(warmupPlanned, toCome)};
  campaign = {series(u"campaign"_s, u"Campaign sent"_s, campaignSent, campaignLook), plan(campaignPlanned, toCome)};
  const auto named = [](const QVariant& one, const QString& label) {
    QVariantMap map = one.toMap();
    map.insert(u"key"_s, label);
    map.insert(u"label"_s, label);
    return map;
  };
  all = {warmup[0], named(warmup[1], u"Planned warm-up"_s), campaign[0], named(campaign[1], u"Planned campaign"_s)};
  if (detail.plan) stages = stageParts(*detail.plan);
}

}  // namespace orv
