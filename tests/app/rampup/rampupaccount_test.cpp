#include <QJsonArray>

#include "kit/models/mailboxes/mailbox.h"
#include "tests/app/rampup/RampupFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto get = u"GET /rampup/m1"_s;
const auto stats = u"GET /rampup/m1/stats"_s;
const auto settingsPatch = u"PATCH /rampup/m1/settings"_s;
const QByteArray someStats =
    R"({"days":[],"totals":{"sent":1436,"inbox":388,"spam":17,"saved":15,"received":402,"replies":139}})";

}  // namespace

class RampupAccountTest : public QObject {
  Q_OBJECT

  std::unique_ptr<RampupFixture> f;
  std::unique_ptr<RampupAccountStore> store;

  void open(const RampupItem& item, const QList<RoadmapDay>& days = {}) {
    f->load({item});
    store = std::make_unique<RampupAccountStore>(u"m1"_s, f->store);
    store->detail()->appear();
    f->api.expect(get);
    f->api.expect(stats);
    store->ensureLoaded();
    f->api.answer(get, detailOf(item, days));
    f->api.answer(stats, someStats);
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<RampupFixture>(); }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void itSaysWhereTheAccountStands_data() {
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("by");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("note");
    QTest::newRow("running") << u"running"_s << QString() << u"Day 24 of 42"_s << QString();
    QTest::newRow("scheduled") << u"scheduled"_s << QString() << u"The roadmap starts on its first day."_s << QString();
    QTest::newRow("done") << u"done"_s << QString() << u"Roadmap finished: the account sends at full volume."_s
                          << QString();
    QTest::newRow("by hand") << u"paused"_s << u"u1"_s << u"The roadmap is paused and holds its level."_s
                             << u"Paused: the days ahead are laid out again on resume."_s;
    QTest::newRow("protected") << u"paused"_s << u"auto"_s << u"The roadmap is paused and holds its level."_s
                               << u"Paused by auto-protect. Under 75% of its checked warm-up emails reached the inbox "
                                  u"over 7 days. Warm-up holds at its level. Send less from it until placement "
                                  u"recovers, then resume."_s;
  }
  void itSaysWhereTheAccountStands() {
    QFETCH(QString, state);
    QFETCH(QString, by);
    RampupItem item = someItem(u"m1"_s, somePlan(24, state));
    if (!by.isEmpty()) item.plan->pausedBy = by;
    item.plan->pauseReason = u"62% reached the inbox, under 75 % over 7 days"_s;
    open(item);
    QTEST(store->stateLine(), "line");
    QTEST(store->note(), "note");
    QVERIFY(store->facts().startsWith(u"Google schedule · start"_s));
    QCOMPARE(store->warmupText(),
             u"Up to 24 warm-up emails a day, adding 1 a day until then. 32% of them get a reply."_s);
    QCOMPARE(store->healthText(),
             u"388 of 412 checked warm-up emails reached the inbox over 30 days (17 in spam, 7 missing)"_s);
    QCOMPARE(store->figures().at(1).detail,
             u"Campaign emails sent today. The roadmap suggests 10; it is a guide and "
             u"never stops a campaign."_s);
    QCOMPARE(store->statLines().first().detail, u"1,436"_s);
  }

  void withoutARoadmapItSaysWhy() {
    open(someItem(u"m1"_s, std::nullopt));
    QCOMPARE(store->missingTitle(), u"This account is not on a roadmap."_s);
    QCOMPARE(store->missingText(), u"Rampup has not started a roadmap for this account yet."_s);
    RampupItem off = someItem(u"m1"_s);
    off.settings.enabled = false;
    off.health = {};
    QCOMPARE(RampupWords::warmupText(off.settings), u"Warm-up is off: this account sends no warm-up emails."_s);
    QCOMPARE(RampupWords::healthText(off.health), u"No checked warm-up emails in 30 days yet"_s);
    off.health.low = true;
    QVERIFY(RampupWords::healthWarning(off).startsWith(u"Health under 80%. Too many"_s));
  }

