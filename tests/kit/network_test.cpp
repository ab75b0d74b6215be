#include <arpa/inet.h>
#include <dlfcn.h>
#include <ifaddrs.h>
#include <linux/rtnetlink.h>
#include <malloc.h>
#include <net/if.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDir>
#include <QLoggingCategory>
#include <QTest>
#include <condition_variable>
#include <map>

#include "kit/api/NetworkChanges.h"
#include "tests/kit/Wire.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using Kind = APIError::Kind;
using Then = WireServer::Reply::Then;

extern "C" size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

/// What the machine tells this process: the functions under the system's names below stand before its own, for the
/// libraries too.
namespace machine {

std::mutex mutex;
std::condition_variable changed;
/// Look-ups of "service.test" that begin now wait to be let go.
bool hanging = false;
int waiting = 0;
int letGo = 0;
/// Instead of the real ones, when there are any.
std::vector<ifaddrs> interfaces;
std::map<long, int> pollTimeouts;
std::atomic<time_t> secondsAwake = 0, secondsAsleep = 0;

void hang(bool value) {
  const std::lock_guard lock(mutex);
  hanging = value;
}
void letAllGo() {
  const std::lock_guard lock(mutex);
  hanging = false;
  ++letGo;
  changed.notify_all();
}
int waitingLookUps() {
  const std::lock_guard lock(mutex);
  return waiting;
}
void lookUp() {
  std::unique_lock lock(mutex);
  if (!hanging) return;
  ++waiting;
  changed.wait(lock, [before = letGo] { return letGo != before; });
  --waiting;
}
void forget() {
  const std::lock_guard lock(mutex);
  interfaces.clear();
  pollTimeouts.clear();
}
/// Some thread besides the test's own wakes up soon, whatever happens.
bool somebodyPolls() {
  const std::lock_guard lock(mutex);
  return std::ranges::any_of(pollTimeouts, [](const auto& each) { return each.second >= 0 && each.second < 600'000; });
}

ifaddrs interface(unsigned flags, bool addressed = true) {
  static sockaddr_in address{AF_INET, 0, {htonl(0x0a000002)}, {}};
  ifaddrs result{};
  result.ifa_flags = flags;
  result.ifa_addr = addressed ? reinterpret_cast<sockaddr*>(&address) : nullptr;
  return result;
}

}  // namespace machine

extern "C" {

int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** result) {
  static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
  if (qstrcmp(name, "nowhere.test") == 0) return EAI_NONAME;
  if (qstrcmp(name, "service.test") != 0) return real(name, service, hints, result);
  machine::lookUp();
  return real("127.0.0.1", service, hints, result);
}

int getifaddrs(ifaddrs** all) {
  static const auto real = reinterpret_cast<decltype(&getifaddrs)>(dlsym(RTLD_NEXT, "getifaddrs"));
  if (machine::interfaces.empty()) return real(all);
  for (size_t i = 1; i < machine::interfaces.size(); ++i) machine::interfaces[i - 1].ifa_next = &machine::interfaces[i];
  *all = machine::interfaces.data();
  return 0;
}
void freeifaddrs(ifaddrs* all) {
  static const auto real = reinterpret_cast<decltype(&freeifaddrs)>(dlsym(RTLD_NEXT, "freeifaddrs"));
  if (machine::interfaces.empty()) real(all);
}

int poll(pollfd* files, nfds_t count, int timeout) {
  if (const long thread = ::syscall(SYS_gettid); thread != ::getpid()) {
    const std::lock_guard lock(machine::mutex);
    machine::pollTimeouts[thread] = timeout;
  }
  return int(::syscall(SYS_poll, files, count, timeout));
}

time_t time(time_t* result) noexcept {
  timespec now{};
  ::syscall(SYS_clock_gettime, CLOCK_REALTIME, &now);
  now.tv_sec += machine::secondsAwake;
  if (result) *result = now.tv_sec;
  return now.tv_sec;
}

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const int result = int(::syscall(SYS_clock_gettime, clock, time));
  if (clock == CLOCK_MONOTONIC || clock == CLOCK_BOOTTIME) time->tv_sec += machine::secondsAwake;
  if (clock == CLOCK_BOOTTIME) time->tv_sec += machine::secondsAsleep;
  return result;
}

}  // extern "C"

