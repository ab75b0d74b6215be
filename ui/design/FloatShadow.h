#pragma once

#include <QColor>

#include "ui/design/ImageItem.h"

namespace orv {

/// The soft shadow of a rounded rectangle that lies `blur` inside the item on every side. Painted once for a size:
/// effects need a graphics card, which not every desktop has.
class FloatShadow : public ImageItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER m_color WRITE setColor NOTIFY changed)
  Q_PROPERTY(double radius MEMBER m_radius WRITE setRadius NOTIFY changed)
  /// From where nothing of it is seen to where it is full.
  Q_PROPERTY(double blur MEMBER m_blur WRITE setBlur NOTIFY changed)

 public:
  using ImageItem::ImageItem;

  void setColor(const QColor& color);
  void setRadius(double radius);
  void setBlur(double blur);

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) override;

 private:
  /// Of such a size, in device pixels.
  QImage shade(const QSize& size, double ratio) const;

  QColor m_color;
  double m_radius = 0;
  double m_blur = 0;
};

}  // namespace orv
