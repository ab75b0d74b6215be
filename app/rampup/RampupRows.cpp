#include "app/rampup/RampupRows.h"

#include "app/base/cellText.h"
#include "app/base/shownName.h"
#include "app/rampup/StagePart.h"
#include "kit/api/Format.h"
#include "kit/models/mailboxes/mailboxBrand.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(RampupRow)

namespace {

/// Under it, too little of the warm-up mail arrives.
constexpr double goodInboxRate = 90;

bool warms(const RampupItem& item) { return item.settings.enabled || item.sent.warmup > 0; }
bool sends(const RampupItem& item) { return item.sent.campaign > 0 || (item.plan && item.plan->campaignCapToday > 0); }

QString planned(const std::optional<qint64>& count) { return count ? u" of "_s + Format::grouped(*count) : QString(); }

std::optional<double> key(const RampupRow& row, const QString& column) {
  const RampupItem& item = row.record().item;
  if (column == "phase"_L1) return double(int(row.prepared().phase));
  if (column == "standing"_L1) return item.plan ? std::optional(double(item.plan->dayIndex)) : std::nullopt;
  if (column == "warmup"_L1) return warms(item) ? std::optional(double(item.sent.warmup)) : std::nullopt;
  if (column == "campaign"_L1) return sends(item) ? std::optional(double(item.sent.campaign)) : std::nullopt;
  return item.inboxPct7d;
}

template <class Key>
bool before(const std::optional<Key>& a, const std::optional<Key>& b, bool descending) {
  if (!a || !b) return a.has_value() && !b.has_value();
  return descending ? *b < *a : *a < *b;
}

}  // namespace

RampupPart RampupRest::next() {
  constexpr qsizetype atOnce = 1000;
  RampupPart part{.asked = asked};
  const qsizetype end = std::min(taken + atOnce, items.size());
  part.items.reserve(end - taken);
  for (; taken < end; ++taken) part.items.append({items[taken].mailboxId, std::move(items[taken])});
  if (taken < items.size()) part.nextCursor = QString::number(taken);
  return part;
}

void RampupRowsModel::addExtraRoles(QHash<int, QByteArray>& roles) const {
  roles.insert({{AddressRole, "address"},
                {FactsRole, "facts"},
                {PhaseLabelRole, "phaseLabel"},
                {PhaseToneRole, "phaseTone"},
                {PendingRole, "pending"},
                {StagesRole, "stages"},
                {StoppedRole, "stopped"},
                {StandingRole, "standingText"},
                {WarningRole, "warning"},
                {TemplateRole, "template"},
                {WarmupRole, "warmupText"},
                {WarmupPlanRole, "warmupPlan"},
                {CampaignRole, "campaignText"},
                {CampaignPlanRole, "campaignPlan"},
                {InboxRole, "inboxText"},
                {InboxToneRole, "inboxTone"}});
}

QVariant RampupRowsModel::extraData(const RampupRow& row, int, int role) const {
  const RampupItem& item = row.record().item;
  const RampupWords::Phase phase = row.prepared().phase;
  switch (role) {
    case AddressRole:
      return item.address;
    case FactsRole: {
      const QString brand = item.isPool() ? u"Warm-up pool"_s : brandName(brandOf(item.provider));
      return item.displayName.isEmpty() ? brand : shownName(item.displayName) + u" · "_s + brand;
    }
    case PhaseLabelRole:
      return RampupWords::label(phase);
    case PhaseToneRole:
      return RampupWords::tone(phase);
    case PendingRole:
      return phase == RampupWords::Phase::pending;
    case StagesRole:
      return QVariant::fromValue(item.plan ? stageParts(*item.plan) : QList<StagePart>());
    case StoppedRole:
      return item.plan && (item.plan->isPaused() || item.plan->isDone());
    case StandingRole:
      return RampupWords::standing(item).text;
    case WarningRole:
      return RampupWords::standing(item).warning;
    case TemplateRole:
      return item.plan ? RampupWords::templateName(item.plan->templateName) : QString();
    case WarmupRole:
      return warms(item) ? Format::grouped(item.sent.warmup) : noValue;
    case WarmupPlanRole:
      return warms(item) ? planned(item.sent.warmupPlanned) : QString();
    case CampaignRole:
      return sends(item) ? Format::grouped(item.sent.campaign) : noValue;
    case CampaignPlanRole:
      return sends(item) && item.plan ? planned(item.plan->campaignCapToday) : QString();
    case InboxRole:
      return item.inboxPct7d ? Format::fixed(*item.inboxPct7d, 1) + u'%' : noValue;
    case InboxToneRole:
      if (!item.inboxPct7d) return u"unknown"_s;
      return *item.inboxPct7d < goodInboxRate || item.health.low ? u"warning"_s : u"healthy"_s;
    default:
      return {};
  }
}

std::function<bool(const RampupRow&, const RampupRow&)> orderOf(const std::optional<OrvSort>& sort) {
  if (!sort) return {};
  const bool descending = sort->descending;
  if (sort->key == "address"_L1 || sort->key == "template"_L1) {
    const bool byTemplate = sort->key == "template"_L1;
    const auto words = [byTemplate](const RampupRow& row) -> std::optional<QString> {
      const RampupItem& item = row.record().item;
      if (!byTemplate) return item.address;
      return item.plan ? std::optional(item.plan->templateName) : std::nullopt;
    };
    return [words, descending, collator = nameCollator()](const RampupRow& a, const RampupRow& b) {
      const auto left = words(a), right = words(b);
      if (!left || !right) return left.has_value() && !right.has_value();
      return descending ? collator.compare(*right, *left) < 0 : collator.compare(*left, *right) < 0;
    };
  }
  return [column = sort->key, descending](const RampupRow& a, const RampupRow& b) {
    return before(key(a, column), key(b, column), descending);
  };
}

}  // namespace orv
