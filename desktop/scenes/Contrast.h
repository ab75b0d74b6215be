#pragma once

#include <QHash>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegion>
#include <algorithm>
#include <cmath>

namespace orv {

/// Looks for what cannot be read: compares each text and icon of a window with the ground that a picture of the window
/// shows under it. What is faded because it is off, busy or waits to be replaced is exempt.
class Contrast {
 public:
  explicit Contrast(QQuickWindow& window)
      : m_window(window), m_picture(window.grabWindow().convertToFormat(QImage::Format_RGB32)) {}
  Contrast(QQuickWindow& window, const QImage& picture)
      : m_window(window), m_picture(picture.convertToFormat(QImage::Format_RGB32)) {}

  /// In what a modal popup leaves undimmed.
  QStringList faults() {
    QList<QQuickItem*> roots{m_window.contentItem()};
    for (QQuickItem* child : m_window.contentItem()->childItems())
      if (child->inherits("QQuickOverlay") && child->isVisible()) roots = undimmed(*child).value_or(roots);
    QStringList found;
    for (QQuickItem* root : roots) look(*root, 1, everything(), found);
    return found;
  }
  QStringList faultsIn(QQuickItem& item) {
    QStringList found;
    look(item, 1, everything(), found);
    return found;
  }

  /// From 1 to 21.
  static double ratio(QRgb one, QRgb other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
  }

 private:
  QRectF everything() const { return {QPointF(), QSizeF(m_window.size())}; }

