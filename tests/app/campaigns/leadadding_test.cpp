#include <sys/stat.h>
#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "app/base/CsvReader.h"
#include "app/campaigns/LeadAdding.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "tests/app/campaigns/CampaignFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto add = u"POST /campaigns/c1/leads"_s;
const auto own = u"POST /leads/own"_s;
const QByteArray refusal = R"({"title":"Not now","detail":"It is being checked."})";
const QByteArray nobody = R"({"alreadyInCampaign":0,"inOtherCampaign":0,"inList":0,"suppressed":0,"invalid":0,)"
                          R"("duplicateInFile":0})";

QByteArray addResult(int added, const QByteArray& skipped = nobody) {
  return R"({"added":)" + QByteArray::number(added) + R"(,"skipped":)" + skipped + R"(,"total":100})";
}

}  // namespace

class LeadAddingTest : public QObject {
  Q_OBJECT

  struct Life : CampaignFixture {
    int added = 0;
    std::optional<LeadAdding> adding{std::in_place, context, [this] { ++added; }};
  };
  std::unique_ptr<Life> life;
  AppFixture* f = nullptr;
  LeadAdding* adding = nullptr;
  QTemporaryDir folder;

  QJsonObject body() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }
  void type(const char* field, const QString& text) { adding->draft()->set(QString::fromLatin1(field), text); }
  QString samples(int column) const {
    const auto& columns = *adding->fileColumns();
    return columns.data(columns.index(column), CsvColumns::SamplesRole).toString();
  }
  QString toast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }
  QString file(const QString& name, const QByteArray& bytes) {
    const QString path = folder.filePath(name);
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) qFatal("The test writes no file");
    return path;
  }
  /// Opens the form for a file and waits for the first look into it.
  void choose(const QString& path) {
    f->filePanel.opened = path;
    adding->show(u"csv"_s);
    adding->chooseFile();
    QTRY_VERIFY(!adding->fileLooking());
  }

 private Q_SLOTS:
  void init() {
    life = std::make_unique<Life>();
    f = &life->f;
    adding = &*life->adding;
  }
  void cleanup() { life.reset(); }

  void oneByHand() {
    adding->show(u"manual"_s);
    QVERIFY(!adding->canSubmit());
    type("email", u"no address"_s);
    adding->submit();
    QCOMPARE(adding->draft()->problems().value(u"email"_s).toString(), u"Enter a valid email address."_s);
    type("email", u" new@x.example "_s);
    type("firstName", u"Ana"_s);
    type("company", u" "_s);
    f->api.expect(add);
    adding->submit();
    adding->submit();
    QVERIFY(adding->form()->busy());
    f->api.answer(add, refusal, 422);
    QVERIFY2(adding->form()->shown() && adding->draft()->typed().email == u" new@x.example "_s, "what was typed stays");
    QCOMPARE(adding->form()->error(), u"Not now: It is being checked."_s);
    f->api.expect(add);
    adding->submit();
    QCOMPARE(body(), (QJsonObject{{u"source"_s, u"manual"_s},
                                  {u"email"_s, u"new@x.example"_s},
                                  {u"data"_s, QJsonObject{{u"firstName"_s, u"Ana"_s}}},
                                  {u"dedupe"_s, u"campaign"_s}}));
    QSignalSpy cleared(adding, &LeadAdding::cleared);
    f->api.answer(add, addResult(1));
    QCOMPARE(toast(), u"1 lead added"_s);
    QCOMPARE(life->added, 1);
    QVERIFY2(!f->jobs.shown() && adding->form()->shown() && !adding->form()->busy(), "for the next lead");
    QCOMPARE(cleared.count(), 1);
    QCOMPARE(adding->draft()->typed().email, QString());

    // Who was left out is named where it can be read in peace.
    type("email", u"new@x.example"_s);
    f->api.expect(add);
    adding->submit();
    f->api.answer(add, addResult(0, R"({"alreadyInCampaign":1,"inOtherCampaign":0,"inList":0,"suppressed":0,)"
                                    R"("invalid":0,"duplicateInFile":0})"));
    QCOMPARE(f->jobs.shown()->lines(), QStringList{u"1 was in this campaign already"_s});
    QVERIFY(!adding->form()->shown());
    QCOMPARE(cleared.count(), 1);
  }

  void namesOfStrangersRewriteNoQuestion() {
    const auto get = u"GET /campaigns/c1"_s, lists = u"GET /lead-lists"_s;
    f->api.expect(get);
    life->campaign.load();
    f->api.answer(get, R"({"id":"c1","name":"Fair.\nClose it?","status":"draft"})");
    f->api.expect(lists);
    adding->show(u"list"_s);
    f->api.answer(lists, R"({"items":[{"id":"li1","name":"Own\u202ers","leadCount":9}]})");
    adding->setListId(u"li1"_s);
    f->api.expect(add);
    adding->submit();
    QCOMPARE(f->jobs.unsavedWork(),
             QStringList{u"Adding leads from Own\ufffdrs to Fair. Close it? is not done yet."_s});
    f->api.answer(add, addResult(9));
  }

  void eachKindLeftOutIsTold() {
    f->api.expect(u"GET /lead-lists"_s);
    adding->show(u"list"_s);
    f->api.answer(u"GET /lead-lists"_s, R"({"items":[{"id":"li1","name":"Fair","leadCount":9}]})");
    QCOMPARE(adding->listOptions().first().detail, u"9 leads"_s);
    QVERIFY(!adding->canSubmit());
    adding->setListId(u"li1"_s);
    adding->setDedupe(u"workspace"_s);
    f->api.expect(add);
    adding->submit();
    QCOMPARE(body(), (QJsonObject{{u"source"_s, u"list"_s}, {u"listId"_s, u"li1"_s}, {u"dedupe"_s, u"workspace"_s}}));
    f->api.answer(add, addResult(0, R"({"alreadyInCampaign":1,"inOtherCampaign":2,"inList":3,"suppressed":1,)"
                                    R"("invalid":1200,"duplicateInFile":1})"));
    QCOMPARE(f->jobs.shown()->title(), u"No leads added"_s);
    QCOMPARE(f->jobs.shown()->lines(),
             (QStringList{u"1 was in this campaign already"_s, u"2 are in another campaign"_s,
                          u"3 are in another list"_s, u"1 is on the block list and never gets an email"_s,
                          u"1,200 have no valid email address"_s, u"1 came more than once"_s}));
    QVERIFY(!adding->form()->shown());
  }

  void ownLeadsGoInBlocks() {
    adding->show(u"leads"_s);
    for (const auto& wrong : {u"0"_s, u"100001"_s, u"-1"_s, u"2.5"_s, u"99999999999999999999"_s}) {
      adding->setOwnLimit(wrong);
      QCOMPARE(adding->ownLimitError(), u"A whole number from 1 to 100,000"_s);
      QVERIFY(!adding->canSubmit());
    }
    adding->setOwnLimit(u" 2500 "_s);
    adding->setAllowOtherCampaigns(true);
    f->api.expect(own);
    adding->submit();
    QCOMPARE(body(), (QJsonObject{{u"limit"_s, 2500}}));
    QJsonArray ids;
    for (int i = 0; i < 2500; ++i) ids.append(u"o%1"_s.arg(i));
    f->api.expect(add);
    f->api.answer(own, QJsonDocument(QJsonObject{{u"ids"_s, ids}}).toJson());
    QCOMPARE(body().value("leadIds"_L1).toArray().size(), 1000);
    QVERIFY(body().value("allowOtherCampaigns"_L1).toBool());
    f->api.expect(add);
    f->api.answer(add, addResult(990));
    QCOMPARE(adding->form()->progress(), 0.4);
    adding->dismiss();
    QVERIFY2(adding->form()->busy(), "it goes on while hidden");
    f->api.expect(add);
    f->api.answer(add, addResult(1000));
    QCOMPARE(body().value("leadIds"_L1).toArray().size(), 500);
    QCOMPARE(body().value("leadIds"_L1).toArray().last().toString(), u"o2499"_s);
    f->api.answer(add, addResult(10));
    QCOMPARE(toast(), u"2,000 leads added"_s);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->jobs.shown()->title(), u"2,000 leads added"_s);
  }

  void whatWasTakenBeforeAFailureIsTold() {
    adding->show(u"leads"_s);
    QJsonArray ids;
    for (int i = 0; i < 1001; ++i) ids.append(u"o%1"_s.arg(i));
    f->api.expect(own);
    adding->submit();
    f->api.expect(add);
    f->api.answer(own, QJsonDocument(QJsonObject{{u"ids"_s, ids}}).toJson());
    f->api.expect(add);
    f->api.answer(add, addResult(7));
    f->api.answer(add, refusal, 422);
    QCOMPARE(adding->form()->error(), u"Not now: It is being checked. Before that, 7 leads added."_s);
    QVERIFY(!adding->form()->busy() && adding->form()->shown() && !f->jobs.shown());
    QCOMPARE(life->added, 1);
  }

  void filesInAnyEncoding_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTF-8") << "email\nJürgen €"_ba << u"email\nJürgen €"_s;
    QTest::newRow("with its mark") << "\xEF\xBB\xBF"
                                      "email"_ba
                                   << u"email"_s;
    QTest::newRow("Windows-1252") << "email\nJ\xFCrgen \x80 \x93x\x94"_ba << u"email\nJürgen € “x”"_s;
    QTest::newRow("ISO-8859-1") << "email\nJ\xFCrgen \x81"_ba << u"email\nJürgen \u0081"_s;
  }
  void filesInAnyEncoding() {
    QFETCH(QByteArray, bytes);
    choose(file(u"people.CSV"_s, bytes));
    f->api.expect(add);
    adding->submit();
    QTRY_VERIFY(f->api.isWaiting(add));
    QTEST(body().value("csv"_L1).toString(), "text");
    QCOMPARE(body().value("fileName"_L1).toString(), u"people.CSV"_s);
    QCOMPARE(adding->form()->progress(), 0.0);
    const APIRequest& request = f->api.last().request;
    *request.sent = request.body->size() / 2;
    QVERIFY(qAbs(adding->form()->progress() - 0.5) < 0.05);
    f->api.answer(add, addResult(1));
  }

  void aFileOfManyColumnsIsShownWhole() {
    QByteArray header = "email", row = "a@x.example";
    for (int i = 1; i < 60'000; ++i) {
      header += ',' + QByteArray::number(i % 10);
      row += i == 59'999 ? ",last" : ",";
    }
    choose(file(u"wide.csv"_s, header + '\n' + row + '\n'));
    const QAbstractItemModelTester tester(adding->fileColumns());
    QCOMPARE(adding->fileColumns()->count(), 60'000);
    QVERIFY(adding->fileFacts().endsWith(u"60,000 columns"_s));
    QCOMPARE(samples(59'999), u"last"_s);
    QVERIFY(samples(1).isEmpty());

    const QByteArray smiles = QByteArray("\xF0\x9F\x98\x80").repeated(300);
    choose(file(u"long.csv"_s, "x" + QByteArray(5000, 'a') + ",email\n\"a\nb\"," + smiles + ",more\n"));
    QCOMPARE(adding->fileColumns()->names().first().size(), CsvPreview::shownAtMost);
    QCOMPARE(samples(0), u"a b"_s);
    QCOMPARE(samples(1).toUtf8(), smiles.first(400));
    QCOMPARE(adding->fileColumns()->count(), 2);
    adding->dismiss();
    adding->show(u"csv"_s);
    QCOMPARE(adding->fileColumns()->count(), 0);
  }

  void whatIsNoFileIsLeftAlone() {
    const QString path = folder.filePath(u"pipe.csv"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    // Opening it would wait for a writer, for good.
    choose(path);
    QCOMPARE(adding->form()->error(), u"Couldn’t open that file"_s);
    choose(folder.path() + u"/."_s);
    QVERIFY(QDir(folder.path()).mkdir(u"folder.csv"_s));
    choose(folder.filePath(u"folder.csv"_s));
    QCOMPARE(adding->form()->error(), u"Couldn’t open that file"_s);
    QCOMPARE(previewCsv(u"/dev/zero"_s).error, u"Choose a .csv file"_s);
    QVERIFY(QFile::link(u"/dev/zero"_s, folder.filePath(u"zero.csv"_s)));
    QCOMPARE(previewCsv(folder.filePath(u"zero.csv"_s)).error, u"Couldn’t open that file"_s);
  }

  void aLeadHalfFilledInComesBack() {
    const auto names = [this] { return adding->draft()->typed().firstName; };
    f->journal.open({u"u1"_s, u"https://service.example"_s});
    adding->show(u"manual"_s);
    type("firstName", u"Ana"_s);
    type("email", u"ana@x.example"_s);
    f->clock.advance(1s);
    QCOMPARE(f->journalFiles.files.size(), 1);
    // The session ends, and with it the page.
    life->adding.emplace(life->context, [] {});
    adding = &*life->adding;
    adding->show(u"manual"_s);
    QTRY_COMPARE(names(), u"Ana"_s);
    QVERIFY(!adding->recovery()->notice().isEmpty());

    // Hidden while it is sent, it fails out of sight.
    f->api.expect(add);
    adding->submit();
    adding->dismiss();
    f->api.answer(add, refusal, 422);
    QCOMPARE(toast(), u"Couldn’t add the leads"_s);
    // Another way of adding leaves it alone, given up or gone through.
    adding->show(u"csv"_s);
    adding->dismiss();
    adding->show(u"leads"_s);
    f->api.expect(own);
    adding->submit();
    f->api.answer(own, R"({"ids":[]})");
    adding->show(u"manual"_s);
    QVERIFY(!adding->form()->busy());
    QCOMPARE(names(), u"Ana"_s);
    f->api.expect(add);
    adding->submit();
    f->api.answer(add, addResult(1));
    QVERIFY(f->journalFiles.files.isEmpty());
    adding->show(u"manual"_s);
    QCOMPARE(names(), QString());

    // Given up by the person.
    type("firstName", u"Bo"_s);
    adding->dismiss();
    adding->show(u"manual"_s);
    QCOMPARE(names(), QString());

    // Taken when its page has gone.
    type("email", u"bo@x.example"_s);
    f->clock.advance(1s);
    f->api.expect(add);
    adding->submit();
    life->adding.reset();
    QCOMPARE(f->journalFiles.files.size(), 1);
    f->api.answer(add, addResult(1));
    QVERIFY(f->journalFiles.files.isEmpty());
  }

  void aPreviewCutInsideACharacter() {
    QByteArray bytes = "email,name\n";
    while (bytes.size() < 262143) bytes += 'x';
    QCOMPARE(withoutCutCharacter(bytes + "\xC3").size(), 262143);
    choose(file(u"a.csv"_s, bytes + "ü,ü\n"_ba));
    QCOMPARE(adding->fileColumns()->names(), (QStringList{u"email"_s, u"name"_s}));
    QVERIFY2(!samples(1).contains(u'Ã'), "not another encoding");
    QCOMPARE(adding->fileFacts(), u"0.3 MB · 2 columns"_s);
    for (const auto& cut : {"\xE2\x82"_ba, "\xF0\x9F\x98"_ba, "\xF0"_ba})
      QCOMPARE(withoutCutCharacter("ab" + cut).size(), 2);
    for (const auto& whole : {"ü"_ba, "€"_ba, "😀"_ba, "a"_ba, ""_ba})
      QCOMPARE(withoutCutCharacter(whole).size(), whole.size());
  }

  void delimitedText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QChar>("delimiter");
    QTest::addColumn<QList<QStringList>>("rows");
    QTest::newRow("tie") << u"a;b,c"_s << QChar(u',') << QList<QStringList>{{u"a;b"_s, u"c"_s}};
    QTest::newRow("semicolons") << u"a;b;c,d\r\n1,,,,"_s << QChar(u';')
                                << QList<QStringList>{{u"a"_s, u"b"_s, u"c,d"_s}, {u"1,,,,"_s}};
    QTest::newRow("tab not outnumbering") << u"a\tb;c"_s << QChar(u';') << QList<QStringList>{{u"a\tb"_s, u"c"_s}};
    QTest::newRow("tabs") << u"a\tb\tc;"_s << QChar(u'\t') << QList<QStringList>{{u"a"_s, u"b"_s, u"c;"_s}};
    QTest::newRow("quotes") << u"\"a\"\"b\",c\"d,\"x\ny,\"\n"_s << QChar(u',')
                            << QList<QStringList>{{u"a\"b"_s, u"c\"d"_s, u"x\ny,"_s}};
    QTest::newRow("blank rows") << u"\n a,b \r , \r\r\nc"_s << QChar(u',')
                                << QList<QStringList>{{u" a"_s, u"b "_s}, {u"c"_s}};
    QTest::newRow("returns alone") << u"a,b\rc;d;e"_s << QChar(u';')
                                   << QList<QStringList>{{u"a,b"_s}, {u"c"_s, u"d"_s, u"e"_s}};
    QTest::newRow("never closed") << u"a,\"b\nc"_s << QChar(u',') << QList<QStringList>{{u"a"_s, u"b\nc"_s}};
  }
  void delimitedText() {
    QFETCH(QString, text);
    QFETCH(QChar, delimiter);
    QTEST(csvRows(text, delimiter, 6), "rows");
    if (!text.startsWith(u'\n')) QCOMPARE(csvDelimiter(text), delimiter);
    QCOMPARE(csvRows(text, delimiter, 1).size(), 1);
  }

  void filesThatWillNotDo() {
    const auto refused = [this](const QString& path) {
      choose(path);
      return adding->canSubmit() ? u"can be sent"_s : adding->form()->error();
    };
    QCOMPARE(refused(file(u"a.txt"_s, "email\n")), u"Choose a .csv file"_s);
    QCOMPARE(refused(folder.filePath(u"gone.csv"_s)), u"Couldn’t open that file"_s);
    QCOMPARE(refused(file(u"b.csv"_s, " \n,\n")), u"That file has no header row"_s);
    QFile large(folder.filePath(u"large.csv"_s));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.write("email\n") == 6 && large.resize(52428801));
    QCOMPARE(refused(large.fileName()), u"That file is over 50 MB. Split it and import the parts."_s);
    QVERIFY(large.resize(52428800));
    QCOMPARE(refused(large.fileName()), u"can be sent"_s);

    // Stopped while it is read, it is never sent.
    adding->submit();
    QVERIFY(adding->form()->busy());
    adding->form()->stop();
    QVERIFY(!adding->form()->busy() && adding->canSubmit());
    QCOMPARE(life->added, 1);
  }

  void itGoesOnWhenThePageIsGone() {
    adding->show(u"leads"_s);
    f->api.expect(own);
    adding->submit();
    // The store is let go, and the campaign's page opened anew.
    life->adding.reset();
    int told = 0;
    const LeadAdding anew(life->context, [&told] { ++told; });
    f->api.expect(add);
    f->api.answer(own, R"({"ids":["o1"]})");
    f->api.answer(add, addResult(1));
    QCOMPARE(toast(), u"1 lead added"_s);
    QCOMPARE(told, 1);
    f->toasts.act(f->toasts.toasts().last().id);
    QCOMPARE(f->jobs.shown()->title(), u"1 lead added"_s);
  }

  void aFileThatIsSentIsTheFile_data() {
    QTest::addColumn<QByteArray>("bytes");
    QByteArray every;
    for (int code = 0; code < 256; ++code) every += char(code);
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("every byte") << every;
    QTest::newRow("two marks") << "\xEF\xBB\xBF\xEF\xBB\xBF"
                                  "email"_ba;
    QTest::newRow("Windows-1252") << "\x80\x9F\xFF \"quoted\"\\\r\n\t\b\f\x01"_ba;
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80 \x7F\x1F"_ba;
  }
  void aFileThatIsSentIsTheFile() {
    QFETCH(QByteArray, bytes);
    const AddLeadsBody whole{AddLeadsBody::Csv{decodeText(bytes), u"\"csv\":\"\".csv"_s, u"campaign"_s}};
    const auto expected = Requests::addLeads(u"c1"_s, whole);
    const auto shell = Requests::addLeads(u"c1"_s, {AddLeadsBody::Csv{{}, u"\"csv\":\"\".csv"_s, u"campaign"_s}});
    const QByteArray packed = bodyWithCsv(*shell.body, bytes);
    QCOMPARE(QJsonDocument::fromJson(packed), QJsonDocument::fromJson(*expected.body));
    QVERIFY(packed.size() == packed.capacity());
  }
};

QTEST_GUILESS_MAIN(LeadAddingTest)
#include "leadadding_test.moc"
