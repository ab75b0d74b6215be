#include <QJsonArray>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTest>

#include "kit/api/APITransport.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/leads/campaignAddSum.h"
#include "kit/models/leads/leadFilter.h"
#include "kit/models/leads/leadTarget.h"
#include "kit/models/leads/savedSearch.h"
#include "tests/support/seed.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

using Values = QMap<QString, QString>;

QStringList words(const QString& text) { return text.split(u' '); }

/// The same search, written down once more and as plainly as can be.
struct Model {
  QMap<QString, QStringList> values;
  std::optional<QString> only;

  static QStringList order() {
    return words(
        u"q qin title company industry niche country state city esp verification band source domain hasPhone "
        u"followersMin "
        "followersMax list campaign tech revenue funding seniority department xq xtitle xcompany xindustry xniche "
        "xcountry xstate xcity xesp xverification xband xtech"_s);
  }
  static bool isOne(const QString& key) {
    return words(u"q qin domain hasPhone followersMin followersMax list campaign xq"_s).contains(key);
  }
  static QStringList ownOf(const QString& database) {
    return database == "linkedin"_L1
               ? words(
                     u"title company band state niche xtitle xcompany xband xstate xniche tech xtech revenue funding "
                     "seniority department"_s)
               : words(u"followersMin followersMax city xcity"_s);
  }

  void choose(const QString& database) {
    if (database == values.value(u"source"_s).value(0, u"all"_s)) return;
    values.remove(u"source"_s);
    if (database != "all"_L1) values[u"source"_s] = {database};
    for (const QString& other : {u"linkedin"_s, u"instagram"_s})
      if (other != database)
        for (const QString& key : ownOf(other)) values.remove(key);
  }

  QList<QueryItem> query() const {
    QList<QueryItem> items;
    for (const QString& key : order())
      if (values.contains(key)) items.append({key, values[key].join(u',')});
    return items;
  }
  QList<LeadSearch::Part> parts() const {
    QList<LeadSearch::Part> parts;
    for (const QString& key : order())
      for (const QString& one : values.value(key)) parts.append({key, one});
    return parts;
  }
  QJsonObject body() const {
    QJsonObject body;
    for (const auto& [key, pieces] : values.asKeyValueRange()) {
      if (key == "hasPhone"_L1) {
        body.insert(key, true);
      } else if (key.startsWith("followers"_L1)) {
        bool isNumber = false;
        const qint64 number = pieces.first().toLongLong(&isNumber);
        if (isNumber) body.insert(key, number);
      } else if (isOne(key)) {
        body.insert(key, pieces.first());
      } else if (key == "band"_L1 || key == "xband"_L1 || key == "revenue"_L1) {
        QJsonArray numbers;
        for (const QString& one : pieces)
          if (one != "x"_L1) numbers.append(one.toLongLong());
        if (!numbers.isEmpty()) body.insert(key, numbers);
      } else {
        body.insert(key, QJsonArray::fromStringList(pieces));
      }
    }
    if (!body.contains("q"_L1) || body.value("qin"_L1) == "any"_L1) body.remove("qin"_L1);
    if (only) body.insert("only"_L1, *only);
    return body;
  }
};

/// One thing that a person does to the filters, done to both.
class Walk {
 public:
  explicit Walk(quint32 seed) : m_random(seed) {}

  LeadSearch search;
  Model model;

  void step() {
    const QString key = pick(Model::order());
    switch (m_random.bounded(6)) {
      case 0:
        return choose(pick(words(u"linkedin instagram all"_s)));
      case 1:
        search.only = model.only = pick(words(u"new used all"_s));
        return;
      case 2:
        return takeBack();
      case 3:
        search.set(key, QString());
        model.values.remove(key);
        return;
      default:
        return key == "source"_L1 ? choose(u"linkedin"_s) : Model::isOne(key) ? setOne(key) : add(key);
    }
  }

 private:
  QString pick(const QStringList& from) { return from[m_random.bounded(int(from.size()))]; }
  void choose(const QString& database) {
    search.chooseDatabase(database);
    model.choose(database);
  }
  void setOne(const QString& key) {
    const QString value = pick({u"any"_s, u"12"_s, u"owner, founder"_s, u"a&b=c+d"_s, u"ßø"_s});
    search.set(key, value);
    model.values[key] = {value};
  }
  void add(const QString& key) {
    const bool isNumber = key.endsWith("band"_L1) || key == "revenue"_L1;
    const QString value = isNumber ? pick({u"1"_s, u"2"_s, u"x"_s}) : pick({u"Owner"_s, u"Upper Austria"_s, u"ßø"_s});
    // As it may be typed.
    search.add(key, pick({value, u' ' + value, value + u", "_s, u",,"_s + value}));
    if (!model.values[key].contains(value)) model.values[key].append(value);
  }
  void takeBack() {
    const auto parts = search.parts();
    if (parts.isEmpty()) return;
    const auto part = parts[m_random.bounded(int(parts.size()))];
    search.remove(part);
    model.values[part.key].removeAll(part.value);
    if (model.values[part.key].isEmpty()) model.values.remove(part.key);
  }

  QRandomGenerator m_random;
};

