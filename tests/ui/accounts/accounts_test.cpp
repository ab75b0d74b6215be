#include "app/accounts/AccountsStore.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/WindowTest.h"
#include "tests/ui/support/items.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The accounts' page in the window, on the sample workspace.
class AccountsWindowTest : public ui::WindowTest {
  Q_OBJECT

  void open(int mailboxes = 0) { beginAt(Page::accounts, {.mailboxes = mailboxes}); }
  AccountsStore& accounts() { return store<AccountsStore>(); }
  QQuickItem* table() {
    const auto isIt = [](QQuickItem* item) {
      return item->property("tickedKeys").isValid() && item->property("title").toString() == "Accounts"_L1;
    };
    return ui::visibleItems(m_stage->window().contentItem(), isIt).value(0);
  }

 private Q_SLOTS:

  void manyAreTaggedByKeyboard() {
    open();
    QTRY_VERIFY(table());
    table()->forceActiveFocus();
    press(Qt::Key_Home);
    QTRY_VERIFY(rowHasFocus());
    press(Qt::Key_Space);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    const QStringList ticked = accounts().selection()->ids();
    QCOMPARE(ticked, accounts().list()->shownIds().mid(0, 3));
    m_stage->tabTo(u"Add tags"_s);
    press(Qt::Key_Space);
    QTRY_VERIFY(accounts().bulk()->shown());
    m_stage->settle();
    type(u"q4,winter"_s);
    press(Qt::Key_Return);
    QCOMPARE(accounts().bulk()->tags().size(), 2);
    m_stage->tabTo(u"Add tags"_s);
    press(Qt::Key_Space);
    QTRY_COMPARE(lastMessage(), u"3 accounts tagged"_s);
    m_stage->settle();
    for (const QString& id : ticked)
      QVERIFY(accounts().list()->find(id)->record().tags.value_or(QStringList()).contains(u"winter"_s));
    QVERIFY(accounts().selection()->isEmpty());
    QTRY_VERIFY2(rowHasFocus(), "the bar is gone, so the rows have the focus");

    // Found by the tag, sent to the archive, and taken back.
    accounts().setQuery(u"winter"_s);
    m_stage->settle();
    QCOMPARE(accounts().list()->rows()->count(), 3);
    press(Qt::Key_Home);
    press(Qt::Key_Delete);
    m_stage->settle();
    m_stage->tabTo(u"Remove"_s);
    press(Qt::Key_Space);
    QTRY_VERIFY(lastMessage().endsWith(u" removed"_s));
    QTRY_COMPARE(accounts().list()->rows()->count(), 2);
    m_stage->press(u"Undo"_s);
    QTRY_COMPARE(lastMessage(), u"Account restored"_s);
    QTRY_COMPARE(accounts().list()->rows()->count(), 3);
  }

