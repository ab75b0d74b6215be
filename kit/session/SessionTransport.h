#pragma once

#include <optional>

#include "kit/api/APITransport.h"
#include "kit/async/Clock.h"
#include "kit/session/StoredSession.h"

namespace orv {

/// What every call of the signed-in person goes through: a session that has run out or is no longer the open one is
/// never used, and ends as the service would have ended it, with `unauthorized`.
class SessionTransport final : public APITransport {
 public:
  SessionTransport(APITransport& transport, Clock& clock) : m_transport(transport), m_clock(clock) {}

  void open(StoredSession session) { m_session = std::move(session); }
  void close() { m_session.reset(); }

  /// The call carries its token, which tells the open session's calls from those of one before.
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override;

 private:
  APITransport& m_transport;
  Clock& m_clock;
  std::optional<StoredSession> m_session;
};

}  // namespace orv