/// The four readings of a search.
void compare(const LeadSearch& search, const Model& model) {
  QCOMPARE(search.filterQuery(), model.query());
  const QString pool = model.values.contains(u"list"_s) ? u"all"_s : model.only.value_or(u"new"_s);
  QCOMPARE(search.query(), model.query() << (QueryItem{u"only"_s, pool}));
  QCOMPARE(toJSON(filterBody(search)), model.body());
  QCOMPARE(search.parts(), model.parts());
  // Neither where it is looked for nor in what of a lead narrows anything by itself.
  const qsizetype idle = model.values.contains(u"source"_s) + model.values.contains(u"qin"_s);
  QCOMPARE(search.hasFilters(), model.values.size() > idle);
}

}  // namespace

class KitLeadsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void queryBodyChipsAndSavedMapAreReadingsOfOneThing() {
    const quint32 seed = printedSeed();
    for (quint32 walk = 0; walk < 15; ++walk) {
      Walk w(seed + walk);
      for (int step = 0; step < 60; ++step) {
        w.step();
        compare(w.search, w.model);
        // Opened again from what was saved of it, it is the same but for its pool.
        compare(LeadSearch{w.search.values, w.model.only}, w.model);
        if (QTest::currentTestFailed()) qFatal("in step %d of walk %u", step, walk);
      }
    }
  }

  void whatIsStoredGoesOutAsItStands() {
    const LeadSearch search{{{u"title"_s, u" CEO ,, Owner"_s}, {u"city"_s, QString()}, {u"tomorrow"_s, u"1"_s}}, {}};
    QCOMPARE(search.filterQuery(), (QList<QueryItem>{{u"title"_s, u" CEO ,, Owner"_s}}));
    QCOMPARE(filterBody(search).title, (QList<QString>{u"CEO"_s, u"Owner"_s}));
    QVERIFY(!filterBody(search).city);
    // What a list is, its search says; its body says it as it was set.
    const LeadSearch list{{{u"list"_s, u"li1"_s}}, u"used"_s};
    QCOMPARE(list.pool(), u"all"_s);
    QCOMPARE(filterBody(list).only, u"used"_s);
  }

  void choosingADatabaseTakesOutWhatOnlyOthersHave() {
    LeadSearch search{{{u"source"_s, u"instagram"_s},
                       {u"followersMin"_s, u"10"_s},
                       {u"xcity"_s, u"Riga"_s},
                       {u"country"_s, u"Latvia"_s},
                       {u"title"_s, u"Owner"_s}},
                      {}};
    search.chooseDatabase(u"instagram"_s);
    QVERIFY(search.has(u"title"_s));
    search.chooseDatabase(u"linkedin"_s);
    QCOMPARE(search.values.keys(), (QStringList{u"country"_s, u"source"_s, u"title"_s}));
    search.chooseDatabase(u"all"_s);
    QCOMPARE(search.values.keys(), QStringList{u"country"_s});
    QCOMPARE(search.database(), u"all"_s);
  }

  void targetsSayWhatTheyCount() {
    const auto target = [](qint64 value, bool exact, std::optional<qint64> first = {}) {
      return LeadTarget{LeadTarget::Filter{{}, {value, exact, {}}, first}}.description();
    };
    QCOMPARE(LeadTarget{LeadTarget::Ids{u"l1"_s}}.description(), u"1 selected lead"_s);
    QCOMPARE((LeadTarget{LeadTarget::Ids{u"l1"_s, u"l2"_s}}.description()), u"2 selected leads"_s);
    QCOMPARE(target(900, true), u"900 matching leads"_s);
    QCOMPARE(target(900, false), u"about 900 matching leads"_s);
    QCOMPARE(target(900, false, 200), u"200 matching leads"_s);
    QCOMPARE(target(900, true, 1000), u"900 matching leads"_s);
    QCOMPARE(target(900, false, 1000), u"about 900 matching leads"_s);
  }

  void savedSearchesComeBare() {
    const auto decode = [](const QByteArray& body) {
      return detail::AnswerDecoder<SavedSearchList>::decode({200, {}, body}).items;
    };
    QCOMPARE(decode("[]").size(), 0);
    const auto saved = decode(R"([{"id":"s1","name":"A","search":{"title":"x,y"},"updatedAt":"now"}])");
    QCOMPARE(saved.size(), 1);
    QCOMPARE(saved.first().search, (Values{{u"title"_s, u"x,y"_s}}));
    for (const char* other : {"{}", "", "[", "null", R"({"items":[]})", R"([{"id":"s1"}])", "[]}{"})
      QVERIFY_THROWS_EXCEPTION(DecodeError, decode(other));
  }

  void whatCameOfBlocksIsAddedUp() {
    CampaignAddSum sum;
    const AddLeadsResult block{.added = 5, .skipped = {1, 2, 3, 4, 5, 6}, .total = 26, .columns = {}};
    sum += block;
    sum += block;
    QCOMPARE(sum, (CampaignAddSum{10, 2, 4, 6, 8, 10, 52}));
  }
};

QTEST_APPLESS_MAIN(KitLeadsTest)
#include "leads_test.moc"
