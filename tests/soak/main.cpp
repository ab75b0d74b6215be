#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <cstdio>

#include "tests/soak/Ring.h"
#include "tests/soak/Soak.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv::soak;

namespace {

void describe(QCommandLineParser& options) {
  options.setApplicationDescription(
      u"Presses whatever there is in Orvella for an hour of simulated time, against a service that fails, and compares "
      "what every page shows with what the service holds."_s);
  options.addHelpOption();
  options.addOptions(
      {{u"seconds"_s, u"How long to go on pressing, in real time."_s, u"n"_s, u"60"_s},
       {u"simulated"_s, u"Minutes that pass for the client meanwhile."_s, u"n"_s, u"60"_s},
       {u"faults"_s, u"Share of requests that go wrong."_s, u"rate"_s, u"0.04"_s},
       {u"seed"_s, u"Draws what is pressed and what fails; another one each time when left out."_s, u"seed"_s},
       {u"no-comparison"_s, u"Compares no page: the run ends well when nothing breaks, hangs or grows."_s},
       {u"holders"_s, u"Tells after each quarter what asked for the memory in use (sanitized builds)."_s},
       {u"serve"_s, u"Is the service of such a run."_s}});
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCommandLineParser options;
  describe(options);
  options.process(application);

  SoakPlan plan;
  plan.seed =
      options.isSet(u"seed"_s) ? options.value(u"seed"_s).toULongLong() : QRandomGenerator::global()->generate();
  if (options.isSet(u"serve"_s)) return serve(plan.seed);
  plan.real = std::chrono::seconds(options.value(u"seconds"_s).toInt());
  plan.simulated = std::chrono::minutes(options.value(u"simulated"_s).toInt());
  plan.compares = !options.isSet(u"no-comparison"_s);
  plan.tellsHolders = options.isSet(u"holders"_s);
  plan.faults = options.value(u"faults"_s).toDouble();

  const QString again =
      u"orvella-soak --seconds %1 --simulated %2 --faults %3 --seed %4"_s.arg(plan.real.count() / 1000)
          .arg(plan.simulated / std::chrono::minutes(1))
          .arg(plan.faults)
          .arg(plan.seed);
  std::printf("%s\n", qPrintable(again));
  std::fflush(stdout);
  // Everything is made to go wrong here, and each fault is logged.
  QLoggingCategory::setFilterRules(u"orvella.*=false"_s);
  printRingAtEnd();
  const bool holds = Soak(plan).run();
  if (!holds) std::fprintf(stderr, "Played again by: %s\n", qPrintable(again));
  return holds ? 0 : 1;
}
