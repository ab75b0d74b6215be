#pragma once

#include <functional>

#include "kit/async/TaskScope.h"
#include "kit/session/SessionTransport.h"
#include "kit/session/records.h"

namespace orv {

/// The calls about the signed-in person themselves, whatever workspace is open.
class Account final {
 public:
  explicit Account(SessionTransport& api) : m_api(api) {}

  std::function<void(const MeResponse&)> onRead;
  /// The service does not know the session of that token.
  std::function<void(const QString& token)> onEnded;

  /// Who they are and where they belong; once at a time.
  void read(const QString& token);
  /// The same of now: what is under way was asked too early to know it.
  void readAnew(const QString& token) { m_read.start(readTask(token)); }
  /// The workspace to begin with on another machine.
  void remember(const QString& token, const QString& workspace);
  void cancel();
  /// Unread mail of all their workspaces.
  Task<UnreadCounts> unread(QString token);

 private:
  template <class R>
  Task<R> call(Request<R> request, QString token);
  Task<void> readTask(QString token);
  Task<void> rememberTask(QString token, QString workspace);

  SessionTransport& m_api;
  TaskSlot m_read;
  TaskSlot m_remember;
};

}  // namespace orv
