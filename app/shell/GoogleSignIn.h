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

/// One Google sign-in through the browser: the challenge, the start page, and the one link that may come back.
///
/// The browser cannot report that its page was closed, so the flow ends by its link, by cancel(), or after ten minutes.
class GoogleSignIn final {
 public:
  enum class Outcome { code, refused, cancelled, timedOut };
  struct Result {
    Outcome outcome = Outcome::cancelled;
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

  /// Waits for accept() or cancel(), ten minutes at most.
  Task<Result> wait(Clock& clock);
  /// True when the link is a sign-in link and is the first to come.
  bool accept(const QString& link);
  void cancel();

 private:
  QString m_verifier;
  OneShot<Result> m_result;
};

}  // namespace orv