  void daysAheadHaveAPlanAndNothingSent() {
    const auto day = [](const QString& date, const QString& when, std::optional<qint64> sent) {
      return RoadmapDay{
          date, 1, u"warmup"_s, u"Warm-up only"_s, 1, 14, 5, 0, sent, sent ? std::optional<qint64>(0) : std::nullopt,
          when};
    };
    open(someItem(u"m1"_s), {day(u"2026-11-19"_s, u"past"_s, 4), day(u"2026-11-20"_s, u"today"_s, 2),
                             day(u"2026-11-21"_s, u"future"_s, std::nullopt)});
    QCOMPARE(store->today(), 1);
    const QVariantList sent = store->warmupSeries().at(0).toMap().value(u"values"_s).toList();
    QCOMPARE(sent.at(0).toInt(), 4);
    QVERIFY(qIsNaN(sent.at(2).toDouble()));
    QVERIFY(store->warmupSeries().at(1).toMap().value(u"planned"_s).toBool());
    QCOMPARE(store->dayNotes().at(2), u"Warm-up only, day 1 of 14"_s);
  }

  void anAccountThatWasReadAheadOpensAtOnce() {
    f->load({someItem(u"m1"_s)});
    f->api.expect(get);
    f->store.details()->prefetch(u"m1"_s);
    settle();
    f->api.answer(get, detailOf(someItem(u"m1"_s)));
    store = std::make_unique<RampupAccountStore>(u"m1"_s, f->store);
    f->api.expect(stats);
    store->ensureLoaded();
    QVERIFY(store->detail()->hasContent());
    QCOMPARE(f->asked(get), 1);
    f->api.answer(stats, someStats);
  }

  void aPauseIsKnownInTheListAtOnceAndElsewhereLater() {
    open(someItem(u"m1"_s));
    const QString pause = u"POST /rampup/m1/pause"_s;
    int told = 0;
    f->context->changes().watch<Mailbox>(store.get(), [&told](const Change<Mailbox>& change) {
      told += change.kind == Change<Mailbox>::Kind::stale && change.id == "m1"_L1;
    });
    f->api.expect(pause);
    QVERIFY(store->act(u"pause"_s));
    QVERIFY(store->busy() && f->store.accounts()->busyIds() == QStringList{u"m1"_s});
    RampupItem paused = someItem(u"m1"_s, somePlan(24, u"paused"_s));
    f->api.answer(pause, detailOf(paused));
    settle();
    QCOMPARE(f->lastToast(), u"Roadmap paused"_s);
    QVERIFY(store->paused() && !store->busy());
    QVERIFY(f->store.find(u"m1"_s)->plan->isPaused());
    QCOMPARE(told, 1);
    // The answer is known: neither the list nor the page asks again.
    QCOMPARE(f->asked(get) + f->asked(f->get), 2);
  }

  void somebodyElseWasFasterWithTheRoadmap() {
    open(someItem(u"m1"_s));
    const QString patch = u"PATCH /rampup/m1"_s;
    RoadmapEditor& editor = *store->editor();
    QVERIFY(store->act(u"edit"_s));
    QCOMPARE(editor.submitLabel(), u"Save roadmap"_s);
    editor.set(editor.stages()->records().front().id, u"days"_s, u"10"_s);
    f->api.expect(patch);
    editor.submit();
    QCOMPARE(f->api.last().request.ifMatch, 4);
    f->api.expect(f->get);
    f->api.expect(get);
    f->api.answer(patch, R"({"title":"Changed"})", 409);
    QCOMPARE(editor.error(), u"This roadmap changed since you opened it. Close and try again."_s);
    QVERIFY(editor.shown() && !editor.busy());
    QCOMPARE(editor.typedStages().first().days, u"10"_s);
    settle();
    if (f->api.isWaiting(f->get)) f->api.answer(f->get, listOf({someItem(u"m1"_s)}));
    if (f->api.isWaiting(get)) f->api.answer(get, detailOf(someItem(u"m1"_s)));
  }

  void theEditorsDaysAreTheAccounts() {
    // Paused for a while, it has come less far than it is old; and where the account is, it is another day.
    RampupItem item = someItem(u"m1"_s, somePlan(21));
    item.plan->shiftDays = 3;
    item.today = u"2026-11-21"_s;
    open(item);
    QVERIFY(store->act(u"edit"_s));
    QCOMPARE(store->editor()->today(), 20);
    QCOMPARE(store->editor()->property("days").toStringList().first(), u"2026-11-01"_s);
  }

