#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include "app/inbox/DraftsStore.h"
#include "app/inbox/InboxStore.h"
#include "tests/app/inbox/ReviewService.h"
#include "tests/support/AppFixture.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Fault = ReviewService::Fault;

/// The review of a workspace, and the service that it talks to.
struct Review : AppFixture {
  explicit Review(int drafts = 3) : service(clock) {
    for (int n = 1; n <= drafts; ++n) service.add(u"d%1"_s.arg(n));
    journal.open({u"u1"_s, {}});
    settle();
    store = std::make_unique<DraftsStore>(*own, writings);
    store->appear();
    store->ensureLoaded();
    service.run();
  }
  ~Review() {
    store->close();
    settle();
  }

  ReviewService service;
  std::shared_ptr<WorkspaceContext> own =
      std::make_shared<WorkspaceContext>(context->workspace(), QString(), service, services, [] {});
  Writings writings{*own};
  std::unique_ptr<DraftsStore> store;

  DraftQueue& queue() { return *store->queue(); }
  DraftDecisions& decisions() { return *store->decisions(); }
  QString picked() { return queue().picked(); }
  QStringList shown() {
    QStringList ids;
    for (const QString& id : service.pending())
      if (queue().find(id)) ids.append(id);
    return ids;
  }
  QStringList done() {
    QStringList ids;
    for (const auto& decision : decisions().done()) ids.append(decision.item.draft.id);
    return ids;
  }
  void act(const QString& key) {
    clock.advance(300ms);
    store->act(key);
    settle();
  }
  void decide(const QString& key) {
    act(key);
    service.run();
  }
  /// Decides, has the answer lost, and nobody finds out what became of it.
  void decideInDoubt(const QString& key) {
    const QString id = picked();
    act(key);
    service.answer(u"POST /inbox/drafts/%1/%2"_s.arg(id, key == u"skip"_s ? u"reject"_s : key), Fault::lostAnswer);
    service.run(Fault::broken);
  }
  static QStringList saidOf(DraftsStore& review) {
    QStringList lines;
    for (const DraftLeftoverRow& row : review.leftovers()->rows()->records()) lines.append(row.text);
    return lines;
  }
  QString lastToast() const { return toasts.toasts().isEmpty() ? QString() : toasts.toasts().last().message; }
};

QString post(const QString& id, const QString& verb) { return u"POST /inbox/drafts/%1/%2"_s.arg(id, verb); }

/// What training ends in: a rule that rewrote one of the drafts.
QJsonObject briefRule() {
  const char* const answer = R"({"done":true,"lesson":{"id":"l1","text":"Be brief.","times":1},"refreshed":1})";
  return QJsonDocument::fromJson(answer).object();
}

}  // namespace

class ReviewTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void oneDraftAtATime() {
    Review f;
    QCOMPARE(f.picked(), u"d1"_s);
    QCOMPARE(f.queue().positionText(), u"1 of 3 waiting"_s);
    f.act(u"next"_s);
    f.act(u"next"_s);
    QCOMPARE(f.queue().positionText(), u"3 of 3 waiting"_s);
    QVERIFY(!f.queue().hasNext());
    f.act(u"previous"_s);
    QCOMPARE(f.picked(), u"d2"_s);
    QVERIFY(!f.queue().forward());
    // What comes after it is shown, else what came before.
    f.decide(u"skip"_s);
    QCOMPARE(f.picked(), u"d3"_s);
    f.decide(u"skip"_s);
    QCOMPARE(f.picked(), u"d1"_s);
    f.decide(u"approve"_s);
    QCOMPARE(f.picked(), QString());
    QCOMPARE(f.queue().list()->stateName(), ResourceBase::State::Empty);
  }

  void anApprovalSendsWhatIsShown() {
    Review f;
    f.decide(u"approve"_s);
    QJsonObject body = f.service.lastBody(post(u"d1"_s, u"approve"_s));
    QCOMPARE(body, (QJsonObject{{u"subject"_s, u"Re: Slots"_s}, {u"undo"_s, true}}));

    f.store->writing()->setBody(u"My own words"_s);
    QCOMPARE(f.store->approveText(), u"Approve your edit ⌘↵"_s);
    f.decide(u"approve"_s);
    body = f.service.lastBody(post(u"d2"_s, u"approve"_s));
    QCOMPARE(body[u"body"_s], QJsonValue(u"My own words"_s));
    QVERIFY(!body.contains(u"style"_s));

    f.store->chooseStyle(u"casual"_s);
    f.service.run();
    QCOMPARE(f.store->writing()->body(), u"Hey!"_s);
    f.decide(u"approve"_s);
    body = f.service.lastBody(post(u"d3"_s, u"approve"_s));
    QCOMPARE(body[u"style"_s], QJsonValue(u"casual"_s));
    QVERIFY(!body.contains(u"body"_s));
  }

  void stylesAreAskedForOnce() {
    Review f;
    for (const auto* style : {"casual", "original", "casual"}) {
      f.store->chooseStyle(QString::fromLatin1(style));
      f.service.run();
    }
    QCOMPARE(f.service.count(post(u"d1"_s, u"versions"_s)), 1);
    QCOMPARE(f.store->style(), u"casual"_s);
    // What could not be written is not chosen, and may be asked for again.
    f.act(u"next"_s);
    f.store->chooseStyle(u"casual"_s);
    f.service.run(Fault::broken);
    QCOMPARE(f.store->style(), u"original"_s);
    f.store->chooseStyle(u"casual"_s);
    f.service.run();
    QCOMPARE(f.store->writing()->body(), u"Hey!"_s);
  }

  void anotherStyleAsksBeforeItTakesAnEditsPlace() {
    Review f;
    f.store->writing()->setBody(u"Mine"_s);
    const auto choose = [&f](bool replaces) {
      f.store->chooseStyle(u"casual"_s);
      QVERIFY(f.overlays.asking());
      f.overlays.answer(f.overlays.token(), replaces);
      settle();
    };
    choose(false);
    QCOMPARE(f.store->writing()->body(), u"Mine"_s);
    QCOMPARE(f.store->style(), u"original"_s);
    // Nothing takes its place where the style cannot be written, nor when the person has gone on.
    choose(true);
    f.service.run(Fault::broken);
    QCOMPARE(f.store->writing()->body(), u"Mine"_s);
    choose(true);
    QCOMPARE(f.store->style(), u"casual"_s);
    f.store->writing()->setBody(u"Mine, and more"_s);
    f.service.run();
    QCOMPARE(f.store->writing()->body(), u"Mine, and more"_s);
    QCOMPARE(f.store->style(), u"original"_s);
    choose(true);
    QCOMPARE(f.store->writing()->body(), u"Hey!"_s);
    QCOMPARE(f.store->style(), u"casual"_s);
    QVERIFY(!f.store->edited());
  }

  void whatIsNewComesByItself() {
    Review f(1);
    f.queue().list()->appear();
    f.store->writing()->setBody(u"Mine"_s);
    // With the mail that it answers, or a little later.
    f.service.add(u"d2"_s);
    Q_EMIT f.own->mailCame({});
    f.service.run();
    QVERIFY(f.queue().find(u"d2"_s));
    f.service.add(u"d3"_s);
    f.clock.advance(DraftQueue::writing);
    f.service.run();
    QVERIFY(f.queue().find(u"d3"_s));
    // Without any mail the count of conversations knows.
    f.service.add(u"d4"_s);
    f.queue().expect(3);
    QVERIFY(f.service.isIdle());
    f.queue().expect(4);
    f.service.run();
    QVERIFY(f.queue().find(u"d4"_s));
    QCOMPARE(f.picked(), u"d1"_s);
    QCOMPARE(f.store->writing()->body(), u"Mine"_s);

    // What was said since in the conversation that is shown.
    const auto thread = u"GET /inbox/threads/t-d1"_s;
    f.store->conversation()->detail()->appear();
    f.service.run();
    const int before = f.service.count(thread);
    f.service.say(u"d1"_s);
    f.queue().list()->load();
    f.service.run();
    QCOMPARE(f.service.count(thread), before + 1);
  }

  void aRuleRewritesWhatWaits() {
    Review f;
    f.service.trainingAfter = 0;
    f.service.training = briefRule();
    f.queue().list()->appear();
    f.store->conversation()->detail()->appear();
    f.store->chooseStyle(u"casual"_s);
    f.service.run();
    f.store->skip(*f.queue().find(u"d2"_s));
    f.service.run();
    f.service.write(u"d1"_s, u"Short."_s);
    f.clock.advance(2s);
    f.service.run();
    // What is approved is what is shown, here as in the conversation.
    QCOMPARE(f.store->writing()->body(), u"Short."_s);
    QCOMPARE(f.store->conversation()->draft()->body, u"Short."_s);
    QCOMPARE(f.store->style(), u"original"_s);
    f.decide(u"approve"_s);
    QVERIFY(!f.service.lastBody(post(u"d1"_s, u"approve"_s)).contains(u"style"_s));
  }

  void aMinuteToTakeItBack_data() {
    QTest::addColumn<QString>("verb");
    QTest::addColumn<bool>("asleep");
    for (const bool asleep : {false, true}) {
      QTest::addRow("approval%s", asleep ? ", machine asleep" : "") << u"approve"_s << asleep;
      QTest::addRow("skip%s", asleep ? ", machine asleep" : "") << u"skip"_s << asleep;
    }
  }
  void aMinuteToTakeItBack() {
    QFETCH(QString, verb);
    QFETCH(bool, asleep);
    const QString undoing = post(u"d1"_s, verb == u"skip"_s ? u"restore"_s : u"undo-approve"_s);
    for (const auto age : {59s, 60s}) {
      Review f;
      f.decide(verb);
      asleep ? f.clock.jump(age) : f.clock.advance(age);
      f.service.run();
      f.decisions().undo(u"d1"_s);
      f.service.run();
      const bool inTime = age == 59s;
      QCOMPARE(f.service.count(undoing), inTime ? 1 : 0);
      QCOMPARE(f.picked(), inTime ? u"d1"_s : u"d2"_s);
      QCOMPARE(f.store->undone(), inTime);
      QCOMPARE(f.done(), QStringList());
    }
  }

  void whatIsBeingTakenBackIsWaitedFor() {
    Review f;
    f.decide(u"approve"_s);
    QVERIFY(f.decisions().unsavedWork().isEmpty());
    f.decisions().undo(u"d1"_s);
    QVERIFY2(!f.decisions().unsavedWork().isEmpty(), "who closes the window now would have it sent");
    f.service.run();
    QVERIFY(f.decisions().unsavedWork().isEmpty());
    QCOMPARE(f.service.status(u"d1"_s), u"pending"_s);
  }

  void anEditComesBackWithItsDraft() {
    Review f;
    f.store->writing()->setBody(u"Mine"_s);
    f.decide(u"approve"_s);
    f.act(u"undo"_s);
    f.service.run();
    QCOMPARE(f.picked(), u"d1"_s);
    QCOMPARE(f.store->writing()->body(), u"Mine"_s);
    QVERIFY(!f.store->writing()->sending());
    // Out for good, it is nobody's unsaved work.
    f.decide(u"approve"_s);
    QCOMPARE(f.writings.unsavedWork(), QStringList());
    f.clock.advance(61s);
    f.service.run();
    QCOMPARE(f.writings.unsavedWork(), QStringList());
    QVERIFY(!f.writings.editOf({.id = u"d1"_s, .threadId = u"t-d1"_s}));
  }

  void aDraftIsApprovedAfterMemoryWasShort() {
    Review f;
    f.writings.trim();
    f.store->ensureLoaded();
    QVERIFY(f.store->canApprove());
    QVERIFY(f.store->conversation()->edit());
    f.decide(u"approve"_s);
    QCOMPARE(f.service.status(u"d1"_s), u"approved"_s);
  }

  void theListTicks() {
    Review f;
    f.decide(u"approve"_s);
    const auto seconds = [&] { return f.decisions().rows()->records().front().seconds.toInt(); };
    const int first = seconds();
    QCOMPARE(f.decisions().rows()->records().front().text, u"Sending to d1@b.example"_s);
    f.clock.advance(10s);
    QCOMPARE(seconds(), first - 10);
  }

  void aFailureGivesTheDraftBack_data() {
    QTest::addColumn<int>("fault");
    QTest::addColumn<QString>("status");
    QTest::newRow("refused") << int(Fault::refused) << u"pending"_s;
    QTest::newRow("nothing came through") << int(Fault::lostRequest) << u"pending"_s;
    QTest::newRow("its fault") << int(Fault::broken) << u"pending"_s;
    QTest::newRow("came through after all") << int(Fault::lostAnswer) << u"approved"_s;
  }
  void aFailureGivesTheDraftBack() {
    QFETCH(int, fault);
    QFETCH(QString, status);
    Review f;
    f.store->writing()->setBody(u"Mine"_s);
    f.act(u"approve"_s);
    QCOMPARE(f.picked(), u"d2"_s);
    f.service.answer(post(u"d1"_s, u"approve"_s), Fault(fault));
    f.service.run();
    const bool isBack = status == u"pending"_s;
    QCOMPARE(f.service.status(u"d1"_s), status);
    QCOMPARE(f.done(), isBack ? QStringList() : QStringList{u"d1"_s});
    QCOMPARE(f.queue().find(u"d1"_s) != nullptr, isBack);
    // Nobody is taken away from what they look at by now.
    QCOMPARE(f.picked(), u"d2"_s);
    QCOMPARE(f.lastToast(), isBack ? u"Couldn’t approve the draft."_s : QString());
    QCOMPARE(f.writings.editOf({.id = u"d1"_s, .threadId = u"t-d1"_s}).has_value(), isBack);
  }

  void nothingIsSentTwiceUnseen_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("again");
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("told");
    const auto already = u"This draft was decided already."_s;
    QTest::newRow("approved again") << u"approve"_s << true << u"Mine"_s << already;
    QTest::newRow("skipped again") << u"skip"_s << true << u"Hello d1"_s << already;
    QTest::newRow("gone from the list") << u"approve"_s << false << u"Mine"_s << already;
    QTest::newRow("with another text, approved again") << u"approve"_s << true << u"Theirs"_s << already;
    QTest::newRow("with another text, gone")
        << u"approve"_s << false << u"Theirs"_s << u"Somebody else decided the draft for d1@b.example"_s;
  }
  void nothingIsSentTwiceUnseen() {
    QFETCH(QString, key);
    QFETCH(bool, again);
    QFETCH(QString, sent);
    Review f;
    f.store->writing()->setBody(u"Mine"_s);
    f.decideInDoubt(key);
    const ReviewDraft* back = f.queue().find(u"d1"_s);
    QVERIFY(back);
    QVERIFY(f.writings.findEdit(back->draft)->uncertain());
    f.service.send(u"d1"_s, sent);
    if (!again)
      f.store->refresh();
    else
      key == u"skip"_s ? f.store->skip(*back) : f.store->approve(*back);
    f.service.run();
    QCOMPARE(f.service.count(post(u"d1"_s, key == u"skip"_s ? u"reject"_s : key)), 1);
    QVERIFY(!f.queue().find(u"d1"_s));
    QTEST(f.lastToast(), "told");
    // What went out, or was skipped, is nobody's unsaved work. What did not is, and stays in sight.
    const bool isLeft = sent == u"Theirs"_s;
    QVERIFY(!f.writings.findEdit({.id = u"d1"_s, .threadId = u"t-d1"_s})->sending());
    QCOMPARE(f.writings.unsavedWork().isEmpty(), !isLeft);
    QCOMPARE(f.saidOf(*f.store), isLeft ? QStringList{u"Your edit was not sent: Mine"_s} : QStringList());
  }

  void whatWasDecidedWithoutItStaysUntilItIsThrownAway() {
    Review f(4);
    f.store->writing()->setBody(u"Mine"_s);
    f.service.set(u"d1"_s, u"approved"_s);
    f.act(u"refresh"_s);
    f.service.run();
    // While it is shown, it stands there.
    QCOMPARE(f.saidOf(*f.store), QStringList());
    f.act(u"next"_s);
    QCOMPARE(f.saidOf(*f.store), QStringList{u"Your edit was not sent: Mine"_s});
    f.decide(u"skip"_s);
    f.store->reason()->ask(u"d2"_s);
    f.store->reason()->draft()->set(u"reason"_s, u"Too long"_s);
    QCOMPARE(f.picked(), u"d3"_s);
    f.store->writing()->setBody(u"Its draft waits"_s);
    f.clock.advance(1s);

    // The next run: one that nobody leads to the drafts.
    Writings writings(*f.own);
    DraftsStore later(*f.own, writings);
    f.service.run();
    QCOMPARE(f.saidOf(later),
             (QStringList{u"Your edit was not sent: Mine"_s, u"Why you skipped a draft was not told: Too long"_s}));
    const QString edit = later.leftovers()->rows()->records()[0].id;
    const QString reason = later.leftovers()->rows()->records()[1].id;
    later.leftovers()->copy(reason);
    QCOMPARE(f.clipboard.text, u"Too long"_s);
    later.leftovers()->discard(reason);
    QCOMPARE(f.saidOf(later), QStringList{u"Your edit was not sent: Mine"_s});
    later.close();
    settle();

    // In the same run the text is still held open.
    f.store->leftovers()->discard(edit);
    QCOMPARE(f.saidOf(*f.store), QStringList());
    QCOMPARE(f.writings.unsavedWork().size(), 1);
    QCOMPARE(f.journal.entries().size(), 1);
  }

  void whatMayHaveBeenSentSaysSo() {
    for (const bool stops : {true, false}) {
      Review f;
      f.store->writing()->setBody(u"Mine"_s);
      if (stops) {
        // The machine, while it is on its way.
        f.act(u"approve"_s);
        f.service.set(u"d1"_s, u"approved"_s);
      } else {
        f.decideInDoubt(u"approve"_s);
      }
      Writings writings(*f.own);
      DraftsStore later(*f.own, writings);
      f.service.answer(u"GET /inbox/drafts"_s, Fault::none);
      QCOMPARE(f.saidOf(later), QStringList{u"Your edit may not have been sent: Mine"_s});
      later.close();
      settle();
    }
  }

  void whatWaitsAgainIsNoLeftover() {
    Review f;
    InboxStore inbox(*f.own, f.writings, f.store.get(), nullptr);
    f.store->writing()->setBody(u"Mine"_s);
    f.service.set(u"d1"_s, u"approved"_s);
    f.act(u"refresh"_s);
    f.service.run();
    f.act(u"next"_s);
    const QStringList left{u"Your edit was not sent: Mine"_s};
    QCOMPARE(f.saidOf(*f.store), left);
    // What a field shows is not thrown away from elsewhere.
    Writing& writing = *f.writings.findEdit({.id = u"d1"_s, .threadId = u"t-d1"_s});
    writing.appear();
    f.store->leftovers()->discard(f.store->leftovers()->rows()->records()[0].id);
    QCOMPARE(writing.body(), u"Mine"_s);
    writing.disappear();
    f.act(u"refresh"_s);
    f.service.run();
    QCOMPARE(f.saidOf(*f.store), left);

    f.service.set(u"d1"_s, u"pending"_s);
    inbox.open(u"t-d1"_s);
    f.service.run();
    QCOMPARE(f.saidOf(*f.store), QStringList());
    QVERIFY(f.queue().find(u"d1"_s));
    // A list that goes on cannot tell, however often it is asked.
    f.service.more = true;
    f.service.set(u"d1"_s, u"approved"_s);
    const int before = f.service.count(u"GET /inbox/drafts"_s);
    for (int n = 0; n < 3; ++n) {
      inbox.conversation()->refresh();
      f.service.run();
    }
    QCOMPARE(f.service.count(u"GET /inbox/drafts"_s), before + 1);
  }

  void aNewerDraftTakesNothingOutOfAnybodysHands() {
    Review f;
    InboxStore inbox(*f.own, f.writings, f.store.get(), nullptr);
    inbox.open(u"t-d2"_s);
    f.service.run();
    Conversation& open = *inbox.conversation();
    open.setEditing(true);
    open.edit()->setBody(u"Mine"_s);
    f.service.add(u"d9"_s, u"pending"_s, u"d2"_s);
    open.refresh();
    f.service.run();
    QCOMPARE(open.draft()->id, u"d2"_s);
    QCOMPARE(open.edit()->body(), u"Mine"_s);
    QVERIFY(open.editing());
    // Nothing is left of it to keep.
    open.edit()->discard();
    QCOMPARE(open.draft()->id, u"d9"_s);
    QCOMPARE(open.edit()->body(), u"Hello d9"_s);
    QVERIFY(!open.editing());

    open.edit()->setBody(u"Mine as well"_s);
    f.service.set(u"d9"_s, u"rejected"_s);
    open.refresh();
    f.service.run();
    QCOMPARE(open.edit()->body(), u"Hello d2"_s);
    QCOMPARE(f.toasts.count(), 1);
    QCOMPARE(f.lastToast(), u"Somebody else decided the draft for d2@b.example"_s);
    f.toasts.act(f.toasts.toasts().last().id);
    QCOMPARE(f.clipboard.text, u"Mine as well"_s);
    QCOMPARE(f.saidOf(*f.store), QStringList{u"Your edit was not sent: Mine as well"_s});
  }

  void goingOnShowsWhatWasReadAhead() {
    Review f;
    f.act(u"next"_s);
    // Since the list was read.
    f.service.say(u"d3"_s);
    f.service.run();
    f.act(u"next"_s);
    QCOMPARE(f.store->conversation()->thread()->messageCount, 2);
  }

  void conversationsCountThemWithoutBeingSeen() {
    Review f;
    InboxStore inbox(*f.own, f.writings, f.store.get(), nullptr);
    inbox.ensureLoaded();
    f.service.run();
    const auto list = u"GET /inbox/threads"_s;
    const auto count = [&] { return inbox.threads()->draftCount(); };
    QCOMPARE(count(), 3);
    f.decide(u"approve"_s);
    QCOMPARE(count(), 2);
    f.act(u"skip"_s);
    f.service.run(Fault::refused);
    QCOMPARE(count(), 2);
    // One that stands on a page nobody has read, and the other.
    f.decide(u"skip"_s);
    f.decide(u"skip"_s);
    QCOMPARE(count(), 0);
    f.act(u"undo"_s);
    f.service.run();
    QCOMPARE(count(), 1);
    QCOMPARE(f.service.count(list), 1);
    // And what the service says of it then is no other.
    inbox.threads()->refresh();
    f.service.run();
    QCOMPARE(count(), 1);
  }

  void aHeldKeyDecidesOnce() {
    Review f;
    f.clock.advance(1s);
    for (int press = 0; press < 5; ++press) f.store->act(u"approve"_s);
    f.service.run();
    QCOMPARE(f.service.pending().size(), 2);
  }

  void aReasonIsASecondRejection() {
    Review f;
    f.decide(u"skip"_s);
    f.store->reason()->ask(u"d1"_s);
    QVERIFY(f.store->reason()->form()->shown());
    f.store->reason()->draft()->set(u"reason"_s, u" Too long "_s);
    f.store->reason()->submit();
    f.service.run(Fault::refused);
    QVERIFY(f.store->reason()->form()->shown());
    f.store->reason()->submit();
    f.service.run();
    QVERIFY(!f.store->reason()->form()->shown());
    QCOMPARE(f.service.count(post(u"d1"_s, u"reject"_s)), 3);
    QCOMPARE(f.service.lastBody(post(u"d1"_s, u"reject"_s)), (QJsonObject{{u"reason"_s, u"Too long"_s}}));
    // Of a draft that waits again nobody asks.
    f.store->reason()->ask(u"d1"_s);
    f.decisions().undo(u"d1"_s);
    f.service.run();
    QVERIFY(!f.store->reason()->form()->shown());
  }

  void theHistoryFollows() {
    Review f;
    f.service.trainingAfter = 0;
    f.store->setHistoryShown(true);
    f.service.run();
    DraftHistory& history = *f.store->history();
    // The rows of one tab are not those of the next.
    QVERIFY(history.list()->contains(u"d2"_s));
    history.setTab(u"skipped"_s);
    QVERIFY(!history.canPutBack());
    history.putBack(u"d2"_s);
    f.service.run();
    QCOMPARE(f.service.count(post(u"d2"_s, u"restore"_s)), 0);
    QVERIFY(history.canPutBack());

    const auto isOld = [&] {
      const bool was = history.list()->needsLoad();
      history.list()->ensureLoaded();
      f.service.run();
      return was;
    };
    f.store->setHistoryShown(false);
    QVERIFY(!isOld());
    f.decide(u"skip"_s);
    QVERIFY(isOld());
    f.store->reason()->ask(u"d1"_s);
    f.store->reason()->draft()->set(u"reason"_s, u"Too long"_s);
    f.store->reason()->submit();
    f.service.run();
    QVERIFY2(isOld(), "it says why");
    f.clock.advance(2s);
    f.service.run();
    QVERIFY2(isOld(), "it says what was learned");
    QVERIFY(!isOld());
  }

  void trainingIsFollowedUntilDone() {
    Review f;
    f.service.trainingAfter = 2;
    f.service.training =
        QJsonDocument::fromJson(
            R"({"done":true,"kind":"new","lesson":{"id":"l1","text":"Be brief.","times":1},"refreshed":1})")
            .object();
    f.decide(u"skip"_s);
    QCOMPARE(f.store->feedback()->text(), u"Training your AI…"_s);
    for (int wait = 0; wait < 3; ++wait) {
      f.clock.advance(2s);
      f.service.run();
    }
    QCOMPARE(f.service.count(u"GET /inbox/drafts/d1/training"_s), 3);
    QCOMPARE(f.store->feedback()->text(), u"Learned: Be brief."_s);
    QCOMPARE(f.store->feedback()->detail(), u"Your next 1 draft now follow it."_s);
    // The rule goes with the decision that taught it.
    f.decisions().undo(u"d1"_s);
    f.service.run();
    QCOMPARE(f.service.lastBody(u"PATCH /setter/lessons/l1"_s), (QJsonObject{{u"status"_s, u"off"_s}}));
    QCOMPARE(f.lastToast(), u"Undone. Your AI won’t use that rule."_s);
    QVERIFY(!f.store->feedback()->shown());
  }

  void eachDecisionIsFollowed() {
    Review f;
    f.service.trainingAfter = 4;
    f.service.training = briefRule();
    f.queue().list()->appear();
    f.decide(u"skip"_s);
    f.clock.advance(1s);
    f.decide(u"approve"_s);
    const QString list = u"GET /inbox/drafts"_s;
    const int before = f.service.count(list);
    for (int wait = 0; wait < 6; ++wait) {
      f.clock.advance(2s);
      f.service.run();
    }
    // Both were asked of to their end, and what either taught has rewritten the drafts that wait.
    QCOMPARE(f.service.count(list), before + 2);
    // The rule that the first one taught goes with it, although another was decided since.
    f.decisions().undo(u"d1"_s);
    f.service.run();
    QCOMPARE(f.service.lastBody(u"PATCH /setter/lessons/l1"_s), (QJsonObject{{u"status"_s, u"off"_s}}));
  }

  void trainingIsGivenUpAfterAMinute() {
    Review f;
    f.service.trainingAfter = 1000;
    f.decide(u"approve"_s);
    for (int wait = 0; wait < 40; ++wait) {
      f.clock.advance(2s);
      f.service.run();
    }
    QCOMPARE(f.service.count(u"GET /inbox/drafts/d1/training"_s), 30);
    QVERIFY(!f.store->feedback()->training());
  }

  void fewLeftAreReadAgain() {
    Review f(11);
    const QString list = u"GET /inbox/drafts"_s;
    const int before = f.service.count(list);
    f.decide(u"skip"_s);
    QCOMPARE(f.service.count(list), before);
    f.service.add(u"new"_s);
    f.decide(u"skip"_s);
    QCOMPARE(f.service.count(list), before + 1);
    QVERIFY(f.queue().find(u"new"_s));
  }

  void somebodyElseDecides() {
    Review f;
    f.store->writing()->setBody(u"Mine"_s);
    f.service.set(u"d1"_s, u"approved"_s);
    f.act(u"refresh"_s);
    f.service.run();
    // Whoever types in it is not put before another one, and is told once.
    QCOMPARE(f.picked(), u"d1"_s);
    QCOMPARE(f.store->writing()->body(), u"Mine"_s);
    QCOMPARE(f.store->failures(), QStringList{u"This draft was decided already."_s});
    QVERIFY(!f.store->canApprove());
    f.act(u"refresh"_s);
    f.service.run();
    QCOMPARE(f.toasts.count(), 1);
    f.toasts.act(f.toasts.toasts().last().id);
    QCOMPARE(f.clipboard.text, u"Mine"_s);
    f.decide(u"skip"_s);
    QCOMPARE(f.picked(), u"d2"_s);
    QVERIFY(!f.queue().find(u"d1"_s));
    QCOMPARE(f.service.pending().size(), 2);
    // And puts back what was skipped here.
    f.decide(u"skip"_s);
    f.service.set(u"d2"_s, u"pending"_s);
    f.act(u"refresh"_s);
    f.service.run();
    QVERIFY(f.queue().find(u"d2"_s));
    QCOMPARE(f.done(), QStringList());
  }

  void theLastOneIsLeftAsWell() {
    Review f(1);
    f.store->writing()->setBody(u"Mine"_s);
    f.service.set(u"d1"_s, u"approved"_s);
    f.act(u"refresh"_s);
    f.service.run();
    QCOMPARE(f.queue().list()->stateName(), ResourceBase::State::Ready);
    QCOMPARE(f.queue().waiting(), 0);
    f.act(u"skip"_s);
    QCOMPARE(f.picked(), QString());
    QCOMPARE(f.queue().list()->stateName(), ResourceBase::State::Empty);
  }

  void whatComesUnderTheHandsIsNotDecided() {
    Review f;
    QSignalSpy replaced(f.store.get(), &DraftsStore::replaced);
    f.service.set(u"d1"_s, u"approved"_s);
    f.queue().list()->load();
    f.service.run();
    QCOMPARE(f.picked(), u"d2"_s);
    QCOMPARE(replaced.size(), 1);
    f.store->act(u"approve"_s);
    f.service.run();
    QCOMPARE(f.service.status(u"d2"_s), u"pending"_s);
    f.decide(u"approve"_s);
    QCOMPARE(f.service.status(u"d2"_s), u"approved"_s);
    QCOMPARE(replaced.size(), 1);
  }

  void aHeldDraftSaysWhy() {
    Review f(0);
    f.service.add(u"d9"_s, u"held"_s);
    f.act(u"refresh"_s);
    f.service.run();
    QCOMPARE(f.store->headline(), u"The AI’s draft, ready for you, held."_s);
    QCOMPARE(f.store->failures(), QStringList{u"It names a price."_s});
  }

  void theChatIsOpened() {
    Review f;
    f.act(u"chat"_s);
    QCOMPARE(f.navigator.page, Page::inbox);
    QCOMPARE(f.navigator.item, u"t-d1"_s);
  }

  void whoMayOnlyLookDecidesNothing() {
    Review f;
    WorkspaceSummary workspace = f.own->workspace();
    workspace.role = {u"viewer"_s};
    f.own->setWorkspace(workspace);
    f.decide(u"approve"_s);
    f.decide(u"skip"_s);
    QCOMPARE(f.service.pending().size(), 3);
  }

  void whateverHappens();
};

