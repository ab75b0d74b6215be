#pragma once

#include <QColor>
#include <QFont>

#include "ui/design/ChartData.h"
#include "ui/design/ChartScale.h"

class QPainter;

namespace orv {

/// The colours and the font of a chart.
struct ChartLook {
  QList<QColor> series;
  QColor failed;
  QColor grid;
  QColor label;
  QColor toCome;
  QColor reference;
  QFont font;

  QColor colorOf(const QList<ChartSeries>& all, int index) const;
};

/// How a series is told from the others without its colour: no dash, 6-3, 2-3, 8-3-2-3.
QList<double> seriesDash(int index);
/// The dash of what the others are compared with.
inline constexpr int referenceDash = 1;
void paintStroke(QPainter& painter, const QPointF& from, const QPointF& to, const QColor& color, double width,
                 int series);
/// Part of a bar: filled, or hatched for what went wrong.
void paintPart(QPainter& painter, const QRectF& part, const QColor& color, bool failed);

/// The grid with its labels, and the figures.
void paintChart(QPainter& painter, const ChartData& data, const ChartScale& scale, const ChartLook& look);

}  // namespace orv
