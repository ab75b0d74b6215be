#include <QSignalSpy>
#include <QTest>
#include <boost/describe/class.hpp>

#include "app/base/Draft.h"
#include "app/base/NameForm.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

struct Fields {
  QString name;
  QStringList tags;
  bool urgent = false;
  bool operator==(const Fields&) const = default;
};
BOOST_DESCRIBE_STRUCT(Fields, (), (name, tags, urgent))

const Fields stored{u"Acme"_s, {u"a"_s}, false};

}  // namespace

class FormsTest : public QObject {
  Q_OBJECT

  ManualClock clock;
  Toasts toasts{clock};

 private Q_SLOTS:
  void cleanup() { toasts.clear(); }

  void aFormIsBusyWhileItsSubmissionLives() {
    Form form;
    form.show();
    {
      auto first = form.begin();
      QVERIFY(form.busy());
      QVERIFY(first.fail(u"Not yet."_s));
    }
    QVERIFY(!form.busy() && form.shown());
    QCOMPARE(form.error(), u"Not yet."_s);
    auto second = form.begin();
    QCOMPARE(form.error(), QString());
    QVERIFY(second.succeed());
    QVERIFY(!form.shown());
  }

  void whatEndsAfterTheFormWasClosedIsToldByAToast() {
    const APIError refused = APIError::of(APIError::Kind::timedOut);
    Form form;
    form.show();
    auto earlier = form.begin();
    form.cancel();
    QVERIFY2(!form.shown(), "closing while busy is possible");
    QVERIFY(!earlier.succeed());
    earlier.fail(toasts, u"Couldn’t rename."_s, refused);
    QCOMPARE(toasts.toasts().last().message, u"Couldn’t rename."_s);
    form.show();
    QVERIFY2(!form.busy(), "the one before belongs to another showing");
    auto later = form.begin();
    QVERIFY(!earlier.fail(u"Too late."_s));
    QVERIFY(form.busy() && form.error().isEmpty());
    toasts.clear();
    later.fail(toasts, u"Couldn’t rename."_s, refused);
    QCOMPARE(form.error(), refused.message());
    QCOMPARE(toasts.count(), 0);
  }

  void aSubmissionOutlivesItsForm() {
    auto form = std::make_unique<Form>();
    form->show();
    auto submission = form->begin();
    form.reset();
    QVERIFY(!submission.succeed() && !submission.fail(u"Gone."_s));
  }

  void aNameIsKeptUntilItIsTaken() {
    NameForm form({u"Rename"_s, {}, u"Name"_s, u"Rename"_s});
    QStringList submitted;
    form.onSubmit = [&](const QString& name) { submitted.append(name); };
    form.show(u"Acme"_s);
    form.setText(u"  "_s);
    form.submit();
    form.setText(u" Acme 2 "_s);
    form.submit();
    QCOMPARE(submitted, QStringList{u"Acme 2"_s});
    auto submission = form.begin();
    form.submit();
    QCOMPARE(submitted.size(), 1);
    QVERIFY(submission.fail(u"Taken."_s));
    QCOMPARE(form.text(), u" Acme 2 "_s);
    form.setText(u"Acme 3"_s);
    QCOMPARE(form.error(), QString());
  }

  void aFieldIsChangedAndTakenBack() {
    DraftOf<Fields> draft;
    draft.fill(stored, 7);
    QSignalSpy told(&draft, &FieldDraft::fieldChanged);
    QVERIFY(!draft.set(u"nothing"_s, 1) && !draft.set(u"name"_s, u"Acme"_s) && told.isEmpty());
    draft.setProblems({{u"name"_s, u"Too short"_s}, {u"tags"_s, u"Too many"_s}});
    QVERIFY(draft.set(u"name"_s, u"A"_s));
    QCOMPARE(told.takeFirst().value(0).toString(), u"name"_s);
    QCOMPARE(draft.problems().keys(), QStringList{u"tags"_s});
    QVERIFY(draft.dirty() && draft.isDirty(u"name"_s) && !draft.isDirty(u"tags"_s));
    QCOMPARE(draft.typed(), (Fields{u"A"_s, {u"a"_s}, false}));
    QCOMPARE(draft.base(), stored);
    draft.discard();
    QVERIFY(!draft.dirty() && draft.problems().isEmpty());
    QCOMPARE(told.takeFirst().value(0).toString(), u"name"_s);
  }

  void aNewerRecordIsTakenOverByField() {
    DraftOf<Fields> draft;
    draft.fill(stored, 7);
    draft.set(u"tags"_s, QStringList{u"a"_s, u"mine"_s});
    draft.rebase({u"Theirs"_s, {u"a"_s}, true}, 8);
    QCOMPARE(draft.typed(), (Fields{u"Theirs"_s, {u"a"_s, u"mine"_s}, true}));
    QCOMPARE(draft.version(), std::optional<qint64>(8));
    QVERIFY(draft.rivals().isEmpty());
    draft.rebase({u"Older"_s, {}, false}, 7);
    QCOMPARE(draft.typed().name, u"Theirs"_s);
  }

