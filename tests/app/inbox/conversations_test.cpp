#include <QSignalSpy>

#include "app/inbox/ShownMessages.h"
#include "kit/models/campaigns/campaign.h"
#include "tests/app/inbox/InboxFixture.h"

using namespace orv;
using namespace orv::test;

/// Which conversations there are and what becomes of them.
class ConversationsTest : public InboxFixture {
  Q_OBJECT

  int unreadInTab() const { return store->threads()->tabs()[1].count; }

 private Q_SLOTS:
  void init() { begin(); }
  void cleanup() { life.reset(); }

  void filtersAreAskedFor() {
    load();
    auto& threads = *store->threads();
    const auto asksFor = [&](const QString& expected) {
      QCOMPARE(query(), expected);
      f->api.answer(list, page({}));
    };
    f->api.expect(list);
    threads.setTab(u"unread"_s);
    f->api.expect(list);
    threads.setMailbox(u"m7"_s);
    asksFor(u"limit=50&mailbox=m7&unread=1"_s);
    f->api.expect(list);
    threads.showAll();
    f->api.expect(list);
    threads.setLabel(u"drafts"_s);
    f->api.expect(list);
    threads.setTab(u"all"_s);
    asksFor(u"limit=50&drafts=1"_s);
    QVERIFY(threads.filtered());
    // Blanks ask for nothing, and what is typed waits for its end.
    threads.setQuery(u"  "_s);
    f->clock.advance(1s);
    threads.setQuery(u"  Jon"_s);
    threads.setQuery(u"  Jonas "_s);
    f->api.expect(list);
    f->clock.advance(250ms);
    asksFor(u"limit=50&q=Jonas&drafts=1"_s);
    QCOMPARE(store->where().value, u"  Jonas "_s);
  }

  void whoIsLedToATabSeesEverythingInIt() {
    load();
    f->api.expect(list);
    store->threads()->setMailbox(u"m7"_s);
    store->threads()->setQuery(u"Jonas"_s);
    store->setSection(u"drafts"_s);
    f->api.expect(list);
    store->goTo({.tab = u"unread"_s});
    QCOMPARE(query(), u"limit=50&unread=1"_s);
    f->clock.advance(1s);
    QCOMPARE(store->sectionName(), u"conversations"_s);
    QCOMPARE(store->where().value, QString());
    f->api.answer(list, page({threadOf(1)}));
    // What came since is shown as well.
    f->api.expect(list);
    Q_EMIT f->context->mailCame(u"2026-11-21T12:00:00Z"_s);
    QVERIFY(store->threads()->newMail());
    store->goTo({.tab = u"unread"_s});
    QVERIFY(!store->threads()->newMail());
  }

