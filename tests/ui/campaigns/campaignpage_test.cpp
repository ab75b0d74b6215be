#include "app/campaigns/CampaignStore.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// One campaign's page in the real window.
class CampaignPageTest : public ui::WindowTest {
  Q_OBJECT

  CampaignStore& open(const QString& status, const QString& tab) {
    begin();
    const auto& items = m_stage->openCampaigns().list()->value()->items;
    const auto found = std::ranges::find(items, status, [](const auto& item) { return item.status.rawValue; });
    // The list may be read again meanwhile.
    const QString id = found->id;
    m_stage->app().router()->openCampaign(id);
    m_stage->settle();
    auto& campaign = *m_stage->app().session()->item<CampaignStore>(Page::campaigns, id);
    campaign.setTab(tab);
    m_stage->settle();
    return campaign;
  }
  /// The section of the settings that has the focus.
  QString section() {
    for (QQuickItem* at = focused(); at; at = at->parentItem())
      if (at->property("title").isValid() && at->property("key").isValid()) return at->property("key").toString();
    return {};
  }

 private Q_SLOTS:  // NOLINT: Qt Test calls them by name
  void oneBarSavesBothForms() {
    CampaignStore& campaign = open(u"paused"_s, u"settings"_s);
    CampaignSettings& form = *campaign.settings();
    form.draft()->set(u"gap"_s, u"25"_s);
    form.schedule()->toggleDay(0, 6);
    m_stage->settle();

    m_stage->press(u"Go to Schedules"_s);
    QTRY_COMPARE(section(), u"schedules"_s);
    m_stage->press(u"Save schedule"_s);
    QTRY_COMPARE(lastMessage(), u"Schedule saved"_s);
    QVERIFY(form.dirty() && !form.schedule()->dirty());

    m_stage->settle();
    m_stage->press(u"Go to Limits"_s);
    QTRY_COMPARE(section(), u"limits"_s);
    form.schedule()->toggleDay(0, 7);
    press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!form.unsaved());
    QCOMPARE(lastMessage(), u"Schedule saved"_s);
    m_stage->settle();
    QVERIFY_THROWS_EXCEPTION(StageTrouble, m_stage->press(u"Save settings"_s));
  }

  void whatWasRestoredOnAnotherSequenceIsSavedByLinkAndByKey() {
    CampaignStore& campaign = open(u"running"_s, u"sequence"_s);
    SequenceAutosave& autosave = *campaign.sequence()->autosave();
    for (const bool byLink : {true, false}) {
      auto kept = autosave.draft().inputs();
      kept.last().delayMinutes += minutesPerDay;
      const auto loaded = campaign.campaign()->value()->steps.value_or(QList<CampaignStep>());
      QVERIFY(autosave.restore(kept, loaded, true));
      m_stage->settle();
      QVERIFY(autosave.awaitsWord());
      byLink ? m_stage->press(u"Save"_s) : press(Qt::Key_S, Qt::ControlModifier);
      QTRY_COMPARE(autosave.state(), SequenceAutosave::SaveState::saved);
      m_stage->settle();
      QVERIFY_THROWS_EXCEPTION(StageTrouble, m_stage->press(u"Save"_s));
    }
  }

  void whyASaveFailedIsToldOnce() {
    CampaignStore& campaign = open(u"running"_s, u"sequence"_s);
    SequenceAutosave& autosave = *campaign.sequence()->autosave();
    ui::Reader::listen();
    m_stage->transport().mode = StagedTransport::Mode::offline;
    campaign.sequence()->setBody(u"Hi again"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    QStringList told;
    const auto isTold = [&](const QString& text) {
      const QString now = ui::Reader::noticeIn(m_stage->window().contentItem());
      if (!told.contains(now)) told.append(now);
      return !text.isEmpty() && told.contains(text);
    };
    QTRY_VERIFY(isTold(u"Not saved"_s));
    QTRY_VERIFY(isTold(autosave.failure()));
    QCOMPARE(told.filter(autosave.message()), QStringList{autosave.failure()});
    ui::Reader::heard();
    m_stage->transport().mode = StagedTransport::Mode::passing;
  }

  void sectionsAreLedToFromAnywhere() {
    CampaignStore& campaign = open(u"draft"_s, u"sequence"_s);
    for (const auto& key : {u"schedules"_s, u"senders"_s, u"dates"_s}) {
      campaign.act(u"settings."_s + key);
      QTRY_COMPARE(section(), key);
    }
    campaign.openLaunchStep(u"leads"_s);
    m_stage->settle();
    m_stage->press(u"Senders 0"_s);
    QTRY_COMPARE(section(), u"senders"_s);
  }

  void peopleAreAddedOneAfterAnother() {
    LeadAdding& adding = *open(u"running"_s, u"leads"_s).leads()->adding();
    adding.show(u"manual"_s);
    m_stage->settle();
    for (const auto& who : {u"ann@one.example"_s, u"bob@two.example"_s}) {
      type(who);
      QCOMPARE(adding.draft()->typed().email, who);
      press(Qt::Key_Return);
      QTRY_COMPARE(adding.draft()->typed().email, QString());
      m_stage->settle();
      QCOMPARE(lastMessage(), u"1 lead added"_s);
    }
    type(u"ann@one.example"_s);
    press(Qt::Key_Return);
    QTRY_VERIFY(m_stage->app().jobs()->shown());
    QCOMPARE(m_stage->app().jobs()->shown()->lines(), QStringList{u"1 was in this campaign already"_s});
  }

  void aThreadIsChosenByItsSide() {
    SequenceEditor& editor = *open(u"running"_s, u"sequence"_s).sequence();
    QVERIFY_THROWS_EXCEPTION(StageTrouble, m_stage->press(u"New thread"_s));
    editor.selectPlace(1);
    m_stage->settle();
    QVERIFY(editor.sameThread());
    for (const bool same : {false, false, true}) {
      m_stage->press(same ? u"Same thread"_s : u"New thread"_s);
      m_stage->settle();
      QCOMPARE(editor.sameThread(), same);
    }
  }
};

QTEST_MAIN(CampaignPageTest)
#include "campaignpage_test.moc"
