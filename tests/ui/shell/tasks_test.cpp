#include <QTemporaryDir>

#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "tests/ui/support/WindowTest.h"
#include "tests/ui/support/items.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// What people do many times a day, by keyboard, in as few keys as it may take. What is typed as text does not count.
class TasksTest : public ui::WindowTest {
  Q_OBJECT

  int m_keys = 0;

  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    ++m_keys;
    press(key, modifiers);
    m_stage->settle();
  }
  void palette(const QString& words) {
    key(Qt::Key_K, Qt::ControlModifier);
    QVERIFY(m_stage->app().router()->paletteOpen());
    type(words);
    m_stage->settle();
    key(Qt::Key_Return);
  }
  const CampaignSummary& running() {
    const auto& items = store<CampaignsStore>().list()->value()->items;
    return *std::ranges::find_if(items, [](const auto& item) { return item.status.isRunning(); });
  }
  CampaignStore& campaign(const QString& id) {
    return *m_stage->app().session()->item<CampaignStore>(Page::campaigns, id);
  }
  static Task<JobOutcome> endingWith(QStringList lines) {
    co_return JobOutcome{.title = u"2 leads added"_s, .lines = std::move(lines)};
  }
  QString firstStart(CampaignStore& campaign) {
    return campaign.settings()->schedule()->windows().value(0).toMap().value(u"start"_s).toString();
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void aCampaignIsFoundAndPaused() {
    beginAt(Page::campaigns);
    m_keys = 0;
    const QString id = running().id, name = running().name;
    palette(u"pause "_s + name.section(u' ', 0, 0));
    QTRY_COMPARE(lastMessage(), name + u" paused"_s);
    QVERIFY2(m_keys <= 3, qPrintable(QString::number(m_keys)));
    // And started again from the message.
    const auto& toast = m_stage->app().toasts()->toasts().last();
    QCOMPARE(toast.actionLabel, u"Resume"_s);
    m_stage->app().toasts()->act(toast.id);
    QTRY_COMPARE(lastMessage(), name + u" resumed"_s);
  }

  void threeEmailsAreWritten() {
    beginAt(Page::campaigns);
    m_keys = 0;
    key(Qt::Key_N);
    type(u"Three emails"_s);
    key(Qt::Key_Return);
    QTRY_VERIFY(!m_stage->app().router()->campaign().isEmpty());
    m_stage->settle();
    SequenceEditor& editor = *campaign(m_stage->app().router()->campaign()).sequence();
    for (int email = 0; email < 3; ++email) {
      key(Qt::Key_Return, Qt::ControlModifier);
      QCOMPARE(editor.stepCount(), email + 1);
      if (!editor.repliesInThread()) {
        type(u"A question"_s);
        key(Qt::Key_Tab);
      }
      type(u"Hi {{first"_s);
      key(Qt::Key_Return);
      type(u", a word"_s);
    }
    QTRY_COMPARE(editor.autosave()->saveStateName(), u"saved"_s);
    QVERIFY2(m_keys <= 11, qPrintable(QString::number(m_keys)));
    for (const DraftStep& step : editor.draft().steps())
      QCOMPARE(step.variants.first().body, u"Hi {{firstName}}, a word"_s);
    QCOMPARE(editor.draft().steps().first().variants.first().subject, u"A question"_s);
    // Back to the second from within the text, which goes on there.
    press(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(editor.place(), 1);
    type(u"!"_s);
    QVERIFY(editor.draft().steps()[1].variants.first().body.contains(u'!'));
  }

  void aLeadIsAddedByHand() {
    beginAt(Page::campaigns);
    CampaignStore& store = campaign(running().id);
    m_stage->app().router()->openCampaign(store.id());
    m_stage->settle();
    m_keys = 0;
    palette(u"lead by hand"_s);
    QTRY_VERIFY(store.leads()->adding()->form()->shown());
    type(u"ada.lindqvist@harbour.example"_s);
    key(Qt::Key_Return);
    QTRY_VERIFY(!store.leads()->adding()->form()->busy());
    m_stage->settle();
    if (m_stage->app().jobs()->shown()) key(Qt::Key_Return);
    QVERIFY2(m_keys <= 5, qPrintable(QString::number(m_keys)));
    store.leads()->setLeadQuery(u"ada.lindqvist@harbour"_s);
    QTRY_COMPARE(store.leads()->rows()->count(), 1);
  }

  void aScheduleBeginsLater() {
    beginAt(Page::campaigns);
    m_keys = 0;
    CampaignStore& store = campaign(running().id);
    palette(u"schedules "_s + running().name.section(u' ', 0, 0));
    QTRY_COMPARE(store.tab(), CampaignStore::Tab::settings);
    m_stage->settle();
    QVERIFY(firstStart(store) != "10:30"_L1);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    type(u"1030"_s);
    QCOMPARE(firstStart(store), u"10:30"_s);
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!store.settings()->schedule()->dirty());
    QCOMPARE(firstStart(store), u"10:30"_s);
    QVERIFY2(m_keys <= 6, qPrintable(QString::number(m_keys)));
  }

  void analyticsAreExported() {
    const QTemporaryDir folder;
    beginAt(Page::campaigns, {.saveFolder = folder.path()});
    m_keys = 0;
    palette(u"export csv"_s);
    QTRY_COMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    QTRY_VERIFY(lastMessage().startsWith("Saved campaigns-"_L1));
    // The desktop's own panel takes one more.
    QVERIFY2(m_keys + 1 <= 3, qPrintable(QString::number(m_keys)));
  }

  void aLongResultIsReadLineByLine() {
    beginAt(Page::campaigns);
    QStringList lines;
    for (int row = 1; row <= 3000; ++row) lines.append(u"Row %1 was left out"_s.arg(row));
    Jobs& jobs = *m_stage->app().jobs();
    jobs.show(jobs.start({.name = u"Adding leads"_s}, m_stage->app().session()->context().shared_from_this(),
                         [&lines](Job&) { return endingWith(lines); }));
    m_stage->settle();
    const auto isLine = [](QQuickItem* item) { return item->property("text").toString().startsWith("Row "_L1); };
    const auto made = ui::visibleItems(m_stage->window().contentItem(), isLine).size();
    QVERIFY2(made > 5 && made < 60, qPrintable(QString::number(made)));
    for (int stops = 0; stops < 4 && !isLine(focused()); ++stops) press(Qt::Key_Tab);
    press(Qt::Key_Down);
    QCOMPARE(focused()->property("text").toString(), lines[1]);
    press(Qt::Key_PageDown);
    QVERIFY(lines.indexOf(focused()->property("text").toString()) > 5);
    press(Qt::Key_PageUp);
    QCOMPARE(focused()->property("text").toString(), lines[1]);
    press(Qt::Key_End);
    QCOMPARE(focused()->property("text").toString(), lines.last());
    press(Qt::Key_Home);
    QCOMPARE(focused()->property("text").toString(), lines.first());
    press(Qt::Key_Return);
    QVERIFY(!jobs.shown());
  }

  void aResultSaysWhatCanBeDoneWithIt() {
    beginAt(Page::campaigns);
    const QString name = running().name;
    auto* router = m_stage->app().router();
    press(Qt::Key_K, Qt::ControlModifier);
    type(name);
    m_stage->settle();
    // And back to the results, with what was typed.
    press(Qt::Key_Right);
    m_stage->settle();
    QCOMPARE(focused()->property("text").toString(), QString());
    press(Qt::Key_Escape);
    QVERIFY(router->paletteOpen());
    QCOMPARE(focused()->property("text").toString(), name);
    press(Qt::Key_Right);
    type(u"leads"_s);
    m_stage->settle();
    press(Qt::Key_Return);
    QTRY_COMPARE(router->campaign(), running().id);
    QCOMPARE(campaign(running().id).tab(), CampaignStore::Tab::leads);
  }
};

QTEST_MAIN(TasksTest)
#include "tasks_test.moc"
