#include "ui/design/ChartPlot.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr double labelsBelow = 24;
constexpr double edge = 8;
/// The gutter of most charts, so that switching a series off does not move the days.
constexpr double leastGutter = 36;
constexpr double tickRoom = 32;

}  // namespace

ChartPlot::ChartPlot(QQuickItem* parent) : ImageItem(parent) {
  connect(this, &ChartPlot::lookChanged, this, &ChartPlot::takeData);
}

void ChartPlot::setDays(const QStringList& days) {
  if (std::exchange(m_days, days) == days) return;
  m_data.setDays(days);
  takeData();
}

void ChartPlot::setSeries(const QVariantList& series) {
  m_seriesMaps = series;
  // A store tells all its changes by one signal, and most leave the figures as they were.
  if (m_data.setSeries(series)) takeData();
}

void ChartPlot::setDayNotes(const QStringList& notes) {
  if (std::exchange(m_dayNotes, notes) == notes) return;
  m_data.setDayNotes(notes);
  takeData();
}

QString ChartPlot::kind() const { return m_kind == ChartScale::Kind::bar ? u"bar"_s : u"line"_s; }

void ChartPlot::setKind(const QString& kind) {
  const auto wanted = kind == u"bar" ? ChartScale::Kind::bar : ChartScale::Kind::line;
  if (std::exchange(m_kind, wanted) != wanted) takeData();
}

void ChartPlot::setUnit(const QString& unit) {
  if (std::exchange(m_unit, unit) == unit) return;
  m_data.setUnit(unit);
  takeData();
}

void ChartPlot::setSeriesColors(const QList<QColor>& colors) {
  m_seriesColors = colors;
  takeData();
}

void ChartPlot::takeData() {
  layOut();
  m_legend = makeLegend();
  Q_EMIT dataChanged();
}

void ChartPlot::componentComplete() {
  ImageItem::componentComplete();
  takeData();
}

void ChartPlot::layOut() {
  if (!isComponentComplete()) return;
  const auto extent = m_data.extent(m_kind == ChartScale::Kind::bar);
  const double room = std::max(0.0, height() - edge - labelsBelow);
  const int most = std::clamp(int(room / tickRoom) + 1, 2, 5);
  const ValueAxis axis = m_upTo > 0 ? tensUpTo(m_data.lowest(), m_upTo, most)
                                    : roundAxis(extent.lowest, extent.highest, extent.whole, most);
  const QFontMetricsF metrics(m_labelFont);
  double gutter = leastGutter;
  for (const double tick : axis.ticks())
    gutter = std::max(gutter, std::ceil(metrics.horizontalAdvance(m_data.valueText(tick))) + edge);
  const QRectF plot(gutter, edge, std::max(0.0, width() - gutter - edge), room);
  m_scale = ChartScale(m_kind, m_data.count(), plot, axis);
  findCurrent();
  redraw();
  Q_EMIT layoutChanged();
  Q_EMIT currentChanged();
}

void ChartPlot::findCurrent() {
  m_own = m_pointer ? m_scale.dayAt(*m_pointer) : m_data.indexOf(m_chosen);
  m_current = m_own >= 0 ? m_own : m_followed < m_data.count() ? m_followed : -1;
}

void ChartPlot::setFollowed(int day) {
  if (std::exchange(m_followed, day) == day) return;
  findCurrent();
  Q_EMIT followedChanged();
  Q_EMIT currentChanged();
}

QVariantList ChartPlot::makeLegend() const {
  const ChartLook look{.series = m_seriesColors,
                       .failed = m_failedColor,
                       .grid = {},
                       .label = {},
                       .toCome = {},
                       .reference = m_referenceColor,
                       .font = {}};
  QVariantList list;
  for (int i = 0; i < seriesCount(); ++i) {
    const ChartSeries& series = m_data.series()[i];
    list.append(QVariantMap{{u"key"_s, series.key},
                            {u"label"_s, series.label},
                            {u"shown"_s, series.shown},
                            {u"failed"_s, series.failed},
                            {u"planned"_s, series.planned},
                            {u"look"_s, series.reference ? referenceDash : series.look},
                            {u"color"_s, look.colorOf(m_data.series(), i)}});
  }
  return list;
}

QString ChartPlot::widestValue() const {
  const auto extent = m_data.extent(false);
  QString text = m_data.valueText(std::max(extent.highest, -extent.lowest));
  QString note;
  for (const ChartSeries& series : m_data.series())
    for (const QString& each : series.notes)
      if (each.size() > note.size()) note = each;
  if (!note.isEmpty()) text += u" ("_s + note + u')';
  // Zero is among the widest digits.
  for (QChar& letter : text)
    if (letter.isDigit()) letter = u'0';
  return text;
}

QRectF ChartPlot::currentArea() const {
  if (m_current < 0) return {};
  const double width = m_kind == ChartScale::Kind::bar ? m_scale.dayWidth() : 0;
  return {m_scale.x(m_current) - width / 2, m_scale.plot().top(), width, m_scale.plot().height()};
}

QRectF ChartPlot::areaOf(int day) const {
  if (day < 0 || day >= m_data.count()) return {};
  const double width = std::max(2.0, std::round(m_scale.dayWidth()));
  return {std::round(m_scale.x(day) - width / 2), m_scale.plot().top(), width, m_scale.plot().height()};
}

QVariantList ChartPlot::readings() const {
  QVariantList list;
  for (int i = 0; m_current >= 0 && i < seriesCount(); ++i) {
    const double value = m_data.value(i, m_current);
    QVariantMap reading{{u"text"_s, m_data.readingText(i, m_current)}};
    if (m_kind == ChartScale::Kind::line && m_data.series()[i].shown && std::isfinite(value))
      reading.insert(u"y"_s, m_scale.y(value));
    list.append(reading);
  }
  return list;
}

void ChartPlot::pointAt(qreal x) {
  // A pointer that lies still is reported again whenever something under it changes, a key's read-out, say.
  if (std::exchange(m_pointed, x) == x) return;
  const QRectF& plot = m_scale.plot();
  if (x < plot.left() - edge || x > plot.right() + edge) {
    pointAway();
    return;
  }
  m_pointer = x;
  const int before = m_current;
  findCurrent();
  if (m_current != before) Q_EMIT currentChanged();
}

void ChartPlot::pointAway() {
  m_pointed.reset();
  if (!std::exchange(m_pointer, std::nullopt)) return;
  findCurrent();
  Q_EMIT currentChanged();
}

void ChartPlot::choose(qreal x) { moveTo(m_scale.dayAt(x)); }

void ChartPlot::moveBy(int days) {
  const int last = m_data.count() - 1;
  if (m_current < 0)
    moveTo(days > 0 ? 0 : last);
  else
    moveTo(std::clamp(m_current + days, 0, last));
}

void ChartPlot::moveTo(int day) {
  // The pointer lies still while keys are pressed; it takes over again when it moves.
  m_pointer.reset();
  m_chosen = m_data.dayKey(day);
  findCurrent();
  Q_EMIT currentChanged();
}

void ChartPlot::leave() {
  m_chosen.clear();
  findCurrent();
  Q_EMIT currentChanged();
}

void ChartPlot::paint(QPainter& painter) {
  paintChart(painter, m_data, m_scale,
             {m_seriesColors, m_failedColor, m_gridColor, m_labelColor, m_toComeColor, m_referenceColor, m_labelFont});
}

void ChartPlot::geometryChange(const QRectF& now, const QRectF& before) {
  ImageItem::geometryChange(now, before);
  if (now.size() != before.size()) layOut();
}

}  // namespace orv
