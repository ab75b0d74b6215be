#include "tests/app/inbox/InboxFixture.h"

using namespace orv;
using namespace orv::test;

/// What a person answers, and what the agent drafted for them.
class RepliesTest : public InboxFixture {
  Q_OBJECT

  /// A reply to what is open, under way.
  Writing& writeMine() {
    Writing& writing = *store->conversation()->reply();
    writing.setBody(u"Mine."_s);
    f->api.expect(reply(3));
    store->send();
    return writing;
  }

 private Q_SLOTS:
  void init() { begin(); }
  void cleanup() { life.reset(); }

  void aReplyGoesOutOnce() {
    load();
    openLast();
    store->act(u"reply"_s);
    Writing& writing = *store->conversation()->reply();
    writing.setBody(u"Tuesday at ten."_s);
    writing.setCc(u"a@x.example, nobody"_s);
    QVERIFY(!store->act(u"send"_s));
    QCOMPARE(writing.ccProblem(), u"“nobody” is not an email address"_s);
    writing.setCc(u"a@x.example, b@y.example"_s);
    f->api.expect(reply(3));
    QVERIFY(store->act(u"send"_s));
    QVERIFY(!store->act(u"send"_s));
    QCOMPARE(body(), (QJsonObject{{u"body"_s, u"Tuesday at ten."_s},
                                  {u"cc"_s, QJsonArray{u"a@x.example"_s, u"b@y.example"_s}}}));
    f->api.answer(reply(3),
                  json({{u"draft"_s, draft(u"d9"_s, 3, u"Tuesday at ten."_s, u"approved"_s)}, {u"jobId"_s, u"j"_s}}));
    QCOMPARE(toast(), u"Sending to Contact 3 from ellen@a.example"_s);
    QCOMPARE(writing.body(), QString());
    QVERIFY(!store->conversation()->replying());
    QCOMPARE(store->conversation()->outgoing(), QStringList{u"Sending to Contact 3"_s});
  }

  void aRefusedReplyKeepsItsText() {
    load();
    openLast();
    Writing& writing = writeMine();
    f->api.answer(reply(3), R"({"title":"Too large"})", 422);
    QCOMPARE(toast(), u"Couldn’t send."_s);
    QCOMPARE(writing.body(), u"Mine."_s);
    QVERIFY(!writing.uncertain());
    QVERIFY(writing.canSend());
  }

