#include <QSignalSpy>
#include <QTemporaryDir>
#include <functional>

#include "app/leads/LeadListStore.h"
#include "app/leads/LeadsStore.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The lists of leads in the window, by keyboard, on the sample workspace.
class LeadListsWindowTest : public ui::WindowTest {
  Q_OBJECT

  StageTime m_time;
  QTemporaryDir m_folder;

  LeadsStore& leads() { return store<LeadsStore>(); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    WindowTest::press(key, modifiers);
    m_stage->settle();
  }
  void pressCalled(const QString& name) {
    m_stage->tabTo(name);
    press(Qt::Key_Space);
  }
  std::optional<LeadList> listCalled(const QString& name) {
    for (const LeadList& list : leads().lists()->all())
      if (list.name == name) return list;
    return std::nullopt;
  }
  QString file(const QString& name, const QByteArray& text) {
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) qFatal("The test writes no file");
    return file.fileName();
  }

 private Q_SLOTS:
  void init() {
    WindowTest::init();
    beginAt(Page::leads, {}, &m_time);
    leads().setTab(u"lists"_s);
    m_stage->settle();
  }

  void aFileBecomesAListAndTheListACampaign() {
    pressCalled(u"Import CSV"_s);
    CsvImportForm& form = *leads().leadActions()->importing();
    QVERIFY(form.form()->shown());
    // Choosing it is the desktop's panel.
    form.setFile(file(u"Nordic clinics.csv"_s,
                      "Work Email,First Name,Beds\nada@north.example.org,Ada,40\nbo@north.example.org,Bo,\n"
                      "no address,Cy,\nEva@north.example.org,Eva,12\n"));
    m_stage->until([&form] { return !form.looking(); }, u"the file"_s);
    m_stage->settle();
    QCOMPARE(form.columns()->mapping(), (QStringList{u"email"_s, u"first_name"_s, u"extra"_s}));
    // Letters choose in a menu that is closed: the third column is left out.
    m_stage->tabTo(u"Kept with the lead"_s);
    type(u"s"_s);
    QCOMPARE(form.columns()->mapping().last(), u"skip"_s);
    m_stage->tabTo(u"New list name"_s);
    press(Qt::Key_End);
    type(u" 2"_s);
    press(Qt::Key_Return);
    m_stage->until([this] { return leads().lists()->imports()->active() > 0; }, u"the import"_s);
    QVERIFY(!form.form()->shown());
    m_stage->until([this] { return leads().lists()->imports()->active() == 0; }, u"its end"_s);
    m_stage->settle();
    const auto& done = leads().lists()->imports()->rows()->records().front();
    QCOMPARE(done.resultText, u"3 new, 1 skipped"_s);
    QCOMPARE(done.placeText.section(u" · "_s, 0, 0), u"Into Nordic clinics 2"_s);
    const auto list = listCalled(u"Nordic clinics 2"_s);
    QVERIFY(list);
    QCOMPARE(list->leadCount, 3);

    m_stage->app().router()->openItem(Page::leads, list->id);
    m_stage->settle();
    auto& page = *m_stage->app().session()->item<LeadListStore>(Page::leads, list->id);
    QCOMPARE(page.results()->list()->rows()->count(), 3);
    pressCalled(u"Add to campaign"_s);
    AddToCampaign& adding = *leads().leadActions()->campaignAdding();
    QCOMPARE(adding.about(), u"3 matching leads"_s);
    type(u"n"_s);
    QVERIFY(adding.isNew());
    m_stage->tabTo(u"Name your campaign"_s);
    type(u"Clinics"_s);
    press(Qt::Key_Return);
    m_stage->until([&adding] { return adding.ended(); }, u"the adding"_s);
    QCOMPARE(adding.summary(), u"3 leads added to Clinics"_s);
    m_stage->settle();
    press(Qt::Key_Return);
    QCOMPARE(m_stage->app().router()->page(), Page::campaigns);
  }

  void aFileOfManyColumnsCostsWhatIsSeenOfIt() {
    QByteArray header = "email", row = "a@x.example";
    for (int i = 1; i < 60'000; ++i) {
      header += ',' + QByteArray::number(i % 10);
      row += ',';
    }
    pressCalled(u"Import CSV"_s);
    CsvImportForm& form = *leads().leadActions()->importing();
    form.setFile(file(u"wide.csv"_s, header + '\n' + row + '\n'));
    m_stage->until([&form] { return !form.looking(); }, u"the file"_s);
    m_stage->settle();
    QCOMPARE(form.columns()->count(), 60'000);
    qsizetype shown = 0;
    std::function<void(QQuickItem*)> count = [&](QQuickItem* item) {
      shown += item->property("samples").isValid();
      for (QQuickItem* child : item->childItems()) count(child);
    };
    count(m_stage->window().contentItem());
    QVERIFY2(shown > 3 && shown < 30, qPrintable(QString::number(shown)));
    // The field leaves the column that had it: two rows are told of, and no more.
    QSignalSpy told(form.columns(), &QAbstractItemModel::dataChanged);
    form.setTarget(59'999, u"email"_s);
    QCOMPARE(told.size(), 2);
    QCOMPARE(form.columns()->mapping().first(), u"extra"_s);
    form.setTarget(59'999, u"email"_s);
    QCOMPARE(told.size(), 2);
    // Tab has those made that it comes to.
    m_stage->tabTo(u"Kept with the lead"_s);
    for (int down = 0; down < 24; ++down) WindowTest::press(Qt::Key_Tab);
    QCOMPARE(focused()->parentItem()->parentItem()->property("index").toInt(), 24);
    m_stage->press(u"Cancel"_s);
    m_stage->settle();
  }

  void aListIsMadeRenamedDeletedAndTakenBack() {
    press(Qt::Key_N);
    QVERIFY(leads().leadActions()->lists()->form()->shown());
    type(u"Nordics"_s);
    press(Qt::Key_Return);
    QCOMPARE(lastMessage(), u"Nordics created"_s);
    const auto made = listCalled(u"Nordics"_s);
    QVERIFY(made);
    QCOMPARE(leads().lists()->list()->shownIds().first(), made->id);

    press(Qt::Key_Home);
    press(Qt::Key_F2);
    type(u"Baltics"_s);
    press(Qt::Key_Return);
    QCOMPARE(lastMessage(), u"Renamed Nordics to Baltics"_s);
    press(Qt::Key_Delete);
    pressCalled(u"Delete list"_s);
    QCOMPARE(lastMessage(), u"Deleted Baltics. It’s in Archived."_s);
    QVERIFY(!listCalled(u"Baltics"_s));
    m_stage->press(u"Undo"_s);
    m_stage->settle();
    QVERIFY(listCalled(u"Baltics"_s));
  }
};

QTEST_MAIN(LeadListsWindowTest)
#include "leadlists_test.moc"
