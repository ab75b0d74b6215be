#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <memory>
#include <vector>

namespace orv::test {

/// A session bus of the test's own, with a home and a runtime folder of its own. It starts no services by itself, and
/// everything started on it ends with it.
class PrivateBus {
 public:
  PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus();

  const QString& address() const { return m_address; }
  const QProcessEnvironment& environment() const { return m_environment; }
  /// What programs started from now on take for the session bus.
  void setSessionAddress(const QString& address);
  QString folder() const { return m_folder.path(); }

  /// Starts a program that takes `name` on the bus, and waits until it has it.
  void start(const QString& name, const QString& program, const QStringList& arguments, const QByteArray& input = {});
  /// A real keyring, unlocked.
  void startKeyring();
  void lockKeyring();
  /// What a short program on the bus prints; its failure fails the test.
  QByteArray run(const QString& program, const QStringList& arguments);

 private:
  QTemporaryDir m_folder;
  QProcessEnvironment m_environment;
  QString m_address;
  QProcess m_daemon;
  std::vector<std::unique_ptr<QProcess>> m_services;
};

}  // namespace orv::test
