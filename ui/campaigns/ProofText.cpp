#include "ui/campaigns/ProofText.h"

#include <QPainter>
#include <QTextLayout>

namespace orv {
namespace {

/// Of the font's size.
constexpr double lineHeight = 17.0 / 12, paragraphGap = 5.0 / 12;
constexpr double side = 2;
constexpr double radius = 4;

}  // namespace

void ProofText::paint(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  double top = 0;
  int start = 0;
  for (const QString& text : std::as_const(m_lines)) {
    top = paintParagraph(painter, text, start, top);
    if (top > height()) return;
    start += int(text.size()) + 1;
  }
}

/// Where the next one begins; beyond the item where there is no room for it.
double ProofText::paintParagraph(QPainter& painter, const QString& text, int start, double top) const {
  const double step = m_font.pixelSize() * lineHeight;
  QList<QTextLayout::FormatRange> wrong;
  for (qsizetype i = 0; i + 1 < m_wrong.size(); i += 2) {
    const int from = std::max(m_wrong[i] - start, 0),
              to = std::min(m_wrong[i] + m_wrong[i + 1] - start, int(text.size()));
    if (from >= to) continue;
    QTextCharFormat format;
    format.setForeground(m_wrongInk);
    format.setFontWeight(QFont::DemiBold);
    wrong.append({from, to - from, format});
  }
  QTextLayout layout(text, m_font);
  layout.setFormats(wrong);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    if (top + step > height() + 0.5) {
      top = height() + step;
      break;
    }
    line.setLineWidth(width());
    line.setPosition({0, top + (step - line.height()) / 2});
    for (const auto& range : wrong) {
      const int from = std::max(range.start, line.textStart());
      const int to = std::min(range.start + range.length, line.textStart() + line.textLength());
      if (from >= to) continue;
      const double left = line.cursorToX(from), right = line.cursorToX(to);
      painter.setPen(Qt::NoPen);
      painter.setBrush(m_wrongGround);
      painter.drawRoundedRect(
          QRectF(std::min(left, right) - side, top + 0.5, std::abs(right - left) + 2 * side, step - 1), radius, radius);
    }
    painter.setPen(m_ink);
    line.draw(&painter, {});
    top += step;
  }
  layout.endLayout();
  return top > height() ? top : top + m_font.pixelSize() * paragraphGap;
}

}  // namespace orv
