#include "kit/api/WireRequest.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Percent-encodes what a URL's query does not allow; "+" and the other sub-delimiters stay.
QByteArray queryText(const QString& text) { return text.toUtf8().toPercentEncoding("!$'()*+,;:@/?", "&=#"); }

/// A header's value must not bring further lines with it.
QByteArray header(const char* name, const QString& value) {
  QByteArray line = name + ": "_ba + value.toUtf8();
  line.removeIf([](char c) { return c == '\r' || c == '\n' || c == '\0'; });
  return line;
}

QByteArray pathBytes(const QString& path) {
  QByteArray encoded;
  // What is encoded already stays; only what cannot stand in a path is encoded.
  for (const char c : path.toUtf8()) {
    const bool plain = c > ' ' && c < 0x7f && !QByteArrayView("\"<>\\^`{|}?#").contains(c);
    encoded += plain ? QByteArray(1, c) : QByteArray(1, c).toPercentEncoding();
  }
  return encoded;
}

QByteArray url(const APICall& call, const APIEnvironment& environment) {
  const APIRequest& request = call.request;
  QByteArray url = environment.baseURL.toEncoded(QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::RemoveUserInfo);
  while (url.endsWith('/')) url.chop(1);
  // A form goes to no workspace, wherever it goes.
  if (!call.form && !request.isAccountLevel()) url += "/api/v1/w/" + pathSegment(call.slug).toLatin1();
  if (!request.path.startsWith(u'/')) url += '/';
  url += pathBytes(request.path);
  char separator = '?';
  for (const auto& [name, value] : request.query) {
    url += std::exchange(separator, '&') + queryText(name);
    if (value) url += '=' + queryText(*value);
  }
  return url;
}

void addCredential(QList<QByteArray>& headers, const QString& token) {
  if (token.isEmpty()) return;
  if (token.startsWith("orv_sess_"_L1) || token.startsWith("orv_key_"_L1))
    headers.append(header("Authorization", u"Bearer "_s + token));
  else
    headers.append(header("Cookie", u"orv_session="_s + token));
}

std::optional<QByteArray> bodyOf(const APICall& call) {
  if (call.form) {
    QByteArray fields;
    for (const auto& [name, value] : *call.form)
      fields += (fields.isEmpty() ? QByteArray() : "&"_ba) + queryText(name) + '=' + queryText(value);
    return fields;
  }
  if (call.request.body) return call.request.body;
  const HTTPMethod method = call.request.method;
  return method == HTTPMethod::get || method == HTTPMethod::del ? std::nullopt : std::optional("{}"_ba);
}

}  // namespace

WireRequest wireRequest(const APICall& call, const APIEnvironment& environment, const ClientIdentity& identity) {
  const APIRequest& request = call.request;
  WireRequest wire;
  wire.method = token(request.method);
  wire.url = url(call, environment);
  wire.changing = request.method != HTTPMethod::get;
  wire.headers = {"Accept: application/json, application/problem+json"_ba, header("Origin", environment.origin()),
                  "X-Requested-With: orvella"_ba, header("X-Orvella-Client", identity.clientHeader()),
                  header("User-Agent", identity.userAgent())};
  addCredential(wire.headers, call.token);
  if (request.idempotencyKey) wire.headers.append(header("Idempotency-Key", *request.idempotencyKey));
  if (request.ifMatch) wire.headers.append("If-Match: \"" + QByteArray::number(*request.ifMatch) + '"');
  wire.body = bodyOf(call);
  if (wire.body)
    wire.headers.append(call.form ? "Content-Type: application/x-www-form-urlencoded"_ba
                                  : "Content-Type: application/json"_ba);
  wire.sent = request.sent;
  wire.secret = request.secret;
  wire.answerAtMost = request.answerAtMost;
  wire.staysHere = environment.isPlainLoopback();
  return wire;
}

}  // namespace orv
