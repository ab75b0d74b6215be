#include <QTest>

#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/leads/leadExport.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/leadImport.h"
#include "kit/models/leads/leadListRequests.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadSearch.h"
#include "kit/models/leads/listAdding.h"
#include "kit/models/leads/ownLeads.h"
#include "kit/models/leads/unlocks.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

/// Lists, what they are filled from, and files.
class DemoLeadListsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  std::optional<LeadList> find(const QString& id, bool archived = false) {
    for (const LeadList& list : f->ask(Requests::leadLists(archived)).items)
      if (list.id == id) return list;
    return std::nullopt;
  }
  QStringList idsIn(const QString& list) {
    QStringList ids;
    std::optional<QString> cursor;
    do {
      const auto page = f->ask(Requests::searchLeads({{{u"list"_s, list}}, {}}, cursor));
      for (const Lead& lead : page.items) ids.append(lead.id);
      cursor = page.nextCursor;
    } while (cursor);
    return ids;
  }
  QStringList newLeads(int count) {
    QStringList ids;
    for (const Lead& lead : f->ask(Requests::searchLeads({})).items.first(count)) ids.append(lead.id);
    return ids;
  }
  LeadList make(const QString& name, const QStringList& ids = {}) {
    return f->ask(Requests::createLeadList({.name = name, .leadIds = ids})).list;
  }
  QStringList exported(const Request<RawData>& request) {
    return QString::fromUtf8(f->ask(request).data).split(u'\n', Qt::SkipEmptyParts).mid(1);
  }
  LeadImport importNow(const CsvImportBody& body) {
    const QString id = f->ask(Requests::startCsvImport(body)).importId;
    return after(60s, id);
  }
  /// The file is found to be there first, and is read from then on.
  LeadImport after(std::chrono::milliseconds time, const QString& id) {
    f->clock.advance(1s);
    state(id);
    f->clock.advance(time);
    return state(id);
  }
  LeadImport state(const QString& id) {
    for (const LeadImport& import : f->ask(Requests::leadImports()).items)
      if (import.id == id) return import;
    return {};
  }
  static QString rows(int count) {
    QString csv = u"Email,Name\n"_s;
    for (int i = 0; i < count; ++i) csv += u"p%1@rows.example,P%1\n"_s.arg(i);
    return csv;
  }

 private Q_SLOTS:
  void init() {
    demo::DemoScale scale;
    scale.database = 20'000;
    f = std::make_unique<DemoFixture>(1, scale);
  }
  void cleanup() { f.reset(); }

  void listsAreMadeFilledAndEmptied() {
    const auto ids = newLeads(4);
    const auto created =
        f->ask(Requests::createLeadList({.name = u"Fair"_s, .leadIds = QList{ids[0], ids[1], ids[1], u"l_none"_s}}));
    QCOMPARE(created.added, 2);
    QCOMPARE(created.list.leadCount, 2);
    const QString id = created.list.id;
    QCOMPARE(f->ask(Requests::addToLeadList(id, {.leadIds = ids})), (ListAddResult{2, 2, 0, 0, 4}));
    QCOMPARE(idsIn(id).size(), 4);
    QCOMPARE(f->ask(Requests::removeFromLeadList(id, {{ids[3], u"l_none"_s}})), (ListRemoved{1, 3}));
    QVERIFY(!idsIn(id).contains(ids[3]));
    const auto renamed = f->ask(Requests::updateLeadList(id, {.name = u" Messe "_s, .description = u"Hall 4"_s}));
    QCOMPARE(renamed.name, u"Messe"_s);
    QCOMPARE(*find(id), renamed);
    QCOMPARE(f->ask(Requests::getLead(ids[0])).lists.last().name, u"Messe"_s);
    QCOMPARE(f->refusalCode(Requests::createLeadList({.name = u" "_s})), u"invalid_input"_s);
    QCOMPARE(f->refusalCode(Requests::addToLeadList(id, {.filter = LeadFilterBody(), .limit = 100'001})),
             u"invalid_input"_s);
  }

  void duplicatesAreSkippedWhereThatIsAsked() {
    const auto ids = newLeads(3);
    make(u"A"_s, {ids[0]});
    const QString b = make(u"B"_s).id, campaign = f->idOf(u"running"_s);
    QCOMPARE(f->ask(Requests::addToLeadList(b, {.leadIds = ids, .skipInLists = true, .skipInCampaigns = true})).skipped,
             1);
    f->ask(Requests::unlockLeads({.leadIds = ids}));
    f->ask(Requests::addLeads(campaign, {AddLeadsBody::Leads{{ids[0]}, true}}));
    const QString c = make(u"C"_s).id;
    QCOMPARE(f->ask(Requests::addToLeadList(c, {.leadIds = QList{ids[0]}, .skipInCampaigns = true})).skipped, 1);
  }

  void manyAreAddedInTheBackground() {
    const auto result = f->ask(Requests::createLeadList(
        {.name = u"All"_s, .filter = filterBody({{}, u"all"_s}), .limit = 12'000, .exact = true}));
    QCOMPARE(result.added + result.queued, 12'000);
    QVERIFY(result.queued > 0);
    QCOMPARE(result.list.leadCount, result.added);
    f->clock.advance(1s);
    const qint64 soon = find(result.list.id)->leadCount;
    QVERIFY(soon > result.added && soon < 12'000);
    f->clock.advance(60s);
    QCOMPARE(find(result.list.id)->leadCount, 12'000);
    QCOMPARE(f->ask(Requests::searchLeads({{{u"list"_s, result.list.id}}, {}})).count.value, 12'000);
  }

  void listsWaitInTheArchive() {
    const auto ids = newLeads(2);
    const QString id = make(u"Gone"_s, ids).id;
    f->ask(Requests::deleteLeadList(id, false));
    QVERIFY(!find(id) && find(id, true)->archivedAt);
    const QString campaign = f->idOf(u"running"_s);
    QCOMPARE(f->refusalCode(Requests::addLeads(campaign, {AddLeadsBody::List{id, {}}})), u"invalid_input"_s);
    f->ask(Requests::restoreLeadList(id));
    QCOMPARE(find(id)->leadCount, 2);
    f->ask(Requests::deleteLeadList(id, true));
    QCOMPARE(f->refusalCode(Requests::restoreLeadList(id)), u"not_found"_s);
    // The leads stay.
    QCOMPARE(f->ask(Requests::getLead(ids[0])).lists.size(), 0);
  }

  void exportsHoldTheAddressesThatAreOurs() {
    const auto ids = newLeads(3);
    const QString id = make(u"Out"_s, ids).id;
    const auto unlocked = f->ask(Requests::unlockLeads({.leadIds = QList{ids[0]}})).items.first();
    QCOMPARE(exported(Requests::exportLeadList(id)).size(), 3);
    QCOMPARE(exported(Requests::exportLeadList(id, 2)).size(), 2);
    const auto ticked = exported(Requests::exportTickedLeads({id, {ids[0], ids[1], newLeads(9).last()}}));
    QCOMPARE(ticked.size(), 2);
    QVERIFY(ticked[0].startsWith(unlocked.email + u','));
    QVERIFY(ticked[1].startsWith(u','));
  }

  void importsAdvanceAndFillBlanksOnly() {
    QString csv = u"\ufeffWork Email;First Name;Team size\r\n"_s;
    csv += u"ANA@a.example;Ana;9\r\nbo@b.example;\"Bo \"\"B\"\"; jr\";\r\nnobody;X;1\r\nana@a.example;Zoe;2\r\n"_s;
    const CsvImportBody body{u"a.csv"_s, csv, {u"email"_s, u"first_name"_s, u"extra"_s}, {}, u"New ones"_s};
    const auto started = f->ask(Requests::startCsvImport(body));
    QCOMPARE(state(started.importId).status.rawValue, u"queued"_s);
    QVERIFY(!state(started.importId).totalRows);
    const LeadImport done = after(5s, started.importId);
    QCOMPARE(done.status.rawValue, u"done"_s);
    QCOMPARE(done.totalRows, 4);
    QCOMPARE(QList({done.readRows, done.inserted, done.updated, done.skipped}), (QList<qint64>{4, 2, 0, 2}));
    const auto ids = idsIn(*started.listId);
    QCOMPARE(ids.size(), 2);
    const LeadRecord bo = f->ask(Requests::getLead(ids[0]));
    QCOMPARE(bo.firstName, u"Bo \"B\"; jr"_s);
    QVERIFY(!bo.extra);
    QCOMPARE(f->ask(Requests::getLead(ids[1])).extra->value(u"Team size"_s), JSONValue::string(u"9"_s));

    // Once more: what stands is kept, and what was blank is not.
    const LeadImport again =
        importNow({u"b.csv"_s, u"e,f,t\nbo@b.example,Bob,7\n"_s, {u"email"_s, u"first_name"_s, u"title"_s}, {}, {}});
    QCOMPARE(again.updated, 1);
    const LeadRecord better = f->ask(Requests::getLead(ids[0]));
    QCOMPARE(better.firstName, bo.firstName);
    QCOMPARE(better.title, u"7"_s);
  }

  void importsFailAndAreCancelled() {
    const QList<QString> mapping{u"email"_s, u"full_name"_s};
    QCOMPARE(*importNow({u"a.csv"_s, u"a,b\nx@y.example,1,2\n"_s, mapping, {}, {}}).lastError,
             u"Row 2 has 3 columns, the header has 2."_s);
    QCOMPARE(importNow({u"a.csv"_s, u"a,b\nx@y.example,\"1\n"_s, mapping, {}, {}}).status.rawValue, u"failed"_s);
    QCOMPARE(importNow({u"a.csv"_s, u"a,b\nx,1\n"_s, mapping, {}, {}}).status.rawValue, u"failed"_s);

    const QString id = f->ask(Requests::startCsvImport({u"c.csv"_s, rows(9000), mapping, {}, {}})).importId;
    const LeadImport running = after(1s, id);
    QCOMPARE(running.status.rawValue, u"running"_s);
    QVERIFY(running.readRows > 0 && running.readRows < 9000);
    // Another waits for its turn.
    const QString next = f->ask(Requests::startCsvImport({u"d.csv"_s, rows(2), mapping, {}, {}})).importId;
    f->clock.advance(1s);
    QCOMPARE(state(next).status.rawValue, u"queued"_s);
    f->ask(Requests::cancelLeadImport(id));
    f->clock.advance(10s);
    state(next);
    f->clock.advance(10s);
    QCOMPARE(state(next).status.rawValue, u"done"_s);
    QCOMPARE(state(id).status.rawValue, u"cancelled"_s);
    QCOMPARE(f->refusalCode(Requests::cancelLeadImport(id)), u"import_finished"_s);
    for (const QString& csv : {QString(), u"a\nb\n"_s})
      QCOMPARE(f->refusalCode(Requests::startCsvImport({u"e.csv"_s, csv, mapping, {}, {}})), u"invalid_input"_s);
  }

  void listsCampaignsAndFiguresAgree() {
    const auto before = *f->ask(Requests::dashboard()).leads;
    const QString campaign = f->idOf(u"draft"_s);
    const auto ids = newLeads(3);
    const QString list = make(u"Mixed"_s, ids).id;
    f->ask(Requests::unlockLeads({.leadIds = QList{ids[0], ids[1]}}));
    const auto added = f->ask(Requests::addLeads(campaign, {AddLeadsBody::List{list, {}}}));
    QCOMPARE(added.added, 2);
    // Nobody can write to a lead that is not unlocked.
    QCOMPARE(added.skipped.invalid, 1);
    QCOMPARE(f->ask(Requests::ownLeads({.leadIds = ids})).ids, ids.first(2));
    const LeadRecord lead = f->ask(Requests::getLead(ids[0]));
    QCOMPARE(lead.campaigns.size(), 1);
    QCOMPARE(lead.campaigns.first().id, campaign);
    QCOMPARE(f->ask(Requests::searchLeads({{{u"campaign"_s, campaign}}, u"all"_s})).count.value, 2);
    const auto now = *f->ask(Requests::dashboard()).leads;
    QCOMPARE(now.lists, before.lists + 1);
    QCOMPARE(now.total, before.total + 4);
  }
};

QTEST_GUILESS_MAIN(DemoLeadListsTest)
#include "leadlists_test.moc"
