#include <random>

#include "app/accounts/AccountTexts.h"
#include "kit/models/mailboxes/mailboxPatch.h"
#include "tests/app/accounts/AccountFixture.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto patched = u"PATCH /mailboxes/m1"_s;
const auto trackingCheck = u"POST /mailboxes/m1/tracking-domain/check"_s;
const auto verify = u"POST /mailboxes/m1/verify"_s;
const auto putConnection = u"PUT /mailboxes/m1/connection"_s;
const auto conflictText =
    u"Someone changed this account meanwhile. The form shows the latest values; make your change again."_s;

QByteArray day(const QByteArray& name, int sent, int live, int placed = 0, int inbox = 0, int failed = 0) {
  const auto n = [](int value) { return QByteArray::number(value); };
  return R"({"day":")" + name + R"(","planned":9,"sent":)" + n(sent) + R"(,"repliesSent":0,"received":0,"replies":)" +
         n(sent / 2) + R"(,"failed":)" + n(failed) + R"(,"placed":)" + n(placed) + R"(,"inbox":)" + n(inbox) +
         R"(,"spam":0,"rescued":0,"campaignSent":)" + n(live) + "}";
}

QByteArray days(const QByteArrayList& all) { return R"({"timeZone":"Europe/Berlin","days":[)" + all.join(',') + "]}"; }

}  // namespace

class AccountTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AccountFixture> f;
  std::unique_ptr<AccountDetail> store;
  AccountSettings* form = nullptr;

  void load(const QByteArray& answer) {
    f->api.expect(f->get);
    store->refresh();
    f->api.answer(f->get, answer);
  }
  QString value(const QString& field) const { return form->draft()->values().value(field).toString(); }
  QString problem(const QString& field) const { return form->draft()->problems().value(field).toString(); }
  QStringList sentKeys() const { return f->sentBody().keys(); }
  void save() {
    f->api.expect(patched);
    form->save();
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AccountFixture>();
    store = std::make_unique<AccountDetail>(u"m1"_s, *f->context, f->actions);
    form = store->settings();
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void numbersStayWithinTheirBounds_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const QString& field, const QString& text, const QString& problem) {
      QTest::newRow(name) << field << text << problem;
    };
    const QString limit = u"sendLimit"_s, gap = u"gap"_s, most = u"Enter a number from 0 to 2000"_s;
    row("zero", limit, u"0"_s, {});
    row("the most", limit, u" +2000 "_s, {});
    row("more", limit, u"2001"_s, most);
    row("negative", limit, u"-1"_s, most);
    row("half", limit, u"3.5"_s, most);
    row("word", limit, u"ten"_s, most);
    row("empty", limit, u" "_s, {});
    row("a day", gap, u"1440"_s, {});
    row("over a day", gap, u"1441"_s, u"Enter a number from 0 to 1440"_s);
  }
  void numbersStayWithinTheirBounds() {
    QFETCH(QString, field);
    QFETCH(QString, text);
    AccountFields base, typed;
    (field == "gap"_L1 ? typed.gap : typed.sendLimit) = text;
    QTEST(problemsIn(typed, base).value(field).toString(), "problem");
  }

  void trackingHosts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("host");
    QTest::addColumn<bool>("good");
    const QString label63(63, u'a'), label64(64, u'a');
    const auto row = [](const char* name, const QString& text, const QString& host, bool good) {
      QTest::newRow(name) << text << host << good;
    };
    row("as copied", u" HTTPS://Track.A.example/path?q \n"_s, u"track.a.example"_s, true);
    row("four characters", u"a.io"_s, u"a.io"_s, true);
    row("three", u"a.i"_s, u"a.i"_s, false);
    row("no dot", u"localhost"_s, u"localhost"_s, false);
    row("a port", u"a.example:80"_s, u"a.example:80"_s, false);
    row("a dash before a dot", u"a-.example"_s, u"a-.example"_s, false);
    row("a dash inside", u"a-b.example"_s, u"a-b.example"_s, true);
    row("a long label", label63 + u".example"_s, label63 + u".example"_s, true);
    row("too long a label", label64 + u".example"_s, label64 + u".example"_s, false);
    row("a line after it", u"a.example\nb"_s, u"a.example\nb"_s, false);
    row("other letters", u"ä.example"_s, u"ä.example"_s, false);
    row("a number at its end", u"a.e1"_s, u"a.e1"_s, false);
  }
  void trackingHosts() {
    QFETCH(QString, text);
    QFETCH(bool, good);
    QTEST(normalisedHost(text), "host");
    AccountFields typed;
    typed.trackingDomain = text;
    QCOMPARE(problemsIn(typed, {}).contains(u"trackingDomain"_s), !good);
  }

  /// A form changed at random, saved, read back: it shows what was typed, and nothing else was sent.
  void aPatchCarriesWhatWasTypedAndNothingElse() {
    std::mt19937 random(printedSeed());
    const auto pick = [&random](const auto& list) { return list[qsizetype(random() % uint(list.size()))]; };
    const QStringList names{u"Ana"_s, u"Ben"_s}, texts{{}, u"Best,\n\nAna"_s}, numbers{u"0"_s, u"7"_s, u"1440"_s},
        hosts{{}, u"t.a.example"_s, u"t.b.example"_s};
    const QList<QStringList> tags{{}, {u"a"_s}, {u"b"_s, u"a"_s}};
    for (int run = 0; run < 300; ++run) {
      const auto made = [&] {
        Mailbox mailbox;
        mailbox.displayName = pick(names);
        mailbox.signature = pick(texts);
        mailbox.sendLimit = pick(numbers).toInt();
        mailbox.sendingGapMinutes = pick(numbers).toInt();
        if (const QString host = pick(hosts); !host.isEmpty()) mailbox.trackingDomain = host;
        mailbox.tags = pick(tags);
        return mailbox;
      };
      Mailbox before = made();
      const AccountFields base = accountFieldsOf(before), typed = accountFieldsOf(made());
      const MailboxPatch patch = patchOf(typed, base);
      QCOMPARE(patch.displayName.has_value(), typed.displayName != base.displayName);
      QCOMPARE(patch.signature.has_value(), typed.signature != base.signature);
      QCOMPARE(patch.sendLimit.has_value(), typed.sendLimit != base.sendLimit);
      QCOMPARE(patch.sendingGapMinutes.has_value(), typed.gap != base.gap);
      QCOMPARE(patch.tags.has_value(), typed.tags != base.tags);
      QCOMPARE(patch.trackingDomain.isPresent(), typed.trackingDomain != base.trackingDomain);
      QVERIFY(!patch.dailyCap);
      // As the service does it.
      if (patch.displayName) before.displayName = *patch.displayName;
      if (patch.signature) before.signature = patch.signature;
      if (patch.sendLimit) before.sendLimit = patch.sendLimit;
      if (patch.sendingGapMinutes) before.sendingGapMinutes = patch.sendingGapMinutes;
      if (patch.tags) before.tags = patch.tags;
      if (patch.trackingDomain.isPresent()) before.trackingDomain = patch.trackingDomain.value();
      QCOMPARE(accountFieldsOf(before), typed);
      QCOMPARE(patchOf(typed, typed), MailboxPatch());
    }
  }

  void onlyWhatChangedIsSent() {
    load(f->mailbox(7, R"(,"sendLimit":30,"trackingDomain":"t.a.example","tags":["dach"])"));
    QCOMPARE(form->keptSendLimit(), QString());
    form->set(u"sendLimit"_s, u" "_s);
    QCOMPARE(form->keptSendLimit(), u"Left empty, it stays at 30."_s);
    QCOMPARE(form->keptGap(), QString());
    form->discard();
    form->set(u"trackingDomain"_s, QString());
    QVERIFY(form->canSave());
    save();
    QCOMPARE(f->api.last().request.ifMatch, 7);
    QCOMPARE(sentKeys(), QStringList{u"trackingDomain"_s});
    QVERIFY(f->sentBody()["trackingDomain"_L1].isNull());
    f->api.answer(patched, f->mailbox(8, R"(,"sendLimit":30,"tags":["dach"])"));
    QCOMPARE(f->lastToast(), u"Settings saved"_s);
    QVERIFY(!form->dirty());
    // A limit that was taken away is not one of zero.
    form->set(u"sendLimit"_s, QString());
    form->save();
    QCOMPARE(value(u"sendLimit"_s), u"30"_s);
  }

  void aNewTrackingDomainIsChecked() {
    load(f->mailbox(7));
    form->set(u"trackingDomain"_s, u"https://T.a.example/x"_s);
    save();
    QCOMPARE(f->sentBody()["trackingDomain"_L1].toString(), u"t.a.example"_s);
    f->api.expect(trackingCheck);
    f->api.answer(patched, f->mailbox(8, R"(,"trackingDomain":"t.a.example")"));
    f->api.answer(trackingCheck, R"({"check":{"ok":false,"expected":"track.s.example"},"mailbox":)" +
                                     f->mailbox(9, R"(,"trackingDomain":"t.a.example")") + "}");
    QCOMPARE(f->lastToast(), u"Settings saved"_s);
    QCOMPARE(f->toasts.toasts().last().detail,
             u"Point t.a.example at track.s.example with a CNAME, then check again."_s);
    QVERIFY(form->hasTrackingDomain() && !form->trackingVerified());
    f->api.expect(trackingCheck);
    form->checkTracking();
    f->api.answer(trackingCheck,
                  R"({"check":{"ok":true,"expected":"track.s.example"},"mailbox":)" +
                      f->mailbox(10, R"(,"trackingDomain":"t.a.example","trackingDomainVerifiedAt":"2026-11-21")") +
                      "}");
    QCOMPARE(f->lastToast(), u"The tracking domain t.a.example is verified"_s);
    QVERIFY(form->trackingVerified());
  }

  void whoWasSlowerSeesTheLatestValues() {
    load(f->mailbox(7, R"(,"sendLimit":30)"));
    form->set(u"sendLimit"_s, u"20"_s);
    form->set(u"displayName"_s, u"Anna"_s);
    save();
    f->api.expect(f->get);
    f->api.answer(patched, R"({"code":"version_conflict","title":"Changed"})", 409);
    f->api.answer(f->get, f->mailbox(9, R"(,"sendLimit":50)"));
    QCOMPARE(form->problem(), conflictText);
    QCOMPARE(value(u"sendLimit"_s), u"50"_s);
    QCOMPARE(value(u"displayName"_s), u"Ana"_s);
    QVERIFY(!form->dirty() && !form->saving());
    form->set(u"sendLimit"_s, u"20"_s);
    QCOMPARE(form->problem(), QString());
    save();
    QCOMPARE(f->api.last().request.ifMatch, 9);
  }

  void anyOtherFailureKeepsWhatWasTyped() {
    load(f->mailbox(7));
    form->set(u"displayName"_s, u"Anna"_s);
    save();
    f->api.answer(patched, R"({"detail":"Not now."})", 422);
    QCOMPARE(form->problem(), u"Couldn’t save. Not now."_s);
    QCOMPARE(value(u"displayName"_s), u"Anna"_s);
    QVERIFY(form->canSave());
  }

  void tagsAreTwentyAtMost() {
    load(f->mailbox(7, R"(,"tags":["One"])"));
    form->addTags({u" one "_s, {}, u"two"_s});
    QCOMPARE(form->draft()->typed().tags, (QStringList{u"One"_s, u"two"_s}));
    QStringList more;
    for (int i = 3; i <= 20; ++i) more.append(QString::number(i));
    form->addTags(more);
    QCOMPARE(form->draft()->typed().tags.size(), 20);
    form->addTags({u"another"_s});
    QCOMPARE(problem(u"tags"_s), u"20 tags is the most"_s);
    QCOMPARE(form->draft()->typed().tags.size(), 20);
  }

  void theChartStacksWhatWasSentOverWhatWasPlanned() {
    load(f->mailbox(7, R"(,"rampup":{"state":"running","stageKey":"warmup","campaignCapToday":0})"));
    f->api.expect(f->history);
    store->activity()->ensureLoaded();
    f->api.answer(f->history, days({day("2026-11-20", 4, 0), day("2026-11-21", 10, 30, 14, 13, 2)}));
    const auto& activity = *store->activity();
    QCOMPARE(activity.days(), (QStringList{u"2026-11-20"_s, u"2026-11-21"_s}));
    QCOMPARE(activity.dayNotes(), (QStringList{QString(), u"13 inbox (13 of 14 checked)"_s}));
    QStringList labels;
    for (const QVariant& series : activity.series()) labels.append(series.toMap()[u"label"_s].toString());
    QCOMPARE(labels, (QStringList{u"Warm-up"_s, u"Live"_s, u"Planned"_s, u"Failed"_s}));
    QCOMPARE(activity.series()[0].toMap()[u"notes"_s].toStringList(), (QStringList{u"2 replies"_s, u"5 replies"_s}));
    QCOMPARE(activity.figures()[0].value, u"Warm-up"_s);
    QCOMPARE(activity.figures()[1].value, u"14"_s);
    QCOMPARE(activity.figures()[4].detail, u"13 of 14 checked"_s);
  }

  void aRangeWithoutSendingSaysItsLength() {
    load(f->mailbox(7));
    f->api.expect(f->history);
    store->activity()->ensureLoaded();
    f->api.answer(f->history, days({day("2026-11-21", 0, 0)}));
    f->api.expect(f->history);
    store->activity()->setRange(u"90"_s);
    QCOMPARE(f->api.last().request.query, (QList<QueryItem>{{u"days"_s, u"90"_s}}));
    f->api.answer(f->history, days({day("2026-11-21", 0, 0)}));
    QVERIFY(store->activity()->days().isEmpty());
    QVERIFY(store->activity()->emptyText().startsWith(u"Nothing sent in the last 90 days yet."_s));
    store->activity()->setRange(u"31"_s);
    QCOMPARE(store->activity()->range(), 90);
  }

  void aCheckIsToldWhenItEnds() {
    load(f->mailbox(7, {}, "active", R"("kind":"google_dwd","status":"connected")"));
    QCOMPARE(store->mainAction(), u"check"_s);
    f->api.expect(verify);
    QVERIFY(store->act(u"check"_s));
    QCOMPARE(f->lastToast(), u"Testing ana@a.example"_s);
    f->api.answer(verify, f->mailbox(8, {}, "verifying"));
    QCOMPARE(store->connectionLabel(), u"Verifying"_s);
    QVERIFY(!store->busy());
    f->api.expect(f->get);
    f->clock.advance(6s);
    f->api.answer(f->get,
                  f->mailbox(9, {}, "failed", R"("kind":"google_dwd","status":"failed","lastError":"Refused")"));
    QCOMPARE(f->lastToast(), u"ana@a.example: the connection check failed"_s);
    QCOMPARE(store->connectionError(), u"Refused"_s);
  }

  void aTestThatFailsIsOneMessage() {
    load(f->mailbox(7));
    f->api.expect(verify);
    f->actions.test(u"m1"_s, u"ana@a.example"_s);
    f->api.answer(verify, R"({"detail":"Busy."})", 422);
    QCOMPARE(f->lastToast(), u"Couldn’t test ana@a.example. Busy."_s);
  }

  void aNewSignInBeginsWithTheOldOne() {
    load(f->mailbox(7, {}, "failed", R"("kind":"smtp_imap","status":"failed","host":"smtp.b.example")"));
    QCOMPARE(store->mainAction(), u"reconnect"_s);
    store->beginReconnect();
    ReconnectAccount& reconnect = *store->reconnect();
    const ConnectionFields fields = reconnect.connection()->fields();
    QCOMPARE(fields.username, u"ana@a.example"_s);
    QCOMPARE(fields.smtpHost, u"smtp.b.example"_s);
    QCOMPARE(fields.imapHost, u"imap.b.example"_s);
    QVERIFY(!reconnect.canSubmit());
    reconnect.connection()->setPassword(u"new"_s);
    f->api.expect(putConnection);
    reconnect.submit();
    QCOMPARE(f->sentBody()["connection"_L1]["password"_L1].toString(), u"new"_s);
    f->api.answer(putConnection, R"({"detail":"Refused."})", 422);
    QCOMPARE(reconnect.error(), u"Couldn’t reconnect. Refused."_s);
    QCOMPARE(reconnect.connection()->password(), u"new"_s);
    f->api.expect(putConnection);
    reconnect.submit();
    f->api.answer(putConnection, f->mailbox(8, {}, "verifying"));
    QVERIFY(!reconnect.shown() && reconnect.connection()->password().isEmpty());
    QCOMPARE(f->lastToast(), u"Checking the new sign-in for ana@a.example"_s);
    f->api.expect(f->get);
    f->clock.advance(6s);
    f->api.answer(f->get, f->mailbox(9));
    QCOMPARE(f->lastToast(), u"ana@a.example connected"_s);
  }

  void anAppIsReconnectedAsOne() {
    // Its address is none that could be typed for a new one, and is not asked about here.
    load(QByteArray(f->mailbox(7, {}, "failed", R"("kind":"ms_graph_app","status":"failed")"))
             .replace("ana@a.example", "ana@localhost"));
    store->beginReconnect();
    QCOMPARE(store->reconnect()->connection()->kind(), ConnectionForm::Kind::microsoftApp);
    store->reconnect()->connection()->setClientSecret(u"new"_s);
    f->api.expect(putConnection);
    store->reconnect()->submit();
    QVERIFY(f->api.isWaiting(putConnection));
  }

  void theAddressIsCopied() {
    load(f->mailbox(7));
    store->copyAddress();
    QCOMPARE(f->clipboard.text, u"ana@a.example"_s);
    QVERIFY(store->copied());
    f->clock.advance(2s);
    settle();
    QVERIFY(!store->copied());
    f->clipboard.works = false;
    store->copyAddress();
    QCOMPARE(f->lastToast(), u"Couldn’t copy. Select the address and copy it."_s);
  }

  void whatIsDoneInTheListIsNobodyElses() {
    load(f->mailbox(7));
    form->set(u"displayName"_s, u"Anna"_s);
    const auto pause = u"POST /mailboxes/m1/pause"_s;
    f->api.expect(pause);
    f->actions.pause(u"m1"_s, u"ana@a.example"_s);
    f->api.answer(pause, f->mailbox(8, {}, "paused"));
    QVERIFY(form->dirty());
    save();
    QCOMPARE(f->api.last().request.ifMatch, 8);
  }

  void whoPausedItResumesItAfterTheListHasGone() {
    const auto pause = u"POST /mailboxes/m1/pause"_s, resume = u"POST /mailboxes/m1/resume"_s;
    auto actions = std::make_unique<AccountActions>(*f->context);
    f->api.expect(pause);
    actions->pause(u"m1"_s, u"ana@a.example"_s);
    f->api.answer(pause, f->mailbox(8, {}, "paused"));
    actions.reset();
    f->api.expect(resume);
    f->toasts.act(f->toasts.toasts().last().id);
    f->api.answer(resume, f->mailbox(9));
    QCOMPARE(f->lastToast(), u"ana@a.example resumed"_s);
  }

  void theWayToRampupLeadsToTheAccount() {
    load(f->mailbox(7));
    store->openRampup();
    QCOMPARE(f->navigator.page, Page::rampup);
    QCOMPARE(f->navigator.item, u"m1"_s);
  }
};

QTEST_GUILESS_MAIN(AccountTest)
#include "account_test.moc"
