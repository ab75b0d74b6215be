#include <QRandomGenerator>
#include <QSignalSpy>

#include "kit/models/leads/leadFilter.h"
#include "tests/app/leads/SearchFixture.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What a person set, kept as simply as can be.
using Model = QMap<QString, QStringList>;

const QStringList several{u"title"_s, u"company"_s, u"industry"_s, u"niche"_s,    u"country"_s, u"state"_s,
                          u"city"_s,  u"tech"_s,    u"xtitle"_s,   u"xcountry"_s, u"xtech"_s,   u"xcity"_s};
const QStringList linkedinOnly{u"title"_s, u"company"_s, u"niche"_s, u"state"_s, u"tech"_s, u"xtitle"_s, u"xtech"_s};
const QStringList instagramOnly{u"city"_s, u"xcity"_s, u"followersMin"_s, u"followersMax"_s};
const QStringList words{u"owner"_s, u"a & b"_s, u"Köln"_s, u"=x"_s, u"50%"_s};

QStringList queryOf(const Model& model) {
  QStringList items;
  for (const QString& key : LeadSearch::keys())
    if (model.contains(key)) items.append(key + u'=' + model.value(key).join(u','));
  return items;
}

QStringList queryOf(const LeadSearch& search) {
  QStringList items;
  for (const QueryItem& item : search.filterQuery()) items.append(item.name + u'=' + item.value.value_or(QString()));
  return items;
}

}  // namespace

/// The rail: values, facets, exclusions, chips, columns.
class LeadFiltersTest : public QObject {
  Q_OBJECT

  std::unique_ptr<SearchFixture> f;

  LeadFilters& filters() { return f->filters; }
  FacetList& facet(const QString& key) { return *filters().facet(key); }
  QStringList rows(const QString& key) {
    QStringList rows;
    for (const Choice& row : facet(key).rows()) rows.append((row.ticked ? u"*"_s : QString()) + row.label);
    return rows;
  }
  /// Every request that a change of the search brings.
  void set(const LeadSearch& search) {
    f->expectSearch();
    filters().setSearch(search);
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<SearchFixture>(); }
  void cleanup() { f.reset(); }

  void chipsSayEveryFilterAndTakeItBack_data() {
    using Values = QMap<QString, QString>;
    QTest::addColumn<Values>("values");
    QTest::addColumn<QStringList>("chips");
    QTest::newRow("none") << Values{{u"source"_s, u"linkedin"_s}} << QStringList();
    QTest::newRow("several") << Values{{u"source"_s, u"linkedin"_s}, {u"title"_s, u"Owner, CEO"_s}}
                             << QStringList{u"Title|Owner"_s, u"Title|CEO"_s};
    QTest::newRow("exclusion") << Values{{u"xcountry"_s, u"Austria"_s}} << QStringList{u"Not: |Austria"_s};
    QTest::newRow("keywords") << Values{{u"q"_s, u"fleet, vans"_s}, {u"qin"_s, u"title"_s}}
                              << QStringList{u"Keywords in title|fleet, vans"_s};
    QTest::newRow("category") << Values{{u"source"_s, u"instagram"_s}, {u"industry"_s, u"Food"_s}}
                              << QStringList{u"Category|Food"_s};
    QTest::newRow("at most") << Values{{u"followersMax"_s, u"50000"_s}} << QStringList{u"Followers:|up to 50,000"_s};
    QTest::newRow("range") << Values{{u"followersMin"_s, u"10"_s}, {u"followersMax"_s, u"50000"_s}}
                           << QStringList{u"Followers:|10 to 50,000"_s};
    QTest::newRow("flag") << Values{{u"hasPhone"_s, u"1"_s}} << QStringList{u"|Has a phone number"_s};
  }
  void chipsSayEveryFilterAndTakeItBack() {
    using Values = QMap<QString, QString>;
    QFETCH(const Values, values);
    QFETCH(const QStringList, chips);
    set({.values = values});
    QCOMPARE(f->chips(), chips);
    while (!filters().chips().isEmpty()) {
      const qsizetype before = filters().chips().size();
      f->expectSearch();
      filters().removeChip(filters().chips().first().key);
      QCOMPARE(filters().chips().size(), before - 1);
    }
    QVERIFY(!filters().any());
    QCOMPARE(filters().database(), LeadSearch{.values = values}.database());
  }

  void whereKeywordsAreLookedForGoesWithThem() {
    f->expectSearch();
    filters().choose(u"qin"_s, u"title"_s);
    QVERIFY2(!filters().any(), "no filter, no chip, and every lead would be its target");
    f->api.expect(f->leads);
    f->api.expect(f->pools);
    filters().type(u"q"_s, u"fleet"_s);
    f->clock.advance(300ms);
    QVERIFY(f->query(f->leads).contains(u"qin=title"_s));
    filters().type(u"q"_s, u" "_s);
    QVERIFY(filters().search().values.isEmpty());
    f->expectSearch();
    filters().choose(u"qin"_s, u"title"_s);
    f->expectSearch();
    filters().choose(u"qin"_s, u"any"_s);
    QVERIFY(filters().search().values.isEmpty());
  }

