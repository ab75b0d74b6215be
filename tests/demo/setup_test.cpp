#include <QTest>

#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "kit/models/setup/setupChanges.h"
#include "kit/models/setup/setupProject.h"
#include "kit/models/setup/setupRequests.h"
#include "kit/models/setup/setupRun.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class DemoSetupTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  NewSetupRunBody body(const QStringList& domains) {
    NewSetupRunBody body;
    body.mode = SetupMode::fresh();
    body.templateId = u"sp3"_s;
    body.domains = domains;
    body.admin = u"ellen"_s;
    body.firstName = u"Ellen"_s;
    body.lastName = u"Marsh"_s;
    return body;
  }
  static QSet<QString> statesOf(const SetupRun& run) {
    QSet<QString> states;
    for (const SetupRow& row : run.rows) states.insert(row.state.rawValue);
    return states;
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<DemoFixture>(); }
  void cleanup() { f.reset(); }

  void aRunGoesOnByTheClockWaitsForItsAdminAndFails() {
    QVERIFY(!f->ask(Requests::listSetupProjects(false)).items.isEmpty());
    const auto mailboxes = f->ask(Requests::listMailboxes()).items.size();
    const SetupRun begun = f->ask(
        Requests::startSetupRun(body({u"depot-x.example.com"_s, u"van-x.example.com"_s, u"quiet.example.com"_s})));
    QCOMPARE(statesOf(begun), QSet{u"waiting"_s});
    QSet<QString> seen;
    SetupRun run = begun;
    for (int i = 0; i < 200 && !run.isOver(); ++i) {
      f->clock.advance(2s);
      run = f->ask(Requests::getSetupRun(begun.id));
      seen += statesOf(run);
    }
    QVERIFY(run.isOver());
    for (const auto& state : {u"authorize"_s, u"creating"_s, u"photo"_s, u"gmail"_s, u"connecting"_s, u"settings"_s})
      QVERIFY2(seen.contains(state), qPrintable(state));
    QCOMPARE(statesOf(run), (QSet{u"connected"_s, u"error"_s}));
    const auto failed = std::ranges::find_if(run.rows, [](const SetupRow& row) { return row.state.isError(); });
    QVERIFY(failed->message.has_value());
    const SetupProject project = f->ask(Requests::getSetupProject(u"sp3"_s));
    QCOMPARE(project.lastRun->connected, 8);
    QCOMPARE(f->ask(Requests::listMailboxes()).items.size(), mailboxes + 8);
    // Tried again, the trouble is over.
    f->ask(Requests::retrySetupRun(run.id, failed->domain));
    f->clock.advance(2min);
    QCOMPARE(statesOf(f->ask(Requests::getSetupRun(run.id))), QSet{u"connected"_s});
    const RawData csv = f->ask(Requests::setupCredentials(u"sp3"_s));
    QCOMPARE(csv.data.count('\n'), 10);
  }

  void nothingHappensWhileItIsPausedAndAfterItsEnd() {
    const SetupRun begun = f->ask(Requests::startSetupRun(body({u"quiet.example.com"_s})));
    f->clock.advance(4s);
    const SetupRun paused = f->ask(Requests::pauseSetupRun(begun.id));
    f->clock.advance(1h);
    QCOMPARE(f->ask(Requests::getSetupRun(begun.id)).rows, paused.rows);
    QCOMPARE(f->ask(Requests::resumeSetupRun(begun.id)).rows, paused.rows);
    f->clock.advance(2s);
    const SetupRun ended = f->ask(Requests::terminateSetupRun(begun.id));
    QVERIFY(ended.isOver());
    f->clock.advance(1h);
    QCOMPARE(f->ask(Requests::getSetupRun(begun.id)).rows, ended.rows);
    QCOMPARE(f->refusalCode(Requests::pauseSetupRun(begun.id)), u"ended"_s);
  }

  void secretsAreKeptAsFlagsAndTakenAwayByNull() {
    SetupProjectPatch patch;
    patch.password = u"secret"_s;
    patch.domains = QList{u"harbor-post.example.com"_s};
    const SetupProject before = f->ask(Requests::getSetupProject(u"sp3"_s));
    SetupProject project = f->ask(Requests::updateSetupProject(u"sp3"_s, patch, before.version));
    QVERIFY(project.hasPassword);
    QCOMPARE(project.archivedDomains.at(0).domain, u"quay-mail.example.com"_s);
    QCOMPARE(f->refusalCode(Requests::updateSetupProject(u"sp3"_s, patch, before.version)), u"version_conflict"_s);
    patch = {};
    patch.password = Clearable<QString>::cleared();
    QVERIFY(!f->ask(Requests::updateSetupProject(u"sp3"_s, patch, project.version)).hasPassword);
    project = f->ask(Requests::restoreSetupDomain(u"sp3"_s, {u"quay-mail.example.com"_s}));
    QCOMPARE(project.domains.size(), 2);
    QVERIFY(project.archivedDomains.isEmpty());
  }
};

QTEST_GUILESS_MAIN(DemoSetupTest)
#include "setup_test.moc"
