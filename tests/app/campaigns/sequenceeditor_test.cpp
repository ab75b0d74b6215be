#include <QSignalSpy>

#include "app/campaigns/CampaignsArea.h"
#include "tests/app/campaigns/SequencePage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto spintax = u"POST /campaigns/spintax"_s;

Task<void> keep(Task<bool> task, std::optional<bool>* outcome) { *outcome = co_await std::move(task); }

/// A workspace in which one campaign's page is open.
struct OnePage final : WorkspaceStores {
  Store& page;
  explicit OnePage(Store& opened) : page(opened) {}
  WorkspaceContext& context() const override { return page.context(); }
  Store* store(const QString&) override { return nullptr; }
  Store* keptItem(Page, const QString&) const override { return &page; }
};

}  // namespace

class SequenceEditorTest final : public SequencePage {
  Q_OBJECT

  QVariant row(int at, const char* role) const {
    const auto roles = editor->steps()->roleNames();
    return editor->steps()->index(at).data(roles.key(role));
  }

 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

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
    QCOMPARE(editor->variants()[1].detail, u"50%"_s);
    editor->setBody(u"written"_s);
    const QString b = editor->variantKey();
    editor->removeVariant(b);
    QCOMPARE(toasts(), QStringList{u"Variant B removed"_s});
    f->toasts.act(f->toasts.toasts().first().id);
    QCOMPARE(editor->variantKey(), b);
    QCOMPARE(editor->body(), u"written"_s);
    editor->setEnabled(false);
    QCOMPARE(editor->variants()[1].detail, u"is off"_s);

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

  void whatWasRestoredOnAnotherSequenceWaitsForAWordAndSaysSo() {
    const auto copy = u"POST /campaigns/c1/duplicate"_s, all = u"GET /campaigns"_s;
    const auto why = u"The sequence has unsaved changes. Save or discard them first."_s;
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    f->journal.keep({u"acme"_s, u"campaigns/c1/sequence"_s}, [] {
      return JournalText{5, R"({"steps":[{"id":"s1","delayMinutes":0,"sameThread":false,"variants":[
          {"id":"v1","label":"A","subject":"One","body":"Mine","weight":1,"enabled":true}]}]})"};
    });
    settle();
    load(campaign(twoSteps));
    QTRY_COMPARE(editor->body(), u"Mine"_s);
    QVERIFY(editor->autosave()->awaitsWord());
    store->duplicate();
    QCOMPARE(toasts(), QStringList{u"Couldn’t duplicate the campaign."_s});
    QCOMPARE(f->toasts.toasts().last().detail, why);
    // The list would copy the older text.
    OnePage workspace(*store);
    const std::unique_ptr<Store> list(campaignsArea().stores.first().make(workspace));
    f->api.expect(all);
    list->ensureLoaded();
    f->api.answer(all, R"({"items":[{"id":"c1","name":"Acme","status":"draft","senders":0,"steps":2,"leads":0,)"
                       R"("sent":0,"replied":0,"positive":0,"bounced":0,"createdAt":"","version":7}]})");
    list->act(u"duplicate"_s, u"c1"_s);
    QCOMPARE(toasts().last(), why);

    f->api.expect(put);
    editor->autosave()->save();
    QVERIFY(!editor->autosave()->awaitsWord());
    f->api.answer(put, campaign(step(1, "One", "Mine"), 8));
    QVERIFY(editor->recovery()->notice().isEmpty());
    f->api.expect(copy);
    list->act(u"duplicate"_s, u"c1"_s);
    f->api.answer(copy, R"({"id":"c9","name":"Copy","status":"draft"})");
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
