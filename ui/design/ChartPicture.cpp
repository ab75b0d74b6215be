#include "ui/design/ChartPicture.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Labels nearer to each other than this read as one.
constexpr double labelRoom = 72;
/// Days nearer than this leave a line no room between its corners, nor bars a gap between their parts.
constexpr double closeDays = 4;

QPen seriesPen(const QColor& color, double width, int series) {
  QPen pen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
  QList<double> dash = seriesDash(series);
  // Qt counts dashes in widths of the pen.
  for (double& part : dash) part /= width;
  if (!dash.isEmpty()) pen.setDashPattern(dash);
  return pen;
}

class ChartPainter {
 public:
  ChartPainter(QPainter& painter, const ChartData& data, const ChartScale& scale, const ChartLook& look)
      : m_painter(painter), m_data(data), m_scale(scale), m_look(look) {}

  void values() {
    const QRectF& plot = m_scale.plot();
    for (const double tick : m_scale.axis().ticks()) {
      const double y = onPixel(m_scale.y(tick));
      m_painter.fillRect(QRectF(plot.left(), y, plot.width(), onPixel(1)), m_look.grid);
      m_painter.drawText(QRectF(0, y - 8, plot.left() - 8, 16), Qt::AlignRight | Qt::AlignVCenter,
                         m_data.valueText(tick));
    }
  }

  void days() {
    const int apart = int(std::ceil(labelRoom / std::max(0.01, m_scale.dayWidth())));
    const DayLabels labels = thinLabels(m_data.days(), apart);
    const QFontMetricsF metrics(m_look.font);
    const QRectF& plot = m_scale.plot();
    for (const int day : labels.days) {
      const QString text = dayLabel(day, labels.months, day == labels.days.first());
      const double width = metrics.horizontalAdvance(text);
      // The first and the last end with the plot.
      const double left =
          std::clamp(m_scale.x(day) - width / 2, plot.left(), std::max(plot.left(), plot.right() - width));
      m_painter.drawText(QRectF(left, plot.bottom() + 7, width + 1, 16), Qt::AlignLeft | Qt::AlignVCenter, text);
    }
  }

  void lines() {
    m_painter.setRenderHint(QPainter::Antialiasing);
    // The first series is what the others are shares of; where days are close it would cover them.
    for (int i = 0; i < m_data.series().size(); ++i)
      if (m_data.series()[i].shown) line(i);
  }

