#include "demo/DemoService.h"

#include "demo/Accounts.h"
#include "demo/Inbox.h"
#include "demo/Mailboxes.h"
#include "demo/Routes.h"
#include "kit/api/WireRequest.h"
#include "kit/session/records.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// Lets the call into its workspace. A refusal when it may not be made, to somebody outside the same as if there were
/// no such workspace.
std::optional<HTTPAnswer> admit(Call& call, const FoundRoute& found) {
  const Access access = found.route->access;
  if (access == Access::anybody) return std::nullopt;
  if (call.email.isEmpty())
    return problemAnswer(401, u"unauthorized"_s, u"Not signed in"_s, u"The session is not known."_s);
  if (access == Access::signedIn) return std::nullopt;
  call.workspace = call.state.find(found.slug);
  if (!call.workspace || !call.workspace->members.contains(call.email)) return notFound();
  const Role role(call.workspace->members.value(call.email));
  const auto refusal = [](const QString& detail) {
    return problemAnswer(403, u"forbidden"_s, u"Not allowed"_s, detail);
  };
  if (access == Access::owners && !role.isOwner()) return refusal(u"Only owners can do this."_s);
  if (access == Access::managers && !role.isOwner() && !role.isAdmin())
    return refusal(u"Only owners and admins can do this."_s);
  if (access == Access::members && !role.mayWrite()) return refusal(u"Only members can change things here."_s);
  return std::nullopt;
}

}  // namespace

DemoService::DemoService(Clock& clock, quint64 seed, const DemoScale& scale)
    : m_clock(clock), m_random(seed ^ 0x5eed), m_state(makeSample(seed, scale, clock.now().date())) {
  m_state.sendCode = [this](const QString& email, const QString& code) {
    if (onCode) onCode(email, code);
  };
}

HTTPAnswer DemoService::answer(const DemoRequest& request) {
  HTTPAnswer answer = request.method == "GET" ? route(request) : once(request);
  answer.headers.append({"x-request-id", m_random.id(u"req"_s).toLatin1()});
  return answer;
}

/// A key seen before gets the answer of then; nothing is applied twice.
HTTPAnswer DemoService::once(const DemoRequest& request) {
  // An ended session gets no old answers either.
  const bool ended = !request.token().isEmpty() && !m_state.sessions.contains(request.token());
  if (ended || !request.headers.contains("idempotency-key")) return route(request);
  const auto known = m_answered.find(request);
  if (known.misused) return problemAnswer(422, u"idempotency_key_reused"_s, u"This key belongs to another request"_s);
  if (known.answer) return *known.answer;
  HTTPAnswer answer = route(request);
  m_answered.keep(request, answer);
  return answer;
}

HTTPAnswer DemoService::route(const DemoRequest& request) {
  const FoundRoute found = findRoute(request);
  if (!found.route) return notFound();
  Call call{.request = request,
            .state = m_state,
            .random = m_random,
            .now = m_clock.now(),
            .email = m_state.sessions.value(request.token()),
            .ids = found.ids};
  if (auto refusal = admit(call, found)) return *std::move(refusal);
  // Every page counts accounts, so that each would tell of other ends of checks if some doors left it out.
  if (call.workspace) settleMailboxes(*call.workspace, call.now);
  return found.route->answer(call);
}

NativeSession DemoService::signInDirectly() { return openSession(m_state, m_random, m_clock.now(), mainAccount()); }

void DemoService::setRole(const QString& slug, const QString& email, const QString& role) {
  if (DemoWorkspace* workspace = m_state.find(slug)) workspace->members.insert(email, role);
}

QString DemoService::bringReply(const QString& slug, const QString& label) {
  DemoWorkspace* const workspace = m_state.find(slug);
  return workspace ? receiveAnother(*workspace, label, m_clock.now()).id() : QString();
}

QString DemoService::googleCode(const QString& email, const QString& challenge) {
  return grantGoogleCode(m_state, m_random, email, challenge);
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
