#include <QPointer>
#include <QQuickItem>
#include <QTest>
#include <functional>

#include "app/campaigns/CampaignStore.h"
#include "desktop/scenes/Stage.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

namespace {

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtWarningMsg || type == QtCriticalMsg) warnings.append(message);
}

}  // namespace

/// What the shell shows of long work and of saving before somebody goes.
class LeavingTest : public QObject {
  Q_OBJECT

  std::unique_ptr<QQmlEngine> m_engine;
  std::unique_ptr<Stage> m_stage;

  AppModel& app() { return m_stage->app(); }
  QQuickItem* withText(const QString& text) {
    QList<QQuickItem*> open{m_stage->window().contentItem()};
    while (!open.isEmpty()) {
      QQuickItem* item = open.takeLast();
      if (!item->isVisible()) continue;
      open += item->childItems();
      if (item->property("text").toString() == text) return item;
    }
    return nullptr;
  }
  CampaignStore& openCampaign() {
    CampaignsStore& list = m_stage->openCampaigns();
    const auto& records = list.rows()->records();
    const auto running = std::ranges::find(records, u"running"_s, [](const auto& row) { return row.status.rawValue; });
    app().router()->openCampaign(running->id);
    m_stage->settle();
    return *app().session()->item<CampaignStore>(Page::campaigns, running->id);
  }

 private Q_SLOTS:
  void init() {
    warnings.clear();
    qInstallMessageHandler(collect);
    m_engine = std::make_unique<QQmlEngine>();
    ClientWindow::prepare(*m_engine);
    m_stage = std::make_unique<Stage>(*m_engine, StageSetting{});
    QVERIFY(m_stage->isReady());
    m_stage->settle();
  }
  void cleanup() {
    m_stage.reset();
    m_engine.reset();
    qInstallMessageHandler(nullptr);
    QCOMPARE(warnings, QStringList());
  }

  void longWorkIsSeenFromAnyPage() {
    LeadAdding& adding = *openCampaign().leads()->adding();
    adding.show(u"manual"_s);
    adding.draft()->set(u"email"_s, u"jo@x.example"_s);
    m_stage->transport().mode = StagedTransport::Mode::holding;
    adding.submit();
    adding.dismiss();
    app().router()->open(Page::dashboard);
    const QString line = app().jobs()->line();
    QVERIFY(line.startsWith(u"Adding jo@x.example to "_s));
    m_stage->until([&] { return withText(line); }, u"the line"_s);
    m_stage->press(line);
    m_stage->until([&] { return withText(u"Stop"_s); }, u"the panel"_s);
    m_stage->press(u"Stop"_s);
    m_stage->until([&] { return withText(u"Details"_s); }, u"what came of it"_s);
    m_stage->press(u"Details"_s);
    m_stage->until([&] { return withText(u"Stopped. Leads that were taken by then are in the campaign."_s); },
                   u"the result"_s);
    m_stage->press(u"Done"_s);
    QVERIFY(!app().jobs()->shown());
    m_stage->press(line.isEmpty() ? line : app().jobs()->line());
    m_stage->press(u"Clear finished"_s);
    m_stage->until([&] { return !withText(u"Tasks"_s); }, u"nothing left"_s);
    QCOMPARE(app().jobs()->count(), 0);
  }

  void savingBeforeClosingIsShownAndCanBeLeft() {
    CampaignStore& store = openCampaign();
    store.sequence()->setBody(u"Something else."_s);
    m_stage->transport().mode = StagedTransport::Mode::holding;
    QVERIFY(!m_stage->window().close());
    m_stage->until([&] { return withText(u"Saving…"_s); }, u"the dialog"_s);
    QVERIFY(withText(store.unsavedWork().value(0)));
    m_stage->press(u"Cancel"_s);
    m_stage->until([&] { return !withText(u"Saving…"_s); }, u"its end"_s);
    QVERIFY(m_stage->window().isVisible());
    m_stage->window().close();
    m_stage->until([&] { return withText(u"Saving…"_s); }, u"the dialog again"_s);
    m_stage->press(u"Close now"_s);
    m_stage->until([&] { return !m_stage->window().isVisible(); }, u"the window's end"_s);
  }

  void aShortMemoryLeavesThePageAsItIs() {
    const QPointer<CampaignStore> store = &openCampaign();
    store->setTab(u"leads"_s);
    m_stage->settle();
    CampaignLeads& leads = *store->leads();
    leads.setLeadQuery(u"a"_s);
    m_stage->settle();
    leads.adding()->show(u"manual"_s);
    leads.adding()->draft()->set(u"email"_s, u"half@"_s);
    app().session()->trim();
    m_stage->settle();
    QCOMPARE(app().session()->itemOrder(Page::campaigns), QStringList());
    QVERIFY(withText(u"half@"_s));
    QCOMPARE(leads.leadQuery(), u"a"_s);
    app().router()->open(Page::dashboard);
    m_stage->settle();
    QVERIFY2(!store, "left, it goes");
  }
};

QTEST_MAIN(LeavingTest)
#include "leaving_test.moc"