  void whatIsTypedOfARoadmapStaysWithItsAccount() {
    open(someItem(u"m1"_s));
    store->appear();
    QVERIFY(store->act(u"edit"_s));
    store->disappear();
    QVERIFY(!store->editor()->shown());
    store->appear();
    QVERIFY(store->act(u"edit"_s));
    store->editor()->set(store->editor()->stages()->records().front().id, u"days"_s, u"10"_s);
    // Over the list, or over another account, it would be taken for theirs.
    QVERIFY(!f->store.editor()->shown());
    store->disappear();
    QVERIFY(store->editor()->shown());
    QCOMPARE(store->unsavedWork(), QStringList{u"Changes to a roadmap that are not saved"_s});
    store->editor()->cancel();
    QVERIFY(store->unsavedWork().isEmpty());
  }

  void onlyChangedSettingsAreSent() {
    open(someItem(u"m1"_s));
    WarmupForm& form = *store->warmup();
    form.edit();
    form.draft()->set(u"replyRate"_s, u"140"_s);
    form.save();
    QCOMPARE(form.draft()->problems().value(u"replyRate"_s).toString(), u"Enter a number from 0 to 100"_s);
    form.draft()->set(u"replyRate"_s, u" 40 "_s);
    form.draft()->set(u"increasePerDay"_s, QString());
    f->api.expect(settingsPatch);
    form.save();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"replyRate"_s, 40}, {u"increasePerDay"_s, QJsonValue()}}));
    QVERIFY(form.saving());
    RampupItem saved = someItem(u"m1"_s);
    saved.settings.replyRate = 40;
    saved.settings.increasePerDay.reset();
    f->api.answer(settingsPatch, detailOf(saved));
    settle();
    QVERIFY(!form.saving() && !form.editing() && !form.draft()->dirty());
    QCOMPARE(f->lastToast(), u"Warm-up settings saved"_s);
    QCOMPARE(store->warmupText(), u"Up to 24 warm-up emails a day. 40% of them get a reply."_s);
    QVERIFY(store->unsavedWork().isEmpty());
  }

  void aPatchMakesTheOneOfTheOther_data() {
    QTest::addColumn<int>("seed");
    for (int seed = 0; seed < 20; ++seed) QTest::addRow("%d", seed) << seed;
  }
  void aPatchMakesTheOneOfTheOther() {
    QFETCH(int, seed);
    const auto made = [](int from) {
      WarmupSettings settings;
      settings.enabled = from % 2;
      settings.dailyLimit = from % 5;
      if (from % 3) settings.increasePerDay = from % 4;
      settings.replyRate = from % 7;
      settings.filterTag = from % 2 ? u"x"_s : QString();
      settings.weekdaysOnly = from % 3 == 1;
      return settings;
    };
    const WarmupSettings from = made(seed), to = made(seed * 7 + 3);
    // As the service applies it: what is there is set, null takes away.
    QJsonObject record = toJSON(from);
    const QJsonObject patch = toJSON(patchBetween(from, to));
    for (auto field = patch.begin(); field != patch.end(); ++field)
      field->isNull() ? record.remove(field.key()) : (void)record.insert(field.key(), *field);
    QCOMPARE(record, toJSON(to));
    QCOMPARE(settingsOf(warmupFields(to)), to);
  }

  void daysToExtendByAreBounded() {
    open(someItem(u"m1"_s));
    QVERIFY(store->act(u"extend"_s));
    for (const QString& wrong : {u"0"_s, u"91"_s, u"a week"_s}) {
      store->setProperty("extendDays", wrong);
      store->extend();
      QCOMPARE(store->extending()->error(), u"Enter a number from 1 to 90"_s);
    }
    const QString extend = u"POST /rampup/m1/extend"_s;
    f->api.expect(extend);
    store->setProperty("extendDays", u"90"_s);
    store->extend();
    QCOMPARE(f->sentBody(), (QJsonObject{{u"days"_s, 90}}));
    f->api.answer(extend, detailOf(someItem(u"m1"_s)));
    QVERIFY(!store->extending()->shown());
  }
};

QTEST_GUILESS_MAIN(RampupAccountTest)
#include "rampupaccount_test.moc"
