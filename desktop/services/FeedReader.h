#pragma once

#include <QDBusConnection>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <chrono>

#include "app/base/desktop/ReleaseFeed.h"

namespace orv {

/// Reads the newest version from a static file that somebody put at a configured address:
/// {"version": "1.2.0", "page": "https://…"}.
class FeedReader final : public ReleaseFeed {
 public:
  /// Null unless an https address is configured, in the environment or in the settings file.
  static std::unique_ptr<FeedReader> configured(const QDBusConnection& bus = nobody());

  /// Gives up when the whole file is not here after `patience`. Goes by the desktop's proxy, where the bus has one.
  explicit FeedReader(QUrl address, std::chrono::milliseconds patience = std::chrono::seconds(20),
                      QDBusConnection bus = nobody())
      : m_address(std::move(address)), m_patience(patience), m_bus(std::move(bus)) {}
  Task<std::optional<Newest>> newest() override;

  static std::optional<Newest> newestIn(const QByteArray& file);

 private:
  static QDBusConnection nobody() { return QDBusConnection(QString()); }
  Task<std::optional<QNetworkProxy>> findProxy();

  QUrl m_address;
  std::chrono::milliseconds m_patience;
  QDBusConnection m_bus;
  QNetworkAccessManager m_network;
};

}  // namespace orv
