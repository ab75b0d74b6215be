#pragma once

#include <QProcess>
#include <QUrl>

namespace orv::test {

/// The real service program on a port of its own, and what it prints. It ends with this object.
class ServiceProcess {
 public:
  explicit ServiceProcess(const QStringList& options = {});
  ServiceProcess(const ServiceProcess&) = delete;
  ServiceProcess& operator=(const ServiceProcess&) = delete;
  ~ServiceProcess();

  const QUrl& url() const { return m_url; }
  QStringList arguments() const { return m_process.arguments(); }
  /// Everything printed so far.
  const QString& output();
  /// Waits until a line of the output holds `text` and gives what stands behind it there.
  QString waitFor(const QString& text);
  /// The last code printed for the address.
  QString codeFor(const QString& email) { return waitFor(QStringLiteral("Code for ") + email + QStringLiteral(": ")); }
  /// Ends the program at once, with whatever it is doing.
  void kill();

 private:
  QProcess m_process;
  QString m_output;
  QUrl m_url;
};

}  // namespace orv::test
