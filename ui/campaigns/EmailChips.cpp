#include "ui/campaigns/EmailChips.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace orv {
namespace {

/// Beyond the first and the last letter.
constexpr double side = 3;
constexpr double above = 2;

}  // namespace

void EmailChips::setText(EmailText* text) {
  if (m_text == text) return;
  if (m_text) m_text->disconnect(this);
  m_text = text;
  if (m_text) {
    connect(m_text, &EmailText::documentChanged, this, &EmailChips::follow);
    connect(m_text, &EmailText::marked, this, &EmailChips::redraw);
  }
  follow();
  Q_EMIT textChanged();
}

void EmailChips::follow() {
  if (m_document) m_document->documentLayout()->disconnect(this);
  m_document = m_text && m_text->document() ? m_text->document()->textDocument() : nullptr;
  if (m_document) {
    const auto* layout = m_document->documentLayout();
    connect(layout, &QAbstractTextDocumentLayout::update, this, &EmailChips::redraw);
    connect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, &EmailChips::redraw);
  }
  redraw();
}

void EmailChips::setOrigin(const QPointF& origin) {
  if (m_origin == origin) return;
  m_origin = origin;
  redraw();
  Q_EMIT drawnOtherwise();
}

void EmailChips::setRadius(double radius) {
  m_radius = radius;
  redraw();
  Q_EMIT drawnOtherwise();
}

void EmailChips::paint(QPainter& painter) {
  if (!m_document) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const auto* layout = m_document->documentLayout();
  const int first = layout->hitTest(QPointF(0, std::max(0.0, -m_origin.y())), Qt::FuzzyHit);
  for (QTextBlock block = m_document->findBlock(std::max(0, first)); block.isValid(); block = block.next()) {
    const QPointF at = m_origin + layout->blockBoundingRect(block).topLeft();
    if (at.y() > height()) return;
    paint(painter, block, at);
  }
}

void EmailChips::paint(QPainter& painter, const QTextBlock& block, const QPointF& at) const {
  const QTextLayout& lines = *block.layout();
  for (const QTextLayout::FormatRange& range : lines.formats()) {
    const QVariant ground = range.format.property(EmailText::groundProperty);
    if (!ground.isValid()) continue;
    painter.setBrush(ground.value<QColor>());
    for (int number = 0; number < lines.lineCount(); ++number) {
      const QTextLine line = lines.lineAt(number);
      const int from = std::max(range.start, line.textStart());
      const int to = std::min(range.start + range.length, line.textStart() + line.textLength());
      if (from >= to) continue;
      const double left = line.cursorToX(from), right = line.cursorToX(to);
      // From the letters, not from the line, which may be higher than they are.
      const double top = line.y() - above, height = line.ascent() + line.descent() + 2 * above;
      painter.drawRoundedRect(
          QRectF(std::min(left, right) - side, top, std::abs(right - left) + 2 * side, height).translated(at), m_radius,
          m_radius);
    }
  }
}

}  // namespace orv
