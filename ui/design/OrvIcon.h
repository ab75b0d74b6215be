#pragma once

#include <QColor>
#include <QQuickItem>

namespace orv {

/// A monochrome icon by its freedesktop name, in any colour. Drawn from the copies in this program, so that it looks
/// the same under every icon theme, and under none.
class OrvIcon : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
  Q_PROPERTY(int size READ size WRITE setSize NOTIFY sizeChanged)

 public:
  explicit OrvIcon(QQuickItem* parent = nullptr);

  QString name() const { return m_name; }
  void setName(const QString& name);
  QColor color() const { return m_color; }
  void setColor(const QColor& color);
  int size() const { return m_size; }
  void setSize(int size);

 Q_SIGNALS:
  void nameChanged();
  void colorChanged();
  void sizeChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void redraw();

  QString m_name;
  QColor m_color;
  int m_size = 16;
  bool m_stale = true;
};

}  // namespace orv
