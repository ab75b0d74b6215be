#include "app/settings/SettingsStore.h"

#include "tests/ui/support/Reader.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The settings in the window, on the sample workspace, from the keyboard.
class SettingsWindowTest : public ui::WindowTest {
  Q_OBJECT

  SettingsStore& open(SettingsTab tab) {
    m_stage->app().router()->openSettings(tab);
    m_stage->settle();
    return store<SettingsStore>();
  }
  QString slug() { return m_stage->app().session() ? m_stage->app().session()->slug() : QString(); }

 private Q_SLOTS:
  void init() {
    WindowTest::init();
    begin();
  }

  void aWorkspaceGoesOnlyByItsWordAndLeadsToAnother() {
    SettingsStore& settings = open(SettingsTab::workspace);
    settings.deleteWorkspace();
    m_stage->settle();
    QVERIFY(m_stage->app().overlays()->title().contains(u"Northgate Growth"_s));
    for (const QString& wrong : {u"delete"_s, u"Delete"_s, u"DELETE "_s, u" DELETE"_s, u"DELETED"_s, u"DELETE."_s}) {
      press(Qt::Key_A, Qt::ControlModifier);
      type(wrong);
      press(Qt::Key_Return);
      m_stage->settle();
      QVERIFY2(m_stage->app().overlays()->asking() && slug() == "northgate"_L1, qPrintable(wrong));
    }
    const int before = m_stage->transport().begun();
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"DELETE"_s);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    QTRY_COMPARE(slug(), u"caldera"_s);
    m_stage->settle();
    QCOMPARE(lastMessage(), u"Deleted Northgate Growth"_s);
    QVERIFY(m_stage->transport().begun() > before);
    for (const QVariant& workspace : m_stage->app().workspaces())
      QVERIFY(workspace.toMap().value(u"slug"_s) != u"northgate"_s);
  }

  void theLastWorkspaceEndsInTheNotice() {
    // The sample would say that they are all still there.
    m_stage->transport().mode = StagedTransport::Mode::offline;
    for (int left = int(m_stage->app().workspaces().size()); left > 0; --left) {
      const QString name = slug();
      m_stage->app().deletesWorkspace(name, Program::Deletion::done);
      m_stage->settle();
    }
    QCOMPARE(m_stage->app().phaseName(), u"signedOut"_s);
    QCOMPARE(m_stage->app().signIn()->notice(),
             u"You’re signed in, but you’re not in a workspace yet. Ask a workspace owner to invite you."_s);
  }

  void arrowsWalkTheTabsAndBackReturns() {
    SettingsStore& settings = open(SettingsTab::account);
    m_stage->press(u"Members"_s);
    m_stage->settle();
    QCOMPARE(settings.tabName(), u"members"_s);
    QCOMPARE(ui::Reader::nameOf(focused()), u"Members"_s);
    press(Qt::Key_Up);
    QCOMPARE(settings.tabName(), u"company"_s);
    QCOMPARE(ui::Reader::nameOf(focused()), u"Company"_s);
    QCOMPARE(m_stage->app().router()->settingsTabName(), u"company"_s);
    m_stage->app().router()->goBack();
    m_stage->settle();
    QCOMPARE(settings.tabName(), u"members"_s);
    // Past the agent's settings, which stand elsewhere.
    open(SettingsTab::replyLabels);
    m_stage->press(u"Reply labels"_s);
    press(Qt::Key_Down);
    QCOMPARE(settings.tabName(), u"integrations"_s);
  }

  void aTeammateIsInvitedAndRevoked() {
    SettingsStore& settings = open(SettingsTab::members);
    const int waiting = settings.invites()->rows()->count();
    press(Qt::Key_N);
    m_stage->settle();
    type(u"ida@northgate.example"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(lastMessage(), u"Invitation sent to ida@northgate.example"_s);
    QTRY_COMPARE(settings.invites()->rows()->count(), waiting + 1);
    settings.invites()->revoke(settings.invites()->rows()->records()[0].id);
    QTRY_COMPARE(settings.invites()->rows()->count(), waiting);
  }
};

QTEST_MAIN(SettingsWindowTest)
#include "settings_test.moc"
