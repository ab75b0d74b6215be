#include "desktop/services/MemoryPressureMonitor.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr auto interval = std::chrono::seconds(10);
// Percent of the last ten seconds in which some program waited for memory.
constexpr double pressedFrom = 10;
constexpr double relievedBelow = 2;

QByteArray kernelFigures() {
  QFile file(u"/proc/pressure/memory"_s);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Of "some avg10=1.23 avg60=…"; nothing when the figure is not there.
std::optional<double> tenSeconds(const QByteArray& figures) {
  const QByteArrayView name = "some avg10=";
  const auto at = figures.indexOf(name);
  if (at < 0) return std::nullopt;
  const auto from = at + name.size();
  bool isNumber = false;
  const double value = figures.mid(from, figures.indexOf(' ', from) - from).toDouble(&isNumber);
  return isNumber ? std::optional(value) : std::nullopt;
}

}  // namespace

MemoryPressureMonitor::MemoryPressureMonitor(Clock& clock, QDBusConnection systemBus, QObject* parent)
    : MemoryPressureMonitor(clock, std::move(systemBus), kernelFigures, parent) {}

MemoryPressureMonitor::MemoryPressureMonitor(Clock& clock, QDBusConnection systemBus, ReadFigures read, QObject* parent)
    : MemoryPressure(parent),
      m_clock(clock),
      m_read(std::move(read)),
      m_monitor(systemBus, u"org.freedesktop.LowMemoryMonitor"_s) {
  // No service name: the toolkit would ask the bus for its owner, and wait for the answer.
  systemBus.connect(QString(), u"/org/freedesktop/LowMemoryMonitor"_s, u"org.freedesktop.LowMemoryMonitor"_s,
                    u"LowMemoryWarning"_s, this, SLOT(lowMemoryWarning(QDBusMessage)));
  // Not at once: nobody listens yet.
  m_timer = m_clock.startTimer(std::chrono::milliseconds(0), [this] { look(); });
}

void MemoryPressureMonitor::lowMemoryWarning(const QDBusMessage& message) {
  if (m_monitor.sent(message)) tell();
}

void MemoryPressureMonitor::tell() {
  const QDateTime now = m_clock.now();
  // A clock that was set back is no reason to be silent.
  if (m_told.isValid() && m_told <= now && m_told.msecsTo(now) < std::chrono::milliseconds(interval).count()) return;
  m_told = now;
  Q_EMIT pressure();
}

void MemoryPressureMonitor::look() {
  const auto figure = tenSeconds(m_read());
  if (!figure) return;
  m_timer = m_clock.startTimer(interval, [this] { look(); });
  // Told once as it begins: throwing the caches away again every ten seconds would make a slow machine slower.
  if (*figure < relievedBelow) m_pressed = false;
  if (*figure >= pressedFrom && !std::exchange(m_pressed, true)) tell();
}

}  // namespace orv
