#include <sys/resource.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include "bench/Report.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

double processorSeconds() {
  rusage used = {};
  ::getrusage(RUSAGE_CHILDREN, &used);
  const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) / 1e6; };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

bool runs(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setWorkingDirectory(QStringLiteral(ORVELLA_SOURCE));
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  // What a cache remembers of an earlier build would be taken for speed.
  environment.insert(u"CCACHE_DISABLE"_s, u"1"_s);
  process.setProcessEnvironment(environment);
  process.start(program, arguments);
  process.waitForFinished(-1);
  return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

}  // namespace

bool build(Scale scale) {
  std::printf("The release preset from nothing, without a compiler cache, on %d processors\n",
              QThread::idealThreadCount());
  const QTemporaryDir folder;
  QElapsedTimer timer;
  timer.start();
  if (!runs(u"cmake"_s, {u"--preset"_s, u"release"_s, u"-B"_s, folder.path()})) return false;
  line("configured", double(timer.elapsed()) / 1000, "s");
  if (scale.quick) return true;
  const double before = processorSeconds();
  timer.restart();
  if (!runs(u"cmake"_s, {u"--build"_s, folder.path()})) return false;
  line("built, by the clock, once", double(timer.elapsed()) / 60000, "min");
  line("processor time / 2: what two processors take", (processorSeconds() - before) / 120, "min",
       "at most 6; with all areas 10");
  return true;
}

}  // namespace orv::bench
