#include <QTest>

#include "desktop/WindowPlace.h"
#include "tests/support/AppFixture.h"

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
    QTest::addColumn<QMargins>("frame");
    QTest::newRow("first start: centred") << QRect() << QList{screen} << QRect(320, 140, 1280, 800) << QMargins();
    QTest::newRow("first start on a small screen")
        << QRect() << QList{QRect(0, 0, 1100, 720)} << QRect(0, 0, 1100, 720) << QMargins();
    QTest::newRow("as it was") << QRect(40, 50, 1300, 900) << QList{screen} << QRect(40, 50, 1300, 900) << QMargins();
    QTest::newRow("on the second screen")
        << QRect(1930, 20, 1100, 720) << QList{screen, right} << QRect(1930, 20, 1100, 720) << QMargins();
    QTest::newRow("that screen is gone") << QRect(1930, 20, 1100, 720) << QList{screen} << QRect(820, 20, 1100, 720)
                                         << QMargins();
    QTest::newRow("half outside") << QRect(-600, 700, 1280, 800) << QList{screen} << QRect(0, 280, 1280, 800)
                                  << QMargins();
    QTest::newRow("larger than the screen")
        << QRect(0, 0, 3000, 2000) << QList{right} << QRect(1920, 0, 1280, 800) << QMargins();
    QTest::newRow("never smaller than usable")
        << QRect(0, 0, 200, 100) << QList{screen} << QRect(0, 0, 1024, 700) << QMargins();
    QTest::newRow("a first start leaves room for the frame")
        << QRect() << QList{QRect(0, 0, 1280, 800)} << QRect(1, 30, 1278, 769) << QMargins(1, 30, 1, 1);
    QTest::newRow("a title bar above the screen could not be reached")
        << QRect(40, 0, 1280, 800) << QList{screen} << QRect(40, 30, 1280, 800) << QMargins(1, 30, 1, 1);
  }
  void placesTheWindow() {
    QFETCH(QRect, remembered);
    QFETCH(QList<QRect>, screens);
    QFETCH(QRect, placed);
    QFETCH(QMargins, frame);
    QCOMPARE(WindowPlace::fitted(remembered, screens, QSize(1024, 700), QSize(1280, 800), frame), placed);
  }

  void staysMaximised() {
    test::MemoryPreferences preferences;
    const QRect usual(10, 10, 400, 300);
    preferences.setWindowGeometry(usual);
    preferences.setWindowMaximized(true);
    {
      QQuickWindow window;
      WindowPlace place(window, preferences);
      place.show();
      QVERIFY(QTest::qWaitForWindowExposed(&window));
      QCOMPARE(window.windowStates(), Qt::WindowMaximized);
      place.bringForward();
      QCOMPARE(window.windowStates(), Qt::WindowMaximized);
      window.setWindowStates(Qt::WindowMaximized | Qt::WindowMinimized);
      place.bringForward();
      QCOMPARE(window.windowStates(), Qt::WindowMaximized);
      window.close();
    }
    QVERIFY(preferences.windowMaximized());
    QCOMPARE(preferences.windowGeometry(), usual);

    preferences.setWindowMaximized(false);
    QQuickWindow window;
    WindowPlace place(window, preferences);
    place.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    place.bringForward();
    QCOMPARE(window.windowStates(), Qt::WindowNoState);
    QCOMPARE(window.size(), usual.size());
  }

  void showsItsFrame() {
    test::MemoryPreferences preferences;
    preferences.setWindowGeometry({-50, 0, 400, 300});
    QQuickWindow window;
    WindowPlace place(window, preferences);
    place.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY2(!window.frameMargins().isNull(), "this platform draws frames");
    QVERIFY(window.screen()->availableGeometry().contains(window.frameGeometry()));
  }
};

QTEST_MAIN(DesktopWindowTest)
#include "window_test.moc"
