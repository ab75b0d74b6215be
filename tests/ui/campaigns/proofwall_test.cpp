#include "app/campaigns/CampaignStore.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The wall of first emails in the window, on the sample workspace.
class ProofWallWindowTest : public ui::WindowTest {
  Q_OBJECT

  CampaignStore* m_campaign = nullptr;

  /// The draft that has leads.
  void openDraft() {
    begin();
    const auto& items = m_stage->openCampaigns().list()->value()->items;
    const auto draft = std::ranges::find_if(items, [](const CampaignSummary& item) {
      return item.status.rawValue == "draft"_L1 && item.leads > ProofWall::most;
    });
    // The list may be read again meanwhile.
    const QString id = draft->id;
    m_stage->app().router()->openCampaign(id);
    m_stage->settle();
    m_campaign = m_stage->app().session()->item<CampaignStore>(Page::campaigns, id);
  }
  ProofWall& wall() { return *m_campaign->proof(); }
  qsizetype place() { return wall().emails()->rowOf(wall().current()); }

 private Q_SLOTS:
  void theWallIsWalkedAndLeadsToWhatIsOnIt() {
    openDraft();
    m_stage->press(u"Proof wall"_s);
    QTRY_COMPARE(wall().verdict().section(u' ', 1), u"of 12 look right"_s);
    m_stage->settle();
    QVERIFY2(focused() && focused()->property("tabStop").isValid(), "an email of the wall has the focus");
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    QCOMPARE(place(), 4);
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    QCOMPARE(place(), 0);
    press(Qt::Key_End);
    QCOMPARE(place(), 11);
    press(Qt::Key_PageUp);
    QCOMPARE(place(), 2);
    press(Qt::Key_PageDown);
    QCOMPARE(place(), 11);

    // To the text for that very lead, and back to the place on the wall.
    const QString lead = wall().current();
    press(Qt::Key_Return);
    QCOMPARE(m_campaign->tab(), CampaignStore::Tab::sequence);
    m_stage->settle();
    QCOMPARE(m_campaign->sequence()->preview()->lead(), lead);
    press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(m_campaign->tab(), CampaignStore::Tab::proof);
    m_stage->settle();
    QCOMPARE(place(), 11);
    press(Qt::Key_Escape);
    QCOMPARE(m_campaign->tab(), CampaignStore::Tab::sequence);
    m_stage->settle();
    QVERIFY2(focused(), "the focus is somewhere");
  }

  void whatIsWrongIsMendedAndTheLaunchIsNeverStopped() {
    openDraft();
    m_campaign->sequence()->setBody(u"Around {{city}} a third, {most of them."_s);
    m_campaign->setTab(u"proof"_s);
    QTRY_COMPARE(wall().verdict(), u"0 of 12 look right"_s);
    m_stage->settle();
    m_stage->press(u"Go to the text"_s);
    QCOMPARE(m_campaign->tab(), CampaignStore::Tab::sequence);
    m_stage->settle();
    m_campaign->setTab(u"proof"_s);
    m_stage->settle();
    m_stage->press(u"Launch"_s);
    QTRY_VERIFY(m_stage->app().overlays()->asking());
  }
};

QTEST_MAIN(ProofWallWindowTest)
#include "proofwall_test.moc"
