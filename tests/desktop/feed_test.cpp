#include <QSettings>
#include <QStandardPaths>
#include <QTest>

#include "desktop/services/FeedReader.h"
#include "tests/support/WireServer.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

Q_DECLARE_METATYPE(WireServer::Reply)

/// What is believed of the file that names the newest version, and from whom.
class FeedTest : public QObject {
  Q_OBJECT

  static QByteArray file(const QByteArray& rest = {}) {
    return R"({"version": "9.8.7", "page": "https://orvella.example/new")" + rest + '}';
  }

 private Q_SLOTS:
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, u"/nonexistent"_s);
    QCoreApplication::setOrganizationName(u"orvella-test"_s);
  }

  void onlyAnHttpsAddressTurnsItOn() {
    qunsetenv("ORV_UPDATE_URL");
    QVERIFY(!FeedReader::configured());
    for (const char* address : {"", "http://orvella.example/new.json", "file:///etc/passwd", "https://a b/"}) {
      qputenv("ORV_UPDATE_URL", address);
      QVERIFY2(!FeedReader::configured(), address);
    }
    qputenv("ORV_UPDATE_URL", "https://orvella.example/new.json");
    QVERIFY(FeedReader::configured());
    qunsetenv("ORV_UPDATE_URL");
  }

  void theNewestVersionIsRead() {
    WireServer server;
    server.reply(200, file());
    FeedReader feed(server.url().resolved(QUrl(u"/new.json"_s)));
    const auto newest = await(feed.newest());
    QVERIFY(newest);
    QCOMPARE(newest->version, u"9.8.7"_s);
    QCOMPARE(newest->page, QUrl(u"https://orvella.example/new"_s));
    QCOMPARE(server.last().line(), "GET /new.json HTTP/1.1");
    // It tells nobody who asks, nor that they may pack the answer.
    const QByteArray asked = server.last().bytes.toLower();
    QVERIFY(!asked.contains("cookie") && !asked.contains("authorization") && !asked.contains("gzip"));
  }

  void whatCannotBeBelievedIsNothing_data() {
    QTest::addColumn<WireServer::Reply>("reply");
    const auto row = [](const char* name, const QByteArray& bytes, const QByteArray& slowly = {}) {
      QTest::newRow(name) << WireServer::Reply{.bytes = bytes, .slowly = slowly};
    };
    row("not found", WireServer::answer(404, file()));
    row("other success", WireServer::answer(203, file()));
    row("garbage", WireServer::answer(200, "<html>9.8.7</html>"));
    row("a list", WireServer::answer(200, '[' + file() + ']'));
    row("no version", WireServer::answer(200, R"({"version": "latest"})"));
    row("a number", WireServer::answer(200, R"({"version": 9})"));
    // Both would be read otherwise: what is too long, or late, is whole in the end.
    row("too long", WireServer::answer(200, file(", \"x\": \"" + QByteArray(64 * 1024, 'x') + '"')));
    row("endless", "HTTP/1.1 200 OK\r\n\r\n", QByteArray(100'000, ' '));
    const QByteArray late = WireServer::answer(200, file(QByteArray(400, ' ')));
    row("late", late.chopped(400), late.last(400));
    row("silent", {});
    QTest::newRow("cut short") << WireServer::Reply{.bytes = WireServer::answer(200, file() + ' ').chopped(1),
                                                    .then = WireServer::Reply::Then::close};
  }
  void whatCannotBeBelievedIsNothing() {
    QFETCH(WireServer::Reply, reply);
    WireServer server;
    server.reply(reply);
    FeedReader feed(server.url(), 500ms);
    QVERIFY(!await(feed.newest()));
  }

  void aRedirectionIsNotFollowed() {
    WireServer server;
    server.reply(302, file(), "Location: /elsewhere\r\n");
    server.reply(200, file());
    FeedReader feed(server.url());
    QVERIFY(!await(feed.newest()));
    QCOMPARE(server.received().size(), size_t(1));
  }
};

QTEST_GUILESS_MAIN(FeedTest)
#include "feed_test.moc"
