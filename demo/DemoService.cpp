#include "demo/DemoService.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

#include "demo/AnalyticsDoor.h"
#include "demo/CampaignDoor.h"
#include "demo/LeadListDoor.h"
#include "demo/MailboxDoor.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

const auto mainAccount = u"maren@northgate.example"_s;
constexpr int codeLivesSeconds = 600;
constexpr int resendSeconds = 30;

HTTPAnswer unauthorized() {
  return problemAnswer(401, u"unauthorized"_s, u"Not signed in"_s, u"The session is not known."_s);
}

HTTPAnswer notFound() { return problemAnswer(404, u"not_found"_s, u"Not found"_s, u"There is nothing here."_s); }

}  // namespace

QString DemoRequest::token() const {
  const QByteArray bearer = headers.value("authorization");
  if (bearer.startsWith("Bearer ")) return QString::fromUtf8(bearer.sliced(7));
  const QByteArray cookie = headers.value("cookie");
  return cookie.startsWith("orv_session=") ? QString::fromUtf8(cookie.sliced(12)) : QString();
}

DemoRequest DemoRequest::parse(const QByteArray& method, const QByteArray& target,
                               const QList<QPair<QByteArray, QByteArray>>& headers, const QByteArray& body) {
  const QUrl url = QUrl::fromEncoded(target);
  DemoRequest request{method, url.path(QUrl::FullyDecoded), QUrlQuery(url), {}, body};
  for (const auto& [name, value] : headers) request.headers.insert(name.toLower(), value);
  return request;
}

HTTPAnswer jsonAnswer(const QJsonObject& object, int status) {
  return {status, {{"Content-Type", "application/json"}}, QJsonDocument(object).toJson(QJsonDocument::Compact)};
}

HTTPAnswer emptyAnswer() { return {204, {}, {}}; }

HTTPAnswer problemAnswer(int status, const QString& code, const QString& title, const QString& detail,
                         const QJsonObject& more) {
  QJsonObject problem = more;
  problem.insert("type"_L1, u"about:blank"_s);
  problem.insert("status"_L1, status);
  problem.insert("code"_L1, code);
  problem.insert("title"_L1, title);
  if (!detail.isEmpty()) problem.insert("detail"_L1, detail);
  HTTPAnswer answer = jsonAnswer(problem, status);
  answer.headers = {{"Content-Type", "application/problem+json"}};
  return answer;
}

DemoService::DemoService(Clock& clock, quint64 seed, const DemoScale& scale)
    : m_clock(clock), m_random(seed ^ 0x5eed), m_state(makeSample(seed, scale, clock.now().date())) {}

HTTPAnswer DemoService::answer(const DemoRequest& request) {
  HTTPAnswer answer = request.method == "GET" ? route(request) : once(request);
  answer.headers.append({"x-request-id", m_random.id(u"req"_s).toLatin1()});
  return answer;
}

/// A key seen before gets the answer of then; nothing is applied twice.
HTTPAnswer DemoService::once(const DemoRequest& request) {
  const QByteArray key = request.headers.value("idempotency-key");
  // An ended session gets no old answers either.
  const bool ended = !request.token().isEmpty() && !m_tokens.contains(request.token());
  if (key.isEmpty() || ended) return route(request);
  const QString who = request.token() + u' ' + QString::fromLatin1(key);
  const QByteArray what = request.method + ' ' + request.path.toUtf8() + ' ' + request.body;
  if (const auto seen = m_remembered.constFind(who); seen != m_remembered.constEnd()) {
    if (seen->request == what) return seen->answer;
    return problemAnswer(422, u"idempotency_key_reused"_s, u"This key belongs to another request"_s);
  }
  HTTPAnswer answer = route(request);
  m_remembered.insert(who, {what, answer});
  return answer;
}

HTTPAnswer DemoService::route(const DemoRequest& request) {
  static const QString accountRoot = u"/api/v1/auth/"_s, workspaceRoot = u"/api/v1/w/"_s;
  if (request.path.startsWith(accountRoot)) return account(request, request.path.sliced(accountRoot.size()));
  if (request.path.startsWith(workspaceRoot)) return workspace(request);
  return notFound();
}

