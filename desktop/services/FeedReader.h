#pragma once

#include <QNetworkAccessManager>

#include "app/base/desktop/ReleaseFeed.h"

namespace orv {

/// Reads the newest version from a static file that somebody put at a configured address:
/// {"version": "1.2.0", "page": "https://…"}.
class FeedReader final : public ReleaseFeed {
 public:
  /// Null unless an https address is configured, in the environment or in the settings file.
  static std::unique_ptr<FeedReader> configured();

  explicit FeedReader(QUrl address) : m_address(std::move(address)) {}
  Task<std::optional<Newest>> newest() override;

  static std::optional<Newest> newestIn(const QByteArray& file);

 private:
  QUrl m_address;
  QNetworkAccessManager m_network;
};

}  // namespace orv
