#include "kit/session/StoredSession.h"

#include "kit/api/PlatformDate.h"
#include "kit/api/recordCoders.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_RECORD_CODERS(StoredSession)

StoredSession StoredSession::from(const NativeSession& session, const QDateTime& now) {
  StoredSession stored;
  stored.token = session.token;
  stored.issuedAt = now;
  stored.expiresAt = parsePlatformDate(session.expiresAt).value_or(now);
  stored.user = session.user;
  stored.workspaces = session.workspaces;
  stored.currentSlug = session.lastWorkspace;
  return stored;
}

QString StoredSession::description() const {
  return u"StoredSession(user: "_s + user.email + u", workspaces: "_s + QString::number(workspaces.size()) +
         u", token: [redacted])"_s;
}

QDebug operator<<(QDebug debug, const StoredSession& session) { return debug.noquote() << session.description(); }

}  // namespace orv
