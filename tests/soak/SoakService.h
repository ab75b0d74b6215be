#pragma once

#include <QProcess>
#include <QUrl>
#include <chrono>

#include "demo/Faults.h"

namespace orv::soak {

/// The service in miniature as a process of its own, so that its memory is not the client's: lives until its standard
/// input ends and does what stands there, a line each. The process's exit code.
int serve(quint64 seed);

/// That process, started from this program's own file, and what a run does to it. Its time is set from here.
class SoakService {
 public:
  explicit SoakService(quint64 seed);
  SoakService(const SoakService&) = delete;
  SoakService& operator=(const SoakService&) = delete;
  ~SoakService();

  const QUrl& url() const { return m_url; }
  void pass(std::chrono::milliseconds time) { order(QStringLiteral("pass %1").arg(time.count())); }
  /// The share of requests that go wrong, the end of the session apart.
  void setFaults(double rate) { order(QStringLiteral("faults %1").arg(rate)); }
  /// What happens to the next request.
  void failNext(demo::Faults::Kind kind) { order(QStringLiteral("next %1").arg(int(kind))); }
  /// Requests to paths that hold the text are not answered; empty for none.
  void hold(const QString& text) { order(QStringLiteral("hold ") + text); }
  /// Somebody answers a campaign.
  void bringReply() { order(QStringLiteral("reply")); }
  /// Ends in the middle of whatever it does, and starts again on the same port with what it knew.
  void kill() { order(QStringLiteral("kill")); }
  void restart() { order(QStringLiteral("restart")); }
  /// Waits until all of it is done.
  void sync();

 private:
  void order(const QString& line);
  QString answer();

  QProcess m_process;
  QUrl m_url;
};

}  // namespace orv::soak
