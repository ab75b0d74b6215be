#include "ui/design/FloatShadow.h"

#include <QPainter>
#include <cmath>

namespace orv {

void FloatShadow::setColor(const QColor& color) {
  m_color = color;
  redraw();
  Q_EMIT changed();
}

void FloatShadow::setRadius(double radius) {
  m_radius = radius;
  redraw();
  Q_EMIT changed();
}

void FloatShadow::setBlur(double blur) {
  m_blur = blur;
  redraw();
  Q_EMIT changed();
}

QImage FloatShadow::shade(const QSize& size, double ratio) const {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  const double radius = m_radius * ratio, spread = m_blur * ratio / 2 * std::sqrt(2.0);
  const double halfWidth = size.width() / 2.0 - m_blur * ratio, halfHeight = size.height() / 2.0 - m_blur * ratio;
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    const double down = std::abs(y + 0.5 - size.height() / 2.0) - halfHeight + radius;
    for (int x = 0; x < size.width(); ++x) {
      const double right = std::abs(x + 0.5 - size.width() / 2.0) - halfWidth + radius;
      // How far outside the rounded rectangle, negative within.
      const double distance =
          std::hypot(std::max(right, 0.0), std::max(down, 0.0)) + std::min(std::max(right, down), 0.0) - radius;
      const double share = std::erfc(distance / spread) / 2;
      line[x] = qPremultiply(
          qRgba(m_color.red(), m_color.green(), m_color.blue(), int(std::lround(m_color.alpha() * share))));
    }
  }
  return image;
}

void FloatShadow::paint(QPainter& painter) {
  const double ratio = painter.device()->devicePixelRatioF();
  const QSize full(int(std::ceil(width() * ratio)), int(std::ceil(height() * ratio)));
  // Only the corners differ; between them the same row and column go on.
  const int corner = int(std::ceil((2 * m_blur + m_radius) * ratio));
  const QSize made(std::min(full.width(), 2 * corner + 1), std::min(full.height(), 2 * corner + 1));
  if (made.isEmpty()) return;
  const QImage image = shade(made, ratio);
  painter.scale(1 / ratio, 1 / ratio);
  const auto parts = [corner](int whole, int part) {
    return whole == part ? QList<std::array<int, 4>>{{0, whole, 0, part}}
                         : QList<std::array<int, 4>>{{0, corner, 0, corner},
                                                     {corner, whole - 2 * corner, corner, 1},
                                                     {whole - corner, corner, corner + 1, corner}};
  };
  for (const auto& [x, width, fromX, fromWidth] : parts(full.width(), made.width()))
    for (const auto& [y, height, fromY, fromHeight] : parts(full.height(), made.height()))
      painter.drawImage(QRect(x, y, width, height), image, QRect(fromX, fromY, fromWidth, fromHeight));
}

}  // namespace orv
