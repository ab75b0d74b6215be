#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

namespace orv {

/// One line, or one part of each bar.
struct ChartSeries {
  QString key;
  QString label;
  /// One for each day; NaN is a day without a figure.
  QList<double> values;
  bool shown = true;
  /// What went wrong: drawn hatched, in the colour of errors.
  bool failed = false;
  /// What was to be: among bars a line in steps over them, and no part of what they add up to.
  bool planned = false;
  /// From this day on, where there is one, what was to be is drawn as quiet bars as well: it has not happened yet.
  int toCome = -1;
  /// What the others are compared with: a quiet dashed line.
  bool reference = false;
  /// From this day to that, where there are such, a line is drawn in the colour of errors.
  int wrongFrom = -1;
  int wrongTo = -1;
  /// Its colour and dash are those of the series with this number; its own unless told otherwise.
  int look = -1;
  /// Behind each day's figure, in brackets: "5 replies".
  QStringList notes = {};

  bool operator==(const ChartSeries& other) const;
};

/// What a chart or its table shows, and how it is said.
class ChartData {
 public:
  void setDays(const QStringList& days);
  /// Maps with key, label, values (numbers; what is none is absent), shown, failed, planned, toCome, reference,
  /// wrongFrom, wrongTo, look and notes. False when nothing is new.
  bool setSeries(const QVariantList& series);
  /// Follows every figure: "%".
  void setUnit(const QString& unit) { m_unit = unit; }
  /// What more there is to say of each day.
  void setDayNotes(const QStringList& notes) { m_dayNotes = notes; }
  bool hasDayNotes() const { return !m_dayNotes.isEmpty(); }
  QString dayNote(int day) const { return m_dayNotes.value(day); }

  int count() const { return int(m_names.size()); }
  const QList<QDate>& days() const { return m_days; }
  const QList<ChartSeries>& series() const { return m_series; }
  /// The day as it was given.
  QString dayKey(int day) const { return m_names.value(day); }
  int indexOf(const QString& dayKey) const { return int(m_names.indexOf(dayKey)); }
  /// NaN where there is none.
  double value(int series, int day) const;

  /// The lowest and highest figure to be drawn, zero included; of all series when none is shown, so that a chart with
  /// everything switched off keeps its frame.
  struct Extent {
    double lowest = 0;
    double highest = 0;
    bool whole = true;
  };
  Extent extent(bool stacked) const;
  /// The lowest figure of a series that is shown; NaN where there is none.
  double lowest() const;
  /// Every figure is absent or zero.
  bool isEmpty() const;

  /// "1,272", "87.5%"; a dash where there is none.
  QString valueText(double value) const;
  /// The figure of that day with its note.
  QString readingText(int series, int day) const;
  /// "Fri 13 Nov", with the year where the days are of several.
  QString dayText(int day) const;
  /// The day with every shown figure, for a screen reader.
  QString spokenDay(int day) const;
  /// The days and, for each shown series, from where to where it goes.
  QString summary() const;

 private:
  QString shortDay(int day) const;
  QString spokenSeries(const ChartSeries& series) const;

  QStringList m_names;
  QList<QDate> m_days;
  QList<ChartSeries> m_series;
  QString m_unit;
  QStringList m_dayNotes;
};

}  // namespace orv
