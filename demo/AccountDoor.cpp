#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include "demo/Accounts.h"
#include "demo/Inbox.h"
#include "demo/Routes.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr int codeLivesSeconds = 600;
constexpr int resendSeconds = 30;

QList<WorkspaceSummary> workspacesOf(const DemoState& state, const QString& email) {
  QList<WorkspaceSummary> list;
  for (const DemoWorkspace& workspace : state.workspaces) {
    if (!workspace.members.contains(email)) continue;
    list.append({workspace.id, workspace.slug, workspace.name, Role(workspace.members.value(email)), {}, u"growth"_s});
  }
  return list;
}

/// A text of the request's body.
QString said(const Call& call, const QString& name) {
  return QJsonDocument::fromJson(call.request.body).object().value(name).toString();
}

HTTPAnswer openSession(Call& call, const QString& email) {
  return jsonAnswer(toJSON(openSession(call.state, call.random, call.now, email)));
}

HTTPAnswer methods(Call&) {
  return jsonAnswer({{u"google"_s, true}, {u"email"_s, true}, {u"password"_s, true}, {u"dev"_s, false}});
}

HTTPAnswer checkEmail(Call& call) {
  const auto account = call.state.accounts.constFind(said(call, u"email"_s));
  const bool known = account != call.state.accounts.constEnd();
  return jsonAnswer(toJSON(EmailCheck{known, known && !account->password.isEmpty(), false}));
}

HTTPAnswer passwordSignIn(Call& call) {
  const QString email = said(call, u"email"_s);
  const QString password = call.state.accounts.value(email).password;
  if (password.isEmpty() || password != said(call, u"password"_s))
    return problemAnswer(403, u"bad_password"_s, u"Wrong password"_s);
  return openSession(call, email);
}

HTTPAnswer startEmail(Call& call) {
  const QString email = said(call, u"email"_s);
  if (!call.state.accounts.contains(email)) return problemAnswer(404, u"no_account"_s, u"No such account"_s);
  if (const auto sent = call.state.codes.constFind(email); sent != call.state.codes.constEnd()) {
    const qint64 wait = resendSeconds - sent->sentAt.secsTo(call.now);
    if (wait > 0) return problemAnswer(409, u"too_soon"_s, u"A code was just sent"_s, {}, {{u"retryIn"_s, wait}});
  }
  const QString code = QString::number(call.random.between(0, 999999)).rightJustified(6, u'0');
  call.state.codes.insert(email, {code, call.now});
  call.state.sendCode(email, code);
  return jsonAnswer(toJSON(EmailStarted{u"sign_in"_s, resendSeconds}));
}

HTTPAnswer verifyEmail(Call& call) {
  const QString email = said(call, u"email"_s);
  const auto sent = call.state.codes.find(email);
  if (sent == call.state.codes.end() || sent->sentAt.secsTo(call.now) > codeLivesSeconds || sent->triesLeft == 0)
    return problemAnswer(410, u"code_expired"_s, u"The code has expired"_s);
  if (sent->code != said(call, u"code"_s)) {
    --sent->triesLeft;
    return problemAnswer(403, u"wrong_code"_s, u"Wrong code"_s, {}, {{u"triesLeft"_s, sent->triesLeft}});
  }
  call.state.codes.erase(sent);
  return openSession(call, email);
}

HTTPAnswer googlePage(Call& call) {
  const QString challenge = call.request.value(u"code_challenge"_s);
  if (call.request.value(u"client"_s) != "macos"_L1 || challenge.size() != 43)
    return problemAnswer(422, u"bad_request"_s, u"Start the sign-in in the application"_s);
  const QString link = u"com.orvella.desktop://auth/callback?code="_s +
                       grantGoogleCode(call.state, call.random, mainAccount(), challenge);
  const QString page =
      u"<!doctype html><meta charset=utf-8><title>Sign in</title>"
      "<body style='font:16px sans-serif;margin:4em auto;max-width:30em'>"
      "<h1>Sign in to Orvella</h1><p><a href='%1'>Continue as Maren Kolbe</a></p>"
      "<p>If nothing happens, paste this link into Orvella:</p><code>%1</code></body>"_s.arg(link);
  return {200, {{"Content-Type", "text/html; charset=utf-8"}}, page.toUtf8()};
}

