#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include "demo/HttpDoor.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;
using namespace orv::demo;

namespace {

QTextStream& out() {
  static QTextStream stream(stdout);
  return stream;
}

/// Says what is wrong with the options and ends.
[[noreturn]] void fail(const QString& sentence) {
  QTextStream(stderr) << sentence << Qt::endl;
  std::exit(2);
}

double numberOf(const QCommandLineParser& options, const QString& name, double most) {
  bool isNumber = false;
  const double value = options.value(name).toDouble(&isNumber);
  if (!isNumber || !(value >= 0 && value <= most))
    fail(u"--%1 takes a number from 0 to %2."_s.arg(name).arg(most, 0, 'f', 0));
  return value;
}

quint64 seedOf(const QCommandLineParser& options) {
  bool isNumber = false;
  const quint64 seed = options.value(u"seed"_s).toULongLong(&isNumber);
  if (!isNumber) fail(u"--seed takes a whole number."_s);
  return seed;
}

Faults faultsOf(const QCommandLineParser& options) {
  constexpr double longest = 600'000;
  const auto milliseconds = [&](const QString& name) {
    return std::chrono::milliseconds(qint64(numberOf(options, name, longest)));
  };
  Faults faults(numberOf(options, u"faults"_s, 1), seedOf(options), milliseconds(u"latency"_s));
  faults.setLateness(milliseconds(u"late"_s));
  faults.setHeld(options.value(u"hold"_s));
  QList<Faults::Kind> kinds;
  for (const QString& name : options.value(u"fault-kinds"_s).split(u',', Qt::SkipEmptyParts)) {
    const auto index = Faults::names().indexOf(name.trimmed());
    if (index < 0) fail(u"--fault-kinds takes some of %1."_s.arg(Faults::names().join(u',')));
    kinds.append(Faults::Kind(index));
  }
  faults.setKinds(kinds);
  return faults;
}

DemoScale scaleOf(const QCommandLineParser& options) {
  constexpr double most = 1'000'000;
  return {int(numberOf(options, u"campaigns"_s, most)), int(numberOf(options, u"mailboxes"_s, most)),
          int(numberOf(options, u"leads"_s, most)), int(numberOf(options, u"threads"_s, most)),
          int(numberOf(options, u"database"_s, 10 * most))};
}

void describe(QCommandLineParser& options) {
  options.setApplicationDescription(u"Orvella’s service in miniature, on loopback, out of memory."_s);
  options.addHelpOption();
  options.addOptions(
      {{u"port"_s, u"Port to listen on; 0 takes any free one."_s, u"port"_s, u"8787"_s},
       {u"host"_s, u"Address to listen on: loopback only."_s, u"host"_s, u"127.0.0.1"_s},
       {u"seed"_s, u"Seed of the sample and of the faults."_s, u"seed"_s, u"1"_s},
       {u"campaigns"_s, u"Campaigns in the first workspace, at least."_s, u"n"_s, u"0"_s},
       {u"mailboxes"_s, u"Mailboxes in the first workspace, at least."_s, u"n"_s, u"0"_s},
       {u"leads"_s, u"Leads in the first campaign, at least."_s, u"n"_s, u"0"_s},
       {u"threads"_s, u"Conversations in the first workspace, at least."_s, u"n"_s, u"0"_s},
       {u"replies-per-minute"_s, u"How often somebody answers, in each workspace."_s, u"rate"_s, u"0"_s},
       {u"database"_s, u"Leads in the database that is searched."_s, u"n"_s, u"240000"_s},
       {u"latency"_s, u"Milliseconds before every answer."_s, u"ms"_s, u"0"_s},
       {u"faults"_s, u"Share of requests that go wrong, 0 to 1."_s, u"rate"_s, u"0"_s},
       {u"fault-kinds"_s, u"What goes wrong, out of %1; everything when left out."_s.arg(Faults::names().join(u',')),
        u"kinds"_s},
       {u"late"_s, u"Milliseconds more that a late answer takes."_s, u"ms"_s, u"3000"_s},
       {u"hold"_s, u"Never answers requests whose path holds this text."_s, u"text"_s},
       {u"log"_s, u"Prints method and path of every request."_s}});
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCommandLineParser options;
  describe(options);
  options.process(application);

  if (options.value(u"host"_s) != "127.0.0.1"_L1 && options.value(u"host"_s) != "localhost"_L1)
    fail(u"This service holds no real accounts and checks nothing; it listens on loopback only."_s);

  const quint64 seed = seedOf(options);
  SystemClock clock;
  DemoService service(clock, seed, scaleOf(options));
  service.setRepliesPerMinute(numberOf(options, u"replies-per-minute"_s, 600));
  service.onCode = [](const QString& email, const QString& code) {
    out() << "Code for " << email << ": " << code << Qt::endl;
  };
  HttpDoor door(service, clock, faultsOf(options));
  if (options.isSet(u"log"_s)) door.onRequest = [](const QString& request) { out() << request << Qt::endl; };
  if (!door.listen(quint16(numberOf(options, u"port"_s, 65535))))
    fail(u"Port %1 is taken. Choose another with --port."_s.arg(options.value(u"port"_s)));

  out() << "Listening on http://127.0.0.1:" << door.port() << " (seed " << seed << ")\n"
        << "Sign in as maren@northgate.example with the password \"northgate-demo\",\n"
        << "or as tomas@northgate.example with the code that is printed here." << Qt::endl;
  return QCoreApplication::exec();
}
