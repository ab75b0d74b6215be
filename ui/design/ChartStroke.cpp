#include "ui/design/ChartStroke.h"

#include "ui/design/ChartPicture.h"

namespace orv {

ChartStroke::ChartStroke(QQuickItem* parent) : ImageItem(parent) {
  connect(this, &ChartStroke::changed, this, &ChartStroke::redraw);
}

void ChartStroke::paint(QPainter& painter) {
  const QRectF all(0, 0, width(), height());
  if (m_bar)
    paintPart(painter, all, m_color, m_failed);
  else if (height() > width())
    paintStroke(painter, {all.center().x(), 0}, {all.center().x(), all.bottom()}, m_color, m_thickness, m_series);
  else
    paintStroke(painter, {0, all.center().y()}, {all.right(), all.center().y()}, m_color, m_thickness, m_series);
}

}  // namespace orv
