#include <QTest>

#include "desktop/scenes/Contrast.h"
#include "tests/ui/support/warnings.h"
#include "ui/catalogue/CataloguePages.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// Every control in every state loads and draws without one QML warning, light and dark, and can be read.
class CatalogueTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void shows_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("popup");
    QTest::addColumn<bool>("dark");
    for (const auto& sheet : catalogue::sheets()) {
      for (const bool dark : {false, true})
        QTest::addRow("%s %s", qPrintable(sheet.name()), dark ? "dark" : "light") << sheet.page << sheet.popup << dark;
    }
  }
  void shows() {
    QFETCH(QString, page);
    QFETCH(QString, popup);
    QFETCH(bool, dark);
    ui::failOnWarnings();
    QImage picture;
    QStringList faint;
    {
      QQmlEngine engine;
      catalogue::prepare(engine);
      const auto window = catalogue::openBare(engine, {page, popup}, dark);
      if (window) {
        window->show();
        QCoreApplication::processEvents();
        // What shows by a timer, after the first frame.
        (void)QTest::qWaitFor([] { return false; }, 30);
        picture = window->grabWindow();
        faint = Contrast(*window, picture).faults();
      }
    }
    QVERIFY2(!picture.isNull(), "the page does not load");
    QVERIFY2(picture.pixelColor(2, 2).lightness() > 128 != dark, "the theme is the one asked for");
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join(u'\n')));
  }
};

QTEST_MAIN(CatalogueTest)
#include "catalogue_test.moc"
