#include <QSignalSpy>

#include "tests/app/inbox/InboxFixture.h"
#include "tests/support/cell.h"

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
  /// The service has taken it, as `sent`. The list is read again.
  void takeMine(const QJsonObject& sent) {
    f->api.expect(list);
    f->api.answer(reply(3), json({{u"draft"_s, sent}, {u"jobId"_s, u"j"_s}}));
    f->api.answer(list, page({threadOf(1), threadOf(2), threadOf(3, {{u"unread"_s, false}})}));
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
    takeMine(draft(u"d9"_s, 3, u"Tuesday at ten."_s, u"approved"_s));
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
    QTest::addColumn<QString>("madeInto");
    const QStringList none, d0{u"d0"_s}, d9{u"d9"_s};
    QTest::newRow("arrived") << none << d9 << true << QString();
    QTest::newRow("arrived, and is another text by now") << none << d9 << true << u"Mine. One more thing."_s;
    QTest::newRow("lost") << none << none << false << QString();
    QTest::newRow("lost, and is another text by now") << none << none << false << u"Mine. One more thing."_s;
    QTest::newRow("lost, but the same was said before") << d0 << d0 << false << QString();
    QTest::newRow("arrived, and was said before") << d0 << d0 + d9 << true << QString();
  }
  void anUnknownEndIsLookedUpFirst() {
    QFETCH(QStringList, before);
    QFETCH(QStringList, after);
    QFETCH(bool, arrived);
    QFETCH(QString, madeInto);
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

    if (!madeInto.isEmpty()) writing.setBody(madeInto);
    const QString text = writing.body();
    f->api.expect(get(3));
    store->send();
    QVERIFY(!writing.canSend());
    f->api.expect(arrived ? list : reply(3));
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}}), sent(after)));
    QCOMPARE(asked(reply(3)), arrived ? 1 : 2);
    QCOMPARE(writing.body(), arrived && madeInto.isEmpty() ? QString() : text);
    if (arrived) QCOMPARE(toast(), u"Your reply had been sent already."_s);
    if (!arrived) QCOMPARE(body(), (QJsonObject{{u"body"_s, text}}));
    if (!arrived) f->api.answer(reply(3), R"({"title":"No"})", 422);
    QVERIFY(!writing.uncertain());
  }

  void whatIsThrownAwayIsNotLookedUp() {
    load();
    openLast();
    for (const bool restored : {false, true}) {
      Writing& writing = writeMine();
      f->api.expect(list);
      f->api.fail(reply(3), NoAnswer(TransportFailure::timedOut, true));
      f->api.answer(list, page({threadOf(1), threadOf(2), threadOf(3, {{u"unread"_s, false}})}));
      QVERIFY(writing.uncertain());
      restored ? writing.recovery()->discard() : writing.discard();
      QVERIFY(!writing.uncertain());
    }
    writeMine();
    QCOMPARE(asked(get(3)), 1);
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
    // The text that was sent is looked for, and not what it has become.
    restored.setBody(u"Mine. One more thing."_s);
    f->api.expect(get(3));
    actions.send(*store->threads()->find(id(3)), nullptr, false);
    f->api.expect(list);
    const auto mine = [](const QString& which) { return draft(which, 3, u"Mine."_s, u"approved"_s); };
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}}), {mine(u"d0"_s), mine(u"d9"_s)}));
    QCOMPARE(asked(reply(3)), 1);
    QCOMPARE(toast(), u"Your reply had been sent already."_s);
    QCOMPARE(restored.body(), u"Mine. One more thing."_s);
    QVERIFY(!restored.uncertain());
  }

  void whatIsSentIsLookedForUntilItIsThere() {
    const auto read = [this](const QString& draftId, bool isThere) {
      QJsonObject one = draft(draftId, 3, u"Mine."_s, u"approved"_s);
      one.insert(u"dueAt"_s, u"2026-11-21T12:00:30Z"_s);
      const QJsonObject message{{u"id"_s, u"m9"_s},      {u"direction"_s, u"outbound"_s},
                                {u"state"_s, u"sent"_s}, {u"body"_s, u"Mine."_s},
                                {u"draftId"_s, draftId}, {u"at"_s, u"2026-11-21T12:00:30Z"_s}};
      f->api.answer(get(3),
                    detailOf(threadOf(3, {{u"unread"_s, false}}), {one}, isThere ? QJsonArray{message} : QJsonArray()));
    };
    const auto isRead = [&](const QString& draftId, bool isThere) {
      f->api.expect(get(3));
      f->clock.advance(5s);
      read(draftId, isThere);
    };
    load();
    openLast();
    Conversation& open = *store->conversation();
    open.detail()->appear();
    f->api.expect(get(3));
    open.refresh();
    read(u"d9"_s, false);
    QCOMPARE(open.outgoing(), QStringList());
    f->clock.advance(30s);
    QCOMPARE(open.outgoing(), QStringList{u"Sending to Contact 3"_s});
    isRead(u"d9"_s, false);
    isRead(u"d9"_s, true);
    QCOMPARE(open.outgoing(), QStringList());
    f->clock.advance(10min);
    QCOMPARE(asked(get(3)), 4);

    // Nobody asks without end.
    f->api.expect(get(3));
    open.refresh();
    read(u"d10"_s, false);
    for (int n = 0; n < Conversation::sendingPace.most; ++n) isRead(u"d10"_s, false);
    f->clock.advance(10min);

    // Nor for what nobody looks at, be its view still there.
    f->api.expect(get(3));
    open.refresh();
    read(u"d11"_s, false);
    isRead(u"d11"_s, false);
    f->api.expect(get(2));
    f->api.expect(get(3));
    store->step(-1);
    read(u"d11"_s, false);
    const int before = asked(get(3));
    f->clock.advance(10min);
    QCOMPARE(asked(get(3)), before);
    store->open(id(3));
    isRead(u"d11"_s, false);
    // Whoever comes back sees how it is.
    open.detail()->disappear();
    f->api.expect(get(2));
    store->step(-1);
    f->api.expect(get(3));
    store->open(id(3));
    read(u"d11"_s, true);
    QCOMPARE(open.outgoing(), QStringList());
  }

  void besideADraftItAsksFirst() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    QVERIFY(store->conversation()->hasDraft());
    store->conversation()->reply()->setBody(u"Mine."_s);
    store->send();
    QCOMPARE(f->overlays.title(), u"Reply anyway?"_s);
    QCOMPARE(f->overlays.confirmLabel(), u"Send email"_s);
    QCOMPARE(f->overlays.text(), u"An AI draft is waiting in this conversation. Your reply takes its place."_s);
    f->overlays.answer(f->overlays.token(), false);
    QCOMPARE(store->conversation()->reply()->body(), u"Mine."_s);
    store->send();
    f->api.expect(reply(3));
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(store->conversation()->reply()->sending());
    // The review has one draft less.
    bool isTold = false;
    f->context->changes().watch<Draft>(store, [&isTold](const auto& change) { isTold |= change.record == nullptr; });
    takeMine(draft(u"d9"_s, 3, u"Mine."_s, u"approved"_s));
    QVERIFY(isTold);
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
    const QString said = cell(store->threads()->rows(), 1, "said").toString();
    QVERIFY2(said.endsWith(u", Not sent, Yesterday"_s), qPrintable(said));
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
    f->api.expect(list);
    f->api.answer(ask, json(draft(u"d2"_s, 3, u"Dear Contact"_s)));
    f->api.answer(list, page({threadOf(1), threadOf(2), threadOf(3, {{u"unread"_s, false}})}));
    QCOMPARE(f->toasts.count(), 0);
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

  void aDraftThatIsWrittenMeanwhileIsTold() {
    load();
    openLast();
    const auto ask = u"POST /inbox/threads/t3/draft"_s;
    f->api.expect(ask);
    store->act(u"generate"_s);
    f->api.expect(get(2));
    store->step(-1);
    f->api.expect(list);
    f->api.answer(ask, json(draft(u"d1"_s, 3, u"Hi"_s)));
    f->api.answer(list, page({threadOf(1), threadOf(2), threadOf(3, {{u"pendingDrafts"_s, 1}})}));
    QVERIFY(cell(store->threads()->rows(), 2, "draftReady").toBool());
    QCOMPARE(toast(), u"The draft for Contact 3 is ready"_s);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->navigator.item, id(3));
  }

  void aDraftReadsAsItIsSent() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    Conversation& open = *store->conversation();
    const auto& type = Conversation::staticMetaObject;
    QSignalSpy told(&open, type.property(type.indexOfProperty("draftText")).notifySignal());
    const auto reads = [&](const QString& text) {
      const bool isTold = !told.isEmpty();
      told.clear();
      return isTold && open.draftText() == text;
    };
    open.edit()->setBody(u"Hello"_s);
    QVERIFY(reads(u"Hello"_s));
    open.edit()->discard();
    QVERIFY(reads(u"Hi"_s));
    // In the review, it is given a style; then the agent writes it anew, which this conversation has not heard of.
    Draft draft = *open.draft();
    open.edit()->begin(u"Hey!"_s, draft.body);
    QVERIFY(reads(u"Hey!"_s));
    draft.body = u"Hi again"_s;
    life->writings.edit(draft, u"Contact 3"_s);
    InboxThread thread = *open.thread();
    thread.label = ThreadLabel(u"warm"_s);
    f->context->changes().publish(thread, f->context->changes().stamp(), false);
    QCOMPARE(open.label(), u"warm"_s);
    QVERIFY(reads(u"Hi again"_s));
    QVERIFY(store->act(u"approve"_s));
    QCOMPARE(life->desk.approved.last().draft.body, u"Hi again"_s);
    // It has heard of it, and the memory was short.
    f->context->changes().publish(draft, f->context->changes().stamp(), false);
    store->trim();
    QVERIFY(open.edit());
    QVERIFY(reads(u"Hi again"_s));
  }
};

QTEST_GUILESS_MAIN(RepliesTest)
#include "replies_test.moc"