  void bars() {
    for (int day = 0; day < m_data.count(); ++day) bar(day);
    m_painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < m_data.series().size(); ++i)
      if (m_data.series()[i].shown && m_data.series()[i].planned) steps(i);
  }

 private:
  double onPixel(double at) const {
    const double ratio = m_painter.device()->devicePixelRatioF();
    return std::round(at * ratio) / ratio;
  }

  QString dayLabel(int day, bool month, bool first) const {
    const QDate date = m_data.days()[day];
    if (!date.isValid()) return m_data.dayKey(day);
    if (!month) return Format::shortDate(date);
    return QLocale().toString(date, first || date.month() == 1 ? u"MMM yyyy"_s : u"MMM"_s);
  }

  void line(int index) {
    const ChartSeries& series = m_data.series()[index];
    const double width = m_scale.dayWidth() < closeDays || series.reference ? 1.5 : 2;
    lineOf(index, m_look.colorOf(m_data.series(), index), width, 0, m_data.count() - 1);
    if (series.wrongFrom >= 0) lineOf(index, m_look.failed, width, series.wrongFrom, series.wrongTo);
  }

  void lineOf(int index, const QColor& color, double width, int from, int to) {
    const ChartSeries& series = m_data.series()[index];
    const int dash = series.reference ? referenceDash : series.look;
    QPolygonF run;
    const auto end = [&] {
      if (run.size() == 1) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(color);
        m_painter.drawEllipse(run.first(), 3, 3);
      } else if (run.size() > 1) {
        paintRun(run, seriesPen(color, width, dash));
      }
      run.clear();
    };
    for (int day = from; day <= to; ++day) {
      const double value = m_data.value(index, day);
      if (std::isfinite(value))
        run.append({m_scale.x(day), m_scale.y(value)});
      else
        end();
    }
    end();
  }

  /// Each day from edge to edge of its part, so that a step stands between two days.
  void steps(int index) {
    const QPen pen = seriesPen(m_look.colorOf(m_data.series(), index), 1.5, m_data.series()[index].look);
    const double half = m_scale.dayWidth() / 2;
    QPolygonF run;
    for (int day = 0; day <= m_data.count(); ++day) {
      const double value = day < m_data.count() ? m_data.value(index, day) : std::numeric_limits<double>::quiet_NaN();
      if (std::isfinite(value)) {
        const double y = onPixel(m_scale.y(value));
        run.append({m_scale.x(day) - half, y});
        run.append({m_scale.x(day) + half, y});
      } else if (!run.isEmpty()) {
        paintRun(run, pen);
        run.clear();
      }
    }
  }

  /// In pieces: the time that one line takes grows with the square of its corners, and a year's took 120 ms.
  void paintRun(const QPolygonF& run, QPen pen) {
    const bool dashed = pen.style() == Qt::CustomDashLine;
    // Round ends hide the seams, but would close the gaps between dashes.
    if (!dashed) pen.setCapStyle(Qt::RoundCap);
    const int piece = dashed ? 8 : 4;
    double drawn = 0;
    for (int from = 0; from + 1 < run.size(); from += piece) {
      const QPolygonF part = run.mid(from, piece + 1);
      if (dashed) pen.setDashOffset(drawn / pen.widthF());
      m_painter.setPen(pen);
      m_painter.drawPolyline(part);
      for (int i = 1; i < part.size(); ++i) drawn += QLineF(part[i - 1], part[i]).length();
    }
  }

  void bar(int day) {
    const double ratio = m_painter.device()->devicePixelRatioF();
    const double dayWidth = m_scale.dayWidth();
    const double width = std::max(1 / ratio, onPixel(dayWidth * 0.6));
    const double left = onPixel(m_scale.x(day) - width / 2);
    double sum = 0;
    for (int i = 0; i < m_data.series().size(); ++i) {
      const ChartSeries& series = m_data.series()[i];
      const double value = m_data.value(i, day);
      if (!series.shown || !(value > 0)) continue;
      if (series.planned) {
        const double top = onPixel(m_scale.y(value));
        if (series.toCome >= 0 && day >= series.toCome)
          m_painter.fillRect(QRectF(left, top, width, onPixel(m_scale.y(0)) - top), m_look.toCome);
        continue;
      }
      const double foot = onPixel(m_scale.y(sum));
      sum += value;
      const double top = std::min(onPixel(m_scale.y(sum)), foot - 1 / ratio);
      const double gap =
          foot - top > 2 && dayWidth >= closeDays && foot < m_scale.plot().bottom() - 0.5 ? onPixel(1) : 0;
      paintPart(m_painter, QRectF(left, top, width, foot - gap - top), m_look.colorOf(m_data.series(), i),
                series.failed);
    }
  }

  QPainter& m_painter;
  const ChartData& m_data;
  const ChartScale& m_scale;
  const ChartLook& m_look;
};

}  // namespace

QColor ChartLook::colorOf(const QList<ChartSeries>& all, int index) const {
  if (all.value(index).reference) return reference;
  if (all.value(index).failed || series.isEmpty()) return failed;
  return series[all.value(index).look % series.size()];
}

QList<double> seriesDash(int index) {
  static const std::array<QList<double>, 4> dashes{{{}, {6, 3}, {2, 3}, {8, 3, 2, 3}}};
  return dashes[size_t(std::max(0, index)) % dashes.size()];
}

void paintStroke(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& color, double width,
                 int series) {
  painter.setPen(seriesPen(color, width, series));
  painter.drawLine(from, to);
}

void paintPart(QPainter& painter, const QRectF& part, const QColor& color, bool failed) {
  if (!failed) {
    painter.fillRect(part, color);
    return;
  }
  QColor ground = color;
  ground.setAlphaF(0.3F);
  painter.fillRect(part, ground);
  painter.save();
  painter.setClipRect(part);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, 1.5));
  for (double x = part.left() - part.height(); x < part.right(); x += 4)
    painter.drawLine(QPointF(x, part.bottom()), QPointF(x + part.height(), part.top()));
  painter.restore();
}

void paintChart(QPainter& painter, const ChartData& data, const ChartScale& scale, const ChartLook& look) {
  ChartPainter chart(painter, data, scale, look);
  painter.setFont(look.font);
  painter.setPen(look.label);
  chart.values();
  chart.days();
  if (scale.kind() == ChartScale::Kind::bar)
    chart.bars();
  else
    chart.lines();
}

}  // namespace orv
