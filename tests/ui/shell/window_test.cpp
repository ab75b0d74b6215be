#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include "app/analytics/DashboardStore.h"
#include "app/campaigns/CampaignStore.h"
#include "app/campaigns/CampaignsStore.h"
#include "desktop/scenes/Stage.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/warnings.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The real window on the sample workspace, by keyboard alone.
class WindowTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QQmlEngine> m_engine;
  std::unique_ptr<Stage> m_stage;

  void open(bool signedIn, bool reducedMotion = true) {
    m_stage = std::make_unique<Stage>(*m_engine, StageSetting{.signedIn = signedIn, .reducedMotion = reducedMotion});
    QVERIFY(m_stage->isReady());
    QVERIFY(QTest::qWaitForWindowActive(&m_stage->window()));
    if (signedIn) m_stage->openCampaigns();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&m_stage->window(), key, modifiers); }
  void type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(&m_stage->window(), letter.toLatin1());
  }

  CampaignsStore& campaigns() { return *m_stage->app().session()->store<CampaignsStore>(); }
  QString nameAt(int row) {
    return campaigns().rows()->index(row, 0).data(campaigns().rows()->roleNames().key("name")).toString();
  }
  QStringList namesInModel() {
    QStringList names;
    for (int row = 0; row < campaigns().rows()->count(); ++row) names.append(nameAt(row));
    return names;
  }
  QStringList namesOnScreen() {
    QMap<int, QString> names;
    QList<QQuickItem*> items{m_stage->window().contentItem()};
    while (!items.isEmpty()) {
      const QQuickItem* item = items.takeLast();
      items += item->childItems();
      if (item->property("bouncesHigh").isValid() && item->isVisible())
        names.insert(item->property("index").toInt(), item->property("name").toString());
    }
    return names.values();
  }
  QString lastMessage() {
    const auto& toasts = m_stage->app().toasts()->toasts();
    return toasts.isEmpty() ? QString() : toasts.last().message;
  }
  QQuickItem* focused() { return m_stage->window().activeFocusItem(); }
  /// The shown tooltips' owners to be, wherever they are.
  QList<QQuickItem*> hints() {
    QList<QQuickItem*> found, open{m_stage->window().contentItem()};
    while (!open.isEmpty()) {
      QQuickItem* next = open.takeLast();
      if (next->property("beside").isValid() && next->property("keys").isValid() &&
          !next->property("text").toString().isEmpty())
        found.append(next);
      for (QQuickItem* child : next->childItems())
        if (child->isVisible() || child->inherits("QQuickLoader")) open.append(child);
    }
    return found;
  }
  QQuickItem* tableCalled(const QString& title) {
    QList<QQuickItem*> open{m_stage->window().contentItem()};
    while (!open.isEmpty()) {
      QQuickItem* next = open.takeLast();
      if (next->property("tickedKeys").isValid() && next->property("title").toString() == title) return next;
      open += next->childItems();
    }
    return nullptr;
  }
  bool rowHasFocus() { return focused() && focused()->property("key").isValid(); }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void initTestCase() {
    m_engine = std::make_unique<QQmlEngine>();
    ClientWindow::prepare(*m_engine);
  }
  void init() { ui::failOnWarnings(); }
  void cleanup() { m_stage.reset(); }

  void signsInByPassword() {
    open(false);
    type(u"maren@northgate.example"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(m_stage->app().signIn()->step(), SignInModel::Step::password);
    type(u"wrong"_s);
    press(Qt::Key_Return);
    const QString error = u"That password isn’t right."_s;
    QTRY_COMPARE(m_stage->app().signIn()->error(), error);
    QCOMPARE(ui::Reader::descriptionOf(focused()), error);
    QTRY_COMPARE(ui::Reader::noticeIn(focused()), error);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"northgate-demo"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(m_stage->app().phase(), AppModel::Phase::signedIn);
    QCOMPARE(m_stage->app().router()->page(), Page::dashboard);
    QTRY_COMPARE(m_stage->app().session()->store<DashboardStore>()->today().size(), 4);
  }

  void worksThroughTheListByKeyboard_data() {
    QTest::addColumn<bool>("reducedMotion");
    QTest::newRow("at once") << true;
    QTest::newRow("with movement") << false;
  }
  void worksThroughTheListByKeyboard() {
    QFETCH(bool, reducedMotion);
    open(true, reducedMotion);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    press(Qt::Key_Home);
    QTRY_VERIFY(rowHasFocus());
    const QString first = nameAt(0);

    press(Qt::Key_F10, Qt::ShiftModifier);
    QTRY_VERIFY(!rowHasFocus());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QTRY_COMPARE(lastMessage(), first + u" paused"_s);
    QTRY_VERIFY2(rowHasFocus(), "the menu gives the focus back");

    press(Qt::Key_F2);
    QTRY_VERIFY(campaigns().rename()->shown());
    QTRY_VERIFY(!rowHasFocus());
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"Fleet two"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(nameAt(0), u"Fleet two"_s);
    QTRY_VERIFY2(rowHasFocus(), "the dialog gives the focus back");

    press(Qt::Key_D, Qt::ControlModifier);
    QTRY_VERIFY(lastMessage().endsWith(u"created, without leads"_s));
    QTRY_COMPARE(campaigns().rows()->count(), 11);

    const QString current = focused()->property("label").toString();
    press(Qt::Key_Delete);
    QTRY_VERIFY(m_stage->app().overlays()->asking());
    QTRY_VERIFY(!rowHasFocus());
    press(Qt::Key_Return);
    QTRY_VERIFY2(!m_stage->app().overlays()->asking(), "the safe button has the focus");
    QCOMPARE(campaigns().rows()->count(), 11);
    QTRY_VERIFY(rowHasFocus());
    QCOMPARE(focused()->property("label").toString(), current);

    press(Qt::Key_Delete);
    QTRY_VERIFY(m_stage->app().overlays()->asking());
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    QTRY_VERIFY2(rowHasFocus(), "a row that goes hands the focus to its neighbour");

    press(Qt::Key_F6);
    press(Qt::Key_Return);
    QTRY_COMPARE(campaigns().rows()->count(), 11);

    press(Qt::Key_Slash);
    type(u"clinic"_s);
    QTRY_COMPARE(campaigns().rows()->count(), 1);
    QTRY_COMPARE(namesOnScreen(), namesInModel());
    press(Qt::Key_Down);
    QTRY_VERIFY2(rowHasFocus(), "the row that is left is the current one");
    press(Qt::Key_Slash);
    press(Qt::Key_Escape);
    QTRY_COMPARE(campaigns().rows()->count(), 11);
    QTRY_COMPARE(namesOnScreen(), namesInModel());
  }

  void goesEverywhereByKeyboard() {
    open(true);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    auto* router = m_stage->app().router();
    press(Qt::Key_G);
    press(Qt::Key_D);
    QCOMPARE(router->page(), Page::dashboard);
    auto* dashboard = m_stage->app().session()->store<DashboardStore>();
    QTRY_COMPARE(dashboard->today().size(), 4);
    // At its heading; the keys that move lead on into the chart.
    QTRY_VERIFY(focused() && focused()->property("isPageHeading").toBool());
    press(Qt::Key_End);
    QVERIFY(focused()->inherits("orv::ChartPlot"));
    press(Qt::Key_G);
    press(Qt::Key_C);
    QCOMPARE(router->page(), Page::campaigns);

    press(Qt::Key_K, Qt::ControlModifier);
    QTRY_VERIFY(router->paletteOpen());
    type(u"archived"_s);
    press(Qt::Key_Return);
    QTRY_VERIFY(campaigns().showArchived());
    QTRY_COMPARE(campaigns().archivedRows()->count(), 6);
    QTRY_VERIFY(!router->paletteOpen());
    const QString archived = campaigns().archived()->value()->items.first().name;
    press(Qt::Key_Home);
    QTRY_VERIFY(rowHasFocus());
    press(Qt::Key_Return);
    QTRY_VERIFY2(!rowHasFocus(), "Enter offers what can be done with an archived campaign");
    press(Qt::Key_Return);
    QTRY_VERIFY(lastMessage().startsWith(archived + u" restored"_s));
    QTRY_COMPARE(campaigns().archivedRows()->count(), 5);
    QTRY_VERIFY(rowHasFocus());
    press(Qt::Key_Escape);
    QTRY_VERIFY(!campaigns().showArchived());

    press(Qt::Key_N);
    QTRY_VERIFY(campaigns().newCampaign()->shown());
    type(u"Brand new"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(lastMessage(), u"Brand new created"_s);
    QTRY_VERIFY(!router->campaign().isEmpty());

    // There is room for the rail only: what somebody chose now they would meet elsewhere, much later.
    press(Qt::Key_B, Qt::ControlModifier);
    QVERIFY(!router->collapsed());
    router->open(Page::campaigns);
    m_stage->settle();
    press(Qt::Key_B, Qt::ControlModifier);
    QVERIFY(router->collapsed());
  }

  void theShortcutSheetComesAndGoesByItsKey_data() {
    QTest::addColumn<int>("width");
    QTest::newRow("beside the page") << 1280;
    QTest::newRow("over the page") << 1024;
  }
  void theShortcutSheetComesAndGoesByItsKey() {
    QFETCH(int, width);
    open(true);
    m_stage->window().resize(width, 700);
    m_stage->settle();
    auto* router = m_stage->app().router();
    const auto scrolled = [this] {
      const QQuickItem* item = ui::Reader::find(m_stage->window().contentItem(), u"Search or go to…, Ctrl+K"_s);
      return item ? item->mapToScene({}).y() : 0;
    };
    press(Qt::Key_Question);
    QVERIFY(router->shortcutsOpen());
    m_stage->settle();
    // Held, it is not pressed anew.
    for (int again = 0; again < 3; ++again) {
      QTest::simulateEvent(&m_stage->window(), true, Qt::Key_Question, {}, u"?"_s, true);
      m_stage->settle();
      QVERIFY(router->shortcutsOpen());
    }
    const double before = scrolled();
    QVERIFY(before > 0);
    press(Qt::Key_PageDown);
    QVERIFY(scrolled() < before);
    press(Qt::Key_Question);
    QTRY_VERIFY(!router->shortcutsOpen());
    m_stage->settle();
    press(Qt::Key_Question);
    QVERIFY(router->shortcutsOpen());
    m_stage->settle();
    press(Qt::Key_Escape);
    QTRY_VERIFY(!router->shortcutsOpen());
  }

  void opensCampaignsOneAfterTheOther() {
    open(true);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    auto* router = m_stage->app().router();
    auto* session = m_stage->app().session();
    press(Qt::Key_Home);
    QTRY_VERIFY(rowHasFocus());
    press(Qt::Key_Return);
    const QString id = router->campaign();
    QVERIFY(!id.isEmpty());
    QTRY_VERIFY(session->item<CampaignStore>(Page::campaigns, id)->campaign()->value());
    press(Qt::Key_Right);
    QCOMPARE(session->item<CampaignStore>(Page::campaigns, id)->tab(), CampaignStore::Tab::leads);
    press(Qt::Key_F2);
    QTRY_VERIFY(session->item<CampaignStore>(Page::campaigns, id)->renameForm()->shown());
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"Fleet two"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(session->item<CampaignStore>(Page::campaigns, id)->name(), u"Fleet two"_s);
    QTRY_VERIFY(namesInModel().contains(u"Fleet two"_s));

    // The store goes while its page shows it: the page asks for another.
    session->trim();
    QTRY_VERIFY(session->item<CampaignStore>(Page::campaigns, id)->campaign()->value());

    // More of them than are kept.
    const auto records = campaigns().rows()->records();
    for (const auto& record : records) {
      router->openCampaign(record.id);
      QTRY_VERIFY(session->item<CampaignStore>(Page::campaigns, record.id)->campaign()->value());
    }
    router->open(Page::campaigns);
    QTRY_COMPARE(namesOnScreen(), namesInModel());
  }

  void writesASequenceByKeyboard() {
    open(true);
    const auto& items = campaigns().list()->value()->items;
    const auto draft = std::ranges::find(items, u"draft"_s, [](const auto& item) { return item.status.rawValue; });
    const QString id = draft->id;
    m_stage->app().router()->openCampaign(id);
    SequenceEditor& editor = *m_stage->app().session()->item<CampaignStore>(Page::campaigns, id)->sequence();
    QTRY_VERIFY(editor.stepCount() > 1);
    const int before = editor.stepCount();

    // From the text round to the emails, a new one after the first, and into its text.
    press(Qt::Key_Down);
    for (int stops = 0; stops < 60 && !focused()->inherits("QQuickListView"); ++stops) press(Qt::Key_Tab);
    press(Qt::Key_Insert);
    QCOMPARE(editor.title(), u"Email 2"_s);
    QCOMPARE(editor.stepCount(), before + 1);
    type(u"Hi {{comp"_s);
    press(Qt::Key_Return);
    type(u","_s);
    press(Qt::Key_Return);
    type(u"bold"_s);
    press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(editor.body(), u"Hi {{company}},\n**bold**"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor.body(), u"Hi {{company}},\nbold"_s);

    QTRY_COMPARE(editor.autosave()->saveStateName(), u"saved"_s);

    // What was written is the service's, and is there again in a new store.
    m_stage->app().router()->open(Page::campaigns);
    m_stage->app().session()->trim();
    m_stage->app().router()->openCampaign(id);
    SequenceEditor& again = *m_stage->app().session()->item<CampaignStore>(Page::campaigns, id)->sequence();
    QTRY_COMPARE(again.stepCount(), before + 1);
    again.selectPlace(1);
    QCOMPARE(again.body(), u"Hi {{company}},\nbold"_s);
  }

  void walksTheSettingsByKeyboard() {
    open(true);
    CampaignStore& store =
        *m_stage->app().session()->item<CampaignStore>(Page::campaigns, campaigns().list()->value()->items.first().id);
    m_stage->app().router()->openCampaign(store.id());
    QTRY_VERIFY(store.campaign()->hasContent());
    store.setTab(u"settings"_s);
    QTRY_VERIFY(store.settings()->senders()->mailboxes()->hasContent());
    QStringList walked;
    const auto textOfFocus = [&] {
      const QQuickItem* item = m_stage->window().activeFocusItem();
      return item ? item->property("text").toString() : u"nothing"_s;
    };
    const auto walkTo = [&](const QString& text) {
      for (int i = 0; i < 80 && textOfFocus() != text; ++i) {
        press(Qt::Key_Tab);
        walked.append(textOfFocus());
      }
      return textOfFocus() == text;
    };
    QVERIFY2(walkTo(u"Add schedule"_s), qPrintable(walked.join(u'\n')));

    // Far below the field that keeps the form from being saved.
    store.settings()->draft()->set(u"name"_s, u" "_s);
    QVERIFY2(walkTo(u"Save settings"_s), qPrintable(walked.join(u'\n')));
    press(Qt::Key_Space);
    QCOMPARE(textOfFocus(), u" "_s);
  }

  void aLeadStandsBesideItsList() {
    open(true);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    const auto& items = campaigns().list()->value()->items;
    const auto running = std::ranges::find(items, u"running"_s, [](const auto& item) { return item.status.rawValue; });
    CampaignStore& store = *m_stage->app().session()->item<CampaignStore>(Page::campaigns, running->id);
    m_stage->app().router()->openCampaign(store.id());
    QTRY_VERIFY(store.campaign()->hasContent());
    store.setTab(u"leads"_s);
    CampaignLeads& leads = *store.leads();
    QTRY_VERIFY(leads.rows()->count() > 2);
    QTRY_VERIFY(tableCalled(u"Leads"_s));
    QQuickItem* table = tableCalled(u"Leads"_s);
    const double whole = table->width();
    table->forceActiveFocus();
    press(Qt::Key_Home);
    press(Qt::Key_Return);
    QTRY_VERIFY(leads.panel()->shown());
    QTRY_VERIFY2(table->width() <= whole - 400, "the detail takes its room from the table");
    const auto idAt = [&](int row) {
      return leads.rows()->index(row, 0).data(leads.rows()->roleNames().key("id")).toString();
    };
    QCOMPARE(leads.panel()->leadId(), idAt(0));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QTRY_COMPARE(leads.panel()->leadId(), idAt(2));
    press(Qt::Key_Escape);
    QTRY_VERIFY(!leads.panel()->shown());
    QTRY_COMPARE(table->width(), whole);

    // Over the table, where there is no room beside it; the arrows step all the same.
    m_stage->window().resize(1024, 700);
    table->forceActiveFocus();
    press(Qt::Key_Return);
    QTRY_VERIFY(leads.panel()->shown());
    QTRY_VERIFY(!table->hasActiveFocus());
    const QString before = leads.panel()->leadId();
    press(Qt::Key_Up);
    QTRY_COMPARE(leads.panel()->leadId(), idAt(1));
    QVERIFY(leads.panel()->leadId() != before);
  }

  void whatHasAHintShowsIt() {
    open(true);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    auto* router = m_stage->app().router();
    router->setCollapsed(true);
    QSet<QString> seen;
    const QString id = campaigns().list()->value()->items.first().id;
    for (const auto& go : {std::function<void()>([&] { router->open(Page::dashboard); }),
                           std::function<void()>([&] { router->open(Page::analytics); }),
                           std::function<void()>([&] { router->open(Page::campaigns); }),
                           std::function<void()>([&] { router->openCampaign(id); })}) {
      go();
      m_stage->settle();
      for (QQuickItem* hint : hints()) {
        QQuickItem* of = hint->parentItem();
        const QString kind = QString::fromLatin1(of->metaObject()->className()) + (of->isEnabled() ? u""_s : u" off"_s);
        if (seen.contains(kind)) continue;
        seen.insert(kind);
        QTest::mouseMove(&m_stage->window(), {700, 795});
        QTest::mouseMove(&m_stage->window(), of->mapRectToScene(of->boundingRect()).center().toPoint());
        QTRY_VERIFY2(hint->property("item").value<QObject*>() &&
                         hint->property("item").value<QObject*>()->property("visible").toBool(),
                     qPrintable(kind + u": "_s + hint->property("text").toString()));
      }
    }
    QVERIFY2(seen.size() >= 4, qPrintable(QStringList(seen.values()).join(u'\n')));
  }

  void nothingOfThePageIsHeardBehindADialog() {
    open(true);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    const auto heard = [this] { return ui::Reader::heardIn(m_stage->window().contentItem()); };
    QVERIFY(heard().contains(u"Search or go to…"_s));
    campaigns().remove(campaigns().list()->value()->items.first().id);
    QTRY_VERIFY(m_stage->app().overlays()->asking());
    QTRY_VERIFY2(!heard().contains(u"Search or go to…"_s), qPrintable(heard().join(u'\n')));
    QVERIFY(heard().contains(u"Cancel"_s));
    press(Qt::Key_Escape);
    QTRY_VERIFY(heard().contains(u"Search or go to…"_s));
  }

  void theSidebarCountsUnreadMail() {
    open(true);
    auto& app = m_stage->app();
    QList<QQuickItem*> items{m_stage->window().contentItem()};
    QQuickItem* inbox = nullptr;
    while (!inbox && !items.isEmpty()) {
      QQuickItem* const next = items.takeLast();
      if (next->property("count").isValid() && next->property("text").toString() == u"Inbox"_s) inbox = next;
      items += next->childItems();
    }
    QVERIFY(inbox);
    QTRY_VERIFY(inbox->property("count").toInt() > 0);
    const QString count = QString::number(app.session()->context().unread().value_or(0));
    QCOMPARE(ui::Reader::descriptionOf(inbox), count + u" unread"_s);
    // Another workspace has its own, before anybody opens it.
    const QVariant elsewhere = app.notifier()->unread().value(u"caldera"_s);
    app.openWorkspace(u"caldera"_s);
    QTRY_COMPARE(inbox->property("count").toInt(), elsewhere.toInt());
    app.session()->context().setUnread(0);
    QTRY_COMPARE(ui::Reader::descriptionOf(inbox), QString());
  }

  void leavesNothingOfAWorkspaceBehind() {
    open(true);
    QTRY_COMPARE(campaigns().rows()->count(), 10);
    campaigns().beginRename(campaigns().list()->value()->items.first().id);
    m_stage->app().openWorkspace(u"caldera"_s);
    QTRY_COMPARE(m_stage->app().session()->slug(), u"caldera"_s);
    QTRY_VERIFY(campaigns().list()->value() != nullptr);
    m_stage->app().signOut();
    QTRY_COMPARE(m_stage->app().phase(), AppModel::Phase::signedOut);
    QVERIFY(!m_stage->app().session());
  }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
