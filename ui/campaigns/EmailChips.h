#pragma once

#include "ui/campaigns/EmailText.h"
#include "ui/design/ImageItem.h"

class QTextBlock;

namespace orv {

/// The grounds of what an EmailText sets off, to lie under its control. It has the size of what is in sight and draws
/// no more than that.
class EmailChips : public orv::ImageItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orv::EmailText* text READ text WRITE setText NOTIFY textChanged)
  /// Where the text begins in this item; above it once somebody has scrolled.
  Q_PROPERTY(QPointF origin MEMBER m_origin WRITE setOrigin NOTIFY drawnOtherwise)
  Q_PROPERTY(double radius MEMBER m_radius WRITE setRadius NOTIFY drawnOtherwise)

 public:
  using ImageItem::ImageItem;

  EmailText* text() const { return m_text; }
  void setText(EmailText* text);
  void setOrigin(const QPointF& origin);
  void setRadius(double radius);

 Q_SIGNALS:
  void textChanged();
  void drawnOtherwise();

 protected:
  void paint(QPainter& painter) override;

 private:
  void follow();
  void paint(QPainter& painter, const QTextBlock& block, const QPointF& at) const;

  QPointer<EmailText> m_text;
  QPointer<QTextDocument> m_document;
  QPointF m_origin;
  double m_radius = 0;
};

}  // namespace orv
