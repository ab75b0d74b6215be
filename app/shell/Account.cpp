#include "app/shell/Account.h"

#include <QLoggingCategory>

#include "kit/session/authRequests.h"

namespace orv {

Q_LOGGING_CATEGORY(lcAccount, "orvella.app")

void Account::read(const QString& token) {
  if (m_read.isIdle()) m_read.start(readTask(token));
}

void Account::remember(const QString& token, const QString& workspace) {
  m_remember.start(rememberTask(token, workspace));
}

void Account::cancel() {
  m_read.cancel();
  m_remember.cancel();
}

template <class R>
Task<R> Account::call(Request<R> request, QString token) {
  try {
    co_return co_await m_api.send(std::move(request), {}, token);
  } catch (const APIError& error) {
    if (error.is(APIError::Kind::unauthorized)) onEnded(token);
    throw;
  }
}

Task<UnreadCounts> Account::unread(QString token) {
  co_return co_await call(Requests::unreadCounts(), std::move(token));
}

Task<void> Account::readTask(QString token) {
  try {
    const MeResponse account = co_await call(Requests::me(), token);
    account.user ? onRead(account) : onEnded(token);
  } catch (const APIError& error) {
    qCInfo(lcAccount, "The account could not be read: %s", qPrintable(error.description()));
  }
}

Task<void> Account::rememberTask(QString token, QString workspace) {
  try {
    co_await call(Requests::setCurrentWorkspace(workspace), token);
  } catch (const APIError& error) {
    // Only the next start on another machine would have known.
    qCInfo(lcAccount, "Last workspace not recorded: %s", qPrintable(error.description()));
  }
}

}  // namespace orv
