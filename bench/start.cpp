#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include "bench/Report.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

/// A screen without a desktop, for as long as it lives.
class Screen {
 public:
  bool start() {
    m_server.setProgram(u"Xvfb"_s);
    m_server.setArguments({u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1920x1080x24"_s, u"-nolisten"_s, u"tcp"_s});
    m_server.start();
    if (!m_server.waitForReadyRead(10000)) return false;
    m_name = u':' + QString::fromLatin1(m_server.readAll().trimmed());
    return true;
  }
  ~Screen() {
    m_server.terminate();
    m_server.waitForFinished();
  }
  const QString& name() const { return m_name; }

 private:
  QProcess m_server;
  QString m_name;
};

/// The program as a person has it, in a window of the screen or offscreen.
void prepare(QProcess& program, const Screen* screen, const QStringList& more) {
  program.setProgram(QStringLiteral(ORVELLA_PROGRAM));
  program.setArguments(QStringList{u"--demo"_s} + more);
  program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  // Not where the person's own window stands.
  static const QTemporaryDir settings;
  environment.insert(u"XDG_CONFIG_HOME"_s, settings.path());
  if (screen) {
    environment.insert(u"DISPLAY"_s, screen->name());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.remove(u"QT_QUICK_BACKEND"_s);
  }
  program.setProcessEnvironment(environment);
}

bool startOn(const Screen* screen, Scale scale) {
  std::printf("Starting on the sample workspace, %s\n", screen ? "in a window" : "offscreen");
  Times times;
  double megabytes = 0;
  for (int i = 0; i < (scale.quick ? 1 : 11); ++i) {
    QProcess program;
    prepare(program, screen, {u"--until-content"_s});
    times.ms.push_back(milliseconds([&program] {
      program.start();
      program.waitForReadyRead(20000);
    }));
    program.waitForFinished(20000);
    const QByteArray said = program.readAll();
    if (!said.startsWith("content, ")) {
      std::printf("  The program said: %s\n", said.constData());
      return false;
    }
    megabytes = std::max(megabytes, said.mid(9).split(' ').first().toDouble());
  }
  line("process start to a frame with content, median", times.median(), "ms", screen ? "at most 350" : "at most 130");
  line("the same, slowest", times.at(1), "ms");
  line("resident then, largest", megabytes, "MB", "at most 120");
  return true;
}

/// Processor time of all the process's threads, in milliseconds.
double processorTime(qint64 process) {
  double ms = 0;
  const QDir threads(u"/proc/%1/task"_s.arg(process));
  for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile file(threads.filePath(thread + u"/schedstat"_s));
    if (file.open(QIODevice::ReadOnly)) ms += file.readAll().split(' ').first().toDouble() / 1e6;
  }
  return ms;
}

bool idle(const Screen& screen, Scale scale) {
  const int seconds = scale.quick ? 1 : 30;
  std::printf("Doing nothing for %d s, signed in, in a window\n", seconds);
  QProcess program;
  prepare(program, &screen, {});
  program.start();
  if (!program.waitForStarted()) return false;
  // Messages, previews and whatever else a start leaves behind are through.
  QThread::sleep(scale.quick ? 1 : 8);
  const double before = processorTime(program.processId());
  QThread::sleep(ulong(seconds));
  const double used = processorTime(program.processId()) - before;
  const bool runs = program.state() == QProcess::Running;
  program.terminate();
  program.waitForFinished();
  if (!runs) std::printf("  The program ended.\n");
  line("share of one processor", used / (10.0 * seconds), "%", "under 0.1");
  return runs;
}

}  // namespace

bool start(Scale scale) {
  Screen screen;
  if (!screen.start()) {
    std::printf("There is no Xvfb to open a window on.\n");
    return false;
  }
  return startOn(nullptr, scale) && startOn(&screen, scale) && idle(screen, scale);
}

}  // namespace orv::bench