  static double luminance(QRgb colour) {
    const auto linear = [](int channel) {
      const double share = channel / 255.0;
      return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
  }
  static int distance(QRgb one, QRgb other) {
    return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
           std::abs(qBlue(one) - qBlue(other));
  }
  static QRgb over(QRgb ground, const QColor& ink, double opacity) {
    const double share = ink.alphaF() * opacity;
    const auto mixed = [share](int below, int above) { return int(std::lround(below + (above - below) * share)); };
    return qRgb(mixed(qRed(ground), ink.red()), mixed(qGreen(ground), ink.green()), mixed(qBlue(ground), ink.blue()));
  }

  /// What lies over the topmost scrim; nothing where there is none.
  static std::optional<QList<QQuickItem*>> undimmed(const QQuickItem& overlay) {
    QList<QQuickItem*> drawn = overlay.childItems();
    std::stable_sort(drawn.begin(), drawn.end(),
                     [](const auto* one, const auto* other) { return one->z() < other->z(); });
    const auto scrim = std::find_if(drawn.crbegin(), drawn.crend(), [&overlay](const QQuickItem* item) {
      const int alpha = item->property("color").value<QColor>().alpha();
      return item->isVisible() && item->inherits("QQuickRectangle") && item->size() == overlay.size() && alpha > 0 &&
             alpha < 255;
    });
    if (scrim == drawn.crend()) return {};
    return QList<QQuickItem*>(scrim.base(), drawn.cend());
  }

  static bool isBusy(const QQuickItem& item) {
    const auto says = [](const QQuickItem& one) {
      return one.property("busy").toBool() || one.property("waiting").toBool();
    };
    return says(item) || (item.parentItem() && says(*item.parentItem()));
  }

  /// What of it nothing opaque lies over that is drawn later, and no scroll bar: the largest piece.
  QRect uncovered(const QQuickItem& item, const QRect& pixels) const {
    QRegion left(pixels);
    for (const QQuickItem* at = &item; const QQuickItem* parent = at->parentItem(); at = parent) {
      const auto all = parent->childItems();
      const auto own = all.indexOf(at);
      for (qsizetype i = 0; i < all.size(); ++i)
        if (all[i]->z() > at->z() || (all[i]->z() == at->z() && i > own)) subtract(*all[i], left);
    }
    const auto area = [](const QRect& one) { return one.width() * one.height(); };
    const auto largest = std::max_element(
        left.begin(), left.end(), [&area](const QRect& one, const QRect& other) { return area(one) < area(other); });
    return largest == left.end() ? QRect() : *largest;
  }
  void subtract(const QQuickItem& item, QRegion& left) const {
    if (!item.isVisible()) return;
    const bool isBar = item.inherits("QQuickScrollBar");
    if (item.opacity() < 1 && !isBar) return;
    if (isBar || (item.inherits("QQuickRectangle") && item.property("color").value<QColor>().alpha() == 255))
      left -= pixelsOf(item.mapRectToScene(item.boundingRect()));
    for (const QQuickItem* child : item.childItems()) subtract(*child, left);
  }
  QRect pixelsOf(const QRectF& place) const {
    return QRectF(place.topLeft() * scale(), place.size() * scale()).toRect() & m_picture.rect();
  }
  double scale() const { return m_picture.width() / double(m_window.width()); }

  void look(QQuickItem& item, double opacity, QRectF seen, QStringList& found) {
    opacity *= item.opacity();
    if (!item.isVisible() || opacity == 0 || (opacity < 1 && (!item.isEnabled() || isBusy(item)))) return;
    const QRectF place = item.mapRectToScene(item.boundingRect());
    if (item.clip()) seen &= place;
    const QString text = item.property("text").toString();
    const bool isText =
        item.inherits("QQuickText") || item.inherits("QQuickTextInput") || item.inherits("QQuickTextEdit");
    if (isText && !text.isEmpty()) judge(item, text, opacity, seen & place, found);
    if (item.inherits("orv::OrvIcon")) judge(item, item.property("name").toString(), opacity, seen & place, found);
    for (QQuickItem* child : item.childItems()) look(*child, opacity, seen, found);
  }

  static double wanted(const QQuickItem& item) {
    const QFont font = item.property("font").value<QFont>();
    const bool isLarge = font.pixelSize() >= 24 || (font.pixelSize() >= 19 && font.bold());
    return item.inherits("orv::OrvIcon") || isLarge ? 3 : 4.5;
  }

  void judge(const QQuickItem& item, const QString& what, double opacity, const QRectF& place, QStringList& found) {
    // Drawn by something else, as a code's digits are.
    if (item.property("color").value<QColor>().alpha() == 0) return;
    const QRect pixels = pixelsOf(place);
    const QRect around = pixels.adjusted(-1, -1, 1, 1) & m_picture.rect();
    QString fault = faultAt(item, opacity, pixels, around);
    if (fault.isEmpty()) return;
    // Only then: looking for what lies over it is a walk through the whole window.
    const QRect seen = uncovered(item, around);
    // Of a line that is cut along its length only strokes may be left, without the ground around them.
    if (seen.height() < item.property("font").value<QFont>().pixelSize() * scale()) return;
    if (seen != around) fault = faultAt(item, opacity, pixels & seen, seen);
    if (!fault.isEmpty()) found.append(QStringLiteral("“%1” %2").arg(what.left(40), fault));
  }

  QString faultAt(const QQuickItem& item, double opacity, const QRect& pixels, const QRect& around) const {
    if (pixels.width() < 4 || pixels.height() < 4) return {};
    const bool isSelected = !item.property("selectedText").toString().isEmpty();
    // An icon may fill its square, and a selection less than half of a short text's field.
    const QRgb ground = isSelected                      ? item.property("selectionColor").value<QColor>().rgb()
                        : item.inherits("orv::OrvIcon") ? mostOf(around, pixels)
                                                        : mostOf(pixels, {});
    const QRgb ink = over(ground, item.property(isSelected ? "selectedTextColor" : "color").value<QColor>(), opacity);
    const double reached = ratio(ink, ground);
    if (reached >= wanted(item) || !isDrawn(pixels, ground, ink)) return {};
    return QStringLiteral("has a contrast of %1:1 (%2 on %3)")
        .arg(QString::number(reached, 'f', 2), QColor(ink).name(), QColor(ground).name());
  }

  /// The colour that most of it has. Shades of one colour are counted together: under a shadow each line of the ground
  /// is another, and a stroke would have more of its own.
  QRgb mostOf(const QRect& pixels, const QRect& leftOut) const {
    QHash<QRgb, int> counts;
    QRgb last = m_picture.pixel(pixels.topLeft());
    int run = 0;
    // By runs of one colour: nearly all of a text's ground is one.
    const auto count = [&] {
      if (run > 0) counts[last] += run;
      run = 0;
    };
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
      const auto* line = reinterpret_cast<const QRgb*>(m_picture.constScanLine(y));
      for (int x = pixels.left(); x <= pixels.right(); ++x) {
        if (leftOut.contains(x, y)) continue;
        if (line[x] != last) count();
        last = line[x];
        ++run;
      }
    }
    count();
    const auto shade = [](QRgb colour) { return colour & 0xe0e0e0; };
    QHash<QRgb, int> shades;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) shades[shade(it.key())] += it.value();
    const auto most = [&](QRgb one, QRgb other) {
      return std::pair(shades.value(shade(one)), counts.value(one)) <
             std::pair(shades.value(shade(other)), counts.value(other));
    };
    const auto found = std::max_element(counts.keyBegin(), counts.keyEnd(), most);
    return found == counts.keyEnd() ? last : *found;
  }

  /// Something else may lie over it.
  bool isDrawn(const QRect& pixels, QRgb ground, QRgb ink) const {
    const int reach = distance(ground, ink) * 2 / 5;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
      for (int x = pixels.left(); x <= pixels.right(); ++x)
        if (distance(m_picture.pixel(x, y), ink) <= reach) return true;
    return false;
  }

  QQuickWindow& m_window;
  QImage m_picture;
};

}  // namespace orv
