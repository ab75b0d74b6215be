#pragma once

#include <QString>
#include <QUrl>
#include <optional>

#include "app/base/desktop/Browser.h"
#include "kit/async/Clock.h"
#include "kit/async/OneShot.h"

namespace orv {

/// The native client names that the service knows.
enum class NativeGoogleClient { macos, ios };
QString rawValue(NativeGoogleClient client);

/// One Google sign-in through the browser: the challenge, the start page, and the links that come back.
///
/// Any page can open such a link, and nobody here can tell it from the true one: only the service knows which code goes
/// with the challenge. So a link that leads nowhere ends nothing. The browser cannot report that its page was closed
/// either; the flow ends with who holds it, or after ten minutes.
class GoogleSignIn final {
 public:
  enum class Outcome { code, refused, timedOut };
  struct Result {
    Outcome outcome = Outcome::timedOut;
    /// To be exchanged with verifier(), once.
    QString code;
  };

  GoogleSignIn();

  const QString& verifier() const { return m_verifier; }
  QString challenge() const;
  QUrl startURL(const QUrl& baseURL, NativeGoogleClient client) const;

  /// The application's own scheme, on which the service's redirect comes back.
  static QString callbackScheme();
  /// The `code` of a sign-in link; empty when the person declined, nothing when the link is not one.
  static std::optional<QString> codeOf(const QString& link);

  /// Waits for the next link, until ten minutes after the first wait began.
  Task<Result> wait(Clock& clock);
  /// True when the link is a sign-in link that has not come before.
  bool accept(const QString& link);

 private:
  static constexpr qsizetype mostLinks = 20;

  QString m_verifier;
  std::optional<QDateTime> m_end;
  std::optional<OneShot<Result>> m_waiting;
  /// The last that came, in their order; those before `m_next` are dealt with.
  QStringList m_codes;
  qsizetype m_next = 0;
};

}  // namespace orv
