#include <QProcess>

#include "bench/Report.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {

bool start(Scale scale) {
  std::printf("Starting on the sample workspace\n");
  Times times;
  double megabytes = 0;
  for (int i = 0; i < (scale.quick ? 1 : 11); ++i) {
    QProcess program;
    program.setProgram(QStringLiteral(ORVELLA_PROGRAM));
    program.setArguments({u"--demo"_s, u"--until-content"_s});
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
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
  line("process start to a frame with content, median", times.median(), "ms", "at most 350");
  line("the same, slowest", times.at(1), "ms");
  line("resident then, largest", megabytes, "MB", "at most 120");
  return true;
}

}  // namespace orv::bench
