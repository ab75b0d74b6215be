#include <QRandomGenerator>
#include <QTest>

#include "demo/LeadWords.h"
#include "kit/models/leads/facets.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadSearch.h"
#include "kit/models/leads/savedSearch.h"
#include "kit/models/leads/unlocks.h"
#include "tests/demo/DemoFixture.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int databaseSize = 800;

/// Whether a lead answers the search, read off the lead and nothing else.
class Reading {
 public:
  explicit Reading(const LeadSearch& search) : m_search(search) {}

  bool fits(const Lead& lead) const {
    const bool isUsed = !lead.locked.value_or(false);
    const QString pool = m_search.pool();
    if (pool != "all"_L1 && isUsed != (pool == "used"_L1)) return false;
    const QString domain = lead.email.section(u'@', 1);
    return is(u"industry"_s, lead.industry) && is(u"niche"_s, lead.niche) && is(u"country"_s, lead.country) &&
           is(u"state"_s, lead.state) && is(u"city"_s, lead.city) && is(u"esp"_s, lead.esp) &&
           is(u"verification"_s, lead.verification.rawValue) && is(u"source"_s, lead.source) &&
           holds(u"title"_s, lead.title) && holds(u"company"_s, lead.company) && is(u"band"_s, bandOf(lead)) &&
           uses(lead) && hasWords(lead) && (!m_search.has(u"domain"_s) || domain == m_search.value(u"domain"_s)) &&
           (!m_search.has(u"hasPhone"_s) || lead.phone) && isFollowed(lead);
  }

 private:
  static QString bandOf(const Lead& lead) {
    return lead.employees ? QString::number(demo::words::bandOf(demo::words::sizes(), *lead.employees)) : QString();
  }
  QStringList wanted(const QString& key) const { return m_search.pieces(key); }
  QStringList unwanted(const QString& key) const { return m_search.pieces(LeadSearch::excluding(key)); }

  bool is(const QString& key, const std::optional<QString>& text) const {
    const QString value = text.value_or(QString());
    return (wanted(key).isEmpty() || wanted(key).contains(value)) && !unwanted(key).contains(value);
  }
  static bool holdsAny(const QString& text, const QStringList& pieces) {
    return std::ranges::any_of(pieces, [&](const QString& one) { return text.contains(one, Qt::CaseInsensitive); });
  }
  bool holds(const QString& key, const std::optional<QString>& text) const {
    const QString value = text.value_or(QString());
    return (wanted(key).isEmpty() || holdsAny(value, wanted(key))) && !holdsAny(value, unwanted(key));
  }
  bool uses(const Lead& lead) const {
    const QStringList all = lead.technologies.value_or(QString()).split(u", "_s);
    const auto isOne = [&](const QString& one) { return all.contains(one); };
    return (wanted(u"tech"_s).isEmpty() || std::ranges::any_of(wanted(u"tech"_s), isOne)) &&
           std::ranges::none_of(unwanted(u"tech"_s), isOne);
  }
  bool hasWords(const Lead& lead) const {
    const QStringList texts{*lead.fullName, lead.title.value_or(QString()), lead.company.value_or(QString()),
                            *lead.industry, lead.niche.value_or(QString()), *lead.keywords};
    const auto anywhere = [&](const QString& key) {
      return std::ranges::any_of(texts, [&](const QString& text) { return holdsAny(text, wanted(key)); });
    };
    return (!m_search.has(u"q"_s) || anywhere(u"q"_s)) && !(m_search.has(u"xq"_s) && anywhere(u"xq"_s));
  }
  bool isFollowed(const Lead& lead) const {
    const QString least = m_search.value(u"followersMin"_s), most = m_search.value(u"followersMax"_s);
    return (least.isEmpty() || lead.followers.value_or(-1) >= least.toLongLong()) &&
           (most.isEmpty() || (lead.followers && *lead.followers <= most.toLongLong()));
  }

  LeadSearch m_search;
};

}  // namespace

