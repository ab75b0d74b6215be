#pragma once

#include <QImage>
#include <QQuickItem>

class QPainter;

namespace orv {

/// An item that paints itself with QPainter, in device pixels and only after redraw(): the software renderer draws no
/// geometry of one's own. What moves belongs into other items above it.
/// Derive from orv::ImageItem, with the namespace: qmllint does not find it by a shorter name.
class ImageItem : public QQuickItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit ImageItem(QQuickItem* parent = nullptr);

 protected:
  virtual void paint(QPainter& painter) = 0;
  /// Once before the next frame, however often it is called.
  void redraw();

  void updatePolish() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  QImage m_image;
  bool m_stale = true;
  bool m_fresh = false;
};

}  // namespace orv