HTTPAnswer exchangeToken(Call& call) {
  const GoogleGrant grant = call.state.googleGrants.take(said(call, u"code"_s));
  const QByteArray digest =
      QCryptographicHash::hash(said(call, u"code_verifier"_s).toLatin1(), QCryptographicHash::Sha256);
  const QByteArray challenge = digest.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
  if (grant.email.isEmpty() || grant.challenge.toLatin1() != challenge)
    return problemAnswer(403, u"bad_grant"_s, u"This sign-in link is no longer valid"_s, u"Start again."_s);
  return openSession(call, grant.email);
}

HTTPAnswer me(Call& call) {
  const DemoAccount account = call.state.accounts.value(call.email);
  return jsonAnswer(toJSON(MeResponse{account.user, workspacesOf(call.state, call.email), account.lastWorkspace}));
}

HTTPAnswer unread(Call& call) {
  UnreadCounts counts;
  for (const auto& summary : workspacesOf(call.state, call.email)) {
    DemoWorkspace& workspace = *call.state.find(summary.slug);
    settleInbox(workspace, call.state.repliesPerMinute, call.now);
    UnreadCounts::Workspace& told = counts.workspaces.emplaceBack();
    told = {summary.slug, summary.name, unreadIn(workspace.inbox), 0, {}};
    for (const DemoThread& thread : workspace.inbox.threads) {
      told.others += thread.record.unread && !thread.record.isArchived() && !isPrimary(thread);
      if (const QString at = lastInboundAt(thread); !at.isEmpty() && at > told.latestAt.value_or(QString()))
        told.latestAt = at;
    }
    counts.total += told.unread;
  }
  return jsonAnswer(toJSON(counts));
}

HTTPAnswer setWorkspace(Call& call) {
  call.state.accounts[call.email].lastWorkspace = said(call, u"slug"_s);
  return emptyAnswer();
}

HTTPAnswer logOut(Call& call) {
  call.state.sessions.remove(call.request.token());
  return emptyAnswer();
}

}  // namespace

const QList<Route>& accountRoutes() {
  static const QList<Route> routes{
      {"GET", u"/api/v1/auth/methods"_s, Access::anybody, methods},
      {"POST", u"/api/v1/auth/email/check"_s, Access::anybody, checkEmail},
      {"POST", u"/api/v1/auth/password/sign-in"_s, Access::anybody, passwordSignIn},
      {"POST", u"/api/v1/auth/email/start"_s, Access::anybody, startEmail},
      {"POST", u"/api/v1/auth/email/verify"_s, Access::anybody, verifyEmail},
      {"GET", u"/api/v1/auth/google/start"_s, Access::anybody, googlePage},
      {"POST", u"/api/v1/auth/token"_s, Access::anybody, exchangeToken},
      {"GET", u"/api/v1/auth/me"_s, Access::signedIn, me},
      {"GET", u"/api/v1/auth/me/unread"_s, Access::signedIn, unread},
      {"PUT", u"/api/v1/auth/me/workspace"_s, Access::signedIn, setWorkspace},
      {"POST", u"/api/v1/auth/logout"_s, Access::signedIn, logOut},
  };
  return routes;
}

QString mainAccount() { return u"maren@northgate.example"_s; }

NativeSession openSession(DemoState& state, DemoRandom& random, const QDateTime& now, const QString& email) {
  NativeSession session;
  session.token = u"orv_sess_"_s + random.id(u"demo"_s) + random.id(u"x"_s);
  session.expiresAt = formatPlatformDate(now.addDays(30));
  session.user = state.accounts.value(email).user;
  session.workspaces = workspacesOf(state, email);
  session.lastWorkspace = state.accounts.value(email).lastWorkspace;
  state.sessions.insert(session.token, email);
  return session;
}

QString grantGoogleCode(DemoState& state, DemoRandom& random, const QString& email, const QString& challenge) {
  QString code = random.id(u"g"_s);
  state.googleGrants.insert(code, {email, challenge});
  return code;
}

}  // namespace orv::demo
