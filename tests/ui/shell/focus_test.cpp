#include <functional>

#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "app/inbox/InboxStore.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// Where the keyboard is before and after whatever had it goes.
class FocusTest : public ui::WindowTest {
  Q_OBJECT

  Router& router() { return *m_stage->app().router(); }
  CampaignsStore& campaigns() { return store<CampaignsStore>(); }
  const CampaignSummary& running() {
    const auto& items = campaigns().list()->value()->items;
    return *std::ranges::find_if(items, [](const auto& item) { return item.status.isRunning(); });
  }
  CampaignStore& campaign() { return *m_stage->app().session()->item<CampaignStore>(Page::campaigns, running().id); }
  /// What a screen reader calls it; rows by their record.
  QString place() {
    m_stage->settle();
    QQuickItem* item = focused();
    if (!item || !item->parentItem()) return u"nowhere"_s;
    return rowHasFocus() ? item->property("key").toString() : ui::Reader::nameOf(item);
  }
  bool isIn(const char* page) {
    QQuickItem* item = focused();
    while (item && !QByteArray(item->metaObject()->className()).startsWith(page)) item = item->parentItem();
    return item;
  }
  void walkTo(const QString& name) {
    for (int i = 0; i < 80 && place() != name; ++i) press(Qt::Key_Tab);
    QCOMPARE(place(), name);
  }
  void openTab(const QString& tab) {
    router().openCampaign(running().id);
    m_stage->settle();
    campaign().setTab(tab);
    m_stage->settle();
  }
  void rows() {
    press(Qt::Key_Home);
    QVERIFY2(rowHasFocus(), qPrintable(place()));
  }

