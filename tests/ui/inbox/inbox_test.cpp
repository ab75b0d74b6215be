#include "app/inbox/InboxStore.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/WindowTest.h"
#include "tests/ui/support/items.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// A morning's replies in the real window, by keyboard alone.
class InboxWindowTest : public ui::WindowTest {
  Q_OBJECT

  InboxStore& inbox() { return store<InboxStore>(); }
  Conversation* open() { return inbox().conversation(); }
  QStringList ids() { return inbox().threads()->list()->shownIds(); }
  bool isWriting() {
    return focused() && focused()->inherits("QQuickTextEdit") && !focused()->property("readOnly").toBool();
  }

  /// By G and I, with the list there.
  void arrive() {
    begin();
    QTRY_COMPARE(m_stage->app().phase(), AppModel::Phase::signedIn);
    press(Qt::Key_G);
    press(Qt::Key_I);
    QTRY_COMPARE(m_stage->app().router()->page(), Page::inbox);
    QTRY_VERIFY(ids().size() > 12);
  }
  void waitForOpen(const QString& id) {
    QTRY_COMPARE(inbox().openId(), id);
    QTRY_VERIFY(open()->detail()->hasContent());
    QTRY_COMPARE(lastOnScreen(), lastText());
  }
  QString lastText() {
    const auto& rows = open()->messages()->records();
    const auto last =
        std::find_if(rows.rbegin(), rows.rend(), [](const MessageRow& row) { return !row.text.isEmpty(); });
    return last == rows.rend() ? QString() : last->text;
  }
  /// What stands lowest of the messages, as whoever looks sees it: whole, and in lines of the one height.
  QString lastOnScreen() {
    const auto isMessages = [](const QQuickItem* item) { return item->inherits("QQuickListView") && item->clip(); };
    const auto listOf = [&](QQuickItem* item) {
      QQuickItem* list = item;
      while (list && !isMessages(list)) list = list->parentItem();
      return list;
    };
    QString last;
    double lowest = 0;
    for (QQuickItem* text : ui::visibleItems(m_stage->window().contentItem(), [&](QQuickItem* item) {
           return item->inherits("QQuickTextEdit") && item->property("readOnly").toBool() && listOf(item);
         })) {
      const QQuickItem* list = listOf(text);
      const double bottom = text->mapToItem(list, {0, text->height()}).y();
      if (bottom <= lowest) continue;
      lowest = bottom;
      const bool isWhole = bottom <= list->height() && std::fmod(text->height(), 22) == 0;
      last = isWhole ? text->property("text").toString() : u"cut off"_s;
    }
    return last;
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name

  void tenConversations() {
    arrive();
    const QStringList all = ids();
    // Read, and on: the first three, one of them labelled, one archived.
    press(Qt::Key_J);
    waitForOpen(all[0]);
    QTRY_VERIFY(!inbox().threads()->find(all[0])->unread);
    press(Qt::Key_J);
    waitForOpen(all[1]);
    press(Qt::Key_L);
    press(Qt::Key_End);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    QTRY_VERIFY(lastMessage().startsWith(u"Label"_s));
    press(Qt::Key_J);
    waitForOpen(all[2]);
    press(Qt::Key_E);
    waitForOpen(all[3]);
    QTRY_VERIFY(!ids().contains(all[2]));
    QTRY_COMPARE(lastMessage(), u"Archived"_s);

    // Answered; whoever has sent goes on in the list.
    press(Qt::Key_R);
    QTRY_VERIFY(isWriting());
    type(u"Thanks, Tuesday works."_s);
    QCOMPARE(open()->reply()->body(), u"Thanks, Tuesday works."_s);
    const bool asks = open()->hasDraft();
    press(Qt::Key_Return, Qt::ControlModifier);
    if (asks) {
      QTRY_COMPARE(m_stage->app().overlays()->title(), u"Reply anyway?"_s);
      m_stage->settle();
      press(Qt::Key_Return);
    }
    QTRY_VERIFY(lastMessage().startsWith(u"Sending to "_s));
    QTRY_VERIFY(!isWriting());
    QCOMPARE(open()->reply()->body(), QString());

    // Begun, left, found again; letters are letters there.
    press(Qt::Key_J);
    waitForOpen(all[4]);
    press(Qt::Key_R);
    QTRY_VERIFY(isWriting());
    type(u"just"_s);
    QCOMPARE(inbox().openId(), all[4]);
    press(Qt::Key_Escape);
    QTRY_VERIFY(!isWriting());
    press(Qt::Key_J);
    waitForOpen(all[5]);
    press(Qt::Key_K);
    waitForOpen(all[4]);
    QCOMPARE(open()->reply()->body(), u"just"_s);

    // With the arrows, where the row that they rest on opens; unread again; on to the tenth.
    press(Qt::Key_Down);
    waitForOpen(all[5]);
    press(Qt::Key_U);
    QTRY_COMPARE(lastMessage(), u"Marked unread"_s);
    for (int at = 6; at < 10; ++at) {
      press(Qt::Key_J);
      waitForOpen(all[at]);
    }
    QTRY_VERIFY(inbox().threads()->find(all[5])->unread);
    press(Qt::Key_E);
    waitForOpen(all[10]);
    QTRY_VERIFY(!ids().contains(all[9]));
  }

  void theArchiveAndTheWayBack() {
    arrive();
    press(Qt::Key_J);
    const QString id = ids().first();
    waitForOpen(id);
    press(Qt::Key_E);
    QTRY_VERIFY(!ids().contains(id));
    inbox().threads()->setTab(u"archived"_s);
    QTRY_VERIFY(ids().contains(id));
    inbox().open(id);
    waitForOpen(id);
    press(Qt::Key_E);
    QTRY_COMPARE(lastMessage(), u"Moved back to the inbox"_s);
    inbox().threads()->setTab(u"all"_s);
    QTRY_VERIFY(ids().contains(id));
  }

  void theLastThatMatchesIsArchivedAndTakenBack() {
    const auto saysThatNothingMatches = [this] {
      return ui::Reader::find(m_stage->window().contentItem(),
                              u"No conversations match, Try another status, mailbox or search."_s) != nullptr;
    };
    arrive();
    inbox().threads()->setQuery(u"endless"_s);
    QTRY_COMPARE(ids().size(), 1);
    const QString id = ids().first();
    inbox().open(id);
    waitForOpen(id);
    QVERIFY(!saysThatNothingMatches());
    press(Qt::Key_E);
    QTRY_VERIFY(saysThatNothingMatches());
    QTRY_COMPARE(lastMessage(), u"Archived"_s);
    QVERIFY(ids().isEmpty());
    m_stage->press(u"Undo"_s);
    QTRY_COMPARE(lastMessage(), u"Moved back to the inbox"_s);
    QTRY_COMPARE(ids(), QStringList{id});
    QTRY_VERIFY(!saysThatNothingMatches());
  }

  void aLongThreadAndALongBodyAreDrawn() {
    arrive();
    QTRY_VERIFY(!inbox().threads()->list()->canLoadMore() || ids().size() >= 50);
    QString longest, largest;
    inbox().threads()->list()->each([&](const ThreadRow& row) {
      if (row.record().messageCount > 400) longest = row.id;
      if (row.record().subject.contains("endless"_L1)) largest = row.id;
    });
    for (const QString& id : {longest, largest}) {
      QVERIFY2(!id.isEmpty(), "the sample has none");
      inbox().open(id);
      waitForOpen(id);
      m_stage->settle();
    }
  }
};

QTEST_MAIN(InboxWindowTest)
#include "inbox_test.moc"
