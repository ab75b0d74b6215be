#include <QQuickItem>
#include <QTest>
#include <QWheelEvent>
#include <functional>

#include "app/analytics/AnalyticsStore.h"
#include "desktop/scenes/Stage.h"
#include "tests/ui/support/items.h"
#include "tests/ui/support/warnings.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// Analytics in the smallest window, on more campaigns than fit: the page scrolls as one, by keys and by wheel.
class FiguresTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QQmlEngine> m_engine;
  std::unique_ptr<Stage> m_stage;
  quint64 m_wheelTime = 1000;

  AnalyticsStore& store() { return *m_stage->app().session()->store<AnalyticsStore>(); }
  int rowCount() { return store().campaignRows()->count(); }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&m_stage->window(), key, modifiers); }
  QQuickItem* focused() { return m_stage->window().activeFocusItem(); }
  bool rowHasFocus() { return focused() && focused()->property("key").isValid(); }
  int focusedRow() { return rowHasFocus() ? focused()->property("index").toInt() : -1; }

  QList<QQuickItem*> items(const std::function<bool(QQuickItem*)>& wanted) {
    return ui::visibleItems(m_stage->window().contentItem(), wanted);
  }
  /// Rows that exist, whether or not they are in sight.
  QList<QQuickItem*> rows() {
    return items([](QQuickItem* item) { return item->property("bouncesHigh").isValid(); });
  }
  QQuickItem* row(int index) {
    for (QQuickItem* item : rows())
      if (item->property("index").toInt() == index) return item;
    return nullptr;
  }
  QQuickItem* control(const QString& text) {
    const auto found = items([&text](QQuickItem* item) {
      return item->inherits("QQuickAbstractButton") && item->property("text").toString() == text;
    });
    return found.isEmpty() ? nullptr : found.first();
  }
  static QRectF place(const QQuickItem* item) { return item->mapRectToScene(item->boundingRect()); }
  /// Between the filters and the foot line.
  bool isInSight(const QQuickItem* item) {
    const QRectF at = place(item);
    return at.top() >= 66 + 48 - 1 && at.bottom() <= m_stage->window().height() - 36 + 1;
  }
  void tabToTheRows() {
    for (int i = 0; i < 20 && !rowHasFocus(); ++i) press(Qt::Key_Tab);
    QVERIFY(rowHasFocus());
  }
  void wheel(int notches) {
    const QPointF at(500, 500);
    QWheelEvent event(at, at, {}, {0, -120 * notches}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    // Of turns without a time only the first counts.
    event.setTimestamp(m_wheelTime += 50);
    QGuiApplication::sendEvent(&m_stage->window(), &event);
  }
  void click(QQuickItem* item) {
    QVERIFY(item);
    QTest::mouseClick(&m_stage->window(), Qt::LeftButton, {}, place(item).center().toPoint());
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void initTestCase() {
    m_engine = std::make_unique<QQmlEngine>();
    ClientWindow::prepare(*m_engine);
  }
  void init() {
    ui::failOnWarnings();
    m_stage = std::make_unique<Stage>(*m_engine, StageSetting{.size = {1024, 700}, .campaigns = 200});
    QVERIFY(m_stage->isReady());
    QVERIFY(QTest::qWaitForWindowActive(&m_stage->window()));
    press(Qt::Key_G);
    press(Qt::Key_A);
    store().setPreset(u"last12m"_s);
    QTRY_VERIFY(rowCount() > 60);
    // From the heading into the chart.
    QTRY_VERIFY(focused() && focused()->property("isPageHeading").toBool());
    press(Qt::Key_End);
    QVERIFY(focused()->inherits("orv::ChartPlot"));
  }
  void cleanup() { m_stage.reset(); }

  void theCurrentRowIsInSight() {
    tabToTheRows();
    QCOMPARE(focusedRow(), 0);
    QTRY_VERIFY(isInSight(focused()));
    for (int i = 0; i < 30; ++i) {
      press(Qt::Key_Down);
      QCOMPARE(focusedRow(), i + 1);
      QVERIFY(isInSight(focused()));
    }
    press(Qt::Key_End);
    QTRY_COMPARE(focusedRow(), rowCount() - 1);
    QVERIFY(isInSight(focused()));
    QVERIFY2(rows().size() < 40, "rows out of sight do not exist");
    for (int i = 0; i < 20; ++i) {
      press(Qt::Key_Up);
      QVERIFY(isInSight(focused()));
    }
    press(Qt::Key_Home);
    QTRY_COMPARE(focusedRow(), 0);
    QVERIFY(isInSight(focused()));
    // The way back up shows what is above.
    for (int i = 0; i < 20 && !focused()->inherits("orv::ChartPlot"); ++i) press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(focused()->inherits("orv::ChartPlot"));
    QVERIFY(isInSight(focused()));
  }

  void theWheelTurnsOnePage() {
    QTRY_VERIFY(row(0));
    // On a busy machine a row is there before what stands above it has its height.
    double before = 0;
    QTRY_VERIFY((before = place(row(0)).top(), m_stage->settle(), row(0) && place(row(0)).top() == before));
    wheel(1);
    QTRY_VERIFY(place(row(0)).top() < before);
    const auto lastInSight = [this] { return row(rowCount() - 1) && isInSight(row(rowCount() - 1)); };
    QTRY_VERIFY((wheel(20), lastInSight()));
    QQuickItem* last = row(rowCount() - 1);
    QVERIFY(rows().size() < 40);
    QCOMPARE(last->property("name").toString(), store().campaignRows()->records().back().name);
    // Another order starts at the table's top, below what stands above it.
    store().sort(u"sent"_s, true);
    QTRY_VERIFY(row(0) && isInSight(row(0)));
    // Within a pixel: on a busy machine what stands above has been measured while it still moved by one.
    const auto isBack = [&] { return row(0) && std::abs(place(row(0)).top() - before) <= 1; };
    QTRY_VERIFY((wheel(-20), isBack()));
  }

  void fewerRowsLeaveNoHole() {
    tabToTheRows();
    press(Qt::Key_End);
    const QString id = store().campaignRows()->records()[5].id;
    store().setCampaign(id);
    QTRY_COMPARE(rowCount(), 1);
    QTRY_VERIFY(row(0) && isInSight(row(0)));
    store().clearFilters();
    QTRY_VERIFY(rowCount() > 60);
    store().setCustomRange(u"2020-01-01"_s, u"2020-01-31"_s);
    QTRY_COMPARE(rowCount(), 0);
    const auto empty = items([](QQuickItem* item) {
      return item->property("title").toString() == "No campaigns in this range"_L1 && item->isVisible();
    });
    QVERIFY(!empty.isEmpty());
  }

  void filtersFoldIntoAButton() {
    click(control(u"Filters"_s));
    const auto selects = [this] {
      return items([](QQuickItem* item) {
        return item->property("valueText").isValid() && item->property("label").toString() == "Tag"_L1;
      });
    };
    QTRY_VERIFY(!selects().isEmpty());
    click(selects().first());
    const QString tag = store().tagOptions()[1].label;
    QTRY_VERIFY(control(tag));
    click(control(tag));
    QTRY_COMPARE(store().tag(), tag);
    QVERIFY2(!selects().isEmpty(), "the panel stays for the next filter");
    QTRY_VERIFY(!store().summary()->refreshing());
    press(Qt::Key_Escape);
    QTRY_VERIFY(selects().isEmpty());
    QCOMPARE(store().filterCount(), 1);
    QTRY_VERIFY2(focused() && focused()->property("text").toString() == "Filters"_L1, "the focus goes back");
  }
};

QTEST_MAIN(FiguresTest)
#include "figures_test.moc"
