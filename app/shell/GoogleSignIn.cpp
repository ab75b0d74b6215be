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
  if (!m_end) m_end = clock.now().addDuration(10min);
  if (m_next == m_codes.size()) {
    OneShot<Result> came;
    m_waiting = came;
    const auto left = std::chrono::milliseconds(clock.now().msecsTo(*m_end));
    const auto deadline = clock.startTimer(std::max(left, 0ms), [came]() mutable { came.give({}); });
    const Result result = co_await came.wait();
    m_waiting.reset();
    if (result.outcome == Outcome::timedOut) co_return result;
  }
  const QString code = m_codes[m_next++];
  co_return Result{code.isEmpty() ? Outcome::refused : Outcome::code, code};
}

bool GoogleSignIn::accept(const QString& link) {
  const auto code = codeOf(link);
  if (!code || m_codes.contains(*code)) return false;
  if (m_codes.size() == mostLinks) {
    // Those that led nowhere make room: the true one may come after any number of false ones.
    if (m_next == 0) return false;
    m_codes.removeFirst();
    --m_next;
  }
  m_codes.append(*code);
  if (m_waiting) OneShot(*m_waiting).give({Outcome::code, *code});
  return true;
}

}  // namespace orv
