#include "desktop/services/FeedReader.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QScopedPointer>
#include <QSettings>
#include <QTimer>
#include <QVersionNumber>

#include "desktop/services/DesktopProxy.h"
#include "kit/async/OneShot.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {
namespace {

constexpr qint64 longestFile = 64 * 1024;

/// Nothing for one that this cannot go by: the direct way is not the desktop's wish then.
std::optional<QNetworkProxy> proxyAt(const QByteArray& address) {
  if (address.isEmpty()) return QNetworkProxy(QNetworkProxy::NoProxy);
  const QUrl url(QString::fromUtf8(address));
  const bool isSocks = url.scheme() == "socks5h"_L1;
  if (!isSocks && url.scheme() != "http"_L1) return std::nullopt;
  constexpr int usualPort = 1080;
  return QNetworkProxy(isSocks ? QNetworkProxy::Socks5Proxy : QNetworkProxy::HttpProxy, url.host(),
                       quint16(url.port(usualPort)), url.userName(), url.password());
}

}  // namespace

std::unique_ptr<FeedReader> FeedReader::configured(const QDBusConnection& bus) {
  const QString address = qEnvironmentVariable("ORV_UPDATE_URL", QSettings().value(u"orv-update-url"_s).toString());
  const QUrl url(address, QUrl::StrictMode);
  return url.isValid() && url.scheme() == "https"_L1 ? std::make_unique<FeedReader>(url, 20s, bus) : nullptr;
}

Task<std::optional<QNetworkProxy>> FeedReader::findProxy() {
  OneShot<std::optional<QByteArray>> found;
  // The answer comes from within it.
  const QScopedPointer<DesktopProxy, QScopedPointerDeleteLater> desktop(
      new DesktopProxy(m_bus, m_address, [found](std::optional<QByteArray> each) mutable { found.give(each); }));
  if (!desktop->ask()) co_return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(m_address)).value(0);
  QTimer::singleShot(m_patience, desktop.get(), [found]() mutable { found.give(std::nullopt); });
  const std::optional<QByteArray> proxy = co_await found.wait();
  co_return proxyAt(proxy.value_or(QByteArray()));
}

Task<std::optional<ReleaseFeed::Newest>> FeedReader::newest() {
  const auto proxy = co_await findProxy();
  if (!proxy) co_return std::nullopt;
  m_network.setProxy(*proxy);
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
