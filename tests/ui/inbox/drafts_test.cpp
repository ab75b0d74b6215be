#include "app/inbox/AgentSettingsStore.h"
#include "app/inbox/DraftsStore.h"
#include "app/inbox/InboxStore.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The review of drafts and the reply agent in the real window.
class DraftsWindowTest : public ui::WindowTest {
  Q_OBJECT

  InboxStore& open(const QString& section) {
    beginAt(Page::inbox);
    auto& inbox = store<InboxStore>();
    inbox.setSection(section);
    m_stage->settle();
    return inbox;
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name

  void whatNobodyTouchesStaysAsItCame() {
    InboxStore& inbox = open(u"drafts"_s);
    Writing& writing = *store<DraftsStore>().writing();
    QVERIFY(inbox.act(u"edit"_s));
    QTRY_VERIFY(focused() && focused()->inherits("QQuickTextEdit"));
    // A field has line ends and blanks of its own.
    const QString came = u"Hi Ana,\r\n\r\n10\u00a0% off."_s;
    writing.begin(came);
    QVERIFY(!writing.dirty());
    type(u"x"_s);
    QVERIFY(writing.dirty());
    press(Qt::Key_Backspace);
    QCOMPARE(writing.body(), came);
    QVERIFY(!writing.dirty());
  }

  void theReviewIsNotTheHistoryThatWasShown() {
    InboxStore& inbox = open(u"agent"_s);
    auto& drafts = store<DraftsStore>();
    drafts.setHistoryShown(true);
    m_stage->press(u"Review drafts"_s);
    QCOMPARE(inbox.sectionName(), u"drafts"_s);
    QVERIFY(!drafts.historyShown());
    m_stage->settle();
  }

  void everyRuleIsReachedByKeys() {
    open(u"agent"_s);
    AgentLessons& lessons = *store<AgentSettingsStore>().lessons();
    const auto& rules = lessons.rows()->records();
    QVERIFY(rules.size() > 1);
    m_stage->tabTo(rules.front().text);
    for (size_t row = 1; row < rules.size(); ++row) press(Qt::Key_Down);
    press(Qt::Key_Return);
    m_stage->settle();
    m_stage->press(u"Change the rule"_s);
    QCOMPARE(lessons.changing()->text(), rules.back().text);
  }
};

QTEST_MAIN(DraftsWindowTest)
#include "drafts_test.moc"