HTTPAnswer DemoService::account(const DemoRequest& request, const QString& call) {
  const QString what = QString::fromLatin1(request.method) + u' ' + call;
  const QJsonObject body = QJsonDocument::fromJson(request.body).object();
  if (what == "GET methods"_L1)
    return jsonAnswer({{u"google"_s, true}, {u"email"_s, true}, {u"password"_s, true}, {u"dev"_s, false}});
  if (what == "POST email/check"_L1) return checkEmail(body);
  if (what == "POST password/sign-in"_L1) return passwordSignIn(body);
  if (what == "POST email/start"_L1) return startEmail(body);
  if (what == "POST email/verify"_L1) return verifyEmail(body);
  if (what == "GET google/start"_L1) return googlePage(request.query);
  if (what == "POST token"_L1) return exchangeToken(body);
  const QString email = m_tokens.value(request.token());
  return email.isEmpty() ? unauthorized() : signedIn(request, what, email);
}

HTTPAnswer DemoService::signedIn(const DemoRequest& request, const QString& what, const QString& email) {
  DemoAccount& account = m_state.accounts[email];
  if (what == "GET me"_L1) {
    return jsonAnswer(toJSON(MeResponse{account.user, workspacesOf(email), account.lastWorkspace}));
  }
  if (what == "GET me/unread"_L1) {
    UnreadCounts counts;
    for (const auto& workspace : workspacesOf(email))
      counts.workspaces.append({workspace.slug, workspace.name, 0, 0, {}});
    return jsonAnswer(toJSON(counts));
  }
  if (what == "PUT me/workspace"_L1) {
    account.lastWorkspace = QJsonDocument::fromJson(request.body).object().value("slug"_L1).toString();
    return emptyAnswer();
  }
  if (what == "POST logout"_L1) {
    m_tokens.remove(request.token());
    return emptyAnswer();
  }
  return notFound();
}

HTTPAnswer DemoService::workspace(const DemoRequest& request) {
  const QString email = m_tokens.value(request.token());
  if (email.isEmpty()) return unauthorized();
  const QStringList parts = request.path.split(u'/', Qt::SkipEmptyParts).mid(3);
  DemoWorkspace* workspace = parts.isEmpty() ? nullptr : m_state.find(parts.first());
  if (!workspace || !workspace->members.contains(email)) return notFound();
  const QString role = workspace->members.value(email);
  if (request.method != "GET" && role == "viewer"_L1)
    return problemAnswer(403, u"forbidden"_s, u"Not allowed"_s, u"Only members can change campaigns."_s);
  const DoorContext context{*workspace, m_clock.now(), m_random};
  if (auto figures = AnalyticsDoor(context).answer(request, parts.mid(1))) return std::move(*figures);
  if (auto lists = LeadListDoor(context).answer(request, parts.mid(1))) return std::move(*lists);
  if (auto mailboxes = MailboxDoor(context).answer(request, parts.mid(1))) return std::move(*mailboxes);
  return CampaignDoor(context).answer(request, parts.mid(1)).value_or(notFound());
}

HTTPAnswer DemoService::checkEmail(const QJsonObject& body) {
  const auto account = m_state.accounts.constFind(body.value("email"_L1).toString());
  const bool known = account != m_state.accounts.constEnd();
  return jsonAnswer(toJSON(EmailCheck{known, known && !account->password.isEmpty(), false}));
}

HTTPAnswer DemoService::passwordSignIn(const QJsonObject& body) {
  const QString email = body.value("email"_L1).toString();
  const auto account = m_state.accounts.constFind(email);
  if (account == m_state.accounts.constEnd() || account->password.isEmpty() ||
      account->password != body.value("password"_L1).toString())
    return problemAnswer(403, u"bad_password"_s, u"Wrong password"_s);
  return openSession(email);
}

HTTPAnswer DemoService::startEmail(const QJsonObject& body) {
  const QString email = body.value("email"_L1).toString();
  if (!m_state.accounts.contains(email)) return problemAnswer(404, u"no_account"_s, u"No such account"_s);
  const QDateTime now = m_clock.now();
  if (const auto sent = m_codes.constFind(email); sent != m_codes.constEnd()) {
    const qint64 wait = resendSeconds - sent->sentAt.secsTo(now);
    if (wait > 0) return problemAnswer(409, u"too_soon"_s, u"A code was just sent"_s, {}, {{u"retryIn"_s, wait}});
  }
  const QString code = QString::number(m_random.between(0, 999999)).rightJustified(6, u'0');
  m_codes.insert(email, {code, now});
  if (onCode) onCode(email, code);
  return jsonAnswer(toJSON(EmailStarted{u"sign_in"_s, resendSeconds}));
}

