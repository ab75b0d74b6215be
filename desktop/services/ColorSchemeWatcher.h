#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "desktop/services/BusName.h"

namespace orv {

/// The desktop's own choice of light or dark and of motion, from the settings portal. Never waits for the portal: until
/// it answers, and without one, there is no preference.
class ColorSchemeWatcher final : public QObject {
  Q_OBJECT

 public:
  enum class Scheme { none, dark, light };
  Q_ENUM(Scheme)

  explicit ColorSchemeWatcher(QDBusConnection bus, QObject* parent = nullptr);

  Scheme scheme() const { return m_scheme; }
  bool reducedMotion() const { return m_reducedMotion; }
  /// Takes over what the portal says of one of its settings.
  void apply(const QString& key, const QVariant& value);

 Q_SIGNALS:
  void changed();

 private Q_SLOTS:
  void settingChanged(const QDBusMessage& message);

 private:
  void readAll();

  QDBusConnection m_bus;
  BusName m_portal;
  Scheme m_scheme = Scheme::none;
  bool m_reducedMotion = false;
};

}  // namespace orv
