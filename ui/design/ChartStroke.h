#pragma once

#include <QColor>

#include "ui/design/ImageItem.h"

namespace orv {

/// A piece of a series as its chart draws it, for legends and read-outs; upright as a chart's cursor.
class ChartStroke : public ImageItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
  /// The series' place in the chart, which decides its dash.
  Q_PROPERTY(int series MEMBER m_series NOTIFY changed)
  Q_PROPERTY(qreal thickness MEMBER m_thickness NOTIFY changed)
  /// Part of a bar in place of a line.
  Q_PROPERTY(bool bar MEMBER m_bar NOTIFY changed)
  Q_PROPERTY(bool failed MEMBER m_failed NOTIFY changed)

 public:
  explicit ChartStroke(QQuickItem* parent = nullptr);

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) override;

 private:
  QColor m_color;
  int m_series = 0;
  double m_thickness = 2;
  bool m_bar = false;
  bool m_failed = false;
};

}  // namespace orv
