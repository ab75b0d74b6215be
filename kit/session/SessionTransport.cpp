#include "kit/session/SessionTransport.h"

namespace orv {

std::unique_ptr<APITransport::Exchange> SessionTransport::exchange(APICall call,
                                                                   std::shared_ptr<AnswerReceiver> receiver) {
  if (m_session && m_session->token == call.token && !m_session->isExpired(m_clock.now()))
    return m_transport.exchange(std::move(call), std::move(receiver));
  receiver->receive(HTTPAnswer{401, {}, {}});
  return nullptr;
}

}  // namespace orv