  void clearingTakesAwayTheFieldsThatWereOnlyOpened() {
    f->filters.showExclusions(u"title"_s);
    QCOMPARE(f->filters.exclusions(), QStringList{u"title"_s});
    QSignalSpy changed(&f->filters, &LeadFilters::changed);
    f->filters.clear();
    QCOMPARE(f->filters.exclusions(), QStringList());
    QCOMPARE(changed.count(), 1);
  }

  void aValueWithCommasIsTickedWhole() {
    f->api.expect(f->facets);
    facet(u"industry"_s).show();
    f->api.answer(f->facets, SearchFixture::facetPage({"Food", "Oil, gas"}));
    f->expectSearch();
    filters().toggle(u"industry"_s, u"Oil, gas"_s);
    QCOMPARE(rows(u"industry"_s), (QStringList{u"Food"_s, u"*Oil, gas"_s}));
    f->expectSearch();
    filters().toggle(u"industry"_s, u"Oil, gas"_s);
    QVERIFY(!filters().any());
  }

  void valuesAreReadForTheDatabaseAndKept() {
    QCOMPARE(f->asked(f->facets), 0);
    f->api.expect(f->facets);
    facet(u"industry"_s).show();
    QCOMPARE(f->query(f->facets), (QStringList{u"field=industry"_s, u"source=all"_s, u"limit=60"_s}));
    QByteArrayList values;
    for (char letter = 'a'; letter <= 'l'; ++letter) values.append(QByteArray(1, letter));
    f->api.answer(f->facets, SearchFixture::facetPage(values));
    QCOMPARE(rows(u"industry"_s).size(), 8);
    QCOMPARE(facet(u"industry"_s).hiddenCount(), 4);
    QCOMPARE(facet(u"industry"_s).rows().first().detail, u"1,200"_s);
    // What is ticked shows, wherever it stands; its place stays while it is ticked and not.
    f->expectSearch();
    filters().toggle(u"industry"_s, u"k"_s);
    QCOMPARE(rows(u"industry"_s).last(), u"*k"_s);
    QCOMPARE(facet(u"industry"_s).hiddenCount(), 3);
    // Its exclusions have the same values, and nobody asks for them again.
    facet(u"xindustry"_s).show();
    QCOMPARE(rows(u"xindustry"_s).first(), u"a"_s);
    // Another database has others; what is read for it before another one is chosen is nobody's.
    f->expectSearch();
    f->api.expect(f->facets);
    f->api.expect(f->facets);
    filters().chooseDatabase(u"instagram"_s);
    QVERIFY(facet(u"industry"_s).waiting());
    f->expectSearch();
    filters().chooseDatabase(u"all"_s);
    QVERIFY(!facet(u"industry"_s).waiting());
    QCOMPARE(rows(u"industry"_s).size(), 9);
    QVERIFY(f->api.cancelled().contains(f->facets));
  }

  void typedValuesAreAskedForOnceTheyRest() {
    f->api.expect(f->facets);
    facet(u"title"_s).show();
    f->api.answer(f->facets, SearchFixture::facetPage({"Owner", "Founder"}));
    for (const auto& text : {u"f"_s, u"fo"_s}) {
      facet(u"title"_s).setTyped(text);
      QVERIFY(facet(u"title"_s).waiting() && rows(u"title"_s).size() == 2);
      f->clock.advance(200ms);
    }
    QCOMPARE(f->asked(f->facets), 1);
    f->api.expect(f->facets);
    f->clock.advance(60ms);
    QCOMPARE(f->query(f->facets).last(), u"q=fo"_s);
    facet(u"title"_s).setTyped(u"foo"_s);
    QCOMPARE(f->api.cancelled(), QStringList{f->facets});
    f->api.expect(f->facets);
    f->clock.advance(300ms);
    f->api.fail(f->facets, TransportFailure::timedOut);
    QVERIFY2(facet(u"title"_s).failed() && rows(u"title"_s).size() == 2, "a failed reading leaves the list as it was");
    f->api.expect(f->facets);
    facet(u"title"_s).tryAgain();
    f->api.answer(f->facets, SearchFixture::facetPage({}));
    QVERIFY(facet(u"title"_s).canAdd() && facet(u"title"_s).emptyText().isEmpty());
    f->expectSearch();
    filters().addTyped(u"title"_s);
    QCOMPARE(filters().search().value(u"title"_s), u"foo"_s);
    // Cleared, the first list is there again and is not asked for.
    QCOMPARE(facet(u"title"_s).typed(), QString());
    QCOMPARE(rows(u"title"_s), (QStringList{u"*foo"_s, u"Owner"_s, u"Founder"_s}));
  }

