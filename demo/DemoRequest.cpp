#include "demo/DemoRequest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {

DemoRequest DemoRequest::parse(const QByteArray& method, const QByteArray& target,
                               const QList<QPair<QByteArray, QByteArray>>& headers, const QByteArray& body) {
  const QUrl url = QUrl::fromEncoded(target);
  DemoRequest request{method, url.path(QUrl::FullyDecoded), {}, QUrlQuery(url), {}, body};
  for (const QString& part : url.path(QUrl::FullyEncoded).split(u'/').mid(1))
    request.parts.append(QUrl::fromPercentEncoding(part.toLatin1()));
  for (const auto& [name, value] : headers) request.headers.insert(name.toLower(), value);
  return request;
}

QString DemoRequest::token() const {
  const QByteArray bearer = headers.value("authorization");
  if (bearer.startsWith("Bearer ")) return QString::fromUtf8(bearer.sliced(7));
  const QByteArray cookie = headers.value("cookie");
  return cookie.startsWith("orv_session=") ? QString::fromUtf8(cookie.sliced(12)) : QString();
}

bool DemoRequest::isSet(const QString& flag) const { return value(flag) == "1"_L1; }

bool DemoRequest::isMadeOnOther(qint64 version) const {
  const QByteArray match = headers.value("if-match");
  return !match.isEmpty() && match != '"' + QByteArray::number(version) + '"';
}

qint64 DemoRequest::limit(qint64 most) const { return std::clamp<qint64>(value(u"limit"_s).toLongLong(), 1, most); }

HTTPAnswer jsonAnswer(const QJsonObject& object, int status) {
  return {status, {{"Content-Type", "application/json"}}, QJsonDocument(object).toJson(QJsonDocument::Compact)};
}

HTTPAnswer emptyAnswer() { return {204, {}, {}}; }

HTTPAnswer problemAnswer(int status, const QString& code, const QString& title, const QString& detail,
                         const QJsonObject& more) {
  QJsonObject problem = more;
  problem.insert("type"_L1, u"about:blank"_s);
  problem.insert("status"_L1, status);
  problem.insert("code"_L1, code);
  problem.insert("title"_L1, title);
  if (!detail.isEmpty()) problem.insert("detail"_L1, detail);
  HTTPAnswer answer = jsonAnswer(problem, status);
  answer.headers = {{"Content-Type", "application/problem+json"}};
  return answer;
}

HTTPAnswer notFound(const QString& title) { return problemAnswer(404, u"not_found"_s, title); }

HTTPAnswer invalid(const QString& detail, const QString& path) {
  return problemAnswer(422, u"invalid_input"_s, u"Invalid input"_s, detail,
                       {{u"errors"_s, QJsonArray{QJsonObject{{u"path"_s, path}, {u"message"_s, detail}}}}});
}

}  // namespace orv::demo
