#pragma once

#include "kit/api/APIRequest.h"
#include "kit/session/records.h"

/// Account-level calls: absolute paths, no workspace.
namespace orv::Requests {

/// Needs no credential, so it also says what time the service has when a session seems to be over.
Request<Dated<AuthMethods>> authMethods();
Request<EmailCheck> checkEmail(const QString& email);
Request<NativeSession> signInWithPassword(const QString& email, const QString& password);
Request<EmailStarted> startEmail(const QString& email);
Request<NativeSession> verifyEmail(const QString& email, const QString& code);
/// Exchanges the code that came back from the browser.
Request<NativeSession> exchangeToken(const QString& code, const QString& codeVerifier, const Device& device);
Request<MeResponse> me();
Request<UnreadCounts> unreadCounts();
Request<Empty> setCurrentWorkspace(const QString& slug);
Request<Empty> logOut();

}  // namespace orv::Requests
