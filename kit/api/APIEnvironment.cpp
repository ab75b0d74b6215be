#include "kit/api/APIEnvironment.h"

#include <arpa/inet.h>

#include <QSettings>
#include <QSysInfo>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The service knows native clients by this word, whatever they run on.
const auto platform = u"macOS"_s;

QString majorMinor(const QString& version) {
  const QStringList parts = version.split(u'.');
  const auto part = [&parts](qsizetype i) {
    const QString text = parts.value(i);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? QString::number(number) : u"0"_s;
  };
  return part(0) + u'.' + part(1);
}

}  // namespace

APIEnvironment APIEnvironment::resolve(const QStringList& candidates) {
  for (const QString& candidate : candidates) {
    const QUrl url(candidate, QUrl::StrictMode);
    if (url.isValid() && !url.host().isEmpty()) return {url};
  }
  return {QUrl(u"https://"_s + productionHost())};
}

const APIEnvironment& APIEnvironment::current() {
  static const APIEnvironment environment =
      resolve({qEnvironmentVariable("ORV_API_BASE_URL"), QSettings().value("ORV_API_BASE_URL"_L1).toString(),
               QStringLiteral(ORVELLA_API_BASE_URL)});
  return environment;
}

QString APIEnvironment::productionHost() { return u"app.orvella.example"_s; }

QString APIEnvironment::origin() const {
  if (baseURL.scheme().isEmpty() || baseURL.host().isEmpty()) return baseURL.toString(QUrl::FullyEncoded);
  const QString host = baseURL.host(QUrl::FullyEncoded);
  // QUrl gives an IPv6 address without the brackets that an origin needs.
  const QString shown = host.contains(u':') ? u'[' + host + u']' : host;
  const QString port = baseURL.port() >= 0 ? u':' + QString::number(baseURL.port()) : QString();
  return baseURL.scheme() + u"://"_s + shown + port;
}

std::optional<QString> APIEnvironment::otherOrigin() const {
  const bool isProductionOrigin = baseURL.scheme() == "https"_L1 && isProduction() && baseURL.port(443) == 443;
  return isProductionOrigin ? std::nullopt : std::optional(origin());
}

bool APIEnvironment::isPlainLoopback() const {
  if (baseURL.scheme() != "http"_L1) return false;
  const QString host = baseURL.host();
  // The network library does not look "localhost" up, as it would a name below it.
  if (host == "localhost"_L1 || host == "::1"_L1) return true;
  in_addr address{};
  return ::inet_pton(AF_INET, host.toLatin1().constData(), &address) == 1 &&
         ntohl(address.s_addr) >> 24 == IN_LOOPBACKNET;
}

const ClientIdentity& ClientIdentity::current() {
  static const ClientIdentity identity{QStringLiteral(ORVELLA_VERSION), QStringLiteral(ORVELLA_BUILD_NUMBER),
                                       majorMinor(QSysInfo::productVersion())};
  return identity;
}

QString ClientIdentity::clientHeader() const {
  return platform.toLower() + u'/' + appVersion + u" ("_s + build + u"; "_s + osName() + u')';
}

QString ClientIdentity::userAgent() const { return u"Orvella-Mac/"_s + appVersion + u" ("_s + osName() + u')'; }

QString ClientIdentity::osName() const { return platform + u' ' + osVersion; }

}  // namespace orv