namespace {

/// One life of the review under random decisions, undos, steps of the clock, faults and late answers.
class RandomLife {
 public:
  explicit RandomLife(quint32 seed) : m_random(seed), m_review(12) {}

  void step() {
    const int dice = m_random.bounded(100);
    if (dice < 22) return decide();
    if (dice < 34) return undo();
    if (dice < 40) return move();
    if (dice < 52) return m_review.clock.advance(std::chrono::milliseconds(m_random.bounded(9000)));
    if (dice < 54) return m_review.clock.jump(std::chrono::seconds(m_random.bounded(90)));
    if (dice < 56) return m_review.act(u"refresh"_s);
    if (dice < 58) return type();
    if (m_review.service.isIdle()) return;
    const auto at = m_random.bounded(quint32(m_review.service.waiting()));
    dice < 80 ? m_review.service.carryOut(at, fault()) : m_review.service.deliver(at);
  }

  /// No draft is both to be decided and decided.
  QString broken() {
    for (const QString& id : m_review.done())
      if (m_review.queue().find(id)) return id + u" is decided and waits"_s;
    if (!m_review.picked().isEmpty() && !m_review.queue().shown()) return u"Nothing is shown"_s;
    return {};
  }

  QString disagreement() {
    settle();
    m_review.service.run();
    m_review.act(u"refresh"_s);
    m_review.service.run();
    QStringList waiting;
    for (const ReviewDraft& item : m_review.queue().list()->value()->items)
      if (m_review.queue().find(item.draft.id)) waiting.append(item.draft.id);
    if (waiting != m_review.service.pending())
      return u"Shown %1, waiting %2"_s.arg(waiting.join(u' '), m_review.service.pending().join(u' '));
    for (const auto& decision : m_review.decisions().done()) {
      const QString status = m_review.service.status(decision.item.draft.id);
      if (status != (decision.approved ? u"approved"_s : u"rejected"_s))
        return decision.item.draft.id + u" is "_s + status;
    }
    for (const QString& id : m_typed)
      if (waiting.contains(id) && !m_review.writings.editOf({.id = id, .threadId = u"t-"_s + id}))
        return u"The edit of %1 is gone"_s.arg(id);
    if (!m_review.decisions().busyIds().isEmpty()) return u"Busy for ever"_s;
    m_review.clock.advance(61s);
    m_review.service.run();
    return m_review.done().isEmpty() ? QString() : u"A minute never ends"_s;
  }