  void whatChipsNeedWordsForIsRead() {
    f->expectSearch();
    f->api.expect(f->facets);
    filters().setSearch({.values = {{u"source"_s, u"linkedin"_s}, {u"band"_s, u"3"_s}}});
    QCOMPARE(f->chips(), QStringList{u"Size|3"_s});
    QSignalSpy told(&filters(), &LeadFilters::changed);
    f->api.answer(f->facets, R"({"items":[{"value":"3","label":"11\nto 50","n":9}]})");
    QCOMPARE(f->chips(), QStringList{u"Size|11 to 50"_s});
    QCOMPARE(told.size(), 1);
  }

  void columnsAreChosenForEachDatabase() {
    LeadColumns& columns = *f->finder.columns();
    LeadColumns ofAList(f->preferences);
    const QStringList before = columns.shown();
    columns.toggle(u"phone"_s);
    columns.toggle(u"location"_s);
    QVERIFY(columns.shown().contains(u"phone"_s) && !columns.shown().contains(u"location"_s));
    ofAList.toggle(u"tier"_s);
    QVERIFY2(ofAList.shown().contains(u"phone"_s), "one place takes away what was chosen in the other");
    columns.readAgain();
    QVERIFY(columns.shown().contains(u"tier"_s));
    f->expectSearch();
    filters().chooseDatabase(u"instagram"_s);
    QVERIFY(columns.shown().contains(u"followers"_s) && columns.shown().contains(u"location"_s));
    QCOMPARE(columns.industryTitle(), u"Category"_s);
    columns.toggle(u"name"_s);
    QVERIFY2(columns.shown().startsWith(u"name"_s), "a row without its name is nobody's");
    LeadColumns later(f->preferences);
    QVERIFY(later.shown().contains(u"phone"_s));
    later.reset();
    QCOMPARE(later.shown(), before);
    QVERIFY(!f->preferences.columns.contains(u"all"_s));
  }

  /// Whatever is done, query, body, chips and what is saved are four readings of the same search.
  void anyWalkIsReadFourWays() {
    QRandomGenerator random(printedSeed());
    const auto any = [&random](const QStringList& list) { return list[random.bounded(list.size())]; };
    Model model;
    for (int step = 0; step < 150; ++step) {
      const LeadSearch before = filters().search();
      LeadSearch search = before;
      switch (random.bounded(6)) {
        case 0:
        case 1: {
          const QString key = any(several), word = any(words);
          search.pieces(key).contains(word) ? search.remove(key, word) : search.add(key, word);
          QStringList& set = model[key];
          if (!set.removeOne(word)) set.append(word);
          if (set.isEmpty()) model.remove(key);
          break;
        }
        case 2: {
          const QString key = any({u"q"_s, u"xq"_s, u"domain"_s, u"hasPhone"_s, u"followersMin"_s, u"followersMax"_s});
          const QString value = random.bounded(3) == 0 ? QString() : QString::number(random.bounded(1, 900));
          search.set(key, value);
          value.isEmpty() ? (void)model.remove(key) : (void)model.insert(key, {value});
          break;
        }
        case 3: {
          const QString database = any({u"all"_s, u"linkedin"_s, u"instagram"_s});
          if (model.value(u"source"_s, {u"all"_s}).first() == database) break;
          search.chooseDatabase(database);
          model.remove(u"source"_s);
          if (database != "all"_L1) model.insert(u"source"_s, {database});
          for (const QString& key : database == "linkedin"_L1    ? instagramOnly
                                    : database == "instagram"_L1 ? linkedinOnly
                                                                 : linkedinOnly + instagramOnly)
            model.remove(key);
          break;
        }
        default:
          if (const auto parts = search.parts(); !parts.isEmpty() && random.bounded(4) == 0) {
            const auto part = parts[random.bounded(parts.size())];
            if (part.key == "source"_L1) break;
            search.remove(part);
            model[part.key].removeOne(part.value);
            if (model[part.key].isEmpty()) model.remove(part.key);
          }
      }
      if (search != before) set(search);
      const LeadSearch& now = filters().search();
      QCOMPARE(queryOf(now), queryOf(model));
      QCOMPARE(queryOf(LeadSearch{.values = now.values}), queryOf(model));
      const LeadFilterBody body = filterBody(now);
      QCOMPARE(body.title.value_or(QList<QString>()), model.value(u"title"_s));
      QCOMPARE(body.xtech.value_or(QList<QString>()), model.value(u"xtech"_s));
      QCOMPARE(body.domain.value_or(QString()), model.value(u"domain"_s).value(0));
      QCOMPARE(body.hasPhone.has_value(), model.contains(u"hasPhone"_s));
      qsizetype chips = 0;
      for (const auto& [key, values] : model.asKeyValueRange())
        if (key != "source"_L1 && !key.startsWith("followers"_L1)) chips += values.size();
      chips += model.contains(u"followersMin"_s) || model.contains(u"followersMax"_s);
      QCOMPARE(filters().chips().size(), chips);
      QCOMPARE(filters().any(), chips > 0);
      // The way back leads to the very same search.
      const PagePlace place = f->finder.where();
      f->finder.goTo(place);
      QCOMPARE(filters().search(), now);
    }
  }
};

QTEST_GUILESS_MAIN(LeadFiltersTest)
#include "leadfilters_test.moc"