  void anAccountIsAddedByKeyboard() {
    open();
    QTRY_VERIFY(table());
    table()->forceActiveFocus();
    press(Qt::Key_N);
    AddAccount& adding = *accounts().adding();
    QTRY_VERIFY(adding.shown());
    m_stage->settle();
    m_stage->tabTo(u"SMTP / IMAP"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(adding.way(), AddAccount::Way::smtp);
    m_stage->settle();
    // The first field has the focus; the next ones follow it.
    type(u"nina@post.example"_s);
    m_stage->tabTo(u"Sender name"_s);
    type(u"Nina"_s);
    m_stage->tabTo(u"Password"_s);
    type(u"app-password"_s);
    QCOMPARE(adding.connection()->fields().smtpHost, u"smtp.post.example"_s);
    m_stage->tabTo(u"SMTP server"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"mail.post.example"_s);
    m_stage->tabTo(u"Add and check"_s);
    press(Qt::Key_Space);
    QTRY_VERIFY(!adding.shown());
    QTRY_COMPARE(lastMessage(), u"nina@post.example added. Checking the connection…"_s);
    QVERIFY2(adding.connection()->password().isEmpty(), "nothing secret stays behind");
    m_stage->settle();
    const QStringList ids = accounts().list()->shownIds();
    const auto made = std::ranges::find_if(ids, [this](const QString& id) {
      return accounts().list()->find(id)->record().address == "nina@post.example"_L1;
    });
    QVERIFY(made != ids.end());
    QCOMPARE(accounts().list()->find(*made)->record().connection->host, u"mail.post.example"_s);
    QTRY_VERIFY2(rowHasFocus(), "the focus is back where it was");
  }

  void everyInboxOfADomainIsReachedByKeyboard() {
    open();
    AddAccount& adding = *accounts().adding();
    adding.show();
    m_stage->settle();
    adding.choose(u"google"_s);
    adding.setAdmin(u"it@fleet.example"_s);
    GoogleConnect& google = *adding.google();
    for (int asked = 0; asked < 8 && google.stage() != GoogleConnect::Stage::directory; ++asked) {
      google.find(adding.admin());
      m_stage->settle();
    }
    QCOMPARE(google.stage(), GoogleConnect::Stage::directory);
    const auto isRow = [this] { return focused() && focused()->property("picked").isValid(); };
    for (int stops = 0; stops < 12 && !isRow(); ++stops) press(Qt::Key_Tab);
    QStringList reached;
    for (int row = 0; row < google.inboxes()->rowCount(); ++row, press(Qt::Key_Down)) {
      QVERIFY(isRow());
      reached.append(focused()->property("address").toString());
      const int picked = google.pickedCount();
      press(Qt::Key_Space);
      QCOMPARE(google.pickedCount() != picked, !focused()->property("existing").toBool());
    }
    QVERIFY(reached.size() > 7);
    QCOMPARE(reached.removeDuplicates(), 0);
    press(Qt::Key_Tab);
    QVERIFY2(!isRow(), "one stop for all of them");
    press(Qt::Key_Backtab);
    QVERIFY(isRow());
    press(Qt::Key_Backtab);
    QVERIFY(!isRow());
  }

  void whatIsSeenIsHeard() {
    open();
    QTRY_VERIFY(table());
    ui::Reader::listen();
    table()->forceActiveFocus();
    press(Qt::Key_Home);
    QTRY_VERIFY(rowHasFocus());
    press(Qt::Key_Space);
    press(Qt::Key_Down, Qt::ShiftModifier);
    QTRY_COMPARE(ui::Reader::noticeIn(table()), u"2 selected"_s);

    const auto& list = *accounts().list();
    const QStringList shown = list.shownIds();
    const auto tagged = std::ranges::find_if(
        shown, [&list](const QString& id) { return !list.find(id)->record().tags.value_or(QStringList()).isEmpty(); });
    const Mailbox& account = list.find(*tagged)->record();
    const QStringList cells = ui::Reader::heardIn(table()).filter(u"Account, "_s + account.address);
    QCOMPARE(cells.size(), 1);
    QVERIFY2(cells[0].endsWith(u", "_s + account.displayName + u", "_s + account.tags->join(u", "_s)),
             qPrintable(cells[0]));

    press(Qt::Key_Menu);
    const QString name = list.find(shown.at(1))->record().address;
    QTRY_VERIFY(!ui::Reader::heardIn(table()).filter(u"Actions for "_s + name + u", "_s).isEmpty());
    ui::Reader::heard();

    press(Qt::Key_Escape);
    QTRY_VERIFY(rowHasFocus());
    press(Qt::Key_Return);
    QTRY_COMPARE(m_stage->window().title(), name + u" – Accounts – Northgate Growth – Orvella"_s);
  }

  void aLongListIsReadWholeAndKeepsItsPlace() {
    open(1000);
    QTRY_VERIFY(!accounts().list()->canLoadMore() && accounts().list()->readCount() >= 1000);
    QTRY_VERIFY(table());
    QMetaObject::invokeMethod(table(), "show", Q_ARG(QString, accounts().list()->shownIds().at(700)));
    m_stage->settle();
    const double place = table()->property("contentY").toDouble();
    QVERIFY(place > 20'000);
    accounts().refresh();
    m_stage->settle();
    QCOMPARE(table()->property("contentY").toDouble(), place);
    table()->forceActiveFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(accounts().selection()->count(), accounts().list()->readCount());
  }
};

QTEST_MAIN(AccountsWindowTest)
#include "accounts_test.moc"
