#include <QCommandLineParser>
#include <QGuiApplication>

#include "bench/Report.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

int main(int argc, char** argv) {
  // Figures of a graphics card would say little about the next machine's.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(u"Measures Orvella, each figure beside its baseline or goal."_s);
  options.addHelpOption();
  options.addOption({u"quick"_s, u"Only shows that everything runs."_s});
  options.process(application);

  const bench::Scale scale{options.isSet(u"quick"_s)};
#ifndef NDEBUG
  std::printf("This build is not optimised; its figures mean nothing. Use the release preset.\n");
#endif
  const bool done = bench::decode(scale) && bench::start(scale) && bench::window(scale) && bench::chart(scale) &&
                    bench::editor(scale) && bench::leads(scale) && bench::analytics(scale);
  return done ? 0 : 1;
}
