#include <QTest>

#include "app/base/Journal.h"
#include "kit/async/ManualClock.h"
#include "tests/support/await.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const Journal::Person ana{u"u1"_s, u"https://a.example"_s};
const Journal::Key sequence{u"acme"_s, u"campaigns/c1/sequence"_s};

/// Files that are read when the test says so.
class SlowFiles final : public JournalFiles {
 public:
  MemoryJournalFiles disk;
  OneShot<bool> readable;
  void write(const QString& name, const QByteArray& bytes) override { disk.write(name, bytes); }
  void remove(const QString& name) override { disk.remove(name); }
  void setAside(const QString& name) override { disk.setAside(name); }
  Task<QMap<QString, QByteArray>> readAll() override {
    const auto files = disk.files;
    co_await readable.wait();
    co_return files;
  }
  void finish() override {}
};

/// A text as a form has it.
struct Typed {
  QString text;
  JournalLine line;
  Typed(Journal& journal, const Journal::Key& key)
      : line(journal, key, [this] {
          return JournalText{7, text.toUtf8()};
        }) {}
  QString takeUp() {
    const auto found = await(line.takeUp());
    return found ? QString::fromUtf8(found->bytes) : u"nothing"_s;
  }
  void type(const QString& typed) {
    text = typed;
    line.follow(true);
  }
};

}  // namespace

class JournalTest : public QObject {
  Q_OBJECT

  MemoryJournalFiles files;
  ManualClock clock;

  /// What a new start of the program finds.
  QString found(const Journal::Person& person, const Journal::Key& key = sequence) {
    Journal journal(files, clock);
    journal.open(person);
    return Typed(journal, key).takeUp();
  }

 private Q_SLOTS:
  void init() { files = {}; }

  void keptWithinASecondHoweverLongSomebodyTypes() {
    Journal journal(files, clock);
    journal.open(ana);
    Typed typed(journal, sequence);
    typed.type(u"too early"_s);
    clock.advance(2s);
    QVERIFY2(files.files.isEmpty(), "what an untouched form has is not kept over what it is about to be given");
    QCOMPARE(typed.takeUp(), u"nothing"_s);
    for (int key = 0; key < 9; ++key) {
      typed.type(u"key %1 “€”"_s.arg(key));
      clock.advance(111ms);
    }
    QVERIFY(files.files.isEmpty());
    clock.advance(1ms);
    QCOMPARE(files.files.size(), 1);
    QCOMPARE(found(ana), u"key 8 “€”"_s);
    QVERIFY2(!files.files.firstKey().contains(u"c1"_s), "a file's name tells nothing");
    QVERIFY(!files.files.first().contains("token"));

    typed.line.follow(false);
    QVERIFY2(files.files.isEmpty(), "the service has it");
    typed.type(u"once more"_s);
    journal.finish();
    QCOMPARE(found(ana), u"once more"_s);
    Journal other(files, clock);
    other.open(ana);
    QCOMPARE(await(other.find(sequence)), (JournalText{7, "once more"}));
  }

  void whatAFormHasWhenItGoesIsKept() {
    Journal journal(files, clock);
    journal.open(ana);
    {
      Typed typed(journal, sequence);
      typed.takeUp();
      typed.type(u"half a sentence"_s);
    }
    QCOMPARE(found(ana), u"half a sentence"_s);
    // Taken up and thrown away by the person.
    Typed typed(journal, sequence);
    QCOMPARE(typed.takeUp(), u"half a sentence"_s);
    typed.line.follow(false);
    QCOMPARE(found(ana), u"nothing"_s);
  }

  void onlyTheirOwn() {
    Journal journal(files, clock);
    journal.open(ana);
    auto typed = std::make_unique<Typed>(journal, sequence);
    typed->takeUp();
    typed->type(u"ana’s"_s);
    journal.close();
    const QList<Journal::Person> others{{u"u2"_s, ana.origin}, {ana.userId, u"https://b.example"_s}};
    for (const auto& other : others) QCOMPARE(found(other), u"nothing"_s);
    QCOMPARE(found(ana, {u"beta"_s, sequence.name}), u"nothing"_s);

    // Another one signs in before the form of the first is gone.
    journal.open(others[0]);
    typed->type(u"late"_s);
    typed.reset();
    clock.advance(2s);
    QCOMPARE(found(others[0]), u"nothing"_s);
    QCOMPARE(found(ana), u"ana’s"_s);

    journal.forget();
    QCOMPARE(found(ana), u"ana’s"_s);
    journal.open(ana);
    journal.forget();
    QVERIFY(files.files.isEmpty());
  }

  void nothingStaysOfWhoSignsOutWhileItIsRead() {
    SlowFiles slow;
    Journal journal(slow, clock);
    journal.open(ana);
    Typed typed(journal, sequence);
    TaskScope scope;
    std::optional<std::optional<JournalText>> taken;
    std::exception_ptr failure;
    scope.start(keepOutcome(typed.line.takeUp(), &taken, &failure));
    QVERIFY2(!taken, "what is there is not known yet");
    slow.readable.give(true);
    QVERIFY(taken && !*taken);
    typed.type(u"mine"_s);
    journal.close();
    QCOMPARE(slow.disk.files.size(), 1);

    slow.readable = {};
    journal.open(ana);
    journal.forget();
    QVERIFY(!journal.isIdle());
    slow.readable.give(true);
    QVERIFY(journal.isIdle() && slow.disk.files.isEmpty());
  }

  void whatCannotBeUnderstoodIsSetAside() {
    Journal journal(files, clock);
    journal.open(ana);
    Typed typed(journal, sequence);
    typed.takeUp();
    typed.type(u"a whole text"_s);
    journal.write();
    const QString name = files.files.firstKey();
    const QByteArray whole = files.files.first();
    QByteArray later = whole, changed = whole;
    later.replace("journal 1", "journal 2");
    changed.replace("whole", "holey");
    for (const QByteArray& broken :
         {QByteArray(), whole.chopped(1), QByteArray(whole.size(), '\0'), later, changed, QByteArray("{}")}) {
      files.files[name] = broken;
      QCOMPARE(found(ana), u"nothing"_s);
      QVERIFY(files.files.isEmpty());
      QCOMPARE(files.aside.take(name), broken);
    }
  }
};

QTEST_GUILESS_MAIN(JournalTest)
#include "journal_test.moc"
