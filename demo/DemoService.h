#pragma once

#include <QUrlQuery>
#include <functional>

#include "demo/DemoState.h"
#include "kit/api/APITransport.h"
#include "kit/api/WireRequest.h"
#include "kit/async/Clock.h"

namespace orv::demo {

/// A request as the service reads it off the wire.
struct DemoRequest {
  QByteArray method;
  /// Decoded, from "/api/v1/".
  QString path;
  QUrlQuery query;
  /// Names in lower case.
  QMap<QByteArray, QByteArray> headers;
  QByteArray body;

  /// The credential, from either place it may stand in.
  QString token() const;
  static DemoRequest parse(const QByteArray& method, const QByteArray& target,
                           const QList<QPair<QByteArray, QByteArray>>& headers, const QByteArray& body);
};

/// The service in miniature: answers requests out of memory, with state that really changes. Single-threaded.
class DemoService {
 public:
  DemoService(Clock& clock, quint64 seed = 1, const DemoScale& scale = {});

  HTTPAnswer answer(const DemoRequest& request);

  /// Called with the address and the code that the real service would send by email.
  std::function<void(const QString& email, const QString& code)> onCode;

  /// A session of the sample's main account, as if it had just signed in.
  NativeSession signInDirectly();
  /// Forgets all sessions, as an operator would.
  void endAllSessions() { m_tokens.clear(); }
  /// What the Google page hands out for the account, to be exchanged once with the verifier of `challenge`.
  QString googleCode(const QString& email, const QString& challenge);

 private:
  struct Code {
    QString code;
    QDateTime sentAt;
    int triesLeft = 5;
  };
  struct Grant {
    QString email;
    QString challenge;
  };
  struct Remembered {
    QByteArray request;
    HTTPAnswer answer;
  };

  HTTPAnswer route(const DemoRequest& request);
  HTTPAnswer once(const DemoRequest& request);
  HTTPAnswer account(const DemoRequest& request, const QString& call);
  HTTPAnswer signedIn(const DemoRequest& request, const QString& call, const QString& email);
  HTTPAnswer workspace(const DemoRequest& request);
  HTTPAnswer checkEmail(const QJsonObject& body);
  HTTPAnswer passwordSignIn(const QJsonObject& body);
  HTTPAnswer startEmail(const QJsonObject& body);
  HTTPAnswer verifyEmail(const QJsonObject& body);
  HTTPAnswer exchangeToken(const QJsonObject& body);
  HTTPAnswer openSession(const QString& email);
  NativeSession newSession(const QString& email);
  QList<WorkspaceSummary> workspacesOf(const QString& email) const;
  HTTPAnswer googlePage(const QUrlQuery& query);

  Clock& m_clock;
  DemoRandom m_random;
  DemoState m_state;
  QHash<QString, QString> m_tokens;
  QHash<QString, Code> m_codes;
  QHash<QString, Grant> m_grants;
  QHash<QString, Remembered> m_remembered;
};

/// Answers, as every part of the service gives them.
HTTPAnswer jsonAnswer(const QJsonObject& object, int status = 200);
HTTPAnswer emptyAnswer();
HTTPAnswer problemAnswer(int status, const QString& code, const QString& title, const QString& detail = {},
                         const QJsonObject& more = {});

/// The service in process: demo mode's transport. The same bytes take the same way as over the network.
class DemoTransport final : public APITransport {
 public:
  explicit DemoTransport(DemoService& service) : m_service(service) {}
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

 private:
  DemoService& m_service;
};

}  // namespace orv::demo