namespace {

int entries(const char* folder) { return int(QDir(QString::fromUtf8(folder)).entryList(QDir::AllEntries).size()); }
int threads() { return entries("/proc/self/task"); }
int openFiles() { return int(QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size()); }
size_t heapBytes() {
  return __sanitizer_get_current_allocated_bytes ? __sanitizer_get_current_allocated_bytes() : mallinfo2().uordblks;
}

/// A service that has to be looked up.
struct NamedWire : Wire {
  explicit NamedWire(APIClient::Limits limits = patient, const QString& host = u"service.test"_s,
                     std::unique_ptr<NetworkChanges> changes = std::make_unique<NetworkChanges>()) {
    QUrl url = server.url();
    url.setHost(host);
    limits.plainAnywhere = true;
    client = std::make_unique<APIClient>(APIEnvironment{url}, identity, limits, std::move(changes));
  }
};

Task<void> drop(Task<SpintaxOut> task) { co_await std::move(task); }

/// A routing message as the kernel sends it.
QByteArray routing(quint16 type, unsigned flags = 0) {
  struct {
    nlmsghdr head;
    ifinfomsg link;
  } message{};
  message.head.nlmsg_len = sizeof message;
  message.head.nlmsg_type = type;
  message.link.ifi_flags = flags;
  return {reinterpret_cast<const char*>(&message), sizeof message};
}

/// An HTTP/2 frame of the first stream, or of the connection.
QByteArray frame(char type, bool ofStream, const QByteArray& payload = {}) {
  return QByteArray("\0\0", 2) + char(payload.size()) + type + '\0' + QByteArray("\0\0\0", 3) + char(ofStream ? 1 : 0) +
         payload;
}

/// How a call goes wrong, and what that says about the service.
struct Failing {
  APIClient::Limits limits = patient;
  QString host = u"service.test"_s;
  QString scheme = u"http"_s;
  QList<WireServer::Reply> replies;
  bool isListening = true;
  bool hangs = false;
  bool throughProxy = false;
  std::vector<ifaddrs> interfaces;
};

}  // namespace

Q_DECLARE_METATYPE(Failing)

class NetworkTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { QLoggingCategory::setFilterRules(u"orvella.api.info=false"_s); }
  void init() { machine::forget(); }
  void cleanup() { machine::letAllGo(); }

  void lookUpsThatHangHoldUpNobody() {
    NamedWire wire;
    await(wire.send(request()));
    // Their threads and what they keep are gone when the resolver has answered. The first round fills caches.
    size_t heap = 0;
    const int threadsBefore = threads(), filesBefore = openFiles();
    for (int round = 0; round < 3; ++round) {
      // The library remembers a name for a minute.
      machine::secondsAwake += 61;
      machine::hang(true);
      TaskScope scope;
      for (int i = 0; i < 200; ++i) scope.start(drop(wire.send(request(HTTPMethod::post))));
      QTRY_COMPARE(machine::waitingLookUps(), 200);
      machine::hang(false);
      scope.cancel();
      await(wire.send(request(HTTPMethod::post, u"/beside"_s)));
      QCOMPARE(machine::waitingLookUps(), 200);
      machine::letAllGo();
      QTRY_COMPARE(threads(), threadsBefore);
      // Fewer when the first request's connection has gone by its age.
      QTRY_VERIFY2(openFiles() <= filesBefore, qPrintable(QString::number(openFiles())));
      if (round == 0) heap = heapBytes();
    }
    QVERIFY2(heapBytes() < heap + 20'000, qPrintable(QString::number(heapBytes() - heap)));
    QCOMPARE(wire.seen(HTTPMethod::post), 0);
  }

  void limitsHoldDuringALookUp_data() {
    QTest::addColumn<APIClient::Limits>("limits");
    QTest::newRow("idle") << APIClient::Limits{.idle = 100ms, .whole = 40s};
    QTest::newRow("whole") << APIClient::Limits{.idle = 20s, .whole = 100ms};
  }
  void limitsHoldDuringALookUp() {
    QFETCH(APIClient::Limits, limits);
    machine::hang(true);
    NamedWire wire(limits);
    QCOMPARE(wire.failureOf(request()), Kind::timedOut);
    machine::hang(false);
    await(wire.send(request()));
    QCOMPARE(machine::waitingLookUps(), 1);
  }

  void whatAFailureSaysOfTheService_data() {
    QTest::addColumn<Failing>("failing");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("acted");
    const auto row = [](const char* name, const Failing& failing, Kind kind, bool acted) {
      QTest::newRow(name) << failing << kind << acted;
    };
    const auto answer = [](int status, const QByteArray& body = {}) {
      return Failing{.replies = {{.bytes = WireServer::answer(status, body)}}};
    };
    const unsigned runs = IFF_UP | IFF_RUNNING;
    const auto unknown = [](std::vector<ifaddrs> interfaces) {
      return Failing{.host = u"nowhere.test"_s, .interfaces = std::move(interfaces)};
    };
    const APIClient::Limits hasty{.idle = 100ms, .whole = 40s}, h2{.idle = 20s, .whole = 40s, .http2Unasked = true};
    const QByteArray settings = frame(4, false), resetStream = frame(3, true, QByteArray("\0\0\0\x02", 4));

    row("refused connection", {.isListening = false}, Kind::unreachable, false);
    row("no TLS", {.scheme = u"https"_s, .replies = {{.then = Then::close, .read = false}}}, Kind::unreachable, false);
    row("look-up takes too long", {.limits = hasty, .hangs = true}, Kind::timedOut, false);
    row("unknown host", unknown({machine::interface(runs | IFF_LOOPBACK), machine::interface(runs)}), Kind::unreachable,
        false);
    row("look-up with a bridge that nothing is plugged into",
        unknown({machine::interface(runs | IFF_LOOPBACK), machine::interface(IFF_UP)}), Kind::offline, false);
    row("look-up without an address", unknown({machine::interface(runs, false)}), Kind::offline, false);
    for (const int status : {403, 407, 503}) {
      Failing refusing = answer(status);
      refusing.scheme = u"https"_s;
      refusing.throughProxy = true;
      row(QByteArray("a proxy says " + QByteArray::number(status)).constData(), refusing, Kind::unreachable, false);
    }
    row("a proxy breaks off", {.scheme = u"https"_s, .replies = {{.then = Then::close}}, .throughProxy = true},
        Kind::unreachable, false);
    row("closed after reading", {.replies = {{.then = Then::close}}}, Kind::offline, true);
    row("silence", {.limits = hasty, .replies = {{}}}, Kind::timedOut, true);
    row("HTTP/2 stream reset", {.limits = h2, .replies = {{.bytes = settings}, {.slowly = resetStream}}},
        Kind::unreachable, true);
    row("HTTP/2 connection closed", {.limits = h2, .replies = {{.bytes = settings}, {.then = Then::close}}},
        Kind::offline, true);
    row("refused", answer(404, R"({"title":"No"})"), Kind::problem, false);
    row("nobody's session", answer(401), Kind::unauthorized, false);
    row("limited", answer(429), Kind::rateLimited, false);
    row("fault", answer(500), Kind::server, true);
    row("fault of a gateway", answer(504, R"({"title":"Late"})"), Kind::problem, true);
    row("unreadable", answer(200, "<html>"), Kind::invalidResponse, true);
  }
  void whatAFailureSaysOfTheService() {
    QFETCH(Failing, failing);
    machine::interfaces = failing.interfaces;
    machine::hang(failing.hangs);
    WireServer server;
    const QString address = server.url().authority();
    const QUrl nobody = WireServer().url();
    QUrl url = failing.isListening ? server.url() : nobody;
    url.setHost(failing.host);
    url.setScheme(failing.scheme);
    for (const auto& reply : failing.replies) server.reply(reply);
    failing.limits.plainAnywhere = true;
    APIClient client({url}, identity, failing.limits);
    if (failing.throughProxy) client.useProxy("http://" + address.toUtf8());
    std::optional<APIError> error;
    try {
      await(client.send(request(HTTPMethod::post)));
    } catch (const APIError& thrown) {
      error = thrown;
    }
    QVERIFY(error);
    QTEST(error->kind(), "kind");
    QTEST(mayHaveActed(*error), "acted");
  }

  void keptConnectionsAreNotTrustedForLong_data() {
    QTest::addColumn<int>("awake");
    QTest::addColumn<int>("asleep");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<bool>("kept");
    QTest::newRow("at once") << 0 << 0 << QByteArray() << true;
    QTest::newRow("soon") << 58 << 0 << QByteArray() << true;
    QTest::newRow("a minute later") << 60 << 0 << QByteArray() << false;
    QTest::newRow("after a night's sleep") << 0 << 30'000 << QByteArray() << false;
    QTest::newRow("an address less") << 0 << 0 << routing(RTM_DELADDR) << false;
    QTest::newRow("an address more") << 0 << 0 << routing(RTM_NEWADDR) << true;
    QTest::newRow("another way out") << 0 << 0 << routing(RTM_NEWROUTE) << false;
    QTest::newRow("a cable pulled") << 0 << 0 << routing(RTM_NEWLINK, IFF_UP) << false;
    QTest::newRow("a link tells of itself") << 0 << 0 << routing(RTM_NEWLINK, IFF_UP | IFF_RUNNING) << true;
  }
  void keptConnectionsAreNotTrustedForLong() {
    QFETCH(int, awake);
    QFETCH(int, asleep);
    QFETCH(QByteArray, message);
    QFETCH(bool, kept);
    std::array<int, 2> kernel;
    QCOMPARE(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, kernel.data()), 0);
    NamedWire wire(patient, u"service.test"_s, std::make_unique<NetworkChanges>(kernel[0]));
    await(wire.send(request()));
    await(wire.send(request()));
    QCOMPARE(wire.server.connections(), 1);

    machine::secondsAwake += awake;
    machine::secondsAsleep += asleep;
    if (!message.isEmpty()) QCOMPARE(::send(kernel[1], message.data(), size_t(message.size()), 0), message.size());
    await(wire.send(request()));
    QCOMPARE(wire.server.connections(), kept ? 1 : 2);
    await(wire.send(request()));
    QCOMPARE(wire.server.connections(), kept ? 1 : 2);

    // What is under way goes on; what begins beside it takes no connection from before.
    wire.server.reply({});
    std::optional<SpintaxOut> answer;
    TaskScope scope;
    scope.start(drop(wire.send(request())));
    QTRY_COMPARE(wire.server.received().size(), size_t(5));
    const int before = wire.server.connections();
    machine::secondsAsleep += 100;
    await(wire.send(request()));
    await(wire.send(request()));
    QCOMPARE(wire.server.connections(), before + 2);
    QVERIFY(!scope.isIdle());
    ::close(kernel[1]);
  }

  void nothingWakesUpWhileNothingIsUnderWay() {
    NamedWire wire;
    QTRY_VERIFY(!machine::somebodyPolls());
    await(wire.send(request()));
    QTRY_VERIFY(!machine::somebodyPolls());
    wire.server.reply({});
    TaskScope scope;
    scope.start(drop(wire.send(request())));
    QTRY_VERIFY(machine::somebodyPolls());
    scope.cancel();
    QTRY_VERIFY(!machine::somebodyPolls());
  }

  void takesTheDesktopsProxy() {
    NamedWire wire(patient, u"nowhere.test"_s);
    const QByteArray proxy = wire.server.url().toEncoded();
    wire.client->holdForProxy(10min);
    TaskScope cancelled;
    cancelled.start(drop(wire.send(request(HTTPMethod::del))));
    std::optional<SpintaxOut> answer;
    std::exception_ptr failure;
    TaskScope scope;
    scope.start(keepOutcome(wire.send(request()), &answer, &failure));
    cancelled.cancel();
    wire.client->useProxy(proxy);
    QTRY_VERIFY(scope.isIdle());
    QVERIFY(answer && answer->text.startsWith(u"GET http://nowhere.test:"_s));

    wire.client->useProxy(""_ba);
    QCOMPARE(wire.failureOf(request()), Kind::unreachable);
    wire.client->useProxy(proxy);
    await(wire.send(request()));
    qputenv("no_proxy", "nowhere.test");
    QCOMPARE(wire.failureOf(request()), Kind::unreachable);
    qunsetenv("no_proxy");

    // A desktop that never says holds nothing up for good.
    wire.client->useProxy(std::nullopt);
    qputenv("http_proxy", proxy);
    wire.client->holdForProxy(20ms);
    await(wire.send(request()));
    qunsetenv("http_proxy");
    QCOMPARE(wire.failureOf(request()), Kind::unreachable);
    QCOMPARE(wire.server.received().size(), size_t(3));
  }
};

QTEST_GUILESS_MAIN(NetworkTest)
#include "network_test.moc"
