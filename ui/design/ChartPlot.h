#pragma once

#include <QColor>
#include <QFont>
#include <optional>

#include "ui/design/ChartPicture.h"
#include "ui/design/ImageItem.h"

namespace orv {

/// The drawn part of an OrvChart, and the day that the person is at: under the pointer, else where the keyboard left
/// it. The keyboard's day is held by its date, so that it survives a reload.
class ChartPlot : public ImageItem {
  Q_OBJECT
  QML_ELEMENT
  /// ISO dates.
  Q_PROPERTY(QStringList days READ days WRITE setDays NOTIFY dataChanged)
  /// Maps with what a ChartSeries has.
  Q_PROPERTY(QVariantList series READ series WRITE setSeries NOTIFY dataChanged)
  /// "line" or "bar".
  Q_PROPERTY(QString kind READ kind WRITE setKind NOTIFY dataChanged)
  Q_PROPERTY(QString unit READ unit WRITE setUnit NOTIFY dataChanged)
  Q_PROPERTY(QList<QColor> seriesColors READ seriesColors WRITE setSeriesColors NOTIFY dataChanged)
  Q_PROPERTY(QColor failedColor MEMBER m_failedColor NOTIFY lookChanged)
  Q_PROPERTY(QColor gridColor MEMBER m_gridColor NOTIFY lookChanged)
  /// Of what is planned and has not happened yet.
  Q_PROPERTY(QColor toComeColor MEMBER m_toComeColor NOTIFY lookChanged)
  /// Of what the others are compared with.
  Q_PROPERTY(QColor referenceColor MEMBER m_referenceColor NOTIFY lookChanged)
  /// Where it is above zero the axis ends there, and begins at the tens below the lowest figure: shares of a hundred
  /// that are all high would else look alike.
  Q_PROPERTY(double upTo MEMBER m_upTo NOTIFY lookChanged)
  Q_PROPERTY(QColor labelColor MEMBER m_labelColor NOTIFY lookChanged)
  Q_PROPERTY(QFont labelFont MEMBER m_labelFont NOTIFY lookChanged)

  Q_PROPERTY(int seriesCount READ seriesCount NOTIFY dataChanged)
  /// What more there is to say of each day.
  Q_PROPERTY(QStringList dayNotes READ dayNotes WRITE setDayNotes NOTIFY dataChanged)
  /// A map for each series: key, label, shown, failed, planned, color, look.
  Q_PROPERTY(QVariantList legend READ legend NOTIFY dataChanged)
  /// Every figure is absent or zero.
  Q_PROPERTY(bool blank READ isBlank NOTIFY dataChanged)
  Q_PROPERTY(QString summary READ summary NOTIFY dataChanged)
  /// What no figure's text is wider than.
  Q_PROPERTY(QString widestValue READ widestValue NOTIFY dataChanged)
  Q_PROPERTY(QRectF plotArea READ plotArea NOTIFY layoutChanged)

  /// -1 when the person is at none.
  Q_PROPERTY(int currentDay READ currentDay NOTIFY currentChanged)
  /// The same as far as it is this chart that the person is at.
  Q_PROPERTY(int ownDay READ ownDay NOTIFY currentChanged)
  /// The day of another chart of the same days, which this one follows while the person is there; -1 for none.
  Q_PROPERTY(int followed MEMBER m_followed WRITE setFollowed NOTIFY followedChanged)
  Q_PROPERTY(QRectF currentArea READ currentArea NOTIFY currentChanged)
  Q_PROPERTY(QString currentTitle READ currentTitle NOTIFY currentChanged)
  Q_PROPERTY(QString currentNote READ currentNote NOTIFY currentChanged)
  Q_PROPERTY(QString currentText READ currentText NOTIFY currentChanged)
  /// A map for each series: text and, where there is a figure to point at, y.
  Q_PROPERTY(QVariantList readings READ readings NOTIFY currentChanged)

 public:
  explicit ChartPlot(QQuickItem* parent = nullptr);

  QStringList days() const { return m_days; }
  void setDays(const QStringList& days);
  QVariantList series() const { return m_seriesMaps; }
  void setSeries(const QVariantList& series);
  QString kind() const;
  void setKind(const QString& kind);
  QStringList dayNotes() const { return m_dayNotes; }
  void setDayNotes(const QStringList& notes);
  QString unit() const { return m_unit; }
  void setUnit(const QString& unit);
  const QList<QColor>& seriesColors() const { return m_seriesColors; }
  void setSeriesColors(const QList<QColor>& colors);

  int seriesCount() const { return int(m_data.series().size()); }
  const QVariantList& legend() const { return m_legend; }
  bool isBlank() const { return m_data.isEmpty(); }
  QString summary() const { return m_data.summary(); }
  QString widestValue() const;
  QRectF plotArea() const { return m_scale.plot(); }
  int currentDay() const { return m_current; }
  int ownDay() const { return m_own; }
  void setFollowed(int day);
  QRectF currentArea() const;
  QString currentTitle() const { return m_current < 0 ? QString() : m_data.dayText(m_current); }
  QString currentNote() const { return m_current < 0 ? QString() : m_data.dayNote(m_current); }
  QString currentText() const { return m_current < 0 ? QString() : m_data.spokenDay(m_current); }
  QVariantList readings() const;

  /// The part of the plot that is the day's, as wide as a day also where lines are drawn.
  Q_INVOKABLE QRectF areaOf(int day) const;
  Q_INVOKABLE void pointAt(qreal x);
  Q_INVOKABLE void pointAway();
  /// Stays at the day nearest to `x`, as by the keyboard.
  Q_INVOKABLE void choose(qreal x);
  /// From the day the person is at; from the near end when at none.
  Q_INVOKABLE void moveBy(int days);
  Q_INVOKABLE void moveTo(int day);
  Q_INVOKABLE void leave();

 Q_SIGNALS:
  void followedChanged();
  void dataChanged();
  void lookChanged();
  void layoutChanged();
  void currentChanged();

 protected:
  void paint(QPainter& painter) override;
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;

 private:
  QVariantList makeLegend() const;
  void takeData();
  void layOut();
  void findCurrent();

  ChartData m_data;
  /// Made once for what is shown: the page reads the whole of it for each thing that it reads of an entry.
  QVariantList m_legend;
  ChartScale m_scale;
  ChartScale::Kind m_kind = ChartScale::Kind::line;
  QStringList m_days;
  QVariantList m_seriesMaps;
  QStringList m_dayNotes;
  QString m_unit;
  QList<QColor> m_seriesColors;
  QColor m_failedColor;
  QColor m_gridColor;
  QColor m_labelColor;
  QColor m_toComeColor;
  QColor m_referenceColor;
  double m_upTo = 0;
  QFont m_labelFont;
  std::optional<double> m_pointed;
  std::optional<double> m_pointer;
  QString m_chosen;
  int m_own = -1;
  int m_followed = -1;
  int m_current = -1;
};

}  // namespace orv
