#include "app/campaigns/ProofWall.h"

#include "app/campaigns/EmailFindings.h"
#include "tests/app/campaigns/SequencePage.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto leads = u"GET /campaigns/c1/leads"_s;

QByteArray leadsAnswer(int count, const QByteArray& firstCity = "Riga") {
  QByteArray items;
  for (int i = 1; i <= count; ++i) {
    const QByteArray n = QByteArray::number(i);
    items +=
        (i > 1 ? "," : "") + (R"({"id":"l)" + n + R"(","email":"p)" + n + R"(@x.com","firstName":"P)" + n +
                              R"(","status":"queued","data":{"city":")" + (i == 1 ? firstCity : "Tartu") + R"("}})");
  }
  return R"({"items":[)" + items + "]}";
}

/// Two variants of a first email, of which the first says `text`.
QByteArray firstEmail(const QByteArray& text = "Hi {{firstName}}") {
  return R"({"id":"s1","position":1,"delayMinutes":0,"sameThread":false,"variants":[
    {"id":"v1","label":"A","subject":"One","body":")" +
         text + R"(","weight":1,"enabled":true},
    {"id":"v2","label":"B","subject":"Two","body":"Hello","weight":1,"enabled":true}]})";
}

QByteArray rendered(const QByteArray& picked = "A", const QByteArray& body = "Hi P", const QByteArray& warnings = {}) {
  const auto variant = [&](const QByteArray& label) {
    return R"({"position":1,"label":")" + label + R"(","subject":"S","body":")" + body + R"(","picked":)" +
           (label == picked ? "true" : "false") + R"(,"warnings":[)" + warnings + "]}";
  };
  return R"({"steps":[{"position":1,"variants":[)" + variant("A") + "," + variant("B") +
         R"(]}],"variables":[{"name":"firstName","value":"P","standard":true}]})";
}

QList<PreviewResponse::Variable> variables() {
  return {{u"firstName"_s, u"Ilze"_s, true, {}},
          {u"city"_s, {}, false, {}},
          {u"lane"_s, u"{Riga–Rostock"_s, false, {}},
          {u"accountSignature"_s, QString(), true, {}}};
}

EmailFindings found(const QString& written, const QString& body, const QStringList& warnings = {}) {
  return findingsIn({1, u"A"_s, u"S"_s, body, true, warnings}, {u"S"_s, written}, variables(), true);
}

QStringList wrongIn(const EmailFindings& findings) {
  QStringList texts;
  for (const auto& place : findings.wrong) texts.append(findings.body.mid(place.start, place.length));
  return texts;
}

}  // namespace

class ProofWallTest final : public SequencePage {
  Q_OBJECT

  ProofWall* wall = nullptr;

  void openWall(const QByteArray& answer, const QByteArray& people) {
    load(answer);
    f->api.expect(leads);
    wall->setWatched(true);
    if (!people.isEmpty()) f->api.expect(preview);
    f->api.answer(leads, people.isEmpty() ? R"({"items":[]})" : people);
  }
  /// Answers the rendering under way, whose lead it gives; another one is then asked for where `more`.
  QString render(bool more, const QByteArray& answer = rendered()) {
    const QString lead = sent()[u"leadId"_s].toString();
    if (more) f->api.expect(preview);
    f->api.answer(preview, answer);
    return lead;
  }
  QString stateOf(const QString& lead) const {
    const int row = wall->emails()->rowOf(lead);
    return row < 0 ? QString() : wall->emails()->records()[size_t(row)].state;
  }

 private Q_SLOTS:
  void init() {
    open();
    wall = store->proof();
  }
  void cleanup() {
    store->close();
    leave();
  }

