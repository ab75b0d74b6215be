#include "ui/design/OrvIcon.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSvgRenderer>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The icon's shape; the colour is put on later, so that a theme switch reads no file.
QImage shape(const QString& name, int pixels) {
  static QHash<QPair<QString, int>, QImage> shapes;
  QImage& image = shapes[{name, pixels}];
  if (!image.isNull()) return image;
  image = QImage(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QSvgRenderer renderer(u":/orvella/icons/"_s + name + u".svg"_s);
  if (!renderer.isValid()) {
    qWarning("No icon named %s", qPrintable(name));
    return image;
  }
  QPainter painter(&image);
  renderer.render(&painter, QRectF(0, 0, pixels, pixels));
  return image;
}

QImage tinted(const QString& name, int pixels, const QColor& color) {
  QImage image = shape(name, pixels).copy();
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), color);
  return image;
}

}  // namespace

OrvIcon::OrvIcon(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  setImplicitSize(m_size, m_size);
}

void OrvIcon::setName(const QString& name) {
  if (std::exchange(m_name, name) == name) return;
  redraw();
  Q_EMIT nameChanged();
}

void OrvIcon::setColor(const QColor& color) {
  if (std::exchange(m_color, color) == color) return;
  redraw();
  Q_EMIT colorChanged();
}

void OrvIcon::setSize(int size) {
  if (std::exchange(m_size, size) == size) return;
  setImplicitSize(size, size);
  redraw();
  Q_EMIT sizeChanged();
}

void OrvIcon::redraw() {
  m_stale = true;
  update();
}

void OrvIcon::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemDevicePixelRatioHasChanged) redraw();
  QQuickItem::itemChange(change, data);
}

QSGNode* OrvIcon::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<QSGImageNode*>(old);
  if (m_name.isEmpty() || !m_color.isValid() || m_size <= 0) {
    delete node;
    return nullptr;
  }
  if (!node) {
    node = window()->createImageNode();
    node->setOwnsTexture(true);
    m_stale = true;
  }
  if (std::exchange(m_stale, false)) {
    const int pixels = qRound(m_size * window()->effectiveDevicePixelRatio());
    node->setTexture(window()->createTextureFromImage(tinted(m_name, pixels, m_color)));
  }
  node->setRect(0, 0, m_size, m_size);
  return node;
}

}  // namespace orv
