#include "tests/app/campaigns/SequencePage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto testEmail = u"POST /campaigns/c1/test-email"_s;
const auto followed = u"GET /test-email/t1"_s;

}  // namespace

class TestEmailTest final : public SequencePage {
  Q_OBJECT

 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

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
    f->clock.advance(TestEmailCourse::pace.interval);
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
    f->clock.advance(TestEmailCourse::pace.interval);
    f->api.fail(followed, TransportFailure::timedOut);
    f->api.expect(followed);
    f->clock.advance(TestEmailCourse::pace.interval);
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
      f->clock.advance(TestEmailCourse::pace.interval);
      f->api.answer(followed, R"({"id":"t1","state":"sending"})");
      ++asked;
    }
    QCOMPARE(form->stageName(), u"overdue"_s);
    QCOMPARE(asked, 30);
    form->show();
    form->cancel();
    QVERIFY(!form->shown());
  }

  /// It belongs to the workspace: the page's store may leave the cache while the inbox still has to take it.
  void theEndIsToldWhenThePageHasGone_data() {
    QTest::addColumn<bool>("beforeTheSave");
    QTest::newRow("while the sequence is saved") << true;
    QTest::newRow("while it is followed") << false;
  }
  void theEndIsToldWhenThePageHasGone() {
    QFETCH(bool, beforeTheSave);
    load(campaign(twoSteps, 7, oneSender));
    auto* form = editor->testEmail();
    form->show();
    form->setTo(u"you@x.com"_s);
    if (beforeTheSave) {
      editor->setBody(u"unsaved"_s);
      f->api.expect(put);
    }
    f->api.expect(testEmail);
    form->submit();
    QCOMPARE(f->jobs.unsavedWork(), QStringList{u"Sending a test to you@x.com is not done yet."_s});
    if (!beforeTheSave) f->api.answer(testEmail, R"({"id":"t1","state":"queued"})", 202);
    leaveStore();
    if (beforeTheSave) {
      QCOMPARE(sent()[u"body"_s].toString(), u"unsaved"_s);
      f->api.answer(testEmail, R"({"id":"t1","state":"queued"})", 202);
    }
    f->api.expect(followed);
    f->clock.advance(TestEmailCourse::pace.interval);
    f->api.answer(followed, R"({"id":"t1","state":"failed"})");
    QCOMPARE(toasts(), QStringList{u"Not sent"_s});
    QCOMPARE(f->jobs.running(), 0);
  }

  void aClosedDialogComesBackToWhereItsTestIs() {
    load(campaign(twoSteps, 7, oneSender));
    auto* form = editor->testEmail();
    form->show();
    form->setTo(u"you@x.com"_s);
    f->api.expect(testEmail);
    form->submit();
    form->cancel();
    f->api.answer(testEmail, R"({"id":"t1","state":"queued","warnings":["No footer"]})", 202);
    form->show();
    QCOMPARE(form->stageName(), u"following"_s);
    QCOMPARE(form->warnings(), QStringList{u"No footer"_s});
    f->api.expect(followed);
    f->clock.advance(TestEmailCourse::pace.interval);
    f->api.answer(followed, R"({"id":"t1","state":"sent","from":"me@x.com"})");
    QCOMPARE(form->headline(), u"Sent from me@x.com to you@x.com"_s);
    QVERIFY2(toasts().isEmpty(), "the dialog has told of it");
    form->show();
    QCOMPARE(form->to(), u"you@x.com"_s);
    QVERIFY(!form->waiting() && form->warnings().isEmpty());
  }

  void noTestWithoutASender() {
    load(campaign(twoSteps));
    editor->testEmail()->show();
    editor->testEmail()->setTo(u"you@x.com"_s);
    editor->testEmail()->submit();
    QVERIFY(!editor->testEmail()->hasSender());
  }
};

QTEST_GUILESS_MAIN(TestEmailTest)
#include "testemail_test.moc"
