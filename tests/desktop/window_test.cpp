#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include "desktop/QuickFilePanel.h"
#include "desktop/WindowPlace.h"
#include "kit/async/TaskScope.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

class DesktopWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void placesTheWindow_data() {
    const QRect screen(0, 0, 1920, 1080), right(1920, 0, 1280, 800);
    QTest::addColumn<QRect>("remembered");
    QTest::addColumn<QList<QRect>>("screens");
    QTest::addColumn<QRect>("placed");
    QTest::newRow("first start: centred") << QRect() << QList{screen} << QRect(320, 140, 1280, 800);
    QTest::newRow("first start on a small screen")
        << QRect() << QList{QRect(0, 0, 1100, 720)} << QRect(0, 0, 1100, 720);
    QTest::newRow("as it was") << QRect(40, 50, 1300, 900) << QList{screen} << QRect(40, 50, 1300, 900);
    QTest::newRow("on the second screen")
        << QRect(1930, 20, 1100, 720) << QList{screen, right} << QRect(1930, 20, 1100, 720);
    QTest::newRow("that screen is gone") << QRect(1930, 20, 1100, 720) << QList{screen} << QRect(820, 20, 1100, 720);
    QTest::newRow("half outside") << QRect(-600, 700, 1280, 800) << QList{screen} << QRect(0, 280, 1280, 800);
    QTest::newRow("larger than the screen") << QRect(0, 0, 3000, 2000) << QList{right} << QRect(1920, 0, 1280, 800);
    QTest::newRow("never smaller than usable") << QRect(0, 0, 200, 100) << QList{screen} << QRect(0, 0, 1024, 700);
  }
  void placesTheWindow() {
    QFETCH(QRect, remembered);
    QFETCH(QList<QRect>, screens);
    QFETCH(QRect, placed);
    QCOMPARE(WindowPlace::fitted(remembered, screens, QSize(1024, 700), QSize(1280, 800)), placed);
  }

  void asksWhereToSave() {
    QTemporaryDir there;
    QuickFilePanel panel;
    QStringList answers;
    TaskScope tasks;
    tasks.start(ask(panel, answers));
    QVERIFY(panel.asking());
    QVERIFY2(QFileInfo(panel.folder().toLocalFile()).isDir(), "the panel opens in a folder that exists");
    QCOMPARE(panel.suggestion().fileName(), u"acme-analytics.csv"_s);
    QCOMPARE(panel.nameFilter(), u"Comma-separated text (*.csv)"_s);
    panel.choose(QUrl::fromLocalFile(there.filePath(u"mine.csv"_s)), true);
    QVERIFY(!panel.asking());

    // The folder chosen last is where the next one starts.
    tasks.start(ask(panel, answers));
    QCOMPARE(panel.folder(), QUrl::fromLocalFile(there.path()));
    // A question asked over another takes its place; a late answer to no question is nobody's.
    tasks.start(ask(panel, answers));
    panel.cancel();
    panel.choose(QUrl::fromLocalFile(u"/tmp/late.csv"_s), true);
    QCOMPARE(answers, QStringList({there.filePath(u"mine.csv"_s), u"cancelled"_s, u"cancelled"_s}));
    QVERIFY(tasks.isIdle());
  }

  void forgetsAnAskerThatIsGone() {
    QuickFilePanel panel;
    QStringList answers;
    {
      TaskScope tasks;
      tasks.start(ask(panel, answers));
    }
    panel.choose(QUrl::fromLocalFile(u"/tmp/mine.csv"_s), true);
    QCOMPARE(answers, QStringList());
  }

 private:
  static Task<void> ask(FilePanel& panel, QStringList& answers) {
    const auto file = co_await panel.saveFile(u"acme-analytics.csv"_s, u"Comma-separated text"_s, u"csv"_s);
    answers.append(file ? file->path : u"cancelled"_s);
  }
};

QTEST_MAIN(DesktopWindowTest)
#include "window_test.moc"
