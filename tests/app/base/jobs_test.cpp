#include <QAbstractItemModelTester>
#include <QTemporaryDir>
#include <QTest>

#include "app/base/Jobs.h"
#include "app/base/SaveFile.h"
#include "kit/async/TaskScope.h"
#include "tests/support/AppFixture.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Kind = JobOutcome::Kind;
using Ending = OneShot<JobOutcome>;

/// Ends as the test says; `left` counts the frames that went.
struct Leaving {
  int& left;
  ~Leaving() { ++left; }
};
Task<JobOutcome> wait(Job* job, Ending ending, int* left) {
  const Leaving leaving{*left};
  job->setStage(u"At it"_s, 1, 4);
  co_return co_await ending.wait();
}

}  // namespace

class JobsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  int left = 0;

  Job* start(const Ending& ending, const QString& name = u"Adding leads"_s, QObject* attendant = nullptr) {
    return f->jobs.start({.name = name, .stopped = u"Half of it stays."_s, .attendant = attendant}, f->context,
                         [this, ending](Job& job) { return wait(&job, ending, &left); });
  }
  const Toasts::Toast& toast() const { return f->toasts.toasts().last(); }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    left = 0;
  }

  void itsEndIsToldOnceAndCanBeRead() {
    const QAbstractItemModelTester tester(&f->jobs);
    Ending ending;
    Job* job = start(ending);
    QCOMPARE(job->progress(), 0.25);
    QCOMPARE(f->jobs.line(), u"Adding leads"_s);
    QCOMPARE(f->jobs.unsavedWork(), QStringList{u"Adding leads is not done yet."_s});
    ending.give({.title = u"12 leads added"_s, .text = u"Left out:"_s, .lines = {u"1 came more than once"_s}});
    QVERIFY(!job->running() && !job->failed() && f->jobs.unsavedWork().isEmpty());
    QCOMPARE(f->jobs.line(), u"12 leads added"_s);
    QCOMPARE(toast().message, u"12 leads added"_s);
    f->toasts.act(toast().id);
    QCOMPARE(f->jobs.shown(), job);
    f->jobs.clearEnded();
    QVERIFY(!f->jobs.shown() && f->jobs.count() == 0 && f->jobs.line().isEmpty());

    Ending failing;
    start(failing);
    failing.give({.kind = Kind::failed, .title = u"Couldn’t add the leads"_s, .text = u"Not now."_s});
    QCOMPARE(toast().detail, u"Not now."_s);
    QCOMPARE(int(toast().tone), int(Toasts::Tone::error));

    // Who shows it tells of it, for as long as they are there.
    f->toasts.clear();
    auto dialog = std::make_unique<QObject>();
    Ending shown, abandoned;
    start(shown, u"Shown"_s, dialog.get());
    start(abandoned, u"Abandoned"_s, dialog.get());
    QCOMPARE(f->jobs.line(), u"2 tasks running"_s);
    shown.give({.title = u"Shown"_s});
    QCOMPARE(f->toasts.count(), 0);
    dialog.reset();
    abandoned.give({.title = u"Abandoned"_s});
    QCOMPARE(toast().message, u"Abandoned"_s);
  }

  void stoppedItEndsAtOnceAndForGood() {
    Ending ending;
    Job* job = start(ending);
    job->stop();
    QCOMPARE(left, 1);
    QCOMPARE(job->text(), u"Half of it stays."_s);
    QCOMPARE(f->toasts.count(), 0);
    ending.give({.title = u"late"_s});
    QCOMPARE(job->title(), u"Stopped"_s);
  }

  void itHoldsItsWorkspaceAndNobodyElseMust() {
    Ending ending;
    Job* job = start(ending);
    const std::weak_ptr<WorkspaceContext> context = f->context;
    f->context.reset();
    QVERIFY(!context.expired());
    QCOMPARE(job->workspace(), u"Acme"_s);
    QCOMPARE(f->jobs.clear(), QStringList{u"Adding leads"_s});
    QCOMPARE(left, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(context.expired());
  }

  void whatOthersCountIsAskedAgain() {
    qint64 sent = 0;
    int told = 0;
    Ending ending;
    Job* job = start(ending);
    connect(job, &Job::changed, this, [&told] { ++told; });
    job->followStage(
        u"Sending"_s, [&sent] { return sent; }, 10);
    sent = 5;
    told = 0;
    f->clock.advance(350ms);
    QCOMPARE(told, 3);
    QCOMPARE(job->progress(), 0.5);
    ending.give({});
    told = 0;
    f->clock.advance(1s);
    QCOMPARE(told, 0);
    QCOMPARE(f->clock.running(), 0);
  }

  void filesAreThePersonsAlone_data() {
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("suggested");
    QTest::newRow("plain") << u"Fair 2026.csv"_s << u"Fair 2026.csv"_s;
    QTest::newRow("elsewhere") << u"../../etc/Fair\n.csv"_s << u"-..-etc-Fair.csv"_s;
    QTest::newRow("hidden") << u".bashrc.csv"_s << u"bashrc.csv"_s;
    QTest::newRow("nothing") << u"\u202e\u0007.csv"_s << u"export.csv"_s;
    QTest::newRow("long") << QString(u"\U0001F600"_s).repeated(100) + u".csv"_s
                          << QString(u"\U0001F600"_s).repeated(59) + u".csv"_s;
  }
  void filesAreThePersonsAlone() {
    QFETCH(QString, asked);
    QTemporaryDir folder;
    f->filePanel.folder = folder.path();
    f->filePanel.asksBeforeReplacing = true;
    TaskScope tasks;
    const auto save = [&](const QByteArray& bytes) {
      tasks.start(saveCsv(
          *f->context, asked, [bytes] { return bytes; }, u"Couldn’t."_s));
      return QTest::qWaitFor([&] { return tasks.isIdle(); });
    };
    const auto privately = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QVERIFY(save("a"));
    QTEST(f->filePanel.suggested, "suggested");
    QFile file(folder.filePath(f->filePanel.suggested));
    QCOMPARE(file.permissions(), privately);
    // What somebody shared stays shared.
    QVERIFY(file.setPermissions(privately | QFile::ReadGroup));
    QVERIFY(save("b"));
    QCOMPARE(file.permissions(), privately | QFile::ReadGroup);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "b"_ba);
  }

  void onlyTheLastFewEndsAreKept() {
    const QAbstractItemModelTester tester(&f->jobs);
    Ending running;
    start(running, u"first"_s);
    for (int i = 0; i < 30; ++i) {
      Ending ending;
      start(ending);
      ending.give({.title = i % 2 ? u"done"_s : QString()});
    }
    QCOMPARE(f->jobs.count(), 11);
    QCOMPARE(f->jobs.line(), u"first"_s);
  }
};

QTEST_GUILESS_MAIN(JobsTest)
#include "jobs_test.moc"
