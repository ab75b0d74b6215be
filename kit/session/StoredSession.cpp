#include "kit/session/StoredSession.h"

#include "kit/api/JSONCodingImpl.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(StoredSession)

QString StoredSession::description() const {
  return u"StoredSession(user: "_s + user.email + u", workspaces: "_s + QString::number(workspaces.size()) +
         u", token: [redacted])"_s;
}

QDebug operator<<(QDebug debug, const StoredSession& session) { return debug.noquote() << session.description(); }

}  // namespace orv
