#include "desktop/services/FeedReader.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QSettings>
#include <QVersionNumber>

#include "kit/async/OneShot.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qint64 longestFile = 64 * 1024;
constexpr int patience = 20'000;

}  // namespace

std::unique_ptr<FeedReader> FeedReader::configured() {
  const QString address = qEnvironmentVariable("ORV_UPDATE_URL", QSettings().value(u"orv-update-url"_s).toString());
  const QUrl url(address, QUrl::StrictMode);
  return url.isValid() && url.scheme() == "https"_L1 ? std::make_unique<FeedReader>(url) : nullptr;
}

Task<std::optional<ReleaseFeed::Newest>> FeedReader::newest() {
  QNetworkRequest request(m_address);
  request.setTransferTimeout(patience);
  const std::unique_ptr<QNetworkReply> reply(m_network.get(request));
  OneShot<bool> done;
  QObject::connect(reply.get(), &QNetworkReply::finished, reply.get(), [done]() mutable { done.give(true); });
  QObject::connect(reply.get(), &QNetworkReply::downloadProgress, reply.get(), [raw = reply.get()](qint64 received) {
    if (received > longestFile) raw->abort();
  });
  co_await done.wait();
  if (reply->error() != QNetworkReply::NoError) co_return std::nullopt;
  co_return newestIn(reply->readAll());
}

std::optional<ReleaseFeed::Newest> FeedReader::newestIn(const QByteArray& file) {
  const QJsonObject said = QJsonDocument::fromJson(file).object();
  const QString version = said.value("version"_L1).toString();
  if (QVersionNumber::fromString(version).isNull()) return std::nullopt;
  return Newest{version, QUrl(said.value("page"_L1).toString(), QUrl::StrictMode)};
}

}  // namespace orv
