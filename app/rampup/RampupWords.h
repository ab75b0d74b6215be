#pragma once

#include <QDate>
#include <QObject>
#include <QString>

#include "kit/models/rampup/rampupItem.h"

namespace orv::RampupWords {
Q_NAMESPACE

/// How far an account is on its roadmap.
enum class Phase { pending, warmup, rampup, live };
Q_ENUM_NS(Phase)

Phase phaseOf(const RampupItem& item);
QString label(Phase phase);
/// Of the phase's badge.
QString tone(Phase phase);

/// The kind of a stage, by its key; one that this build does not know is shown as it stands.
QString kindLabel(const QString& key);
/// As shownName() has it, without the length that a name may end in, for where that stands beside it.
QString templateName(const QString& name);
/// "3 roadmaps".
QString countedRoadmaps(qint64 count);
/// "1 mailbox", "3 mailboxes".
QString countedMailboxes(qint64 count);
/// "8 Dec" of a date as the service writes it; empty for none.
QString day(const QString& date);

/// "Slow ramp, day 3 of 21".
QString stageDay(const QString& name, qint64 day, qint64 days);

/// Where the roadmap stands, for the table: "Day 24 of 42 · Slow ramp".
struct Standing {
  QString text;
  /// What there is to heed in it; stands behind the text.
  QString warning = {};
};
Standing standing(const RampupItem& item);

/// Where it stands, in a sentence for the account's page.
QString stateLine(const RampupItem& item);
/// What else there is to say of a plan that is not running; empty when there is nothing.
QString stateNote(const RampupItem& item);
/// Why there is no roadmap to show; both empty when there is one.
struct Missing {
  QString title;
  QString text;
};
Missing missing(const RampupItem& item);

QString warmupText(const WarmupSettings& settings);
QString healthText(const MailboxHealth& health);
/// Only when it is low.
QString healthWarning(const RampupItem& item);
QString campaignText(const RampupItem& item);

}  // namespace orv::RampupWords
