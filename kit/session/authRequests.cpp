#include "kit/session/authRequests.h"

#include <QJsonObject>

#include "kit/api/JSONCoding.h"
#include "kit/api/recordCoders.h"
#include "kit/api/requestBuilders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(User)
ORV_RECORD_CODERS(WorkspaceSummary)
ORV_RECORD_CODERS(AuthMethods)
ORV_RECORD_CODERS(EmailCheck)
ORV_RECORD_CODERS(EmailStarted)
ORV_RECORD_CODERS(NativeSession)
ORV_RECORD_CODERS(MeResponse)
ORV_RECORD_CODERS(UnreadCounts)
ORV_RECORD_CODERS(Device)

namespace Requests {
namespace {

Request<NativeSession> signingIn(const QString& path, const QJsonObject& body) {
  auto request = changing<NativeSession>(HTTPMethod::post, path, body);
  request.secret = true;
  return request;
}

}  // namespace

Request<Dated<AuthMethods>> authMethods() { return get<Dated<AuthMethods>>(u"/api/v1/auth/methods"_s); }

Request<EmailCheck> checkEmail(const QString& email) {
  return changing<EmailCheck>(HTTPMethod::post, u"/api/v1/auth/email/check"_s, QJsonObject{{u"email"_s, email}});
}

Request<NativeSession> signInWithPassword(const QString& email, const QString& password) {
  return signingIn(u"/api/v1/auth/password/sign-in"_s, QJsonObject{{u"email"_s, email}, {u"password"_s, password}});
}

Request<EmailStarted> startEmail(const QString& email) {
  return changing<EmailStarted>(HTTPMethod::post, u"/api/v1/auth/email/start"_s,
                                QJsonObject{{u"email"_s, email}, {u"purpose"_s, u"sign_in"_s}});
}

Request<NativeSession> verifyEmail(const QString& email, const QString& code) {
  return signingIn(u"/api/v1/auth/email/verify"_s, QJsonObject{{u"email"_s, email}, {u"code"_s, code}});
}

Request<NativeSession> exchangeToken(const QString& code, const QString& codeVerifier, const Device& device) {
  return signingIn(u"/api/v1/auth/token"_s,
                   QJsonObject{{u"code"_s, code}, {u"code_verifier"_s, codeVerifier}, {u"device"_s, toJSON(device)}});
}

Request<MeResponse> me() { return get<MeResponse>(u"/api/v1/auth/me"_s); }
Request<UnreadCounts> unreadCounts() { return get<UnreadCounts>(u"/api/v1/auth/me/unread"_s); }

Request<Empty> setCurrentWorkspace(const QString& slug) {
  return changing<Empty>(HTTPMethod::put, u"/api/v1/auth/me/workspace"_s, QJsonObject{{u"slug"_s, slug}});
}

Request<Empty> logOut() { return changing<Empty>(HTTPMethod::post, u"/api/v1/auth/logout"_s); }

}  // namespace Requests
}  // namespace orv
