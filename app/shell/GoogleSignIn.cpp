#include "app/shell/GoogleSignIn.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QUrlQuery>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {
namespace {

constexpr auto urlSafe = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

QByteArray randomBytes() {
  std::array<quint32, 8> words;
  QRandomGenerator::system()->fillRange(words.data(), qsizetype(words.size()));
  return {reinterpret_cast<const char*>(words.data()), qsizetype(sizeof words)};
}

}  // namespace

QString rawValue(NativeGoogleClient client) { return client == NativeGoogleClient::macos ? u"macos"_s : u"ios"_s; }

GoogleSignIn::GoogleSignIn() : m_verifier(QString::fromLatin1(randomBytes().toBase64(urlSafe))) {}

QString GoogleSignIn::challenge() const {
  const auto digest = QCryptographicHash::hash(m_verifier.toLatin1(), QCryptographicHash::Sha256);
  return QString::fromLatin1(digest.toBase64(urlSafe));
}

QUrl GoogleSignIn::startURL(const QUrl& baseURL, NativeGoogleClient client) const {
  QUrl url = baseURL.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment | QUrl::StripTrailingSlash);
  url.setPath((url.path() == "/"_L1 ? QString() : url.path()) + u"/api/v1/auth/google/start"_s);
  QUrlQuery query;
  query.addQueryItem(u"client"_s, rawValue(client));
  query.addQueryItem(u"code_challenge"_s, challenge());
  url.setQuery(query);
  return url;
}

QString GoogleSignIn::callbackScheme() { return u"com.orvella.desktop"_s; }

std::optional<QString> GoogleSignIn::codeOf(const QString& link) {
  const QUrl url(link.trimmed());
  if (url.scheme() != callbackScheme() || url.host() != "auth"_L1 || url.path() != "/callback"_L1) return std::nullopt;
  return QUrlQuery(url).queryItemValue(u"code"_s, QUrl::FullyDecoded);
}

Task<GoogleSignIn::Result> GoogleSignIn::wait(Clock& clock) {
  auto result = m_result;
  const auto deadline = clock.startTimer(10min, [result]() mutable { result.give({Outcome::timedOut, {}}); });
  co_return co_await result.wait();
}

bool GoogleSignIn::accept(const QString& link) {
  const auto code = codeOf(link);
  if (!code || m_result.isGiven()) return false;
  m_result.give({code->isEmpty() ? Outcome::refused : Outcome::code, *code});
  return true;
}

void GoogleSignIn::cancel() { m_result.give({Outcome::cancelled, {}}); }

}  // namespace orv
