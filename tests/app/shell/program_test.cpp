#include <QTest>

#include "app/shell/AppModel.h"
#include "app/shell/Changelog.h"
#include "tests/app/shell/shellPlatform.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray twoReleases =
    "<component><releases><release version='2.0' date='2026-11-21'><description><ul><li>One &amp;\n two</li>"
    "<li>Three</li></ul></description></release><release version='1.0' date='2026-01-02'/></releases></component>";

struct FakeLog final : ActivityLog {
  QStringList written;
  QStringList lines(int atMost) const override { return written.mid(std::max<qsizetype>(0, written.size() - atMost)); }
};

struct FakeFeed final : ReleaseFeed {
  std::optional<Newest> said;
  int readings = 0;
  Task<std::optional<Newest>> newest() override {
    ++readings;
    co_return said;
  }
};

}  // namespace

/// What the program tells of itself.
class ProgramTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  FakeLog log;
  FakeFeed feed;
  std::unique_ptr<AppModel> app;

  /// As version 1.2.3, with one workspace.
  void start() {
    Platform platform = platformOf(*f);
    platform.device = {u"desk"_s, u"model"_s, u"Linux 6.1"_s, u"1.2.3"_s};
    platform.log = &log;
    platform.releases = &feed;
    StoredSession session;
    session.token = u"orv_sess_canary"_s;
    session.expiresAt = f->clock.now().addDays(30);
    session.user = {u"u1"_s, u"ada@b.c"_s, u"Ada"_s, {}, {}};
    session.workspaces = {{u"w1"_s, u"a"_s, u"A"_s, {u"owner"_s}, {}, {}}};
    platform.demoSession = session;
    f->api.expect(u"GET /api/v1/auth/me"_s);
    app = std::make_unique<AppModel>(platform);
    app->start();
  }
  QStringList messages() const {
    QStringList all;
    for (const auto& toast : app->toasts()->toasts()) all.append(toast.message);
    return all;
  }
  void pass(std::chrono::milliseconds time) {
    f->clock.advance(time);
    settle();
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    log = {};
    feed.said.reset();
    feed.readings = 0;
  }
  void cleanup() {
    app.reset();
    f.reset();
  }

  void eachVersionTellsOnceWhatItBrought() {
    start();
    QVERIFY2(!app->program()->changelogShown(), "the first one is no news");
    QCOMPARE(f->preferences.toldVersion, u"1.2.3"_s);
    app.reset();
    f->preferences.toldVersion = u"1.2.2"_s;
    start();
    QVERIFY(app->program()->changelogShown());
    app.reset();
    start();
    QVERIFY(!app->program()->changelogShown());
  }

  void changelogsAreReadOfTheirDescription() {
    const auto found = releasesIn(twoReleases);
    QCOMPARE(found, (QList<Release>{{u"2.0"_s, QDate(2026, 11, 21), {u"One & two"_s, u"Three"_s}},
                                    {u"1.0"_s, QDate(2026, 1, 2), {}}}));
    QVERIFY(releasesIn("<component><release version='1'>").isEmpty());
    QVERIFY(!releases().isEmpty() && !releases().first().notes.isEmpty());
  }

  void diagnosticsNameNobody() {
    log.written = {u"2026-11-21 info orvella.api: GET /leads?q=ada@b.c: 200 in 31 ms, request req_1"_s,
                   u"2026-11-21 warning orvella.app: orv_sess_canary for ada@b.c, request <none>"_s};
    for (int i = 2; i < 60; ++i) log.written.append(u"PATCH /mailboxes/m1: 409 in 8 ms, request req_%1"_s.arg(i));
    start();
    const QString told = app->program()->diagnostics();
    QVERIFY(told.startsWith(u"Orvella 1.2.3\n"_s + QSysInfo::prettyProductName()));
    QVERIFY(told.endsWith(u"req_59"_s) && !told.contains(u"req_39,"_s));
    for (const auto& secret : {u"canary"_s, u"@"_s, u"mailboxes"_s, u"Ada"_s, u"desk"_s})
      QVERIFY2(!told.contains(secret), qPrintable(told));
    app->program()->copyDiagnostics();
    QCOMPARE(f->clipboard.text, told);
  }

  void newerVersionsAreToldOnceEach() {
    feed.said = {u"1.2.3"_s, QUrl(u"https://a.example/get"_s)};
    start();
    pass(10s);
    QCOMPARE(feed.readings, 1);
    QVERIFY(messages().isEmpty());
    feed.said = {u"1.10.0"_s, QUrl(u"https://a.example/get"_s)};
    pass(24h);
    QCOMPARE(messages(), QStringList{u"Orvella 1.10.0 is out"_s});
    app->toasts()->act(app->toasts()->toasts().first().id);
    QCOMPARE(f->browser.opened, QList{QUrl(u"https://a.example/get"_s)});
    pass(24h);
    QVERIFY(messages().isEmpty());
    // The message has long gone; the settings still say so.
    QCOMPARE(app->program()->newVersion(), u"1.10.0"_s);
    app->program()->openNewVersion();
    QCOMPARE(f->browser.opened.size(), 2);
    // Whoever writes that file may not open anything else here.
    feed.said = {u"2.0"_s, QUrl(u"file:///etc/passwd"_s)};
    pass(24h);
    QCOMPARE(app->toasts()->toasts().first().actionLabel, QString());
    QVERIFY(!app->program()->newVersionOpens());
    app->program()->openNewVersion();
    QCOMPARE(f->browser.opened.size(), 2);
  }
};

QTEST_GUILESS_MAIN(ProgramTest)
#include "program_test.moc"
