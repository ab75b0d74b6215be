#include "kit/api/APIRequest.h"

#include <QUuid>

using namespace Qt::Literals::StringLiterals;

namespace orv {

QByteArray token(HTTPMethod method) {
  switch (method) {
    case HTTPMethod::get:
      return "GET"_ba;
    case HTTPMethod::post:
      return "POST"_ba;
    case HTTPMethod::put:
      return "PUT"_ba;
    case HTTPMethod::patch:
      return "PATCH"_ba;
    case HTTPMethod::del:
      return "DELETE"_ba;
  }
  Q_UNREACHABLE();
}

bool APIRequest::isAccountLevel() const { return path.startsWith("/api/v1/"_L1); }

QString APIRequest::label() const { return QString::fromLatin1(token(method)) + u' ' + path; }

QString pathSegment(const QString& id) {
  static constexpr auto isHex = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
  };
  const QByteArray utf8 = id.toUtf8();
  QByteArray encoded;
  for (qsizetype i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i];
    const bool escaped = c == '%' && i + 2 < utf8.size() && isHex(utf8[i + 1]) && isHex(utf8[i + 2]);
    encoded += escaped ? QByteArray(1, c) : QByteArray(1, c).toPercentEncoding();
  }
  return QString::fromLatin1(encoded);
}

QString freshIdempotencyKey() { return QUuid::createUuid().toString(QUuid::WithoutBraces).toLower(); }

}  // namespace orv
