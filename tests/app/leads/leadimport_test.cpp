#include <QAbstractItemModelTester>
#include <QTemporaryDir>

#include "app/leads/LeadImportFields.h"
#include "tests/app/leads/LeadsFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto start = u"POST /lead-imports/csv"_s;
const QByteArray begun = R"({"importId":"im1","jobId":"j1","listId":"li9"})";
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";

/// Of each field the columns that are taken for it, as the files of the trade call them.
const char* const known[] = {
    "email: email, email address, work email",
    "first_name: first name, firstname",
    "last_name: last name, lastname",
    "full_name: full name, name",
    "title: title, job title",
    "company: company, company name, company name for emails",
    "website: website, company website, domain",
    "industry: industry, apollo industry, industry (apollo)",
    "niche: niche, niche (orvella)",
    "employees: employees, # employees, company size",
    "annual_revenue: annual revenue",
    "country: country, company country",
    "state: state, company state",
    "city: city, company city",
    "linkedin_url: linkedin url, person linkedin url, linkedin profile link, linkedin",
    "instagram_url: instagram profile link",
    "instagram_username: instagram username, username",
    "followers: followers",
    "phone: phone, phone number, mobile phone, work direct phone, corporate phone",
    "icp_tier: icp tier",
    "keywords: keywords, company keywords, company keywords/description",
    "technologies: technologies",
    "lead_source: lead source",
    "list_code: list code",
    "batch_id: batch id",
    "date_scraped: date scraped",
    "date_verified: date verified",
    "esp: email service provider, email provider, esp",
    "verification: verification status, verification, email status, result",
};

}  // namespace

class LeadImportTest : public QObject {
  Q_OBJECT

  std::unique_ptr<LeadsFixture> f;
  CsvImportForm* form = nullptr;
  QTemporaryDir folder;