  void anOpenConversationIsRead() {
    load();
    QCOMPARE(f->context->unread(), std::optional<qint64>(5));
    f->api.expect(get(1));
    store->open(id(1));
    // At once, before anybody has answered; the list knows the rest.
    QVERIFY(!isUnread(1));
    QCOMPARE(store->threads()->unreadCount(), 4);
    QCOMPARE(f->context->unread(), std::optional<qint64>(4));
    QCOMPARE(store->conversation()->contact(), u"Contact 1"_s);
    QCOMPARE(f->navigator.openedItem(Page::inbox), id(1));
    f->api.expect(patch(1));
    f->api.expect(get(2));
    f->api.answer(get(1), detailOf(threadOf(1)));
    QCOMPARE(*f->api.sent()[f->api.sent().size() - 2].request.body, R"({"unread":false})");
    f->api.answer(patch(1), json(threadOf(1, {{u"unread"_s, false}})));
    QVERIFY(!store->threads()->find(id(1))->unread);
    QCOMPARE(store->threads()->unreadCount(), 4);

    // The next one was read ahead, as unread: now it is looked at. Nothing of it has to be waited for.
    f->api.answer(get(2), detailOf(threadOf(2)));
    QVERIFY(isUnread(2));
    f->api.expect(patch(2));
    f->api.expect(get(3));
    store->step(1);
    QCOMPARE(store->openId(), id(2));
    QVERIFY(store->conversation()->detail()->hasContent());
    f->api.answer(patch(2), json(threadOf(2, {{u"unread"_s, false}})));
    // Nothing to mark where the service has done so.
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}})));
    store->step(1);
    QCOMPARE(asked(patch(3)), 0);
    QCOMPARE(f->context->unread(), std::optional<qint64>(2));
  }

  void whatCannotBeMarkedReadIsUnreadAgain() {
    load();
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}})));
    f->api.expect(get(1));
    store->open(id(1));
    f->api.expect(patch(1));
    f->api.answer(get(1), detailOf(threadOf(1)));
    f->api.fail(patch(1), NoAnswer(TransportFailure::offline, false));
    QVERIFY(isUnread(1));
    QCOMPARE(f->toasts.count(), 0);
  }

  void whatIsReadWhileElsewhereIsMarkedOnTheWayBack() {
    load();
    f->api.expect(get(3));
    store->open(id(3));
    store->disappear();
    f->api.answer(get(3), detailOf(threadOf(3)));
    QCOMPARE(asked(patch(3)), 0);
    store->appear();
    f->api.expect(patch(3));
    store->ensureLoaded();
    store->showRecord(id(3));
    QCOMPARE(asked(patch(3)), 1);
  }

  void whatNobodyLooksAtStaysUnread() {
    load();
    openLast();
    store->conversation()->detail()->appear();
    f->context->setWatched(false);
    f->api.expect(get(3));
    Q_EMIT f->context->mailCame(u"2026-11-21T12:00:00Z"_s);
    f->api.answer(get(3), detailOf(threadOf(3, {{u"messageCount"_s, 2}})));
    QCOMPARE(asked(patch(3)), 0);
    QVERIFY(isUnread(3));
    QCOMPARE(f->context->unread(), std::optional<qint64>(5));
    f->api.expect(patch(3));
    f->context->setWatched(true);
    QCOMPARE(asked(patch(3)), 1);
    QVERIFY(!isUnread(3));
    QCOMPARE(f->context->unread(), std::optional<qint64>(4));
    store->conversation()->detail()->disappear();
  }

  void markedUnreadStaysUnread() {
    load();
    openLast();
    f->api.expect(patch(3));
    store->act(u"unread"_s);
    QCOMPARE(body(), (QJsonObject{{u"unread"_s, true}}));
    f->api.answer(patch(3), json(threadOf(3)));
    QCOMPARE(toast(), u"Marked unread"_s);
    QVERIFY(isUnread(3));
    // Its next reading does not make it read.
    f->api.expect(get(3));
    store->conversation()->refresh();
    f->api.answer(get(3), detailOf(threadOf(3)));
    QVERIFY(isUnread(3));
    QCOMPARE(asked(patch(3)), 1);
  }

  void archivingGoesOnToTheNext() {
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    f->api.expect(patch(1));
    f->api.expect(get(3));
    store->act(u"archive"_s);
    QCOMPARE(store->openId(), id(2));
    settle();
    QCOMPARE(shown(), (QStringList{id(2), id(3)}));
    // Pressed again before the answer, it is the next one's turn.
    f->api.expect(patch(2));
    store->act(u"archive"_s);
    QCOMPARE(store->openId(), id(3));
    f->api.answer(patch(1), json(threadOf(1, {{u"status"_s, u"archived"_s}, {u"unread"_s, false}})));
    QCOMPARE(toast(), u"Archived"_s);
    QCOMPARE(store->threads()->tabs().first().count, 9);
    // One that fails comes back where it was.
    f->api.answer(patch(2), R"({"title":"No"})", 422);
    settle();
    QCOMPARE(shown(), (QStringList{id(2), id(3)}));
    QCOMPARE(toast(), u"Couldn’t archive the conversation."_s);

    f->api.expect(patch(1));
    f->toasts.act(f->toasts.toasts().first().id);
    QCOMPARE(body(), (QJsonObject{{u"status"_s, u"open"_s}}));
    f->api.expect(list);
    f->api.answer(patch(1), json(threadOf(1, {{u"unread"_s, false}})));
    settle();
    QCOMPARE(shown(), (QStringList{id(1), id(2), id(3)}));
    QCOMPARE(toast(), u"Moved back to the inbox"_s);
  }

  void whatTheListHasNoLongerGoesOnToItsFirst() {
    load();
    open(9, detailOf(threadOf(9, {{u"unread"_s, false}})));
    f->api.expect(patch(9));
    f->api.expect(get(1));
    store->act(u"archive"_s);
    QCOMPARE(store->openId(), id(1));
    // Archived by somebody else, one stays open without standing in the list.
    InboxThread elsewhere = *store->threads()->find(id(1));
    elsewhere.status = u"archived"_s;
    f->context->changes().publish(elsewhere, f->context->changes().stamp(), false);
    settle();
    f->api.expect(get(2));
    store->step(1);
    QCOMPARE(store->openId(), id(2));
  }

  void changesOfDifferentKindsGoOneAfterAnother() {
    load();
    const auto answer = [this](const QJsonObject& more) { f->api.answer(patch(1), json(threadOf(1, more))); };
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    f->api.expect(patch(1));
    store->setLabel(u"warm"_s);
    QCOMPARE(body(), (QJsonObject{{u"label"_s, u"warm"_s}}));
    QVERIFY(store->act(u"unread"_s));
    QVERIFY(!store->act(u"unread"_s));
    // Of several labels the last one counts, be it what still stands there.
    store->setLabel(u"interested"_s);
    store->setLabel({});
    f->api.expect(get(3));
    QVERIFY(store->act(u"archive"_s));
    QCOMPARE(store->openId(), id(2));
    QCOMPARE(store->busyIds(), QStringList{id(1)});
    f->api.expect(patch(1));
    answer({{u"label"_s, u"warm"_s}, {u"unread"_s, false}});
    QCOMPARE(body(), (QJsonObject{{u"unread"_s, true}}));
    f->api.expect(patch(1));
    answer({{u"label"_s, u"warm"_s}});
    QCOMPARE(body(), (QJsonObject{{u"status"_s, u"archived"_s}}));
    f->api.expect(patch(1));
    answer({{u"label"_s, u"warm"_s}, {u"status"_s, u"archived"_s}});
    QCOMPARE(body(), (QJsonObject{{u"label"_s, QJsonValue::Null}}));
    answer({{u"status"_s, u"archived"_s}});
    QCOMPARE(toast(), u"Label cleared"_s);
    QVERIFY(store->busyIds().isEmpty());
  }

  void theArchiveGivesBack() {
    load();
    f->api.expect(list);
    store->threads()->setTab(u"archived"_s);
    f->api.answer(list, page({threadOf(7, {{u"status"_s, u"archived"_s}, {u"unread"_s, false}})}));
    QCOMPARE(store->menu(id(7)).first().title, u"Move to inbox"_s);
    open(7, detailOf(threadOf(7, {{u"status"_s, u"archived"_s}, {u"unread"_s, false}})));
    f->api.expect(patch(7));
    store->act(u"archive"_s);
    // It was the only one: the key has nothing to take back.
    QCOMPARE(store->openId(), QString());
    QVERIFY(!store->act(u"archive"_s));
    QCOMPARE(body(), (QJsonObject{{u"status"_s, u"open"_s}}));
    f->api.answer(patch(7), json(threadOf(7, {{u"unread"_s, false}})));
    settle();
    QCOMPARE(shown(), QStringList());
    QCOMPARE(toast(), u"Moved back to the inbox"_s);
  }

  void labelsAreSetAndCleared() {
    load();
    openLast();
    QCOMPARE(store->threads()->labelsToSet().last().label, u"Warm"_s);
    f->api.expect(patch(3));
    store->setLabel(u"warm"_s);
    QCOMPARE(body(), (QJsonObject{{u"label"_s, u"warm"_s}}));
    f->api.answer(patch(3), json(threadOf(3, {{u"label"_s, u"warm"_s}, {u"unread"_s, false}})));
    QCOMPARE(toast(), u"Labelled Warm"_s);
    QCOMPARE(store->conversation()->labelTone(), u"positive"_s);
    f->api.expect(patch(3));
    store->setLabel({});
    QCOMPARE(body(), (QJsonObject{{u"label"_s, QJsonValue::Null}}));
    f->api.answer(patch(3), json(threadOf(3, {{u"unread"_s, false}})));
    QCOMPARE(toast(), u"Label cleared"_s);
    QCOMPARE(store->conversation()->label(), QString());
  }

  void newMailIsTold() {
    load();
    auto& threads = *store->threads();
    Q_EMIT f->context->mailCame(u"2026-11-20T09:30:00Z"_s);
    QVERIFY(threads.newMail());
    f->api.expect(list);
    threads.showNewMail();
    QVERIFY(!threads.newMail());
    f->api.answer(list, page({threadOf(9, {{u"lastInboundAt"_s, u"2026-11-20T09:40:00Z"_s}}), threadOf(1), threadOf(2),
                              threadOf(3)}));
    QCOMPARE(shown().first(), id(9));
    // What is told late has been read already.
    Q_EMIT f->context->mailCame(u"2026-11-20T09:40:00.000Z"_s);
    QVERIFY(!threads.newMail());

    f->api.expect(u"POST /inbox/poll"_s);
    threads.checkMail();
    threads.checkMail();
    QVERIFY(threads.polling());
    QCOMPARE(toast(), u"Checking every mailbox now…"_s);
    f->api.expect(list);
    f->api.answer(u"POST /inbox/poll"_s, {}, 204);
    settle();
    QVERIFY(!threads.polling());
    QCOMPARE(threads.syncedAt(), f->clock.now());
  }

  void newMailMakesWhatIsKeptOld() {
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    const auto read = [](int n) { return detailOf(threadOf(n, {{u"unread"_s, false}, {u"messageCount"_s, 2}})); };
    Q_EMIT f->context->mailCame(u"2026-11-21T12:00:00Z"_s);
    // Somebody follows its notification: what was read ahead is shown and read again.
    f->api.expect(get(2));
    f->api.expect(get(3));
    store->showRecord(id(2));
    QVERIFY(store->conversation()->detail()->hasContent());
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}})));
    f->api.answer(get(2), read(2));
    QCOMPARE(store->conversation()->thread()->messageCount, 2);
    // What is on the screen is read at once, the next one ahead of whoever goes on.
    store->conversation()->detail()->appear();
    f->api.expect(get(2));
    Q_EMIT f->context->mailCame(u"2026-11-21T12:01:00Z"_s);
    QCOMPARE(asked(get(2)), 3);
    QCOMPARE(asked(get(1)) + asked(get(3)), 2);
    f->api.expect(get(3));
    f->api.answer(get(2), read(2));
    store->conversation()->detail()->disappear();
  }

  void newMailIsShownWhereItCanBe() {
    load();
    auto& threads = *store->threads();
    const auto come = [this] {
      f->api.answer(list, page({}));
      Q_EMIT f->context->mailCame(u"2026-11-21T12:00:00Z"_s);
      f->api.expect(list);
      store->threads()->showNewMail();
      QVERIFY(!store->threads()->newMail());
    };
    f->api.expect(list);
    threads.setTab(u"archived"_s);
    come();
    QCOMPARE(query(), u"limit=50"_s);
    QCOMPARE(threads.tabName(), u"all"_s);
    f->api.expect(list);
    threads.setTab(u"unread"_s);
    f->api.expect(list);
    threads.setLabel(u"warm"_s);
    come();
    QCOMPARE(query(), u"limit=50&unread=1"_s);
  }

  void theTabCountsAsTheBadgesDo() {
    load(page({threadOf(1)}, u"second"_s));
    QSignalSpy counted(store->threads(), &ThreadList::countsChanged);
    // There is new mail, which the list does not have yet. A further page knows no better.
    f->context->setUnread(6);
    Q_EMIT f->context->mailCame(u"2026-11-21T12:00:00Z"_s);
    settle();
    QVERIFY(!counted.isEmpty());
    QCOMPARE(unreadInTab(), 6);
    f->api.expect(list);
    store->threads()->list()->loadMore();
    f->api.answer(list, page({threadOf(2)}));
    QCOMPARE(f->context->unread(), std::optional<qint64>(6));
    QCOMPARE(unreadInTab(), 6);
    f->api.expect(list);
    store->threads()->showNewMail();
    f->api.answer(list, page({threadOf(1)}, u"second"_s));
    QCOMPARE(unreadInTab(), 5);
    // Another number without mail: somebody has read elsewhere. Where the list cannot explain it, it is asked once.
    f->api.expect(list);
    f->context->setUnread(3);
    settle();
    f->api.answer(list, page({threadOf(1)}, u"second"_s));
    f->context->setUnread(3);
    settle();
    QCOMPARE(unreadInTab(), 3);
  }

  void newThreadsPushTheOthersDown() {
    QJsonArray first, second;
    for (int n = 1; n <= 50; ++n) first.append(threadOf(n));
    for (int n = 51; n <= 60; ++n) second.append(threadOf(n));
    load(page(first, u"second"_s));
    f->api.expect(list);
    store->threads()->list()->loadMore();
    QCOMPARE(query(), u"limit=50&cursor=second"_s);
    f->api.answer(list, page(second));
    QCOMPARE(shown().size(), 60);
    store->threads()->list()->see(0, 7);
    QJsonArray fresh;
    for (int n = 101; n <= 150; ++n) fresh.append(threadOf(n));
    f->api.expect(list);
    store->threads()->refresh();
    f->api.answer(list, page(fresh, u"pushed"_s));
    // What was there waits below, for nobody knows that it has gone.
    QCOMPARE(shown().size(), 110);
    QCOMPARE(shown().indexOf(id(1)), 50);
  }

  void theListSpeaksForWhatIsKept() {
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    store->conversation()->detail()->appear();
    // A message came: the conversation is read again by itself.
    f->api.expect(list);
    store->threads()->refresh();
    f->api.expect(get(1));
    f->api.answer(list, page({threadOf(1, {{u"messageCount"_s, 2}, {u"unread"_s, false}}), threadOf(2), threadOf(3)}));
    QCOMPARE(asked(get(1)), 2);
    store->conversation()->detail()->disappear();
  }

  void quotationsOpenOnDemand() {
    load();
    openLast();
    Conversation& open = *store->conversation();
    const auto parts = [&] {
      QStringList parts;
      for (const MessageRow& row : open.messages()->records()) parts.append(row.part);
      return parts.join(u' ');
    };
    QCOMPARE(parts(), u"head text fold"_s);
    open.fold(open.messages()->records().back().foldId);
    QCOMPARE(parts(), u"head text fold quote"_s);
    QCOMPARE(open.messages()->records().back().text, u"Ellen wrote:\n> Shall we?"_s);
  }

  void goingOnGivesTheSameRowsOtherTexts() {
    const auto message = [](const QString& id, const QString& body) {
      return QJsonObject{{u"id"_s, id},
                         {u"direction"_s, u"outbound"_s},
                         {u"state"_s, u"sent"_s},
                         {u"body"_s, body},
                         {u"at"_s, u"2026-11-20T10:00:00Z"_s}};
    };
    const QJsonObject third = threadOf(3, {{u"unread"_s, false}});
    load();
    openLast();
    ShownMessages rows;
    QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy other(&rows, &ShownMessages::conversationChanged), reset(&rows, &QAbstractItemModel::modelReset),
        removed(&rows, &QAbstractItemModel::rowsRemoved), inserted(&rows, &QAbstractItemModel::rowsInserted);
    const auto texts = [](const WrittenRows<MessageRow>& of) {
      QStringList texts;
      for (const MessageRow& row : of.records()) texts.append(row.part + u' ' + row.text + row.foldId);
      return texts;
    };
    const auto idsHere = [&rows] {
      QStringList ids;
      for (const MessageRow& row : rows.records()) ids.append(row.id);
      return ids;
    };
    rows.setConversation(store->conversation());
    const QStringList first = idsHere();
    inserted.clear();
    QCOMPARE(texts(rows), texts(*store->conversation()->messages()));
    // Longer by a message: what stood at the end stands there, and there are others above it.
    open(2,
         detailOf(threadOf(2, {{u"unread"_s, false}}), {}, {message(u"m2"_s, u"On Tuesday.\n\nEllen wrote:\n> Hm"_s)}),
         1);
    rows.setConversation(store->conversation());
    QCOMPARE(texts(rows), texts(*store->conversation()->messages()));
    QCOMPARE(idsHere().last(first.size()), first);
    QCOMPARE(inserted.takeFirst().at(1).toInt(), 0);
    QCOMPARE(inserted.size() + removed.size(), 0);
    // While it is open a row stands for one piece of it, whatever comes below or is unfolded.
    store->conversation()->fold(store->conversation()->messages()->records()[2].foldId);
    QCOMPARE(inserted.size(), 1);
    const QStringList unfolded = idsHere();
    ThreadDetail longer = *store->conversation()->detail()->value();
    longer.messages.append(longer.messages.last());
    longer.messages.last().id = u"m3"_s;
    store->conversation()->take(longer);
    QCOMPARE(idsHere().first(unfolded.size()), unfolded);
    QCOMPARE(texts(rows), texts(*store->conversation()->messages()));
    QCOMPARE(other.size(), 2);
    // Shorter again, and none at all.
    store->open(u"t3"_s);
    rows.setConversation(store->conversation());
    QCOMPARE(texts(rows), texts(*store->conversation()->messages()));
    QCOMPARE(reset.size(), 0);
    rows.setConversation(nullptr);
    QCOMPARE(rows.rowCount(), 0);
  }

  void sectionsHaveTheirPlace() {
    load();
    openLast();
    QSignalSpy moved(store, &Store::moved);
    store->setSection(u"drafts"_s);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(store->where().tab, u"drafts"_s);
    QCOMPARE(f->navigator.openedItem(Page::inbox), QString());
    // Every key stays offered, though not all can be used.
    QStringList keys;
    for (const PageAction& action : static_cast<Store*>(store)->actions())
      if (!action.keys.isEmpty()) keys.append(action.keys);
    for (const QString& key : {u"J"_s, u"K"_s, u"E"_s, u"U"_s, u"R"_s, u"L"_s, u"Ctrl+Return"_s, u"F5"_s})
      QCOMPARE(keys.count(key), 1);
    QVERIFY(!store->act(u"archive"_s));
    store->setSection(u"agent"_s);
    QCOMPARE(store->sectionName(), u"drafts"_s);
    store->showRecord(id(3));
    QCOMPARE(store->sectionName(), u"conversations"_s);
    QCOMPARE(f->navigator.openedItem(Page::inbox), id(3));
  }

  void aCampaignsNameIsOneThatItHas() {
    load();
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}, {u"campaignId"_s, u"c1"_s}})));
    const auto origin = [this] { return store->conversation()->origin().section(u" · "_s, 0, 0); };
    const auto read = [this](const QByteArray& items) {
      f->context->changes().stale<Campaign>(u"c1"_s);
      f->api.expect(campaigns);
      store->ensureLoaded();
      f->api.answer(campaigns, R"({"items":[)" + items + "]}");
    };
    read(R"({"id":"c1","name":"Old","status":"running","senders":1,"steps":1,"leads":1,"sent":0,"replied":0,)"
         R"("positive":0,"bounced":0,"createdAt":"2026-11-01T00:00:00Z"})");
    QCOMPARE(origin(), u"Old"_s);
    read({});
    QVERIFY2(origin() != u"Old"_s, qPrintable(origin()));
  }

  void whoMayNotWriteOnlyReads() {
    WorkspaceSummary workspace = f->context->workspace();
    workspace.role = Role(u"viewer"_s);
    f->context->setWorkspace(workspace);
    load();
    f->api.expect(get(3));
    store->open(id(3));
    f->api.answer(get(3), detailOf(threadOf(3), {draft(u"d1"_s, 3, u"Hi"_s)}));
    QCOMPARE(asked(patch(3)), 0);
    for (const QString& key : {u"archive"_s, u"unread"_s, u"reply"_s, u"approve"_s, u"generate"_s, u"check"_s})
      QVERIFY2(!store->act(key), qPrintable(key));
    store->send();
    store->setLabel(u"warm"_s);
  }

  void aContactThatCannotBeReadIsAskedForOnce() {
    const QString lead = u"GET /leads/l1"_s;
    load();
    openLast();
    const QByteArray known = detailOf(
        threadOf(1, {{u"unread"_s, false}, {u"lead"_s, QJsonObject{{u"id"_s, u"l1"_s}, {u"name"_s, u"Ana"_s}}}}));
    f->api.expect(get(1));
    store->open(id(1));
    f->api.answer(get(1), known);
    // The pane asks whenever something about the conversation has changed.
    Conversation* conversation = store->conversation();
    connect(conversation, &Conversation::changed, this, [conversation] { conversation->ensureContact(); });
    f->api.expect(lead);
    conversation->ensureContact();
    f->api.answer(lead, R"({"title":"Gone"})", 404);
    QCOMPARE(asked(lead), 1);
    f->api.expect(lead);
    f->api.expect(get(1));
    conversation->refresh();
    QCOMPARE(asked(lead), 2);
    LeadRecord record;
    record.id = u"l1"_s;
    f->api.answer(lead, encodeJSON(record));
    // Nor again and again once it is known and cannot be read anew; when there is a connection again, once.
    f->api.expect(lead);
    f->api.expect(get(1));
    conversation->refresh();
    f->api.fail(lead, TransportFailure::offline);
    conversation->setReplying(true);
    QCOMPARE(asked(lead), 3);
    f->api.expect(lead);
    f->api.answer(get(1), known);
    QCOMPARE(asked(lead), 4);
    f->api.fail(lead, TransportFailure::timedOut);
    QCOMPARE(asked(lead), 4);
    // Whose thread has none any more is nobody to ask for.
    f->api.expect(get(1));
    conversation->detail()->load();
    f->api.answer(get(1), detailOf(threadOf(1, {{u"unread"_s, false}, {u"lead"_s, QJsonValue()}})));
    f->api.expect(get(1));
    conversation->refresh();
    conversation->ensureLoaded();
    QCOMPARE(asked(lead), 4);
    f->api.answer(get(1), known);
  }

  void aDraftCanBeEditedAfterMemoryWasShort() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    life->writings.trim();
    QVERIFY(store->act(u"edit"_s));
    QVERIFY(store->conversation()->editing());
  }

  void theContactKeepsItsWidth() {
    QCOMPARE(store->leadsWidth(), 0);
    store->setLeadsWidth(900);
    QCOMPARE(store->leadsWidth(), InboxStore::mostLeadsWidth);
    store->setLeadsWidth(300);
    QCOMPARE(f->preferences.leadsWidth, 300);
  }

  void linksGoToTheBrowser() {
    f->browser.works = false;
    store->openLink(u"https://a.example/"_s);
    QCOMPARE(f->browser.opened, QList<QUrl>{QUrl(u"https://a.example/"_s)});
    QCOMPARE(toast(), u"Couldn’t open the link."_s);
  }
};

QTEST_GUILESS_MAIN(ConversationsTest)
#include "conversations_test.moc"
