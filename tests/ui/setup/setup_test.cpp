#include "app/setup/SetupProjectStore.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// Inbox setup in the window, by keyboard alone, on the sample workspace.
class SetupWindowTest : public ui::WindowTest {
  Q_OBJECT

  StageTime m_time;

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    WindowTest::press(key, modifiers);
    m_stage->settle();
  }
  void pressCalled(const QString& name) {
    m_stage->tabTo(name);
    press(Qt::Key_Space);
  }
  void typeInto(const QString& field, const QString& text) {
    m_stage->tabTo(field);
    type(text);
  }
  QString openedId() { return m_stage->app().router()->openedItem(Page::inboxSetup); }
  SetupProjectStore& project() {
    return *m_stage->app().session()->item<SetupProjectStore>(Page::inboxSetup, openedId());
  }
  QString state() { return project().runText(); }
  QQuickItem* scrolled() {
    QQuickItem* item = focused();
    while (item && !item->property("contentY").isValid()) item = item->parentItem();
    return item;
  }
  /// What every row of the run says.
  QStringList states() {
    QStringList states;
    for (const RunRow& row : project().runRows()->records()) states.append(row.id + row.stateText);
    return states;
  }

 private Q_SLOTS:
  void init() {
    WindowTest::init();
    beginAt(Page::inboxSetup, {}, &m_time);
  }

  void aProjectIsMadeFilledInAndRun() {
    press(Qt::Key_N);
    NewProject& form = *store<InboxSetupStore>().newProject();
    QVERIFY(form.shown());
    press(Qt::Key_Down);
    QCOMPARE(form.mode(), u"existing"_s);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    QVERIFY(form.isNamed() && form.mode() == "existing"_L1);
    type(u"x"_s);
    press(Qt::Key_Return);
    QCOMPARE(form.error(), u"Keep it 2 to 80 characters"_s);
    // Back to the first question, whose answer stands, and on.
    pressCalled(u"Another kind"_s);
    press(Qt::Key_Return);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"Quay"_s);
    press(Qt::Key_Return);
    QVERIFY(!form.shown());
    QCOMPARE(project().name(), u"Quay"_s);

    pressCalled(u"Run"_s);
    QCOMPARE(project().form()->problem(), u"Add at least one domain."_s);
    // The keyboard is where that can be mended. What is typed counts, whatever ends it.
    type(u"ellen@Ash.example"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(project().form()->draft()->base().domains, QStringList{u"ash.example"_s});
    type(u"not one"_s);
    press(Qt::Key_Return);
    QCOMPARE(project().domains()->problem(), u"Not a domain: not, one"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"quay.example"_s);
    m_stage->tabTo(u"ash.example"_s);
    QCOMPARE(project().domains()->count(), 2);
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    QCOMPARE(project().form()->draft()->typed().domains, QStringList{u"ash.example"_s});
    typeInto(u"Admin username"_s, u"ellen"_s);
    typeInto(u"Password"_s, u"canary-admin-password"_s);
    typeInto(u"First name"_s, u"Ellen"_s);
    typeInto(u"Last name"_s, u"Marsh"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY2(!project().form()->dirty(), qPrintable(project().form()->problem()));
    m_stage->tabTo(u"Run"_s);
    m_stage->press(Qt::Key_Space);
    // Settled, the list's polls and the run's would by turns go on until the run has ended.
    m_stage->until([this] { return lastMessage() == u"Run started on 1 domain"_s; }, u"the run"_s);
    QCOMPARE(project().tabName(), u"run"_s);
    // A poll's answer at a time: while one is under way its limit would pass too.
    for (int polls = 0; polls < 200 && state() != "Complete"_L1; ++polls) {
      m_time.pass(std::chrono::seconds(2));
      m_stage->settle();
    }
    QCOMPARE(state(), u"Complete"_s);
    QCOMPARE(project().runHeadline(), u"3 of 3 inboxes connected"_s);
  }

  void whatKeepsASaveBackComesIntoView() {
    store<InboxSetupStore>().open(u"sp2"_s);
    m_stage->settle();
    typeInto(u"Tags"_s, u"late,"_s);
    const auto place = [this] { return scrolled()->property("contentY").toDouble(); };
    QVERIFY(place() > 0);
    m_stage->transport().mode = StagedTransport::Mode::failing;
    press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(project().form()->problem().startsWith(u"Couldn’t save."_s));
    QCOMPARE(place(), 0.0);
  }

  void aRunFromTheListIsOfWhatIsTypedOnThePage() {
    store<InboxSetupStore>().open(u"sp2"_s);
    m_stage->settle();
    typeInto(u"Add domains"_s, u"late.example"_s);
    press(Qt::Key_Tab, Qt::ControlModifier);
    m_stage->app().router()->open(Page::inboxSetup);
    m_stage->settle();
    QVERIFY(store<InboxSetupStore>().act(u"run"_s, u"sp2"_s));
    m_stage->until([this] { return lastMessage() == u"Run started on 5 domains"_s; }, u"the run"_s);
  }

  void anArchivedDomainIsPutBack() {
    store<InboxSetupStore>().open(u"sp1"_s);
    m_stage->settle();
    const qsizetype before = project().domains()->archivedRows()->rowCount();
    pressCalled(u"Archived"_s);
    m_stage->tabTo(u"fleet-old.example.com"_s);
    press(Qt::Key_Delete);
    QCOMPARE(project().domains()->archivedRows()->rowCount(), before);
    press(Qt::Key_Return);
    QCOMPARE(project().domains()->archivedRows()->rowCount(), before - 1);
    QCOMPARE(lastMessage(), u"fleet-old.example.com is back in Domains"_s);
  }

  void pollsLeaveThePageWhereItIs() {
    store<InboxSetupStore>().open(u"sp1"_s);
    m_stage->settle();
    press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(project().tabName(), u"run"_s);
    pressCalled(u"Resume"_s);
    QCOMPARE(state(), u"Running"_s);
    m_stage->tabTo(u"row 1 of 32"_s);
    // Settling lets time pass, and with it the run.
    WindowTest::press(Qt::Key_End);
    for (int up = 0; up < 4; ++up) WindowTest::press(Qt::Key_Up);
    WindowTest::press(Qt::Key_Return);
    const QString row = project().selectedRow(), key = focused()->property("key").toString();
    QVERIFY(!row.isEmpty() && row == key);
    const double at = scrolled()->property("contentY").toDouble();
    QVERIFY(at > 0);
    const QStringList before = states();
    m_stage->until([&] { return states() != before; }, u"a change in the run"_s);
    QCOMPARE(project().selectedRow(), row);
    QVERIFY(rowHasFocus());
    QCOMPARE(focused()->property("key").toString(), key);
    QCOMPARE(scrolled()->property("contentY").toDouble(), at);

    pressCalled(u"Pause"_s);
    QCOMPARE(state(), u"Paused"_s);
    const auto ask = [this] {
      pressCalled(u"Terminate"_s);
      return m_stage->app().overlays()->title() == "Terminate this run?"_L1;
    };
    // Enter is "Cancel": what cannot be taken back is never the first.
    QVERIFY(ask());
    press(Qt::Key_Return);
    QCOMPARE(state(), u"Paused"_s);
    QVERIFY(ask());
    pressCalled(u"Terminate"_s);
    QCOMPARE(state(), u"Stopped"_s);
    QCOMPARE(project().selectedRow(), row);
  }
};

QTEST_MAIN(SetupWindowTest)
#include "setup_test.moc"
