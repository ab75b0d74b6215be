#include "tests/support/PrivateBus.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

constexpr auto configuration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:dir=%1</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>)"_L1;

void end(QProcess& process) {
  if (process.state() == QProcess::NotRunning) return;
  process.terminate();
  if (!process.waitForFinished(5000)) process.kill();
  process.waitForFinished(1000);
}

}  // namespace

PrivateBus::PrivateBus() : m_environment(QProcessEnvironment::systemEnvironment()) {
  for (const auto& [variable, folder] : {std::pair{u"HOME"_s, u"home"_s},
                                         {u"XDG_RUNTIME_DIR"_s, u"run"_s},
                                         {u"XDG_DATA_HOME"_s, u"home/share"_s},
                                         {u"XDG_CONFIG_HOME"_s, u"home/config"_s}}) {
    const QString path = m_folder.filePath(folder);
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(variable, path);
  }
  m_environment.remove(u"DISPLAY"_s);
  m_environment.remove(u"WAYLAND_DISPLAY"_s);

  QFile file(m_folder.filePath(u"bus.conf"_s));
  if (!file.open(QIODevice::WriteOnly)) qFatal("The bus configuration cannot be written");
  file.write(QString(configuration).arg(m_folder.filePath(u"run"_s)).toUtf8());
  file.close();
  m_daemon.setProcessEnvironment(m_environment);
  m_daemon.start(u"dbus-daemon"_s, {u"--nofork"_s, u"--print-address"_s, u"--config-file="_s + file.fileName()});
  while (!m_daemon.canReadLine())
    if (!m_daemon.waitForReadyRead(10000)) qFatal("No private bus: %s", m_daemon.readAllStandardError().constData());
  m_address = QString::fromUtf8(m_daemon.readLine().trimmed());
  setSessionAddress(m_address);
}

void PrivateBus::setSessionAddress(const QString& address) {
  m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
}

PrivateBus::~PrivateBus() {
  for (const auto& service : m_services) end(*service);
  end(m_daemon);
}

void PrivateBus::start(const QString& name, const QString& program, const QStringList& arguments,
                       const QByteArray& input) {
  auto& service = *m_services.emplace_back(std::make_unique<QProcess>());
  service.setProcessEnvironment(m_environment);
  service.start(program, arguments);
  service.write(input);
  if (!input.isEmpty()) service.waitForBytesWritten();
  service.closeWriteChannel();
  run(u"gdbus"_s, {u"wait"_s, u"--session"_s, u"--timeout"_s, u"10"_s, name});
}

void PrivateBus::startKeyring() {
  start(u"org.freedesktop.secrets"_s, u"gnome-keyring-daemon"_s,
        {u"--foreground"_s, u"--components=secrets"_s, u"--unlock"_s}, "keyring password");
}

void PrivateBus::lockKeyring() {
  run(u"gdbus"_s,
      {u"call"_s, u"--session"_s, u"-d"_s, u"org.freedesktop.secrets"_s, u"-o"_s, u"/org/freedesktop/secrets"_s,
       u"-m"_s, u"org.freedesktop.Secret.Service.Lock"_s, u"['/org/freedesktop/secrets/collection/login']"_s});
}

QByteArray PrivateBus::run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setProcessEnvironment(m_environment);
  process.start(program, arguments);
  if (!process.waitForFinished(20000) || process.exitCode() != 0)
    QTest::qFail(qPrintable(program + u" failed: "_s + QString::fromUtf8(process.readAllStandardError())), __FILE__,
                 __LINE__);
  return process.readAllStandardOutput();
}

}  // namespace orv::test