  /// One way to lose what has the keyboard. Both ends are told by the test's object itself, whose sample it is.
  struct Way {
    const char* name;
    std::function<void(FocusTest&)> before;
    std::function<QString(FocusTest&)> had;
    std::function<void(FocusTest&)> happens;
    std::function<QString(FocusTest&)> has;
  };
  QString rowAt(int row) { return campaigns().rows()->records()[row].id; }
  static auto called(const QString& name) {
    return [name](FocusTest&) { return name; };
  }
  static const QList<Way>& ways() {
    static const auto campaignRow = [](int row) { return [row](FocusTest& t) { return t.rowAt(row); }; };
    static const QList<Way> all{
        {"a page is left for another", [](FocusTest& t) { t.rows(); }, campaignRow(0),
         [](FocusTest& t) {
           t.press(Qt::Key_G);
           t.press(Qt::Key_D);
         },
         called(u"Dashboard"_s)},
        {"a tab changes under a text",
         [](FocusTest& t) {
           t.openTab(u"sequence"_s);
           t.walkTo(u"Email text"_s);
         },
         called(u"Email text"_s), [](FocusTest& t) { t.press(Qt::Key_Tab, Qt::ControlModifier); },
         [](FocusTest& t) { return t.place().startsWith("Leads, "_L1) ? t.place() : u"Leads"_s; }},
        {"a dialog closes", [](FocusTest& t) { t.rows(); }, campaignRow(0),
         [](FocusTest& t) {
           t.press(Qt::Key_F2);
           t.m_stage->settle();
           t.press(Qt::Key_Escape);
         },
         campaignRow(0)},
        {"the palette closes", [](FocusTest& t) { t.rows(); }, campaignRow(0),
         [](FocusTest& t) {
           t.press(Qt::Key_K, Qt::ControlModifier);
           t.m_stage->settle();
           t.press(Qt::Key_Escape);
         },
         campaignRow(0)},
        {"a row goes", [](FocusTest& t) { t.rows(); }, campaignRow(0),
         [](FocusTest& t) {
           const QString id = t.campaigns().rows()->records().front().id;
           t.press(Qt::Key_Delete);
           t.m_stage->settle();
           t.press(Qt::Key_Tab);
           t.press(Qt::Key_Return);
           QTRY_VERIFY(t.campaigns().rows()->records().front().id != id);
         },
         campaignRow(0)},
        {"a row of a form goes",
         [](FocusTest& t) {
           t.openTab(u"settings"_s);
           t.campaign().settings()->schedule()->add();
           t.walkTo(u"Remove schedule"_s);
         },
         called(u"Remove schedule"_s), [](FocusTest& t) { t.press(Qt::Key_Space); }, called(u"Schedule name"_s)},
        {"a control is hidden",
         [](FocusTest& t) {
           t.openTab(u"settings"_s);
           t.campaign().settings()->draft()->set(u"name"_s, u"Another"_s);
           t.walkTo(u"Discard"_s);
         },
         called(u"Discard"_s), [](FocusTest& t) { t.press(Qt::Key_Space); }, nullptr},
        {"a page’s section changes",
         [](FocusTest& t) {
           t.router().open(Page::inbox);
           t.m_stage->settle();
         },
         nullptr, [](FocusTest& t) { t.store<InboxStore>().setSection(u"drafts"_s); },
         [](FocusTest& t) { return t.isIn("InboxPage") ? t.place() : u"the inbox"_s; }},
        {"the record’s page is left for its list", [](FocusTest& t) { t.openTab(u"leads"_s); }, nullptr,
         [](FocusTest& t) { t.press(Qt::Key_Escape); }, called(u"Campaigns"_s)},
    };
    return all;
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void isHandedOn_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < ways().size(); ++i) QTest::newRow(ways()[i].name) << i;
  }
  void isHandedOn() {
    QFETCH(int, index);
    const Way& way = ways()[index];
    beginAt(Page::campaigns);
    way.before(*this);
    if (QTest::currentTestFailed()) return;
    if (way.had) QCOMPARE(place(), way.had(*this));
    way.happens(*this);
    if (way.has) QTRY_COMPARE(place(), way.has(*this));
    // Whatever took it can be worked with.
    QVERIFY2(focused() && (!focused()->isFocusScope() || focused()->activeFocusOnTab()), qPrintable(place()));
    QVERIFY(!place().isEmpty());
  }

  void arrowsWalkAListThatIsAllInSight() {
    beginAt(Page::inbox);
    store<InboxStore>().setSection(u"agent"_s);
    m_stage->settle();
    QStringList walked;
    const auto isCampaign = [this] { return place().contains(", Make "_L1); };
    for (int i = 0; i < 80 && !isCampaign(); ++i) {
      press(Qt::Key_Tab);
      walked.append(place());
    }
    QVERIFY2(isCampaign(), qPrintable(walked.join(u'\n')));
    const QString first = place();
    press(Qt::Key_Down);
    QVERIFY2(isCampaign() && place() != first, qPrintable(place()));
    const QString second = place();
    press(Qt::Key_Enter);
    QTRY_VERIFY(!ui::Reader::find(m_stage->window().contentItem(), second));
    QVERIFY(ui::Reader::find(m_stage->window().contentItem(), first));
  }

  void f6FindsThePagesFirstControl() {
    beginAt(Page::campaigns);
    press(Qt::Key_F6);
    const QString sidebar = place();
    QVERIFY(sidebar.startsWith("Workspace"_L1));
    press(Qt::Key_F6);
    QVERIFY(place() != sidebar && place() != "nowhere"_L1);
  }

  void goingBackKeepsThePlace() {
    beginAt(Page::campaigns, {.campaigns = 200});
    rows();
    for (int i = 0; i < 3; ++i) press(Qt::Key_PageDown);
    const QString row = place();
    QVERIFY(row != rowAt(0));
    const auto scrolled = [this] {
      QQuickItem* list = focused();
      while (list && !list->inherits("QQuickListView")) list = list->parentItem();
      return list ? list->property("contentY").toDouble() : -1;
    };
    const double y = scrolled();
    QVERIFY(y > 0);
    press(Qt::Key_Return);
    QTRY_VERIFY(!router().campaign().isEmpty());
    m_stage->settle();
    press(Qt::Key_Left, Qt::AltModifier);
    QTRY_COMPARE(place(), row);
    QCOMPARE(scrolled(), y);
    // The way up is one, too.
    press(Qt::Key_Return);
    QTRY_VERIFY(!router().campaign().isEmpty());
    m_stage->settle();
    press(Qt::Key_Escape);
    QTRY_COMPARE(place(), row);
    QCOMPARE(scrolled(), y);
  }

  void undoIsPressedOutsideATextOnly() {
    beginAt(Page::campaigns);
    rows();
    const auto count = campaigns().rows()->count();
    press(Qt::Key_Delete);
    m_stage->settle();
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    QTRY_COMPARE(campaigns().rows()->count(), count - 1);
    press(Qt::Key_Slash);
    type(u"x"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(campaigns().query(), QString());
    QCOMPARE(campaigns().rows()->count(), count - 1);
    press(Qt::Key_Down);
    press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(campaigns().rows()->count(), count);
  }
};

QTEST_MAIN(FocusTest)
#include "focus_test.moc"
