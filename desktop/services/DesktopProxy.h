#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QUrl>
#include <functional>
#include <optional>

namespace orv {

/// The proxy that the desktop's settings name for the service, from the proxy portal. Never waits for the portal.
class DesktopProxy final : public QObject {
  Q_OBJECT

 public:
  /// Gets the proxy as APIClient takes it: empty for the direct way, nothing when the desktop has no say.
  using Found = std::function<void(std::optional<QByteArray>)>;

  DesktopProxy(QDBusConnection bus, QUrl service, Found found, QObject* parent = nullptr);

  /// False when there is nobody to ask, or no need: somebody who names a proxy in the environment means this program.
  bool ask();

  /// The first of the portal's answers ("http://host:port", "socks://…", "direct://") that can be taken.
  static std::optional<QByteArray> usable(const QStringList& answers);

 private:
  bool environmentDecides() const;

  QDBusConnection m_bus;
  QUrl m_service;
  Found m_found;
};

}  // namespace orv
