#pragma once

#include <QDate>
#include <QObject>

#include "app/base/Choice.h"
#include "kit/async/Clock.h"

namespace orv {

/// The first and the last day of a range.
struct DateRange {
  QDate from;
  QDate to;
  bool operator==(const DateRange&) const = default;
};

namespace Ranges {
Q_NAMESPACE

/// Ranges that end today, in the order they are offered.
enum class RangePreset { last7, last4w, last3m, mtd, qtd, ytd, last12m };
Q_ENUM_NS(RangePreset)

}  // namespace Ranges
using Ranges::RangePreset;

QString rangeLabel(RangePreset preset);
/// The days of the preset up to `today`. A month back is the same day of an earlier month, or that month's last.
DateRange rangeOf(RangePreset preset, const QDate& today);
/// Key and label of each, for a select.
QList<Choice> rangePresets();

/// "24 Oct – 20 Nov 2026"; what the days have in common is said once.
QString rangeText(const DateRange& range);

/// The user's calendar day.
QDate localToday(const Clock& clock);

/// The range that a page asks for: a preset, which ends today whenever that is, or two days of the person's own.
class RangeChoice {
 public:
  explicit RangeChoice(const QDate& today) { follow(today); }

  const DateRange& days() const { return m_days; }
  /// Key of the preset; the last one while the days are the person's own.
  QString preset() const;
  bool isCustom() const { return m_custom; }
  QString label() const;

  /// True when this changed the choice; a key that no preset has does not.
  bool setPreset(const QString& key, const QDate& today);
  /// Two dates ("2026-11-21"), whole, in either order. True when they are.
  bool setCustom(const QString& from, const QString& to);
  /// A preset goes along with the days; the person's own stay.
  void follow(const QDate& today);

 private:
  RangePreset m_preset = RangePreset::last4w;
  bool m_custom = false;
  DateRange m_days;
};

}  // namespace orv
