#include <QTest>

#include "desktop/WindowPlace.h"

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
};

QTEST_MAIN(DesktopWindowTest)
#include "window_test.moc"