HTTPAnswer DemoService::verifyEmail(const QJsonObject& body) {
  const QString email = body.value("email"_L1).toString();
  const auto sent = m_codes.find(email);
  if (sent == m_codes.end() || sent->sentAt.secsTo(m_clock.now()) > codeLivesSeconds || sent->triesLeft == 0)
    return problemAnswer(410, u"code_expired"_s, u"The code has expired"_s);
  if (sent->code != body.value("code"_L1).toString()) {
    --sent->triesLeft;
    return problemAnswer(403, u"wrong_code"_s, u"Wrong code"_s, {}, {{u"triesLeft"_s, sent->triesLeft}});
  }
  m_codes.erase(sent);
  return openSession(email);
}

QString DemoService::googleCode(const QString& email, const QString& challenge) {
  QString code = m_random.id(u"g"_s);
  m_grants.insert(code, {email, challenge});
  return code;
}

HTTPAnswer DemoService::googlePage(const QUrlQuery& query) {
  if (query.queryItemValue(u"client"_s) != "macos"_L1 || query.queryItemValue(u"code_challenge"_s).size() != 43)
    return problemAnswer(422, u"bad_request"_s, u"Start the sign-in in the application"_s);
  const QString link = u"com.orvella.desktop://auth/callback?code="_s +
                       googleCode(mainAccount, query.queryItemValue(u"code_challenge"_s));
  const QString page =
      u"<!doctype html><meta charset=utf-8><title>Sign in</title>"
      "<body style='font:16px sans-serif;margin:4em auto;max-width:30em'>"
      "<h1>Sign in to Orvella</h1><p><a href='%1'>Continue as Maren Kolbe</a></p>"
      "<p>If nothing happens, paste this link into Orvella:</p><code>%1</code></body>"_s.arg(link);
  return {200, {{"Content-Type", "text/html; charset=utf-8"}}, page.toUtf8()};
}

HTTPAnswer DemoService::exchangeToken(const QJsonObject& body) {
  const Grant grant = m_grants.take(body.value("code"_L1).toString());
  const QByteArray digest =
      QCryptographicHash::hash(body.value("code_verifier"_L1).toString().toLatin1(), QCryptographicHash::Sha256);
  const QByteArray challenge = digest.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
  if (grant.email.isEmpty() || grant.challenge.toLatin1() != challenge)
    return problemAnswer(403, u"bad_grant"_s, u"This sign-in link is no longer valid"_s, u"Start again."_s);
  return openSession(grant.email);
}

NativeSession DemoService::newSession(const QString& email) {
  NativeSession session;
  session.token = u"orv_sess_"_s + m_random.id(u"demo"_s) + m_random.id(u"x"_s);
  session.expiresAt = formatPlatformDate(m_clock.now().addDays(30));
  session.user = m_state.accounts.value(email).user;
  session.workspaces = workspacesOf(email);
  session.lastWorkspace = m_state.accounts.value(email).lastWorkspace;
  m_tokens.insert(session.token, email);
  return session;
}

HTTPAnswer DemoService::openSession(const QString& email) { return jsonAnswer(toJSON(newSession(email))); }

NativeSession DemoService::signInDirectly() { return newSession(mainAccount); }

QList<WorkspaceSummary> DemoService::workspacesOf(const QString& email) const {
  QList<WorkspaceSummary> list;
  for (const DemoWorkspace& workspace : m_state.workspaces) {
    if (!workspace.members.contains(email)) continue;
    list.append({workspace.id, workspace.slug, workspace.name, Role(workspace.members.value(email)), {}, u"growth"_s});
  }
  return list;
}

std::unique_ptr<APITransport::Exchange> DemoTransport::exchange(APICall call,
                                                                std::shared_ptr<AnswerReceiver> receiver) {
  const WireRequest wire = wireRequest(call, {QUrl(u"https://demo.orvella.example"_s)}, {u"demo"_s, u"0"_s, u"0.0"_s});
  QList<QPair<QByteArray, QByteArray>> headers;
  for (const QByteArray& line : wire.headers) {
    const auto colon = line.indexOf(':');
    headers.append({line.first(colon), line.sliced(colon + 2)});
  }
  receiver->receive(
      m_service.answer(DemoRequest::parse(wire.method, wire.url, headers, wire.body.value_or(QByteArray()))));
  return std::make_unique<Exchange>();
}

}  // namespace orv::demo
