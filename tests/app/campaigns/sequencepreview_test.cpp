#include <QJsonArray>

#include "tests/app/campaigns/SequencePage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto leads = u"GET /campaigns/c1/leads"_s;

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

}  // namespace

class SequencePreviewTest final : public SequencePage {
  Q_OBJECT

 private Q_SLOTS:
  void init() { open(); }
  void cleanup() { leave(); }

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
    QCOMPARE(pane->leads()[0].label, u"Jo · X"_s);
    QCOMPARE(pane->pickedText(), u"this lead gets variant B"_s);
    QCOMPARE(pane->warnings(), QStringList{u"A: w"_s});
    QCOMPARE(editor->variables().last().name, u"city"_s);

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
    settle();
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

  void aReplyHasTheSubjectOfItsThread_data() {
    QTest::addColumn<QByteArray>("sequence");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("shown");
    const QByteArray alone = QByteArray(twoSteps).replace("\"sameThread\":true", "\"sameThread\":false");
    QTest::newRow("of what this lead got") << twoSteps << u"Picked"_s << u""_s << u"Re: Picked"_s;
    QTest::newRow("a reply already") << twoSteps << u"RE: Picked"_s << u""_s << u"RE: Picked"_s;
    QTest::newRow("no subject anywhere") << twoSteps << u""_s << u""_s << u"(no subject)"_s;
    QTest::newRow("a thread of its own") << alone << u"Picked"_s << u"Own"_s << u"Own"_s;
    QTest::newRow("and no subject") << alone << u"Picked"_s << u""_s << u"(no subject)"_s;
  }
  void aReplyHasTheSubjectOfItsThread() {
    QFETCH(QByteArray, sequence);
    QFETCH(QString, first);
    QFETCH(QString, second);
    load(campaign(sequence));
    auto* pane = editor->preview();
    f->api.expect(leads);
    pane->setWatched(true);
    f->api.expect(preview);
    f->clock.advance(SequencePreview::firstWait);
    const auto part = [](int position, const QString& subject) {
      return R"({"position":%1,"variants":[{"position":%1,"label":"A","subject":"%2","body":"","picked":false,"warnings":[]},
                {"position":%1,"label":"B","subject":"%3","body":"","picked":true,"warnings":[]}]})"_L1.toString()
          .arg(QString::number(position), position == 1 ? u"Not this one"_s : subject, subject);
    };
    f->api.answer(preview, (u"{\"steps\":["_s + part(1, first) + u',' + part(2, second) + u"]}"_s).toUtf8());
    f->api.answer(leads, R"({"items":[]})");
    editor->selectPlace(1);
    QTEST(pane->subject(), "shown");
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
    QCOMPARE(pane->leads()[0].label, u"Sample lead (add leads to preview a real one)"_s);
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
    QCOMPARE(editor->variables().last().name, u"city"_s);
    editor->setBody(u"ab"_s);
    passWait();
    store->close();
  }
};

QTEST_GUILESS_MAIN(SequencePreviewTest)
#include "sequencepreview_test.moc"