  void whatBothChangedIsNotOverwrittenUnseen() {
    DraftOf<Fields> draft;
    draft.fill(stored, 7);
    draft.set(u"name"_s, u"Mine"_s);
    draft.rebase({u"Theirs"_s, {u"b"_s}, false}, 8);
    QCOMPARE(draft.typed(), (Fields{u"Mine"_s, {u"b"_s}, false}));
    QCOMPARE(draft.version(), std::optional<qint64>(7));
    QCOMPARE(draft.rivals(), (QVariantMap{{u"name"_s, u"Theirs"_s}}));
    draft.rebase({u"Theirs"_s, {u"b"_s}, true}, 9);
    QCOMPARE(draft.version(), std::optional<qint64>(7));
    // Refused and told, the next record is the one that a save replaces, and only that one.
    QVERIFY(!draft.failed(APIError::of(APIError::Kind::invalidResponse).withContext({409, true})));
    draft.rebase({u"Theirs"_s, {u"b"_s}, true}, 9);
    QCOMPARE(draft.version(), std::optional<qint64>(9));
    QVERIFY(draft.rivals().contains(u"name"_s));
    draft.rebase({u"Theirs again"_s, {u"b"_s}, true}, 10);
    QCOMPARE(draft.version(), std::optional<qint64>(9));
    // Giving way ends it.
    draft.set(u"name"_s, u"Theirs again"_s);
    QCOMPARE(draft.version(), std::optional<qint64>(10));
    QVERIFY(!draft.dirty() && draft.rivals().isEmpty());
  }

  void theSameChangeByBothIsNoQuarrel() {
    DraftOf<Fields> draft;
    draft.fill(stored, 7);
    draft.set(u"name"_s, u"Same"_s);
    draft.rebase({u"Same"_s, {u"a"_s}, false}, 8);
    QVERIFY(!draft.dirty());
    QCOMPARE(draft.version(), std::optional<qint64>(8));
  }

  void whatIsTypedDuringASaveStays() {
    DraftOf<Fields> draft;
    draft.fill(stored, 7);
    draft.set(u"name"_s, u" One "_s);
    draft.set(u"urgent"_s, true);
    QCOMPARE(draft.sending(), (Fields{u" One "_s, {u"a"_s}, true}));
    draft.set(u"tags"_s, QStringList{});
    draft.set(u"urgent"_s, false);
    draft.taken({u"One"_s, {u"a"_s}, true}, 8);
    QCOMPARE(draft.typed(), (Fields{u"One"_s, {}, false}));
    QVERIFY(draft.isDirty(u"tags"_s) && draft.isDirty(u"urgent"_s) && !draft.isDirty(u"name"_s));
    QCOMPARE(draft.version(), std::optional<qint64>(8));
  }

  void anAnswerThatWasOvertakenBringsNothingBack() {
    DraftOf<Fields> draft;
    draft.fill(stored, 7);
    draft.set(u"name"_s, u"Mine"_s);
    draft.sending();
    draft.rebase({u"Theirs"_s, {u"a"_s}, true}, 9);
    draft.taken({u"Mine"_s, {u"a"_s}, false}, 8);
    QCOMPARE(draft.typed(), (Fields{u"Theirs"_s, {u"a"_s}, true}));
    QCOMPARE(draft.version(), std::optional<qint64>(9));
  }

  void aJournalGivesBackWhatWasTyped_data() {
    QTest::addColumn<QString>("nameNow");
    QTest::addColumn<qint64>("version");
    QTest::newRow("as it was") << u"Acme"_s << qint64(7);
    QTest::newRow("changed by somebody else meanwhile") << u"Theirs"_s << qint64(8);
  }
  void aJournalGivesBackWhatWasTyped() {
    QFETCH(QString, nameNow);
    QFETCH(qint64, version);
    DraftOf<Fields> before, after;
    before.fill(stored, 7);
    QVERIFY(before.journal().isEmpty());
    before.set(u"name"_s, u"Mine"_s);
    before.set(u"tags"_s, QStringList{u"a"_s, u"b"_s});
    after.fill({nameNow, {u"a"_s}, true}, version);
    QVERIFY(after.restore(before.journal()));
    QCOMPARE(after.typed(), (Fields{u"Mine"_s, {u"a"_s, u"b"_s}, true}));
    QCOMPARE(after.base().name, nameNow);
    QCOMPARE(after.version(), std::optional<qint64>(7));
    QCOMPARE(after.rivals().isEmpty(), nameNow == "Acme"_L1);
    QVERIFY2(!DraftOf<Fields>().restore({}), "nothing was kept");
  }
};

QTEST_GUILESS_MAIN(FormsTest)
#include "forms_test.moc"
