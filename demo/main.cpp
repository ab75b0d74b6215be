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

int fail(const QString& sentence) {
  QTextStream(stderr) << sentence << Qt::endl;
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(u"Orvella’s service in miniature, on loopback, out of memory."_s);
  options.addHelpOption();
  options.addOptions({{u"port"_s, u"Port to listen on; 0 takes any free one."_s, u"port"_s, u"8787"_s},
                      {u"host"_s, u"Address to listen on: loopback only."_s, u"host"_s, u"127.0.0.1"_s},
                      {u"seed"_s, u"Seed of the sample and of the faults."_s, u"seed"_s, u"1"_s},
                      {u"campaigns"_s, u"Campaigns in the first workspace, at least."_s, u"n"_s, u"0"_s},
                      {u"mailboxes"_s, u"Mailboxes in the first workspace, at least."_s, u"n"_s, u"0"_s},
                      {u"leads"_s, u"Leads in the first campaign, at least."_s, u"n"_s, u"0"_s},
                      {u"latency"_s, u"Milliseconds before every answer."_s, u"ms"_s, u"0"_s},
                      {u"faults"_s, u"Share of requests that go wrong, 0 to 1."_s, u"rate"_s, u"0"_s}});
  options.process(application);

  if (options.value(u"host"_s) != "127.0.0.1"_L1 && options.value(u"host"_s) != "localhost"_L1)
    return fail(u"This service holds no real accounts and checks nothing; it listens on loopback only."_s);

  const quint64 seed = options.value(u"seed"_s).toULongLong();
  SystemClock clock;
  DemoService service(clock, seed,
                      {options.value(u"campaigns"_s).toInt(), options.value(u"mailboxes"_s).toInt(),
                       options.value(u"leads"_s).toInt()});
  service.onCode = [](const QString& email, const QString& code) {
    out() << "Code for " << email << ": " << code << Qt::endl;
  };
  HttpDoor door(service, clock,
                Faults(options.value(u"faults"_s).toDouble(), seed,
                       std::chrono::milliseconds(options.value(u"latency"_s).toInt())));
  if (!door.listen(quint16(options.value(u"port"_s).toUInt())))
    return fail(u"Port %1 is taken. Choose another with --port."_s.arg(options.value(u"port"_s)));

  out() << "Listening on http://127.0.0.1:" << door.port() << " (seed " << seed << ")\n"
        << "Sign in as maren@northgate.example with the password \"northgate\",\n"
        << "or as tomas@northgate.example with the code that is printed here." << Qt::endl;
  return QCoreApplication::exec();
}
