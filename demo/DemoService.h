#pragma once

#include "demo/AnswerMemory.h"
#include "demo/DemoState.h"
#include "kit/async/Clock.h"

namespace orv::demo {

/// The service in miniature: answers requests out of memory, with state that really changes. Single-threaded.
class DemoService {
 public:
  DemoService(Clock& clock, quint64 seed = 1, const DemoScale& scale = {});
  Q_DISABLE_COPY_MOVE(DemoService)

  HTTPAnswer answer(const DemoRequest& request);

  /// Called with the address and the code that the real service would send by email.
  std::function<void(const QString& email, const QString& code)> onCode;

  /// A session of the sample's main account, as if it had just signed in.
  NativeSession signInDirectly();
  /// Forgets all sessions, as an operator would.
  void endAllSessions() { m_state.sessions.clear(); }
  /// Makes somebody known to the sample a member of the workspace, or gives a member another role.
  void setRole(const QString& slug, const QString& email, const QString& role);
  /// How often somebody answers by themselves.
  void setRepliesPerMinute(double replies) { m_state.repliesPerMinute = replies; }
  /// Somebody answers the workspace now, and means the label. The conversation's id.
  QString bringReply(const QString& slug, const QString& label);
  /// What the Google page hands out for the account, to be exchanged once with the verifier of `challenge`.
  QString googleCode(const QString& email, const QString& challenge);

 private:
  HTTPAnswer once(const DemoRequest& request);
  HTTPAnswer route(const DemoRequest& request);

  Clock& m_clock;
  DemoRandom m_random;
  DemoState m_state;
  AnswerMemory m_answered;
};

/// The service in process: demo mode's transport. The same bytes take the same way as over the network.
class DemoTransport final : public APITransport {
 public:
  explicit DemoTransport(DemoService& service) : m_service(service) {}
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

 private:
  DemoService& m_service;
};

}  // namespace orv::demo
