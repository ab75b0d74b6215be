#include "desktop/services/Programs.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <QProcess>
#include <csignal>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// What the process was started with.
struct Inherited {
  mode_t mask = ::umask(077);
  rlimit core = {};
  /// What this program makes something else of for itself.
  QProcessEnvironment environment;

  Inherited() {
    ::umask(mask);
    ::getrlimit(RLIMIT_CORE, &core);
    for (const char* name : {"QT_SCALE_FACTOR", "SSLKEYLOGFILE"})
      environment.insert(QString::fromLatin1(name), qEnvironmentVariable(name));
  }
};

const Inherited& inherited() {
  static const Inherited found;
  return found;
}

/// Between fork and exec, where little more than system calls is allowed.
void becomeStranger() {
  ::umask(inherited().mask);
  ::setrlimit(RLIMIT_CORE, &inherited().core);
  ::signal(SIGPIPE, SIG_DFL);
  // A terminal that ends this program is none of its business.
  ::setsid();
  // Libraries open files and connections that would stay open in it. The toolkit's own pipe is closed that way as well.
  if (::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC) == 0) return;
  for (int descriptor = 3; descriptor < 1024; ++descriptor) ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

QProcess* newProcess(QObject* parent, const QString& program, const QStringList& arguments) {
  (void)inherited();
  auto* process = new QProcess(parent);
  process->setProgram(program);
  process->setArguments(arguments);
  process->setChildProcessModifier(becomeStranger);
  auto environment = QProcessEnvironment::systemEnvironment();
  // Leave to take the focus that was given to this program.
  for (const auto& token : {u"XDG_ACTIVATION_TOKEN"_s, u"DESKTOP_STARTUP_ID"_s}) environment.remove(token);
  for (const QString& name : inherited().environment.keys()) {
    const QString before = inherited().environment.value(name);
    before.isEmpty() ? environment.remove(name) : environment.insert(name, before);
  }
  process->setProcessEnvironment(environment);
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  return process;
}

}  // namespace

void keepToOneself() {
  (void)inherited();
  ::signal(SIGPIPE, SIG_IGN);
  ::umask(077);
#ifdef NDEBUG
  rlimit none = inherited().core;
  none.rlim_cur = 0;
  ::setrlimit(RLIMIT_CORE, &none);
  // The TLS library would write down there what opens every connection.
  ::unsetenv("SSLKEYLOGFILE");
#endif
}

bool startProgram(const QString& program, const QStringList& arguments) {
  // Nobody owns it: a process that is let go of is ended.
  QProcess* process = newProcess(nullptr, program, arguments);
  process->setStandardOutputFile(QProcess::nullDevice());
  QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
  process->start();
  if (process->waitForStarted()) return true;
  delete process;
  return false;
}

void runProgram(const QString& program, const QStringList& arguments, QObject* context,
                std::function<void(const QByteArray&)> report) {
  QProcess* process = newProcess(context, program, arguments);
  QObject::connect(process, &QProcess::finished, process, [process, report] {
    report(process->readAllStandardOutput());
    process->deleteLater();
  });
  QObject::connect(process, &QProcess::errorOccurred, process, [process, report](QProcess::ProcessError error) {
    if (error != QProcess::FailedToStart) return;
    report({});
    process->deleteLater();
  });
  process->start(QIODevice::ReadOnly);
}

bool openByDesktop(const QString& address) { return startProgram(u"xdg-open"_s, {address}); }

}  // namespace orv
