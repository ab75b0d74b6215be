#include "app/shell/SignInModel.h"

#include <QCryptographicHash>
#include <QLoggingCategory>

#include "app/base/EmailAddress.h"
#include "app/shell/signInTexts.h"
#include "kit/api/APIEnvironment.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/wipe.h"
#include "kit/session/authRequests.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv {

Q_LOGGING_CATEGORY(lcSignIn, "orvella.signin")

namespace {

constexpr int defaultResendSeconds = 60;

}  // namespace

SignInModel::SignInModel(APITransport& api, Clock& clock, Browser& browser, QUrl baseURL, Device device,
                         QObject* parent)
    : QObject(parent),
      m_api(api),
      m_clock(clock),
      m_browser(browser),
      m_baseURL(std::move(baseURL)),
      m_device(std::move(device)),
      m_resend(clock, [this] { Q_EMIT changed(); }) {}

QString SignInModel::resendLabel() const {
  return resendIn() > 0 ? u"Resend in "_s + QString::number(resendIn()) : u"Resend code"_s;
}

bool SignInModel::offersCode() const { return m_codeOffered; }

void SignInModel::setEmail(const QString& email) {
  if (std::exchange(m_email, email) != email) say({});
}

void SignInModel::setPassword(const QString& password) {
  if (m_password == password) return;
  wipe(m_password);
  m_password = password;
  // The field's own copy is its own to let go.
  m_password.detach();
  say({});
}

void SignInModel::setCode(const QString& code) {
  if (std::exchange(m_code, code) != code) say({});
}

void SignInModel::forgetSecrets() {
  wipe(m_password);
  m_code.clear();
}

void SignInModel::setNotice(const QString& notice) {
  m_notice = notice;
  Q_EMIT changed();
}

void SignInModel::checkMethods() {
  if (m_methodsChecked || !m_methods.isIdle()) return;
  m_methods.start(fetchMethods());
}

void SignInModel::checkMethodsAgain() {
  m_methodsChecked = false;
  checkMethods();
}

QString SignInModel::service() const {
  const auto other = APIEnvironment{m_baseURL}.otherOrigin();
  return other ? QUrl(*other).authority(QUrl::FullyEncoded) : QString();
}

QString SignInModel::serviceTrouble() const {
  if (APIEnvironment{m_baseURL}.isSafe()) return {};
  return u"Orvella is set to use %1, which isn’t encrypted. Nothing is sent there: set an address that begins with https."_s
      .arg(*APIEnvironment{m_baseURL}.otherOrigin());
}

void SignInModel::submitEmail() {
  if (m_busy) return;
  const QString address = m_email.trimmed().toLower();
  if (!looksLikeAddress(address)) return say(u"Enter a valid email address."_s);
  if (m_methodsFailed) checkMethods();
  begin(checkEmail(address));
}

void SignInModel::submitPassword() {
  if (m_busy) return;
  if (m_password.isEmpty()) return say(u"Enter your password."_s);
  beginSignIn(Requests::signInWithPassword(m_address, m_password), Way::password);
}

void SignInModel::submitCode() {
  if (m_busy) return;
  const QString code = m_code.trimmed();
  if (!SignInTexts::isCompleteCode(code)) return say(u"Enter the 6-digit code from the email."_s);
  beginSignIn(Requests::verifyEmail(m_codeSentTo, code), Way::code);
}

void SignInModel::resendCode() {
  if (m_busy || resendIn() > 0) return;
  begin(startCode(m_codeSentTo));
}

void SignInModel::useDifferentEmail() {
  abandonCall();
  m_step = Step::email;
  forgetSecrets();
  say({});
}

void SignInModel::emailCodeInstead() {
  if (m_busy) return;
  begin(startCode(m_address));
}

void SignInModel::continueWithGoogle() {
  if (m_busy || !m_googleClient) return;
  cancelGoogle();
  m_google = std::make_shared<GoogleSignIn>();
  // A link of an older flow is told to be spent, however often it has come.
  m_takenLinkDigest.clear();
  m_browserHasTurn = true;
  say({});
  if (!m_browser.open(m_google->startURL(m_baseURL, *m_googleClient))) {
    m_google.reset();
    qCWarning(lcSignIn, "Google sign-in failed: no browser");
    return say(u"Couldn’t open your browser. Sign in with your email instead."_s);
  }
  m_googleCall.start(signInWithGoogle(m_google));
}

void SignInModel::cancelGoogle() {
  m_googleCall.cancel();
  m_google.reset();
  Q_EMIT changed();
}

bool SignInModel::takeGoogleLink(const QString& link) {
  const QByteArray digest = QCryptographicHash::hash(link.trimmed().toUtf8(), QCryptographicHash::Sha256);
  // Browsers hand a link over again when the page is shown again.
  if (digest == m_takenLinkDigest) return false;
  // A link that nobody waits for may be somebody else's sign-in, sent to have this program adopt it.
  if (!m_google) {
    say(u"That sign-in link isn’t expected. Choose “Continue with Google” first."_s);
    return false;
  }
  if (m_google->accept(link))
    m_takenLinkDigest = digest;
  else
    say(u"That isn’t a sign-in link. Copy the whole link from the browser."_s);
  return true;
}

void SignInModel::reset() {
  abandonCall();
  m_googleCall.cancel();
  m_resend.stop();
  m_google.reset();
  m_step = Step::email;
  m_email.clear();
  m_address.clear();
  forgetSecrets();
  m_codeSentTo.clear();
  m_notice.clear();
  say({});
}

