#include "app/leads/LeadsStore.h"
#include "tests/ui/support/Reader.h"
#include "tests/ui/support/WindowTest.h"

using namespace Qt::Literals::StringLiterals;
using namespace orv;

/// The search for leads in the window, on the sample workspace.
class LeadsWindowTest : public ui::WindowTest {
  Q_OBJECT

  void open() { beginAt(Page::leads); }
  LeadsStore& leads() { return store<LeadsStore>(); }
  LeadFilters& filters() { return *leads().finder()->filters(); }
  LeadResults& results() { return *leads().finder()->results(); }

 private Q_SLOTS:

  void leadsAreFoundTickedAndLookedAtByKeyboard() {
    open();
    m_stage->tabTo(u"All"_s);
    press(Qt::Key_Right);
    m_stage->settle();
    QCOMPARE(filters().database(), u"linkedin"_s);

    // A value is typed for, ticked in its list, and shows as a chip.
    m_stage->tabTo(u"Search titles"_s);
    type(u"own"_s);
    QTRY_VERIFY(!filters().facet(u"title"_s)->waiting());
    m_stage->settle();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    m_stage->settle();
    QCOMPARE(filters().search().pieces(u"title"_s).size(), 1);
    const QString title = filters().search().pieces(u"title"_s).first();
    QVERIFY(title.contains(u"own"_s, Qt::CaseInsensitive));
    for (const FoundLead& row : results().list()->rows()->records())
      QVERIFY2(row.record().title.value_or(QString()).contains(title, Qt::CaseInsensitive), qPrintable(row.id));

    // From the rows: ticks, then the card, which steps along.
    m_stage->tabTo(u"row 1 of"_s);
    QVERIFY(rowHasFocus());
    press(Qt::Key_Space);
    press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(results().selection()->ids(), results().list()->shownIds().mid(0, 2));
    QCOMPARE(results().target()->description(), u"2 selected leads"_s);
    press(Qt::Key_Return);
    m_stage->settle();
    QCOMPARE(results().card()->leadId(), results().list()->shownIds().at(1));
    QVERIFY(results().card()->complete());
    // Esc lets go of the ticks first, then of the card.
    press(Qt::Key_Escape);
    QVERIFY(results().selection()->isEmpty() && results().card()->shown());
    press(Qt::Key_Escape);
    m_stage->settle();
    QVERIFY(!results().card()->shown());
    QTRY_VERIFY(rowHasFocus());

    // The chip goes by key, and the way back brings it again.
    filters().removeChip(u"title="_s + title);
    m_stage->settle();
    QVERIFY(!filters().any());
    m_stage->app().router()->goBack();
    m_stage->settle();
    QCOMPARE(filters().search().pieces(u"title"_s), QStringList{title});
    QCOMPARE(m_stage->app().router()->page(), Page::leads);
  }

  void whoMayBeUnlockedAmongOthersIsNotUnlockedAlone() {
    open();
    const auto& rows = results().list()->rows()->records();
    const auto locked = std::ranges::find_if(rows, [](const FoundLead& row) { return row.record().locked == true; });
    QVERIFY2(locked != rows.end(), "the sample has none");
    results().card()->open(locked->id);
    results().takeFirst(u"5"_s);
    results().unlock();
    m_stage->settle();
    m_stage->transport().mode = StagedTransport::Mode::holding;
    Overlays& overlays = *m_stage->app().overlays();
    overlays.answer(overlays.token(), true);
    QTRY_VERIFY(ui::Reader::find(m_stage->window().contentItem(), u"Unlock, busy"_s));
  }

  void aFoldedRailOpensForWhoeverTypes() {
    open();
    filters().setFolded(true);
    m_stage->settle();
    press(Qt::Key_Slash);
    m_stage->settle();
    QVERIFY(!filters().folded());
    type(u"fleet"_s);
    m_stage->settle();
    QCOMPARE(filters().search().value(u"q"_s), u"fleet"_s);
    QTRY_VERIFY(!results().waiting());
  }
};

QTEST_MAIN(LeadsWindowTest)
#include "leads_test.moc"