  void anUnknownEndIsLookedUpFirst_data() {
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("after");
    QTest::addColumn<bool>("arrived");
    QTest::newRow("arrived") << QStringList() << QStringList{u"d9"_s} << true;
    QTest::newRow("lost") << QStringList() << QStringList() << false;
    QTest::newRow("lost, but the same was said before") << QStringList{u"d0"_s} << QStringList{u"d0"_s} << false;
    QTest::newRow("arrived, and was said before") << QStringList{u"d0"_s} << QStringList{u"d0"_s, u"d9"_s} << true;
  }
  void anUnknownEndIsLookedUpFirst() {
    QFETCH(QStringList, before);
    QFETCH(QStringList, after);
    QFETCH(bool, arrived);
    const auto sent = [](const QStringList& ids) {
      QJsonArray drafts;
      for (const QString& each : ids) drafts.append(draft(each, 3, u"Mine.\n"_s, u"approved"_s));
      return drafts;
    };
    load();
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}}), sent(before)));
    Writing& writing = writeMine();
    f->api.expect(list);
    f->api.fail(reply(3), NoAnswer(TransportFailure::timedOut, true));
    QVERIFY(writing.uncertain());
    QCOMPARE(writing.body(), u"Mine."_s);
    f->api.answer(list, page({threadOf(1), threadOf(2), threadOf(3, {{u"unread"_s, false}})}));

    f->api.expect(get(3));
    store->send();
    QVERIFY(!writing.canSend());
    if (!arrived) f->api.expect(reply(3));
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}}), sent(after)));
    QCOMPARE(asked(reply(3)), arrived ? 1 : 2);
    QCOMPARE(writing.body(), arrived ? QString() : u"Mine."_s);
    if (arrived) QCOMPARE(toast(), u"Your reply had been sent already."_s);
    if (!arrived) f->api.answer(reply(3), R"({"title":"No"})", 422);
    QVERIFY(!writing.uncertain());
  }

  void anUnknownEndIsKnownToTheNextRun() {
    f->journal.open({u"u1"_s, {}});
    settle();
    load();
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}}), {draft(u"d0"_s, 3, u"Mine."_s, u"approved"_s)}));
    writeMine();
    // The machine stops while it is on its way.
    Writings later(*f->context);
    Writing& restored = *later.reply(id(3), u"Contact 3"_s);
    settle();
    QCOMPARE(restored.body(), u"Mine."_s);
    QVERIFY(restored.uncertain());
    ThreadList threads(*f->context, nullptr);
    ThreadActions actions(*f->context, nullptr, threads, later);
    f->api.expect(get(3));
    actions.send(*store->threads()->find(id(3)), nullptr, false);
    const auto mine = [](const QString& which) { return draft(which, 3, u"Mine."_s, u"approved"_s); };
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}}), {mine(u"d0"_s), mine(u"d9"_s)}));
    QCOMPARE(asked(reply(3)), 1);
    QCOMPARE(toast(), u"Your reply had been sent already."_s);
    QCOMPARE(restored.body(), QString());
  }

  void besideADraftItAsksFirst() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    QVERIFY(store->conversation()->hasDraft());
    store->conversation()->reply()->setBody(u"Mine."_s);
    store->send();
    QCOMPARE(f->overlays.title(), u"Reply anyway?"_s);
    QCOMPARE(f->overlays.confirmLabel(), u"Send email"_s);
    f->overlays.answer(f->overlays.token(), false);
    QCOMPARE(store->conversation()->reply()->body(), u"Mine."_s);
    store->send();
    f->api.expect(reply(3));
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(store->conversation()->reply()->sending());
  }

  void textsAreKeptByThread() {
    f->journal.open({u"u1"_s, {}});
    settle();
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    store->act(u"reply"_s);
    store->conversation()->reply()->setBody(u"To the first"_s);
    f->api.expect(get(3));
    store->step(1);
    store->conversation()->reply()->setBody(u"To the second"_s);
    store->step(-1);
    QCOMPARE(store->conversation()->reply()->body(), u"To the first"_s);
    QVERIFY(store->threads()->rows().isWritten(id(2)));
    QCOMPARE(life->writings.unsavedWork(),
             (QStringList{u"Your reply to Contact 1 was not sent."_s, u"Your reply to Contact 2 was not sent."_s}));
    f->clock.advance(1s);

    // The next run.
    Writings later(*f->context);
    Writing* restored = later.reply(id(2), u"Contact 2"_s);
    settle();
    QCOMPARE(restored->body(), u"To the second"_s);
    QVERIFY(!restored->recovery()->notice().isEmpty());
    restored->discard();
    QCOMPARE(f->journal.entries().size(), 1);
  }

  void draftsAreDecidedAtTheDesk() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    Conversation& open = *store->conversation();
    QCOMPARE(open.draftTitle(), u"The AI’s draft, ready for you."_s);
    QVERIFY(store->act(u"edit"_s));
    open.edit()->setBody(u"Hello"_s);
    QVERIFY(store->act(u"approve"_s));
    QCOMPARE(life->desk.approved.first().thread.id, id(3));
    QCOMPARE(life->writings.editOf(life->desk.approved.first().draft), std::optional(u"Hello"_s));
    QVERIFY(store->act(u"skip"_s));
    QCOMPARE(life->desk.skipped, QStringList{u"d1"_s});
    // The decision's answer takes the draft away, and the thread is read again.
    open.detail()->appear();
    f->api.expect(get(3));
    Draft decided = *open.draft();
    decided.status = u"approved"_s;
    f->context->changes().publish(decided, f->context->changes().stamp(), true);
    QVERIFY(!open.hasDraft());
    open.detail()->disappear();
  }

  void anotherDraftIsAskedFor() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    const auto ask = u"POST /inbox/threads/t3/draft"_s;
    store->conversation()->edit()->setBody(u"Hi there"_s);
    QVERIFY(store->act(u"generate"_s));
    QCOMPARE(f->overlays.text(), u"Your edit of this draft is discarded."_s);
    f->api.expect(ask);
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(store->generating());
    QVERIFY(!store->act(u"generate"_s));
    f->api.answer(ask, json(draft(u"d2"_s, 3, u"Dear Contact"_s)));
    QVERIFY(!store->generating());
    QCOMPARE(store->conversation()->draftText(), u"Dear Contact"_s);
    QVERIFY(life->writings.unsavedWork().isEmpty());

    // One that may have been written without an answer is news to whoever shows or counts drafts.
    bool isTold = false;
    f->context->changes().watch<Draft>(store, [&isTold](const auto& change) { isTold = change.acted; });
    f->api.expect(ask);
    QVERIFY(store->act(u"generate"_s));
    f->api.expect(list);
    f->api.fail(ask, TransportFailure::timedOut);
    QVERIFY(isTold);
  }
};

QTEST_GUILESS_MAIN(RepliesTest)
#include "replies_test.moc"
