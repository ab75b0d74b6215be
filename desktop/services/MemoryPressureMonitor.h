#pragma once

#include <QDBusConnection>
#include <functional>
#include <memory>

#include "app/base/desktop/MemoryPressure.h"
#include "desktop/services/BusName.h"
#include "kit/async/Clock.h"

namespace orv {

/// Listens to the system's low-memory monitor and watches the kernel's pressure figures; a machine with neither simply
/// never reports any. Told at most once in ten seconds, for what is let go each time has to be fetched again.
class MemoryPressureMonitor final : public MemoryPressure {
  Q_OBJECT

 public:
  /// The text of the kernel's pressure file; empty when there is none.
  using ReadFigures = std::function<QByteArray()>;

  MemoryPressureMonitor(Clock& clock, QDBusConnection systemBus, QObject* parent = nullptr);
  MemoryPressureMonitor(Clock& clock, QDBusConnection systemBus, ReadFigures read, QObject* parent = nullptr);

 private Q_SLOTS:
  void lowMemoryWarning(const QDBusMessage& message);

 private:
  void look();
  void tell();

  Clock& m_clock;
  ReadFigures m_read;
  BusName m_monitor;
  QDateTime m_told;
  bool m_pressed = false;
  std::unique_ptr<Clock::Timer> m_timer;
};

}  // namespace orv
