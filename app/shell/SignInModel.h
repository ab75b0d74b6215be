#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "app/base/EnumName.h"
#include "app/shell/Countdown.h"
#include "app/shell/GoogleSignIn.h"
#include "kit/api/APITransport.h"
#include "kit/async/Clock.h"
#include "kit/async/TaskScope.h"
#include "kit/session/StoredSession.h"
#include "kit/session/records.h"

namespace orv {

/// The signed-out screen: email, then a password or a six-digit code; or Google in the browser.
class SignInModel final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString step READ stepName NOTIFY changed)
  Q_PROPERTY(QString email READ email WRITE setEmail NOTIFY changed)
  Q_PROPERTY(QString address READ address NOTIFY changed)
  Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY changed)
  Q_PROPERTY(QString code READ code WRITE setCode NOTIFY changed)
  Q_PROPERTY(bool busy READ busy NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY changed)
  Q_PROPERTY(QString notice READ notice NOTIFY changed)
  Q_PROPERTY(int resendIn READ resendIn NOTIFY changed)
  Q_PROPERTY(QString resendLabel READ resendLabel NOTIFY changed)
  Q_PROPERTY(QString codeSentTo READ codeSentTo NOTIFY changed)
  Q_PROPERTY(bool offersGoogle READ offersGoogle NOTIFY changed)
  Q_PROPERTY(bool offersCode READ offersCode NOTIFY changed)
  Q_PROPERTY(bool waitingForGoogle READ waitingForGoogle NOTIFY changed)
  Q_PROPERTY(QString service READ service CONSTANT)
  Q_PROPERTY(QString serviceTrouble READ serviceTrouble CONSTANT)

 public:
  enum class Step { email, password, code };
  Q_ENUM(Step)

  /// `api` is used without a credential; `baseURL` is where the Google page starts.
  SignInModel(APITransport& api, Clock& clock, Browser& browser, QUrl baseURL, Device device,
              QObject* parent = nullptr);

  std::function<void(StoredSession)> onSignedIn;
  /// The service's own clock, each time that it has said which ways of signing in it offers.
  std::function<void(const QDateTime&)> onServiceTime;
  /// A token that the service has given and nobody will use.
  std::function<void(const QString& token)> onDiscarded;

  Step step() const { return m_step; }
  QString stepName() const { return enumName(m_step); }
  const QString& email() const { return m_email; }
  /// The address that was checked, as the service knows it; what is typed since then counts with the next check.
  const QString& address() const { return m_address; }
  const QString& password() const { return m_password; }
  const QString& code() const { return m_code; }
  /// A call is in flight; submissions are ignored meanwhile.
  bool busy() const { return m_busy; }
  const QString& error() const { return m_error; }
  const QString& notice() const { return m_notice; }
  /// Seconds until a new code may be asked for; 0 = now.
  int resendIn() const { return m_resend.left(); }
  QString resendLabel() const;
  const QString& codeSentTo() const { return m_codeSentTo; }
  bool offersGoogle() const { return m_googleClient.has_value(); }
  bool offersCode() const;
  /// The browser has the turn. Once a link has come back it is this window's, though a better one is still taken.
  bool waitingForGoogle() const { return m_google && m_browserHasTurn; }
  bool methodsChecked() const { return m_methodsChecked; }
  /// Where the person signs in, when that is another service than production's.
  QString service() const;
  /// Why nothing is sent there; empty when nothing speaks against it.
  QString serviceTrouble() const;
  /// More than an address typed: something would be lost if the screen went away.
  bool isUnderWay() const { return m_busy || m_step != Step::email || waitingForGoogle(); }

  void setEmail(const QString& email);
  void setPassword(const QString& password);
  void setCode(const QString& code);
  void setNotice(const QString& notice);

  /// Asks which ways of signing in the service offers, until it has answered.
  Q_INVOKABLE void checkMethods();
  /// Once more, although it has.
  void checkMethodsAgain();
  Q_INVOKABLE void submitEmail();
  Q_INVOKABLE void submitPassword();
  Q_INVOKABLE void submitCode();
  Q_INVOKABLE void resendCode();
  Q_INVOKABLE void useDifferentEmail();
  Q_INVOKABLE void emailCodeInstead();
  Q_INVOKABLE void continueWithGoogle();
  Q_INVOKABLE void cancelGoogle();
  /// A sign-in link, from the desktop or pasted by hand. One that does not belong to a waiting flow says so, and false
  /// is given: somebody else may have opened it.
  Q_INVOKABLE bool takeGoogleLink(const QString& link);

  /// Back to a blank first step; whatever was typed, password included, is forgotten.
  void reset();

 Q_SIGNALS:
  void changed();

 private:
  Task<void> fetchMethods();
  Task<void> checkEmail(QString address);
  enum class Way { password, code, google };
  Task<void> signIn(Request<NativeSession> request, Way way, int attempt, OneShot<bool> ended);
  Task<void> signInWithGoogle(std::shared_ptr<GoogleSignIn> flow);
  Task<void> startCode(QString address);
  void expectCode(const QString& address);

  void begin(Task<void> call);
  OneShot<bool> beginSignIn(Request<NativeSession> request, Way way);
  void forgetSecrets();
  void abandonCall();
  Task<void> guarded(Task<void> call);
  void fail(const APIError& error);
  void say(const QString& error);
  void waitToResend(qint64 seconds) { m_resend.start(std::min(seconds, Problem::longestRetry)); }

  APITransport& m_api;
  Clock& m_clock;
  Browser& m_browser;
  QUrl m_baseURL;
  Device m_device;

  Step m_step = Step::email;
  QString m_email;
  QString m_address;
  QString m_password;
  QString m_code;
  bool m_busy = false;
  QString m_error;
  QString m_notice;
  Countdown m_resend;
  QString m_codeSentTo;
  std::optional<NativeGoogleClient> m_googleClient;
  bool m_passwordOffered = true;
  bool m_codeOffered = true;
  bool m_methodsChecked = false;
  bool m_methodsFailed = false;
  std::shared_ptr<GoogleSignIn> m_google;
  bool m_browserHasTurn = false;
  /// Of the last link that was taken, which holds a secret.
  QByteArray m_takenLinkDigest;
  int m_attempt = 0;

  TaskSlot m_call;
  /// What may end with a token: goes on when the person has turned to something else, since the service signs in
  /// whether anybody waits or not.
  TaskScope m_signIns;
  TaskSlot m_googleCall;
  TaskSlot m_methods;
};

}  // namespace orv
