#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

#include "app/campaigns/CampaignStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto get = u"GET /campaigns/c1"_s;
const auto put = u"PUT /campaigns/c1/steps"_s;
const auto preview = u"POST /campaigns/c1/preview"_s;
const auto leads = u"GET /campaigns/c1/leads"_s;
const auto spintax = u"POST /campaigns/spintax"_s;
const auto testEmail = u"POST /campaigns/c1/test-email"_s;
const auto followed = u"GET /test-email/t1"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

QByteArray step(int position, const QByteArray& subject, const QByteArray& body, const QByteArray& more = {}) {
  const QByteArray n = QByteArray::number(position);
  return R"({"id":"s)" + n + R"(","position":)" + n + R"(,"delayMinutes":2160,"sameThread":)" +
         (position > 1 ? "true" : "false") + R"(,"variants":[{"id":"v)" + n + R"(","label":"A","subject":")" + subject +
         R"(","body":")" + body + R"(","weight":1,"enabled":true})" + more + "]}";
}

QByteArray campaign(const QByteArray& steps, int version = 7, const QByteArray& senders = "[]") {
  return R"({"id":"c1","name":"Acme","status":"draft","version":)" + QByteArray::number(version) + R"(,"senders":)" +
         senders + R"(,"steps":[)" + steps + "]}";
}

const QByteArray twoSteps = step(1, "One", "Hi") + "," + step(2, "", "Again");
const QByteArray oneSender =
    R"([{"mailboxId":"m","address":"a@b.c","displayName":"A","status":"active","ready":true,"capToday":1,"sentToday":0,"viaTag":false}])";

QByteArray rendered(int steps, const QByteArray& lead = R"({"id":"l1","email":"jo@x.com"})") {
  QByteArray list;
  for (int position = 1; position <= steps; ++position) {
    const QByteArray n = QByteArray::number(position);
    list += (position > 1 ? "," : "") + (R"({"position":)" + n + R"(,"variants":[{"position":)" + n) +
            R"(,"label":"A","subject":"S)" + n + R"(","body":"B","picked":false,"warnings":["w"]},{"position":)" + n +
            R"(,"label":"B","subject":"T","body":"C","picked":true,"warnings":[]}]})";
  }
  return R"({"lead":)" + lead + R"(,"steps":[)" + list +
         R"(],"variables":[{"name":"firstName","standard":true},{"name":"city","value":"Ghent"}]})";
}

Task<void> keep(Task<bool> task, std::optional<bool>* outcome) { *outcome = co_await std::move(task); }

}  // namespace

class SequenceEditorTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignStore> store;
  std::unique_ptr<QAbstractItemModelTester> tester;
  SequenceEditor* editor = nullptr;

  void load(const QByteArray& answer) {
    f->api.expect(get);
    store->ensureLoaded();
    f->api.answer(get, answer);
  }
  void passWait() { f->clock.advance(SequenceAutosave::wait); }
  QStringList toasts() const {
    QStringList messages;
    for (const auto& toast : f->toasts.toasts()) messages.append(toast.message);
    return messages;
  }
  QVariant row(int at, const char* role) const {
    const auto roles = editor->steps()->roleNames();
    return editor->steps()->index(at).data(roles.key(role));
  }
  QJsonObject sent() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignStore>(u"c1"_s, *f->context);
    editor = store->sequence();
    f->navigator.openItem(Page::campaigns, u"c1"_s);
    tester = std::make_unique<QAbstractItemModelTester>(editor->steps());
  }
  void cleanup() {
    tester.reset();
    store.reset();
    f.reset();
  }

  void showsOneEmailAndFollowsIt() {
    QSignalSpy shown(editor, &SequenceEditor::textShown);
    load(campaign(twoSteps));
    QCOMPARE(editor->title(), u"Email 1"_s);
    QCOMPARE(editor->subject(), u"One"_s);
    QVERIFY(!shown.isEmpty());
    QCOMPARE(row(1, "when").toString(), u"Day 3"_s);
    QCOMPARE(row(1, "wait").toString(), u"Wait 2 days if no reply"_s);
    QCOMPARE(row(1, "subject").toString(), u"Re: same thread"_s);
    QCOMPARE(row(0, "current").toBool(), true);

    // Typing tells the timeline, and never the field that is typed in.
    shown.clear();
    editor->setSubject(u"One, better"_s);
    QCOMPARE(row(0, "subject").toString(), u"One, better"_s);
    QVERIFY(shown.isEmpty());

    editor->selectPlace(1);
    QCOMPARE(shown.size(), 1);
    QCOMPARE(editor->waitDays(), 2);
    editor->setSubject(u"nothing to see"_s);
    QCOMPARE(editor->subject(), QString());
    editor->setSameThread(false);
    QCOMPARE(shown.size(), 2);
    QCOMPARE(row(1, "subject").toString(), u"(no subject)"_s);
    editor->selectPlace(9);
    QCOMPARE(editor->place(), 1);
    store->close();
  }

  void removalsCanBeUndone() {
    load(campaign(twoSteps));
    editor->selectPlace(1);
    const QString second = editor->stepKey();
    editor->removeStep(second);
    QCOMPARE(toasts(), QStringList{u"Email 2 removed"_s});
    QCOMPARE(editor->title(), u"Email 1"_s);
    f->toasts.act(f->toasts.toasts().first().id);
    QCOMPARE(editor->stepKey(), second);

    editor->addVariant();
    QCOMPARE(editor->variants().size(), 2);
    QCOMPARE(editor->variants()[1].toMap()[u"share"_s].toString(), u"50%"_s);
    editor->setBody(u"written"_s);
    const QString b = editor->variantKey();
    editor->removeVariant(b);
    QCOMPARE(toasts(), QStringList{u"Variant B removed"_s});
    f->toasts.act(f->toasts.toasts().first().id);
    QCOMPARE(editor->variantKey(), b);
    QCOMPARE(editor->body(), u"written"_s);
    editor->setEnabled(false);
    QCOMPARE(editor->variants()[1].toMap()[u"share"_s].toString(), u"is off"_s);

    editor->removeStep(second);
    const QUuid undo = f->toasts.toasts().last().id;
    store.reset();
    f->toasts.act(undo);
  }

  void aSaveWaitsForTheRenameBeforeItAndOldAnswersBringNoOldText() {
    load(campaign(twoSteps));
    editor->setBody(u"new"_s);
    const auto rename = u"PATCH /campaigns/c1"_s;
    f->api.expect(rename);
    store->beginRename();
    store->renameForm()->setText(u"Other"_s);
    store->renameForm()->submit();
    f->api.expect(get);
    store->refresh();
    passWait();
    QVERIFY2(!f->api.isWaiting(put), "one change of a campaign after another");
    f->api.expect(put);
    f->api.expect(get);
    f->api.answer(rename, campaign(twoSteps, 8));
    QVERIFY(f->api.isWaiting(put));
    f->api.expect(get);
    f->api.answer(put, campaign(step(1, "One", "new") + "," + step(2, "", "Again"), 9));
    QCOMPARE(editor->autosave()->label(), u"Saved"_s);
    // Asked for before the save, an older state is no news.
    f->api.answer(get, campaign(twoSteps, 8));
    QCOMPARE(editor->body(), u"new"_s);
    QCOMPARE(store->campaign()->value()->version, 9);
    // What is read after it is: somebody else wrote there.
    QSignalSpy shown(editor, &SequenceEditor::textShown);
    f->api.expect(get);
    store->refresh();
    f->api.answer(get, campaign(step(1, "One", "theirs"), 10));
    QCOMPARE(editor->body(), u"theirs"_s);
    QCOMPARE(shown.size(), 1);
  }

  void whatIsLaunchedCopiedAndTestedIsWhatWasWritten() {
    load(campaign(twoSteps, 7, oneSender));
    editor->setBody(u"new"_s);
    f->api.expect(put);
    store->launch();
    QVERIFY(store->busy());
    f->api.answer(put, refusal, 422);
    QCOMPARE(toasts(), QStringList{u"Couldn’t launch the campaign."_s});
    QVERIFY(!store->busy());
    QCOMPARE(editor->body(), u"new"_s);
    QVERIFY(editor->autosave()->message().startsWith(u"Couldn’t save the sequence. "_s));

    f->api.expect(put);
    store->duplicate();
    const auto copy = u"POST /campaigns/c1/duplicate"_s;
    f->api.expect(copy);
    f->api.answer(put, campaign(step(1, "One", "new"), 8));
    f->api.answer(copy, campaign({}));
    QCOMPARE(toasts().last(), u"Acme created"_s);
  }

  void spintaxIsOneEditOfTheTextThatWasSent() {
    load(campaign(step(1, "One", "  ") + "," + step(2, "", "Again")));
    QSignalSpy spun(editor, &SequenceEditor::textSpun);
    editor->spin(u"body"_s);
    QCOMPARE(toasts(), QStringList{u"Write the email first, then spin it"_s});

    f->api.expect(spintax);
    editor->spin(u"subject"_s);
    QCOMPARE(sent()[u"field"_s].toString(), u"subject"_s);
    QCOMPARE(sent()[u"text"_s].toString(), u"One"_s);
    editor->spin(u"subject"_s);
    f->api.answer(spintax, R"({"text":"{One|Uno}"})");
    QCOMPARE(editor->subject(), u"{One|Uno}"_s);
    QCOMPARE(spun.size(), 1);
    QCOMPARE(toasts().last(), u"Spintax added. ⌘Z takes it back out."_s);

    f->api.expect(spintax);
    editor->spin(u"subject"_s);
    editor->setSubject(u"Other"_s);
    f->api.answer(spintax, R"({"text":"lost"})");
    QCOMPARE(toasts().last(), u"The email changed while it was spinning. Try again."_s);

    // The text is the same, though another one is shown: it counts, and can be taken back when it is shown again.
    f->api.expect(spintax);
    editor->spin(u"subject"_s);
    editor->selectPlace(1);
    f->api.answer(spintax, R"({"text":"{Other|Else}"})");
    QCOMPARE(editor->draft().steps()[0].variants[0].subject, u"{Other|Else}"_s);
    QCOMPARE(spun.size(), 1);
    QCOMPARE(editor->unspun(u"subject"_s), QString());
    editor->selectPlace(0);
    QCOMPARE(editor->unspun(u"subject"_s), u"Other"_s);
    editor->setSubject(u"Other"_s);
    QCOMPARE(editor->unspun(u"subject"_s), QString());

    // Only the lines that the service changed lose the ends that they came with.
    editor->selectPlace(1);
    editor->setBody(u"Hi\r\nJo\r\nBye"_s);
    f->api.expect(spintax);
    editor->spin(u"body"_s);
    f->api.answer(spintax, R"({"text":"Hi\nJo\n{Bye|Ciao}"})");
    QCOMPARE(editor->body(), u"Hi\r\nJo\r\n{Bye|Ciao}"_s);
    f->api.expect(spintax);
    editor->spin(u"body"_s);
    f->api.answer(spintax, refusal, 422);
    QCOMPARE(toasts().last(), u"Couldn’t add spintax."_s);
    QCOMPARE(editor->spinning(), QString());
    store->close();
  }

  void thePreviewRendersUnsavedText() {
    load(campaign(twoSteps));
    auto* pane = editor->preview();
    editor->setBody(u"unsaved"_s);
    f->api.expect(leads);
    pane->setWatched(true);
    f->api.expect(preview);
    f->clock.advance(SequencePreview::firstWait);
    const auto steps = QJsonDocument::fromJson(*f->api.sent()[2].request.body).object()[u"steps"_s].toArray();
    QCOMPARE(steps[0][u"variants"_s][0][u"body"_s].toString(), u"unsaved"_s);
    f->api.answer(leads, R"({"items":[{"id":"l1","email":"jo@x.com","firstName":"Jo","company":"X","status":"active"},
                             {"id":"l2","email":"li@x.com","status":"active"}]})");
    f->api.answer(preview, rendered(2));
    QCOMPARE(pane->title(), u"Preview · email 1 of 2"_s);
    QCOMPARE(pane->lead(), u"l1"_s);
    QCOMPARE(pane->leads()[0].toMap()[u"label"_s].toString(), u"Jo · X"_s);
    QCOMPARE(pane->pickedText(), u"this lead gets variant B"_s);
    QCOMPARE(pane->warnings(), QStringList{u"A: w"_s});
    QCOMPARE(editor->variables().last().toMap()[u"name"_s].toString(), u"city"_s);

    // Moving between emails asks nothing; many keystrokes ask once; a chosen lead asks at once.
    editor->selectPlace(1);
    QCOMPARE(pane->subject(), u"S2"_s);
    editor->setBody(u"a"_s);
    editor->setBody(u"ab"_s);
    f->api.expect(preview);
    f->clock.advance(SequencePreview::wait);
    f->api.answer(preview, refusal, 422);
    QCOMPARE(pane->message(), u"Preview failed. Not now: It is being checked."_s);
    QCOMPARE(pane->subject(), u"S2"_s);
    f->api.expect(preview);
    pane->setLead(u"l2"_s);
    QCOMPARE(sent()[u"leadId"_s].toString(), u"l2"_s);
    f->api.answer(preview, rendered(2, R"({"id":"l2","email":"li@x.com"})"));
    QCOMPARE(pane->message(), QString());

    // Offline is told as well; what failed is asked anew when somebody looks again.
    editor->setBody(u"abcd"_s);
    f->api.expect(preview);
    f->clock.advance(SequencePreview::wait);
    f->api.fail(preview, TransportFailure::offline);
    QCOMPARE(pane->message(), u"Preview failed. You’re offline. Connect to the internet and try again."_s);
    QCOMPARE(pane->subject(), u"S2"_s);
    pane->setWatched(false);
    f->api.expect(leads);
    f->api.expect(preview);
    pane->setWatched(true);
    f->clock.advance(SequencePreview::firstWait);
    f->api.answer(preview, rendered(2));
    QCOMPARE(pane->message(), QString());

    // Nobody looks any more.
    pane->setWatched(false);
    editor->setBody(u"abc"_s);
    f->api.expect(put);
    f->clock.advance(std::chrono::seconds(5));
    store->close();
  }

  void theLeadsToPreviewForAreKnownOrToldOf() {
    load(campaign(twoSteps));
    auto* pane = editor->preview();
    f->api.expect(leads);
    pane->setWatched(true);
    QCOMPARE(pane->leadsNote(), u"Loading leads…"_s);
    QVERIFY(pane->leads().isEmpty());
    f->api.fail(leads, TransportFailure::offline);
    QCOMPARE(pane->leadsNote(), u"Couldn’t load leads"_s);
    QVERIFY(pane->leads().isEmpty());
    f->api.expect(leads);
    pane->retry();
    QVERIFY(!pane->leadsFailed());
    f->api.answer(leads, refusal, 422);
    QVERIFY(pane->leadsFailed());
    f->api.expect(leads);
    pane->retry();
    f->api.answer(leads, R"({"items":[]})");
    QCOMPARE(pane->leadsNote(), QString());
    QCOMPARE(pane->leads()[0].toMap()[u"label"_s].toString(), u"Sample lead (add leads to preview a real one)"_s);
    store->close();
  }

  void theLeadsVariablesAreAskedForOnceThoughNobodyLooks() {
    load(campaign(twoSteps));
    editor->preview()->wantVariables();
    f->api.expect(preview);
    f->clock.advance(SequencePreview::firstWait);
    f->api.fail(preview, TransportFailure::offline);
    f->api.expect(put);
    editor->setBody(u"a"_s);
    f->api.expect(preview);
    f->clock.advance(SequencePreview::wait);
    f->api.answer(preview, rendered(2));
    QCOMPARE(editor->variables().last().toMap()[u"name"_s].toString(), u"city"_s);
    editor->setBody(u"ab"_s);
    passWait();
    store->close();
  }

  /// The text that is shown goes out, whatever becomes of the sequence.
  void aTestNeedsNoSavedSequenceAndNoOpenDialog() {
    load(campaign(twoSteps, 7, oneSender));
    editor->setBody(u"unsaved"_s);
    auto* form = editor->testEmail();
    form->show();
    form->setTo(u"you@x.com"_s);
    f->api.expect(put);
    form->submit();
    form->cancel();
    QVERIFY(!form->shown());
    // Nor does it matter what is shown by then, and a second one is not begun.
    editor->selectPlace(1);
    form->show();
    form->submit();
    form->cancel();
    f->api.expect(testEmail);
    f->api.answer(put, refusal, 422);
    QCOMPARE(sent()[u"body"_s].toString(), u"unsaved"_s);
    QCOMPARE(sent()[u"variantId"_s].toString(), u"v1"_s);
    QCOMPARE(sent()[u"stepPosition"_s].toInt(), 1);
    f->api.answer(testEmail, R"({"id":"t1","state":"queued","from":"me@x.com","to":"you@x.com"})", 202);
    f->api.expect(followed);
    f->clock.advance(TestEmailForm::interval);
    f->api.answer(followed, R"({"id":"t1","state":"sent"})");
    QCOMPARE(toasts().last(), u"Sent from me@x.com to you@x.com"_s);

    form->show();
    QCOMPARE(form->stageName(), u"form"_s);
    f->api.expect(put);
    form->submit();
    form->cancel();
    f->api.expect(testEmail);
    f->api.answer(put, refusal, 422);
    f->api.answer(testEmail, refusal, 422);
    QCOMPARE(toasts().last(), u"Couldn’t send the test."_s);
    store->close();
  }

  void aTestIsFollowedToItsEnd_data() {
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("headline");
    QTest::addColumn<QString>("detail");
    QTest::newRow("sent") << QByteArray(R"({"id":"t1","state":"sent","from":"me@x.com","to":"you@x.com"})")
                          << u"Sent from me@x.com to you@x.com"_s
                          << u"Handed to the inbox; it should arrive in a moment."_s;
    QTest::newRow("failed") << QByteArray(R"({"id":"t1","state":"failed","error":"550 No such user."})")
                            << u"Not sent"_s << u"The inbox refused it. 550 No such user. Check that inbox."_s;
    QTest::newRow("failed, no reason") << QByteArray(R"({"id":"t1","state":"failed"})") << u"Not sent"_s
                                       << u"The inbox refused it. Check that inbox."_s;
  }
  void aTestIsFollowedToItsEnd() {
    QFETCH(QByteArray, end);
    load(campaign(twoSteps, 7, oneSender));
    editor->selectPlace(1);
    editor->addVariant();
    editor->setBody(u"Hi B"_s);
    auto* form = editor->testEmail();
    form->show();
    QCOMPARE(form->note(), u"Email 2, variant B, rendered for a sample lead. Test emails copy nobody."_s);
    form->setTo(u"you at x"_s);
    form->submit();
    QCOMPARE(form->error(), u"Enter an email address."_s);
    form->setTo(u" you@x.com "_s);
    f->api.expect(put);
    form->submit();
    form->submit();
    f->api.expect(testEmail);
    f->api.answer(put,
                  campaign(step(1, "One", "Hi") + "," +
                               step(2, "", "Again",
                                    R"(,{"id":"vb","label":"B","subject":"","body":"Hi B","weight":1,"enabled":true})"),
                           8, oneSender));
    QCOMPARE(sent()[u"variantId"_s].toString(), u"vb"_s);
    QCOMPARE(sent()[u"stepPosition"_s].toInt(), 2);
    QCOMPARE(sent()[u"to"_s].toString(), u"you@x.com"_s);
    f->api.answer(testEmail, R"({"id":"t1","state":"queued","from":"me@x.com","to":"you@x.com"})", 202);
    QCOMPARE(form->stageName(), u"following"_s);
    f->api.expect(followed);
    f->clock.advance(TestEmailForm::interval);
    f->api.fail(followed, TransportFailure::timedOut);
    f->api.expect(followed);
    f->clock.advance(TestEmailForm::interval);
    f->api.answer(followed, end);
    QTEST(form->headline(), "headline");
    QTEST(form->detail(), "detail");
  }

  void aTestThatNobodyHearsOfIsNotFollowedForEver() {
    load(campaign(twoSteps, 7, oneSender));
    auto* form = editor->testEmail();
    form->show();
    form->setTo(u"you@x.com"_s);
    f->api.expect(testEmail);
    form->submit();
    f->api.answer(testEmail, R"({"id":"t1","state":"queued"})", 202);
    int asked = 0;
    while (form->stageName() == "following"_L1 && asked < 100) {
      f->api.expect(followed);
      f->clock.advance(TestEmailForm::interval);
      f->api.answer(followed, R"({"id":"t1","state":"sending"})");
      ++asked;
    }
    QCOMPARE(form->stageName(), u"overdue"_s);
    QCOMPARE(asked, 30);
    form->show();
    form->cancel();
    QVERIFY(!form->shown());
  }

  void noTestWithoutASender() {
    load(campaign(twoSteps));
    editor->testEmail()->show();
    editor->testEmail()->setTo(u"you@x.com"_s);
    editor->testEmail()->submit();
    QVERIFY(!editor->testEmail()->hasSender());
  }

  void goingWithUnsavedTextSavesIt() {
    load(campaign(twoSteps));
    QVERIFY(store->unsavedWork().isEmpty());
    editor->setBody(u"new"_s);
    QVERIFY(!store->unsavedWork().isEmpty());
    std::optional<bool> outcome;
    TaskSlot slot;
    f->api.expect(put);
    slot.start(keep(store->flush(), &outcome));
    store->close();
    QCOMPARE(outcome, std::optional(false));
  }

  void aSaveThatFailsWhenItsPageWasLeftIsTold() {
    load(campaign(twoSteps));
    f->navigator.open(Page::dashboard);
    editor->setBody(u"new"_s);
    f->api.expect(put);
    passWait();
    f->api.answer(put, refusal, 422);
    QCOMPARE(toasts(), QStringList{u"“Acme” has unsaved changes"_s});
    QVERIFY(f->context->unsaved().contains(u"c1"_s));
    f->navigator.slug = u"other"_s;
    f->toasts.act(f->toasts.toasts().first().id);
    QCOMPARE(f->navigator.slug, u"acme"_s);
    QCOMPARE(f->navigator.item, u"c1"_s);

    // Its own page has the note, and the row its mark until the service has the text.
    editor->setBody(u"newer"_s);
    f->api.expect(put);
    passWait();
    f->api.answer(put, refusal, 422);
    QVERIFY(toasts().isEmpty());
    QVERIFY(f->context->unsaved().contains(u"c1"_s));
    f->api.expect(put);
    editor->autosave()->save();
    f->api.answer(put, campaign(twoSteps, 8));
    QVERIFY(!f->context->unsaved().contains(u"c1"_s));
    store->close();
  }

  void formsThatWaitForTheirButtonAreNotSavedUnasked() {
    load(campaign(twoSteps));
    store->settings()->draft()->set(u"gap"_s, u"9"_s);
    store->settings()->schedule()->toggleDay(0, 6);
    QCOMPARE(store->unsavedWork(), QStringList{u"“Acme” has unsaved changes: settings, schedule."_s});
    std::optional<bool> outcome;
    TaskSlot slot;
    slot.start(keep(store->flush(), &outcome));
    QCOMPARE(outcome, std::optional(false));
    store->settings()->discard();
    store->settings()->schedule()->discard();
    slot.start(keep(store->flush(), &outcome));
    QCOMPARE(outcome, std::optional(true));
  }
};

QTEST_GUILESS_MAIN(SequenceEditorTest)
#include "sequenceeditor_test.moc"
