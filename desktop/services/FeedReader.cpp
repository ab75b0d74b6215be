#include "desktop/services/FeedReader.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QSettings>
#include <QTimer>
#include <QVersionNumber>

#include "kit/async/OneShot.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qint64 longestFile = 64 * 1024;

}  // namespace

std::unique_ptr<FeedReader> FeedReader::configured() {
  const QString address = qEnvironmentVariable("ORV_UPDATE_URL", QSettings().value(u"orv-update-url"_s).toString());
  const QUrl url(address, QUrl::StrictMode);
  return url.isValid() && url.scheme() == "https"_L1 ? std::make_unique<FeedReader>(url) : nullptr;
}

Task<std::optional<ReleaseFeed::Newest>> FeedReader::newest() {
  QNetworkRequest request(m_address);
  // Only the address that was configured is believed.
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  // Packed, a short file could become a long one.
  request.setRawHeader("Accept-Encoding", "identity");
  const std::unique_ptr<QNetworkReply> reply(m_network.get(request));
  OneShot<bool> done;
  QObject::connect(reply.get(), &QNetworkReply::finished, reply.get(), [done]() mutable { done.give(true); });
  QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [raw = reply.get()] {
    if (raw->bytesAvailable() > longestFile) raw->abort();
  });
  // Of the whole: the toolkit's own limit begins anew with every byte.
  QTimer::singleShot(m_patience, reply.get(), &QNetworkReply::abort);
  co_await done.wait();
  const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (reply->error() != QNetworkReply::NoError || status != 200 || reply->bytesAvailable() > longestFile)
    co_return std::nullopt;
  co_return newestIn(reply->readAll());
}

std::optional<ReleaseFeed::Newest> FeedReader::newestIn(const QByteArray& file) {
  const QJsonObject said = QJsonDocument::fromJson(file).object();
  const QString version = said.value("version"_L1).toString();
  if (QVersionNumber::fromString(version).isNull()) return std::nullopt;
  return Newest{version, QUrl(said.value("page"_L1).toString(), QUrl::StrictMode)};
}

}  // namespace orv