Task<void> SignInModel::fetchMethods() {
  try {
    const auto [methods, at] = co_await m_api.send(Requests::authMethods());
    m_methodsChecked = true;
    m_methodsFailed = false;
    m_googleClient = methods.google ? std::optional(NativeGoogleClient::macos) : std::nullopt;
    m_passwordOffered = methods.password.value_or(true);
    m_codeOffered = methods.email.value_or(true);
    Q_EMIT changed();
    if (at && onServiceTime) onServiceTime(*at);
  } catch (const APIError& error) {
    // The email step works without knowing.
    m_methodsFailed = true;
    qCInfo(lcSignIn, "Sign-in methods unknown: %s", qPrintable(error.description()));
  }
}

Task<void> SignInModel::checkEmail(QString address) {
  const EmailCheck check = co_await m_api.send(Requests::checkEmail(address));
  if (!check.account) {
    say(u"There’s no Orvella account with that email. Create one at "_s + APIEnvironment::productionHost() +
        u", or check the spelling."_s);
    co_return;
  }
  m_address = address;
  if (check.password && m_passwordOffered) {
    m_step = Step::password;
    Q_EMIT changed();
    co_return;
  }
  co_await startCode(address);
}

Task<void> SignInModel::startCode(QString address) {
  try {
    const EmailStarted started = co_await m_api.send(Requests::startEmail(address));
    m_code.clear();
    expectCode(address);
    waitToResend(started.retryIn.value_or(defaultResendSeconds));
  } catch (const APIError& error) {
    // The code that was sent a moment ago holds, and needs its field.
    if (error.code() == u"too_soon"_s) expectCode(address);
    throw;
  }
}

void SignInModel::expectCode(const QString& address) {
  m_codeSentTo = address;
  m_step = Step::code;
  Q_EMIT changed();
}

Task<void> SignInModel::signInWithGoogle(std::shared_ptr<GoogleSignIn> flow) {
  // One link after another: a false one neither keeps the true one out nor takes its exchange away.
  for (;;) {
    const auto result = co_await flow->wait(m_clock);
    const bool isFirst = std::exchange(m_browserHasTurn, false);
    Q_EMIT changed();
    switch (result.outcome) {
      case GoogleSignIn::Outcome::timedOut:
        m_google.reset();
        if (!isFirst) co_return;
        qCWarning(lcSignIn, "Google sign-in failed: nothing came back");
        say(u"Google sign-in took too long. Start again."_s);
        co_return;
      case GoogleSignIn::Outcome::refused:
        qCWarning(lcSignIn, "Google sign-in failed: the link carries no code");
        say(u"Google sign-in didn’t finish. Start again."_s);
        break;
      case GoogleSignIn::Outcome::code:
        // Who has signed in over there waits for nothing that is still under way here.
        abandonCall();
        co_await beginSignIn(Requests::exchangeToken(result.code, flow->verifier(), m_device), Way::google).wait();
    }
  }
}

Task<void> SignInModel::signIn(Request<NativeSession> request, Way way, int attempt, OneShot<bool> ended) {
  std::optional<APIError> failure;
  try {
    const NativeSession session = co_await m_api.send(std::move(request));
    const auto stored = StoredSession::from(session, m_clock.now());
    const bool isUsable = !stored.isExpired(m_clock.now());
    if (attempt == m_attempt && isUsable) {
      m_busy = false;
      forgetSecrets();
      cancelGoogle();
      m_notice.clear();
      if (onSignedIn) onSignedIn(stored);
      co_return;
    }
    if (onDiscarded) onDiscarded(session.token);
    if (!isUsable) failure = APIError::of(APIError::Kind::invalidResponse);
  } catch (const APIError& error) {
    failure = error;
  }
  if (failure && way == Way::google)
    qCWarning(lcSignIn, "Google sign-in failed: %s", qPrintable(failure->description()));
  if (failure && attempt == m_attempt) fail(*failure);
  ended.give(true);
}

void SignInModel::begin(Task<void> call) {
  m_busy = true;
  m_error.clear();
  Q_EMIT changed();
  m_call.start(guarded(std::move(call)));
}

OneShot<bool> SignInModel::beginSignIn(Request<NativeSession> request, Way way) {
  m_busy = true;
  m_error.clear();
  Q_EMIT changed();
  const OneShot<bool> ended;
  m_signIns.start(signIn(std::move(request), way, ++m_attempt, ended));
  return ended;
}

void SignInModel::abandonCall() {
  m_call.cancel();
  ++m_attempt;
  m_busy = false;
}

Task<void> SignInModel::guarded(Task<void> call) {
  std::optional<APIError> failure;
  try {
    co_await std::move(call);
  } catch (const APIError& error) {
    failure = error;
  }
  if (failure) co_return fail(*failure);
  m_busy = false;
  Q_EMIT changed();
}

void SignInModel::fail(const APIError& error) {
  m_busy = false;
  if (error.code() == u"too_soon"_s && error.problem().retryIn) waitToResend(*error.problem().retryIn);
  say(error.is(APIError::Kind::cancelled) ? QString() : SignInTexts::errorLine(error));
}

void SignInModel::say(const QString& error) {
  m_error = error;
  Q_EMIT changed();
}

}  // namespace orv
