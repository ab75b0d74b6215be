#include "tests/soak/SoakService.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTextStream>

#include "demo/HttpDoor.h"
#include "kit/async/ManualClock.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace orv::soak {
namespace {

/// Milliseconds that the process may take for what it is told.
constexpr int patience = 300'000;

/// What stands behind the process's standard input.
class ServiceSide {
 public:
  explicit ServiceSide(quint64 seed) : m_random(seed), m_service(m_clock, seed) { m_service.setRepliesPerMinute(1); }

  bool open() {
    m_door = std::make_unique<demo::HttpDoor>(m_service, m_clock, faults());
    if (!m_door->listen(m_port)) return false;
    m_port = m_door->port();
    return true;
  }
  quint16 port() const { return m_port; }

  void obey(const QString& line) {
    const QString verb = line.section(u' ', 0, 0), rest = line.section(u' ', 1);
    if (verb == "pass"_L1) m_clock.advance(std::chrono::milliseconds(rest.toLongLong()));
    if (verb == "reply"_L1) m_service.bringReply(u"northgate"_s, m_random.chance(0.5) ? u"interested"_s : QString());
    if (verb == "kill"_L1) m_door.reset();
    if (verb == "restart"_L1 && !m_door && !open()) qFatal("The service cannot listen again");
    if (verb == "faults"_L1) {
      m_rate = rest.toDouble();
      if (m_door) m_door->setFaults(faults());
    }
    if (!m_door) return;
    if (verb == "next"_L1) m_door->faults().setNext(demo::Faults::Kind(rest.toInt()));
    if (verb == "hold"_L1) m_door->faults().setHeld(rest);
  }

 private:
  demo::Faults faults() {
    using Kind = demo::Faults::Kind;
    demo::Faults faults(m_rate, m_random.next());
    // The end of the session is a thing of its own: drawn as often as the others, nobody would ever get far.
    faults.setKinds({Kind::conflict, Kind::rateLimit, Kind::htmlError, Kind::htmlSuccess, Kind::truncated, Kind::closed,
                     Kind::late});
    faults.setLateness(4s);
    return faults;
  }

  demo::DemoRandom m_random;
  ManualClock m_clock;
  demo::DemoService m_service;
  std::unique_ptr<demo::HttpDoor> m_door;
  double m_rate = 0;
  quint16 m_port = 0;
};

}  // namespace

int serve(quint64 seed) {
  ServiceSide side(seed);
  if (!side.open()) return 1;
  QTextStream out(stdout);
  out << side.port() << Qt::endl;
  QByteArray read;
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, &input, [&] {
    char bytes[4096];
    const auto count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) return QCoreApplication::quit();
    read.append(bytes, count);
    for (qsizetype end; (end = read.indexOf('\n')) >= 0; read.remove(0, end + 1)) {
      const QString line = QString::fromUtf8(read.first(end));
      if (line == "sync"_L1)
        out << "done" << Qt::endl;
      else
        side.obey(line);
    }
  });
  return QCoreApplication::exec();
}

SoakService::SoakService(quint64 seed) {
  m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  m_process.start(QCoreApplication::applicationFilePath(), {u"--serve"_s, u"--seed"_s, QString::number(seed)});
  m_url = QUrl(u"http://127.0.0.1:"_s + answer());
}

SoakService::~SoakService() {
  m_process.closeWriteChannel();
  if (!m_process.waitForFinished(patience)) m_process.kill();
}

void SoakService::order(const QString& line) {
  m_process.write(line.toUtf8() + '\n');
  m_process.waitForBytesWritten(patience);
}

void SoakService::sync() {
  order(u"sync"_s);
  answer();
}

QString SoakService::answer() {
  while (!m_process.canReadLine())
    if (!m_process.waitForReadyRead(patience)) qFatal("The service says nothing any more");
  return QString::fromUtf8(m_process.readLine()).trimmed();
}

}  // namespace orv::soak
