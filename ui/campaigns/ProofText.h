#pragma once

#include <QColor>
#include <QFont>
#include <QStringList>

#include "ui/design/ImageItem.h"

namespace orv {

/// A text in small, cut at whole lines, with what is wrong in it set off.
class ProofText : public orv::ImageItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QStringList lines MEMBER m_lines WRITE setLines NOTIFY drawnOtherwise)
  /// Start and length of each stretch that is wrong, the lines joined by line feeds.
  Q_PROPERTY(QList<int> wrong MEMBER m_wrong WRITE setWrong NOTIFY drawnOtherwise)
  Q_PROPERTY(QFont font MEMBER m_font WRITE setFont NOTIFY drawnOtherwise)
  Q_PROPERTY(QColor ink MEMBER m_ink WRITE setInk NOTIFY drawnOtherwise)
  Q_PROPERTY(QColor wrongInk MEMBER m_wrongInk WRITE setWrongInk NOTIFY drawnOtherwise)
  Q_PROPERTY(QColor wrongGround MEMBER m_wrongGround WRITE setWrongGround NOTIFY drawnOtherwise)

 public:
  using ImageItem::ImageItem;

  void setLines(const QStringList& lines) { set(m_lines, lines); }
  void setWrong(const QList<int>& wrong) { set(m_wrong, wrong); }
  void setFont(const QFont& font) { set(m_font, font); }
  void setInk(const QColor& ink) { set(m_ink, ink); }
  void setWrongInk(const QColor& ink) { set(m_wrongInk, ink); }
  void setWrongGround(const QColor& ground) { set(m_wrongGround, ground); }

 Q_SIGNALS:
  void drawnOtherwise();

 protected:
  void paint(QPainter& painter) override;

 private:
  template <class Value>
  void set(Value& known, const Value& value) {
    if (known == value) return;
    known = value;
    redraw();
    Q_EMIT drawnOtherwise();
  }
  double paintParagraph(QPainter& painter, const QString& text, int start, double top) const;

  QStringList m_lines;
  QList<int> m_wrong;
  QFont m_font;
  QColor m_ink, m_wrongInk, m_wrongGround;
};

}  // namespace orv