/// Searching the database, and what is unlocked of it.
class DemoLeadSearchTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  static demo::DemoScale scale(int database = databaseSize) {
    demo::DemoScale scale;
    scale.database = database;
    return scale;
  }
  /// Page by page.
  QList<Lead> find(const LeadSearch& search) {
    QList<Lead> all;
    std::optional<QString> cursor;
    do {
      auto request = Requests::searchLeads(search, cursor);
      // More at a time than a person reads.
      std::ranges::find(request.query, u"limit"_s, &QueryItem::name)->value = u"500"_s;
      const auto page = f->ask(request);
      all += page.items;
      cursor = page.nextCursor;
    } while (cursor);
    return all;
  }
  qint64 count(const LeadSearch& search) { return f->ask(Requests::searchLeads(search)).count.value; }
  /// Leads of the database alone: a file has fewer fields.
  static LeadSearch everybody() { return {{{u"source"_s, u"linkedin,instagram"_s}}, u"all"_s}; }

 private Q_SLOTS:
  void init() { f = std::make_unique<DemoFixture>(1, scale()); }
  void cleanup() { f.reset(); }

  void searchesFindWhatALeadSaysOfItself() {
    QRandomGenerator random(printedSeed());
    const auto pick = [&](const auto& list) { return list[random.bounded(int(list.size()))]; };
    const QList<Lead> all = find(everybody());
    QCOMPARE(all.size(), databaseSize);
    QSet<QString> ids, addresses;
    for (const Lead& lead : all) ids.insert(lead.id);
    QCOMPARE(ids.size(), databaseSize);
    const QStringList keys{u"title"_s, u"company"_s, u"industry"_s, u"niche"_s, u"country"_s,
                           u"state"_s, u"city"_s,    u"esp"_s,      u"tech"_s,  u"verification"_s};
    for (int round = 0; round < 12; ++round) {
      LeadSearch search = everybody();
      search.only = pick(QStringList{u"new"_s, u"used"_s, u"all"_s});
      // Values of leads that there are, so that not everything is empty.
      for (int filters = 1 + random.bounded(3); filters > 0; --filters) {
        const Lead lead = pick(all);
        const QMap<QString, QString> values{
            {u"title"_s, lead.title.value_or(u"Owner"_s)},
            {u"company"_s, lead.company.value_or(u"Graf"_s).section(u' ', 0, 0)},
            {u"industry"_s, *lead.industry},
            {u"niche"_s, lead.niche.value_or(u"Solar"_s)},
            {u"country"_s, *lead.country},
            {u"state"_s, lead.state.value_or(u"Bavaria"_s)},
            {u"city"_s, *lead.city},
            {u"esp"_s, lead.esp},
            {u"tech"_s, lead.technologies.value_or(u"Help desk"_s).section(u", "_s, 0, 0)},
            {u"verification"_s, lead.verification.rawValue}};
        const QString key = pick(keys);
        search.add(random.bounded(3) == 0 ? LeadSearch::excluding(key) : key, values[key]);
      }
      if (random.bounded(4) == 0) search.set(u"q"_s, pick(QStringList{u"graf"_s, u"owner, solar"_s, u"payroll"_s}));
      if (random.bounded(4) == 0) search.set(u"xq"_s, pick(QStringList{u"director"_s, u"wanda, tax"_s}));
      if (random.bounded(6) == 0) search.set(u"hasPhone"_s, u"1"_s);
      if (random.bounded(6) == 0) search.set(u"followersMin"_s, u"500"_s);
      if (random.bounded(6) == 0) search.set(u"followersMax"_s, u"9000"_s);
      QStringList expected;
      for (const Lead& lead : all)
        if (Reading(search).fits(lead)) expected.append(lead.id);
      QStringList found;
      for (const Lead& lead : find(search)) found.append(lead.id);
      QCOMPARE(found, expected);
      QCOMPARE(count(search), expected.size());
      const auto pools = f->ask(Requests::leadPools(search));
      QCOMPARE(search.only == "all"_L1    ? pools.all.value
               : search.only == "used"_L1 ? *pools.used
                                          : *pools.new_,
               expected.size());
      QCOMPARE(pools.all.value, *pools.new_ + *pools.used);
    }
  }

  void facetsAgreeWithTheDatabase() {
    for (const QString& database : {u"linkedin"_s, u"instagram"_s, u"all"_s}) {
      for (const QString& field :
           {u"title"_s, u"company"_s, u"industry"_s, u"country"_s, u"city"_s, u"esp"_s, u"tech"_s, u"verification"_s,
            u"band"_s, u"revenue"_s, u"funding"_s, u"seniority"_s}) {
        const auto items = f->ask(Requests::leadFacets(field, database)).items;
        QVERIFY(items.size() <= 60);
        for (const auto& item : items.first(std::min<qsizetype>(items.size(), 3))) {
          LeadSearch search{{{field, item.value}}, u"all"_s};
          if (database != "all"_L1) search.set(u"source"_s, database);
          QVERIFY2(count(search) == item.n, qPrintable(field + u' ' + item.value + u" in "_s + database));
        }
        QVERIFY(std::ranges::is_sorted(items, std::greater(), &FacetPage::Item::n));
      }
    }
    const auto typed = f->ask(Requests::leadFacets(u"title"_s, u"linkedin"_s, u"HEAD"_s)).items;
    QVERIFY(!typed.isEmpty());
    for (const auto& item : typed) QVERIFY(item.label.startsWith(u"Head"_s));
    QCOMPARE(f->ask(Requests::leadFacets(u"band"_s, u"linkedin"_s, u"1–10"_s)).items.first().value, u"1"_s);
    QCOMPARE(f->refusalCode(Requests::leadFacets(u"shoes"_s, u"all"_s)), u"invalid_input"_s);
  }

  void greatCountsAreEstimates() {
    f = std::make_unique<DemoFixture>(1, scale(60'000));
    const LeadCount all = f->ask(Requests::searchLeads(everybody())).count;
    QCOMPARE(all, (LeadCount{60'000, false, u"estimate"_s}));
    LeadSearch few = everybody();
    few.add(u"country"_s, u"Latvia"_s);
    QVERIFY(f->ask(Requests::searchLeads(few)).count.exact);
    const auto totals = f->ask(Requests::leadTotals());
    QCOMPARE(totals.all, 60'000);
    QCOMPARE(totals.bySource[u"linkedin"_s] + totals.bySource[u"instagram"_s], 60'000);
  }

  void pagesGoOnWhereTheyEndedWhateverChanges() {
    // More than one page of new ones.
    f = std::make_unique<DemoFixture>(1, scale(1500));
    const auto first = f->ask(Requests::searchLeads({}));
    QCOMPARE(first.items.size(), 30);
    // Those of the first page leave the pool.
    f->ask(Requests::unlockLeads({.leadIds = QList{first.items[3].id, first.items[29].id}}));
    const auto next = f->ask(Requests::searchLeads({}, first.nextCursor));
    QCOMPARE(next.items.size(), 20);
    for (const Lead& lead : next.items)
      QVERIFY(std::ranges::none_of(first.items, [&](const Lead& one) { return one.id == lead.id; }));
    QCOMPARE(f->refusalCode(Requests::searchLeads({}, u"tomorrow"_s)), u"invalid_input"_s);
  }

  void unlockingTellsAndUsesTheAllowance() {
    const auto before = f->ask(Requests::unlockUsage());
    QCOMPARE(before.left, before.limit - before.used);
    const QList<Lead> page = f->ask(Requests::searchLeads({})).items;
    const Lead lead = page.first();
    QVERIFY(*lead.locked && lead.email.startsWith(u"•••@"_s));
    const auto result = f->ask(Requests::unlockLeads({.leadIds = QList{lead.id, u"l_none"_s}}));
    QCOMPARE(result.unlocked, 1);
    QCOMPARE(result.items.size(), 1);
    QCOMPARE(result.usage.left, before.left - 1);
    QCOMPARE(f->ask(Requests::unlockUsage()), result.usage);
    const LeadRecord now = f->ask(Requests::getLead(lead.id));
    QCOMPARE(now.email, result.items.first().email);
    QVERIFY(!*now.locked && !now.email.contains(u'•'));
    // Told once more, it costs nothing.
    QCOMPARE(f->ask(Requests::unlockLeads({.leadIds = QList{lead.id}})).unlocked, 0);
    QCOMPARE(count({{}, u"used"_s}), *f->ask(Requests::leadPools({})).used);
  }

  void theFirstOfASearchAreUnlocked() {
    LeadSearch search = everybody();
    search.only.reset();
    const QList<Lead> page = f->ask(Requests::searchLeads(search)).items;
    const auto result = f->ask(Requests::unlockLeads({.filter = filterBody(search), .limit = 5}));
    QStringList unlocked;
    for (const auto& item : result.items) unlocked.append(item.id);
    QCOMPARE(unlocked, (QStringList{page[0].id, page[1].id, page[2].id, page[3].id, page[4].id}));
    QCOMPARE(f->refusalCode(Requests::unlockLeads({.filter = filterBody(search), .limit = 0})), u"invalid_input"_s);
  }

  void anAllowanceRunsOutAndComesBack() {
    f = std::make_unique<DemoFixture>(1, scale(6000));
    const auto usage = f->ask(Requests::unlockUsage());
    const auto all = f->ask(Requests::unlockLeads({.filter = filterBody({{}, u"new"_s}), .limit = usage.left + 10}));
    QCOMPARE(all.unlocked, usage.left);
    QCOMPARE(all.usage.left, 0);
    const Lead locked = f->ask(Requests::searchLeads({})).items.first();
    QCOMPARE(f->refusalCode(Requests::unlockLeads({.leadIds = QList{locked.id}})), u"unlock_limit_reached"_s);
    const QDate reset = QDate::fromString(usage.resetsAt, Qt::ISODate);
    f->clock.advance(std::chrono::milliseconds(f->clock.now().msecsTo(reset.startOfDay(Qt::UTC))));
    f->session = f->service.signInDirectly();
    QCOMPARE(f->ask(Requests::unlockUsage()).left, usage.limit);
    QCOMPARE(f->ask(Requests::unlockLeads({.leadIds = QList{locked.id}})).unlocked, 1);
  }

  void creditsAreNotGivenAnew() {
    f->slug = u"caldera"_s;
    const auto usage = f->ask(Requests::unlockUsage());
    QCOMPARE(usage.credits, true);
    f->ask(Requests::unlockLeads({.filter = LeadFilterBody(), .limit = 50}));
    f->clock.advance(24h * 40);
    f->session = f->service.signInDirectly();
    QCOMPARE(f->ask(Requests::unlockUsage()).left, usage.left - 50);
  }

  void searchesAreSavedUnderTheirNames() {
    const auto named = [&](const QString& name, bool archived) {
      QList<SavedSearch> all = f->ask(Requests::savedSearches(archived)).items;
      all.removeIf([&](const SavedSearch& one) { return one.name != name; });
      return all;
    };
    f->ask(Requests::saveSearch({u"Mine"_s, {{u"title"_s, u"Owner"_s}}}));
    f->ask(Requests::saveSearch({u" Mine "_s, {{u"title"_s, u"Founder"_s}}}));
    QCOMPARE(named(u"Mine"_s, false).size(), 1);
    const SavedSearch mine = named(u"Mine"_s, false).first();
    QCOMPARE(mine.search.value(u"title"_s), u"Founder"_s);
    QCOMPARE(f->refusalCode(Requests::saveSearch({u" "_s, {}})), u"invalid_input"_s);

    f->ask(Requests::deleteSavedSearch(mine.id, false));
    QVERIFY(named(u"Mine"_s, false).isEmpty());
    QVERIFY(named(u"Mine"_s, true).first().archivedAt);
    f->ask(Requests::restoreSavedSearch(mine.id));
    QCOMPARE(named(u"Mine"_s, false).size(), 1);
    f->ask(Requests::deleteSavedSearch(mine.id, false));
    f->clock.advance(24h * 30);
    f->session = f->service.signInDirectly();
    QVERIFY(named(u"Mine"_s, true).isEmpty());
    QCOMPARE(f->refusalCode(Requests::deleteSavedSearch(mine.id, true)), u"not_found"_s);
  }
};

QTEST_GUILESS_MAIN(DemoLeadSearchTest)
#include "leadsearch_test.moc"