 private:
  void decide() { m_review.act(m_random.bounded(2) ? u"approve"_s : u"skip"_s); }
  void move() { m_review.act(m_random.bounded(2) ? u"next"_s : u"previous"_s); }
  void undo() {
    const QStringList ids = m_review.done();
    if (!ids.isEmpty()) m_review.decisions().undo(ids[m_random.bounded(ids.size())]);
    settle();
  }
  void type() {
    if (!m_review.store->writing() || m_typed.contains(m_review.picked())) return;
    m_review.store->writing()->setBody(u"Typed for "_s + m_review.picked());
    // One that goes out takes its text along, and may come back in another life of its own.
    m_typed.insert(m_review.picked());
  }
  Fault fault() {
    const int dice = m_random.bounded(10);
    return dice < 6    ? Fault::none
           : dice == 6 ? Fault::lostAnswer
           : dice == 7 ? Fault::lostRequest
           : dice == 8 ? Fault::refused
                       : Fault::broken;
  }

  QRandomGenerator m_random;
  Review m_review;
  QSet<QString> m_typed;
};

}  // namespace

void ReviewTest::whateverHappens() {
  const quint32 seed = printedSeed();
  for (quint32 life = 0; life < 10; ++life) {
    RandomLife random(seed + life);
    for (int step = 0; step < 150; ++step) {
      random.step();
      const QString broken = random.broken();
      QVERIFY2(broken.isEmpty(), qPrintable(u"life %1, step %2: %3"_s.arg(life).arg(step).arg(broken)));
    }
    const QString disagreement = random.disagreement();
    QVERIFY2(disagreement.isEmpty(), qPrintable(u"life %1: %2"_s.arg(life).arg(disagreement)));
  }
}

QTEST_GUILESS_MAIN(ReviewTest)
#include "review_test.moc"
