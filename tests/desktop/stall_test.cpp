#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include "desktop/services/StallRecorder.h"

using namespace orv;
using namespace std::chrono_literals;

namespace {

QStringList logged;

/// Its name is what the log must have.
extern "C" [[gnu::noinline]] void holdTheWindow(std::chrono::milliseconds time, const std::function<bool()>& enough) {
  for (QDeadlineTimer end(time); !end.hasExpired() && !enough();) std::atomic_signal_fence(std::memory_order_seq_cst);
}

}  // namespace

class StallTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aHeldLoopIsWrittenDownOnceWhileItIsHeld() {
    logged.clear();
    const auto handler = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { logged.append(message); });
    {
      StallRecorder recorder(*QAbstractEventDispatcher::instance(), 20ms);
      int before = 0, after = 0;
      // How late this machine is by itself is not asked here: only that holding is seen, and once.
      QTimer::singleShot(0, this, [&] {
        before = recorder.recorded();
        holdTheWindow(10s, [&] { return recorder.recorded() > before; });
        holdTheWindow(100ms, [] { return false; });
        after = recorder.recorded();
      });
      QTRY_VERIFY(after > 0);
      QCOMPARE(after, before + 1);
    }
    qInstallMessageHandler(handler);
    QVERIFY(logged.size() > 3);
    QVERIFY(logged.first().startsWith(QLatin1String("The window was held for more than 20 ms")));
  }

  /// As the program's own loop does, and unlike what waits in a test: it sleeps until there is something to do.
  void aLoopThatSleptIsSeenHeld() {
    StallRecorder recorder(*QAbstractEventDispatcher::instance(), 20ms);
    QEventLoop loop;
    // The first makes the loop wait for the second.
    QTimer::singleShot(1, this, [] {});
    bool isSeen = false;
    QTimer::singleShot(5, this, [&] {
      const int before = recorder.recorded();
      holdTheWindow(10s, [&] { return recorder.recorded() > before; });
      isSeen = recorder.recorded() > before;
      loop.quit();
    });
    loop.exec();
    QVERIFY(isSeen);
  }
};

QTEST_GUILESS_MAIN(StallTest)
#include "stall_test.moc"