  void whatIsWrongIsFoundWhereItStands_data() {
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("warnings");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("wrong");
    QTest::newRow("as it should be") << u"{Hi|Hello} {{firstName}},\n\nbye"_s << u"Hello Ilze,\n\nbye"_s
                                     << QStringList() << QStringList() << QStringList();
    QTest::newRow("a value is missing") << u"Around {{city}} a third"_s << u"Around  a third"_s << QStringList()
                                        << QStringList{u"The lead has no city."_s} << QStringList{u"city is empty"_s};
    QTest::newRow("the service says so itself")
        << u"Around {{city}} a third"_s << u"Around a third"_s << QStringList{u"No value for {{city}}."_s}
        << QStringList{u"No value for {{city}}."_s} << QStringList{u"city is empty"_s};
    QTest::newRow("in an option that was taken")
        << u"{Hi|Hi from {{city}}}!"_s << u"Hi from !"_s << QStringList() << QStringList{u"The lead has no city."_s}
        << QStringList{u"city is empty"_s};
    QTest::newRow("in one that was not") << u"{Hi|Hi from {{city}}}!"_s << u"Hi!"_s << QStringList() << QStringList()
                                         << QStringList();
    QTest::newRow("the place cannot be told") << u"Around {{city}}"_s << u"<p>Around</p>"_s << QStringList()
                                              << QStringList{u"The lead has no city."_s} << QStringList();
    QTest::newRow("nobody knows the name")
        << u"Hi {{frstName}}"_s << u"Hi {{frstName}}"_s << QStringList()
        << QStringList{u"No variable is called “frstName”."_s, u"“{{frstName}}” stands there as it was written."_s}
        << QStringList{u"{{frstName}}"_s};
    QTest::newRow("the inbox's") << u"Bye {{accountSignature}}"_s << u"Bye "_s << QStringList()
                                 << QStringList{u"The inbox has no signature."_s}
                                 << QStringList{u"accountSignature is empty"_s};
    QTest::newRow("a brace that a value brings")
        << u"most of them {{lane}}."_s << u"most of them {Riga–Rostock."_s << QStringList()
        << QStringList{u"A brace is opened and never closed in lane: “{Riga–Rostock”."_s}
        << QStringList{u"{Riga–Rostock"_s};
    QTest::newRow("a brace of the text") << u"Hi Hello|Hey} you"_s << u"Hi Hello|Hey} you"_s << QStringList()
                                         << QStringList{u"A brace is closed and never opened: “Hello|Hey}”."_s}
                                         << QStringList{u"Hello|Hey}"_s};
    QTest::newRow("nothing is left") << u"{{city}}"_s << u" \n "_s << QStringList()
                                     << QStringList{u"The lead has no city."_s, u"The email has no text."_s}
                                     << QStringList{u"city is empty"_s};
  }
  void whatIsWrongIsFoundWhereItStands() {
    QFETCH(QString, written);
    QFETCH(QString, body);
    QFETCH(QStringList, warnings);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, wrong);
    const EmailFindings findings = found(written, body, warnings);
    QCOMPARE(findings.lines, lines);
    QCOMPARE(wrongIn(findings), wrong);
  }

  void whoHasToMendItAndHowItReads() {
    QVERIFY(found(u"Around {{city}} a third"_s, u"Around  a third"_s).inLead);
    QCOMPARE(found(u"So.\nAround {{city}} a third."_s, u"So.\nAround  a third."_s).reading, u"Around a third."_s);
    QVERIFY(found(u"{{lane}}"_s, u"{Riga–Rostock"_s).inLead);
    QVERIFY(!found(u"{Hi"_s, u"{Hi"_s).inLead);
    QVERIFY(!found(u"Bye {{accountSignature}}"_s, u"Bye "_s).inLead);
    // What no service makes of a text is matched in no time.
    const QString endless = u"{{city}} {a|b} "_s.repeated(400);
    QVERIFY(!found(endless, u"x "_s.repeated(5000)).lines.isEmpty());
  }

  void aDozenIsRenderedOneAfterTheOtherAndKept() {
    openWall(campaign(firstEmail()), leadsAnswer(14));
    QCOMPARE(wall->emails()->count(), 12);
    QCOMPARE(wall->verdict(), QString());
    const auto asked = sent();
    QCOMPARE(asked[u"steps"_s].toArray().size(), 1);
    QCOMPARE(render(true), u"l1"_s);
    QCOMPARE(wall->verdict(), u"1 of 1 looks right"_s);
    // Gone in the middle of it: nothing more is asked, and what came late changes nothing.
    wall->setWatched(false);
    QCOMPARE(f->api.waiting(), 0);
    f->api.expect(leads);
    f->api.expect(preview);
    wall->setWatched(true);
    f->api.answer(leads, leadsAnswer(14));
    for (int i = 2; i <= 12; ++i) QCOMPARE(render(i < 12, rendered(i % 2 ? "A" : "B")), u"l%1"_s.arg(i));
    QCOMPARE(wall->verdict(), u"12 of 12 look right"_s);
    QCOMPARE(wall->emails()->records()[1].words, u"2 of 12, P2, variant B, looks right"_s);

    // Back again, with nothing changed.
    wall->setWatched(false);
    f->api.expect(leads);
    wall->setWatched(true);
    f->api.answer(leads, leadsAnswer(14));
    QCOMPARE(wall->verdict(), u"12 of 12 look right"_s);

    // The other two, and the first dozen again.
    f->api.expect(preview);
    wall->showOthers();
    QCOMPARE(render(true), u"l13"_s);
    QCOMPARE(render(false), u"l14"_s);
    wall->showOthers();
    QCOMPARE(wall->current(), u"l1"_s);
    QCOMPARE(wall->verdict(), u"12 of 12 look right"_s);
  }

  void onlyWhatChangedIsRenderedAgain() {
    openWall(campaign(firstEmail()), leadsAnswer(2));
    render(true, rendered("A"));
    render(false, rendered("B"));
    // The text of a variant concerns those who get it; the wait and other emails concern nobody.
    f->api.expect(put);
    f->api.expect(preview);
    editor->setBody(u"Better"_s);
    QCOMPARE(stateOf(u"l1"_s), u"waiting"_s);
    QCOMPARE(stateOf(u"l2"_s), u"right"_s);
    QCOMPARE(render(false, rendered("A")), u"l1"_s);
    editor->insertStep(1);
    editor->setBody(u"Second"_s);
    // Shares decide who gets what.
    editor->selectPlace(0);
    f->api.expect(preview);
    editor->setWeight(3);
    QCOMPARE(render(true), u"l1"_s);
    QCOMPARE(render(false), u"l2"_s);
    passWait();

    // A lead that was mended, and one that is gone.
    wall->setWatched(false);
    f->api.expect(leads);
    wall->setWatched(true);
    f->api.expect(preview);
    f->api.answer(leads, leadsAnswer(1, "Ventspils"));
    QCOMPARE(wall->emails()->count(), 1);
    QCOMPARE(render(false), u"l1"_s);
  }

  void anotherSequenceIsRenderedAgain() {
    openWall(campaign(firstEmail()), leadsAnswer(1));
    render(false);
    f->api.expect(get);
    store->refresh();
    f->api.expect(preview);
    f->api.answer(get, campaign(firstEmail("Somebody else's"), 9));
    QCOMPARE(stateOf(u"l1"_s), u"waiting"_s);
    QCOMPARE(render(false), u"l1"_s);
    QCOMPARE(stateOf(u"l1"_s), u"right"_s);
  }

  void aFailureStopsItAndIsTold() {
    openWall(campaign(firstEmail()), leadsAnswer(3));
    render(true);
    // One lead's trouble is that lead's.
    f->api.expect(preview);
    f->api.answer(preview, R"({"title":"Gone","detail":"This lead is no longer here."})", 404);
    QCOMPARE(stateOf(u"l2"_s), u"wrong"_s);
    f->api.fail(preview, TransportFailure::offline);
    QCOMPARE(wall->message(), u"Preview failed. You’re offline. Connect to the internet and try again."_s);
    QCOMPARE(wall->verdict(), u"1 of 2 looks right"_s);
    // There is a connection again.
    f->api.expect(preview);
    f->context->cameOnline();
    QCOMPARE(wall->message(), QString());
    f->api.answer(preview, refusal, 500);
    QVERIFY(!wall->message().isEmpty());
    // Asked for again, the lead that was refused is too.
    f->api.expect(preview);
    wall->retry();
    QCOMPARE(render(true), u"l2"_s);
    QCOMPARE(render(false), u"l3"_s);
    QCOMPARE(wall->verdict(), u"3 of 3 look right"_s);
  }

  void nothingToRenderIsSaid() {
    load(campaign({}));
    f->api.expect(leads);
    wall->setWatched(true);
    f->api.fail(leads, TransportFailure::offline);
    QCOMPARE(wall->message(), u"Couldn’t load leads. You’re offline. Connect to the internet and try again."_s);
    f->api.expect(leads);
    wall->retry();
    f->api.answer(leads, leadsAnswer(2));
    QCOMPARE(wall->lacking(), u"sequence"_s);
    QVERIFY(!wall->nothing().isEmpty());
    f->api.expect(preview);
    editor->insertStep(0);
    QCOMPARE(wall->nothing(), QString());
    f->api.expect(put);
    passWait();
  }

  void withoutLeadsNobodyIsAsked() {
    openWall(campaign(firstEmail()), {});
    QCOMPARE(wall->lacking(), u"leads"_s);
    QCOMPARE(wall->note(), QString());
    wall->showOthers();
    wall->open(u"l1"_s);
    QCOMPARE(store->tab(), CampaignStore::Tab::sequence);
  }

  void aSubsequenceBeginsInItsThread() {
    QByteArray answer = campaign(firstEmail().replace("\"sameThread\":false", "\"sameThread\":true"));
    answer.replace("\"id\":\"c1\"", R"("id":"c1","parent":{"id":"c0","name":"Fair"})");
    openWall(answer, leadsAnswer(1));
    render(false, rendered().replace("\"subject\":\"S\"", "\"subject\":\"\""));
    QCOMPARE(stateOf(u"l1"_s), u"right"_s);
    QCOMPARE(wall->emails()->records()[0].subject, u"Re: same thread"_s);
  }

  void enterLeadsToWhereItIsMended() {
    openWall(campaign(firstEmail("Hi {{city}}")), leadsAnswer(2));
    QByteArray missing = rendered("A", "Hi ");
    missing.replace("[{\"name\":\"firstName\"", R"([{"name":"city"},{"name":"firstName")");
    render(true, missing);
    render(false, rendered("B", "{Hello"));
    f->api.expect(u"GET /campaigns/c1/leads/l1"_s);
    wall->open(u"l1"_s);
    QCOMPARE(store->tab(), CampaignStore::Tab::leads);
    QCOMPARE(store->leads()->panel()->leadId(), u"l1"_s);
    f->api.expect(preview);
    wall->open(u"l2"_s);
    QCOMPARE(store->tab(), CampaignStore::Tab::sequence);
    QCOMPARE(editor->subject(), u"Two"_s);
    QCOMPARE(editor->preview()->lead(), u"l2"_s);
  }
};

QTEST_GUILESS_MAIN(ProofWallTest)
#include "proofwall_test.moc"
