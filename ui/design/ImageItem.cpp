#include "ui/design/ImageItem.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>

namespace orv {

ImageItem::ImageItem(QQuickItem* parent) : QQuickItem(parent) { setFlag(ItemHasContents); }

void ImageItem::redraw() {
  m_stale = true;
  polish();
}

void ImageItem::updatePolish() {
  // Out of sight, a chart behind its table, say, nothing is painted until it shows again.
  if (!m_stale || !isVisible() || !window()) return;
  m_stale = false;
  m_fresh = true;
  const double ratio = window()->effectiveDevicePixelRatio();
  m_image =
      QImage(int(std::ceil(width() * ratio)), int(std::ceil(height() * ratio)), QImage::Format_ARGB32_Premultiplied);
  if (!m_image.isNull()) {
    m_image.setDevicePixelRatio(ratio);
    m_image.fill(Qt::transparent);
    QPainter painter(&m_image);
    paint(painter);
  }
  update();
}

QSGNode* ImageItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<QSGImageNode*>(old);
  if (m_image.isNull()) {
    delete node;
    return nullptr;
  }
  if (!node) {
    node = window()->createImageNode();
    node->setOwnsTexture(true);
    m_fresh = true;
  }
  if (std::exchange(m_fresh, false)) {
    node->setTexture(window()->createTextureFromImage(m_image));
    // Exactly the image's pixels: stretched to the item, by the fraction of one, it would blur.
    node->setRect(QRectF(QPointF(), QSizeF(m_image.size()) / m_image.devicePixelRatio()));
  }
  return node;
}

void ImageItem::geometryChange(const QRectF& now, const QRectF& before) {
  if (now.size() != before.size()) redraw();
  QQuickItem::geometryChange(now, before);
}

void ImageItem::itemChange(ItemChange change, const ItemChangeData& data) {
  if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) redraw();
  if (change == ItemVisibleHasChanged && m_stale) polish();
  QQuickItem::itemChange(change, data);
}

}  // namespace orv