  QString file(const QString& name, const QByteArray& bytes) {
    QFile out(folder.filePath(name));
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) qFatal("The test writes no file");
    return out.fileName();
  }
  void choose(const QString& path) {
    if (!form->form()->shown()) {
      f->api.expect(f->lists);
      form->show();
      f->api.answer(f->lists, f->page({f->list("li1", "Fair", 9)}));
    }
    f->filePanel.opened = path;
    form->chooseFile();
    QTRY_VERIFY(!form->looking());
  }
  void submit() {
    f->api.expect(start);
    form->submit();
    QTRY_VERIFY(f->api.isWaiting(start));
  }
  QVariant cell(int column, int role) const { return form->columns()->data(form->columns()->index(column), role); }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<LeadsFixture>();
    form = f->actions.importing();
  }
  void cleanup() { f.reset(); }

  void everyKnownColumnIsTaken() {
    int names = 0;
    QSet<QString> fields;
    for (const char* line : known) {
      const QString field = QString::fromLatin1(line).section(u": "_s, 0, 0);
      fields.insert(field);
      for (const QString& name : QString::fromLatin1(line).section(u": "_s, 1).split(u", "_s)) {
        QCOMPARE(LeadImportFields::proposedFor({name}), QStringList{field});
        ++names;
      }
    }
    QCOMPARE(names, 62);
    QSet<QString> offered;
    for (const Choice& choice : LeadImportFields::choices()) offered.insert(choice.key);
    fields << u"extra"_s << u"skip"_s;
    QCOMPARE(offered, fields);
  }

  void columnsAreProposedByTheirNames_data() {
    QTest::addColumn<QStringList>("headers");
    QTest::addColumn<QStringList>("mapping");
    QTest::newRow("the first has it") << QStringList{u"Email"_s, u"Work Email"_s, u"NAME"_s, u"Full name"_s}
                                      << QStringList{u"email"_s, u"extra"_s, u"full_name"_s, u"extra"_s};
    QTest::newRow("blanks are one") << QStringList{u" First \t  Name "_s, u"first_name"_s}
                                    << QStringList{u"first_name"_s, u"extra"_s};
    QTest::newRow("behind a mark") << QStringList{u"\uFEFFEmail"_s} << QStringList{u"email"_s};
    QTest::newRow("unknown ones") << QStringList{u"Vans"_s, QString(), u"Vans"_s}
                                  << QStringList{u"extra"_s, u"extra"_s, u"extra"_s};
  }
  void columnsAreProposedByTheirNames() {
    QFETCH(QStringList, headers);
    QTEST(LeadImportFields::proposedFor(headers), "mapping");
  }

  void whatIsMissingIsAsked() {
    const QAbstractItemModelTester tester(form->columns());
    f->api.expect(f->lists);
    form->show();
    QCOMPARE(form->need(), u"Choose a CSV with an email column"_s);
    f->api.answer(f->lists, f->page({}));
    choose(file(u"people.csv"_s, "Mail,Vans,First Name\na@x.example,,Ana\nb@x.example,,Bo\n"));
    QCOMPARE(form->need(), u"Pick the email column"_s);
    QVERIFY(!form->canSubmit());
    QCOMPARE(form->matchedText(), u"1 of 3 matched"_s);
    QCOMPARE(form->sampledText(), u"From the first 2 rows"_s);
    QVERIFY(cell(1, CsvColumns::SamplesRole).toString().isEmpty());
    QCOMPARE(cell(1, ImportColumns::TargetLabelRole).toString(), u"Kept with the lead"_s);

    form->setTarget(0, u"email"_s);
    QVERIFY(form->canSubmit());
    // A field goes into one column: what had it is kept as it is.
    form->setTarget(1, u"email"_s);
    QCOMPARE(form->columns()->mapping(), (QStringList{u"extra"_s, u"email"_s, u"first_name"_s}));
    // Two columns may both be left out.
    form->setTarget(0, u"skip"_s);
    form->setTarget(2, u"skip"_s);
    QCOMPARE(form->matchedText(), u"1 of 3 matched"_s);

    form->list()->setNewName(u"  "_s);
    QCOMPARE(form->nameError(), u"Name the new list"_s);
    QVERIFY(!form->canSubmit());
    form->list()->setCurrent({});
    QVERIFY(form->canSubmit() && form->nameError().isEmpty());
  }

  void theListGetsTheFilesName() {
    choose(file(QString(130, u'x') + u".csv"_s, "email\na@x.example\n"));
    QCOMPARE(form->list()->newName(), QString(120, u'x'));
    choose(file(u" Trade fair.2026.csv"_s, "email\na@x.example\n"));
    QCOMPARE(form->list()->newName(), u"Trade fair.2026"_s);
    form->list()->setNewName(u"Mine"_s);
    choose(file(u"other.csv"_s, "email\na@x.example\n"));
    QCOMPARE(form->list()->newName(), u"Mine"_s);
    choose(file(u"notes.txt"_s, "email\n"));
    QCOMPARE(form->form()->error(), u"Choose a .csv file"_s);
    QVERIFY(!form->canSubmit() && form->columns()->count() == 0);
  }

  void whatIsSent_data() {
    QTest::addColumn<QString>("list");
    QTest::addColumn<QJsonObject>("expected");
    QTest::newRow("a new list") << u"__new__"_s << QJsonObject{{u"listName"_s, u"Fair 2"_s}};
    QTest::newRow("a list") << u"li1"_s << QJsonObject{{u"listId"_s, u"li1"_s}};
    QTest::newRow("no list") << QString() << QJsonObject{};
  }
  void whatIsSent() {
    QFETCH(QString, list);
    QFETCH(QJsonObject, expected);
    const QByteArray text = "Email;Vans\n\"J\xFC\"\"rgen\";3\n";
    choose(file(u"fair.csv"_s, text));
    form->list()->setCurrent(list);
    form->list()->setNewName(u" Fair 2 "_s);
    submit();
    expected.insert(u"fileName"_s, u"fair.csv"_s);
    expected.insert(u"csv"_s, u"Email;Vans\n\"Jü\"\"rgen\";3\n"_s);
    expected.insert(u"mapping"_s, QJsonArray{u"email"_s, u"extra"_s});
    QCOMPARE(f->sentBody(), expected);
    QVERIFY(form->form()->busy() && form->form()->progressText().startsWith(u"Sending fair.csv"_s));
    // Whoever saw it is led to the history.
    for (const QString& label : {f->lists, f->lists, f->imports}) f->api.expect(label);
    f->api.answer(start, begun);
    QVERIFY(f->store->showLists());
    QVERIFY(!form->form()->shown() && !form->form()->busy());
  }

  void aRefusalLeavesTheFormAsItIs() {
    choose(file(u"fair.csv"_s, "Email,Vans\na@x.example,3\n"));
    form->setTarget(1, u"employees"_s);
    submit();
    f->api.answer(start, refusal, 422);
    QCOMPARE(form->form()->error(), u"Not now: It is being checked."_s);
    QCOMPARE(form->columns()->mapping(), (QStringList{u"email"_s, u"employees"_s}));
    submit();
    // Hidden, it goes on and tells its end by itself.
    form->dismiss();
    QVERIFY(form->form()->busy());
    form->show();
    QVERIFY2(form->fileName() == u"fair.csv"_s, "what is under way is shown again");
    form->dismiss();
    // Nobody looks at the history; it is followed all the same.
    f->api.expect(f->imports);
    f->api.answer(start, begun);
    QCOMPARE(f->lastToast(), u"The import of fair.csv has begun"_s);
    QVERIFY(f->api.isWaiting(f->imports));
  }

  void aFileThatHasChangedIsNotSent() {
    const QString path = file(u"fair.csv"_s, "Email,Vans\na@x.example,3\n");
    choose(path);
    file(u"fair.csv"_s, "Vans,Email,More\n3,a@x.example,\n");
    form->submit();
    QTRY_VERIFY(!form->form()->busy());
    QCOMPARE(form->form()->error(), u"That file has changed since you chose it. Choose it again."_s);
    choose(path);
    QVERIFY(form->canSubmit());
  }

  void aFileDroppedOnThePageOpensTheForm() {
    f->api.expect(f->lists);
    form->dropFile(QUrl::fromLocalFile(file(u"fair.csv"_s, "email\na@x.example\n")));
    QVERIFY(form->form()->shown());
    QTRY_VERIFY(!form->looking());
    QCOMPARE(form->list()->newName(), u"fair"_s);
    f->api.answer(f->lists, f->page({}));
    // Not over what is being sent.
    submit();
    form->dropFile(QUrl::fromLocalFile(file(u"other.csv"_s, "email\n")));
    QCOMPARE(form->fileName(), u"fair.csv"_s);
    for (const QString& label : {f->lists, f->lists, f->imports}) f->api.expect(label);
    f->api.answer(start, begun);
  }

  void whatWasChosenComesBackAfterACrash() {
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    choose(file(u"fair.csv"_s, "Email,Vans\na@x.example,3\n"));
    form->setTarget(1, u"employees"_s);
    form->list()->setNewName(u"Fair, autumn"_s);
    f->clock.advance(std::chrono::seconds(2));
    settle();
    f->actions.close();
    LeadActions later(*f->context);
    f->api.expect(f->lists);
    later.importing()->show();
    QTRY_COMPARE(later.importing()->columns()->mapping(), (QStringList{u"email"_s, u"employees"_s}));
    QCOMPARE(later.importing()->list()->newName(), u"Fair, autumn"_s);
    QVERIFY(later.importing()->canSubmit() && !later.importing()->recovery()->notice().isEmpty());
    later.importing()->recovery()->discard();
    QVERIFY(later.importing()->fileName().isEmpty() && later.importing()->columns()->count() == 0);
  }

  void itGoesOnWhenThePageIsGone() {
    choose(file(u"fair.csv"_s, "email\na@x.example\n"));
    form->submit();
    f->store.reset();
    f->actions.close();
    f->api.expect(start);
    QTRY_VERIFY(f->api.isWaiting(start));
    f->api.answer(start, begun);
    QCOMPARE(f->lastToast(), u"The import of fair.csv has begun"_s);
  }
};

QTEST_GUILESS_MAIN(LeadImportTest)
#include "leadimport_test.moc"
