#include <QSet>
#include <QTest>
#include <boost/describe/class.hpp>

#include "kit/api/Clearable.h"
#include "kit/api/JSONCoding.h"
#include "kit/api/JSONValue.h"
#include "kit/api/RecordFields.h"
#include "kit/api/recordCoders.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

namespace orv {

struct Colour : OpenWord {
  using OpenWord::OpenWord;
};

struct Part {
  qint64 count = 0;
  std::optional<QString> note;
  bool operator==(const Part&) const = default;
};
BOOST_DESCRIBE_STRUCT(Part, (), (count, note))

/// One member of every kind that a record may have.
struct Thing {
  QString name;
  qint64 count = 0;
  std::optional<bool> on;
  std::optional<double> share;
  std::optional<Colour> colour;
  std::optional<QDateTime> at;
  std::optional<Part> part;
  std::optional<QList<Part>> parts;
  std::optional<QMap<QString, qint64>> counts;
  std::optional<JSONValue> free;
  Clearable<QString> memo;
  bool operator==(const Thing&) const = default;
};
BOOST_DESCRIBE_STRUCT(Thing, (), (name, count, on, share, colour, at, part, parts, counts, free, memo))

ORV_RECORD_CODERS(Thing)

/// Keys that begin alike, and the lists that are read in a way of their own.
struct Alike {
  std::optional<qint64> trackingDomain;
  std::optional<qint64> trackingDomainVerifiedAt;
  std::optional<qint64> tracking;
  std::optional<qint64> trackin;
  std::optional<QList<QString>> texts;
  std::optional<QList<qint64>> integers;
  std::optional<QList<Colour>> colours;
  std::optional<QMap<QString, JSONValue>> values;
  bool operator==(const Alike&) const = default;
};
BOOST_DESCRIBE_STRUCT(Alike, (),
                      (trackingDomain, trackingDomainVerifiedAt, tracking, trackin, texts, integers, colours, values))

ORV_RECORD_CODERS(Alike)

/// Nothing in it has to be there.
struct SparseInner {
  std::optional<QString> a, b, c, d;
  bool operator==(const SparseInner&) const = default;
};
BOOST_DESCRIBE_STRUCT(SparseInner, (), (a, b, c, d))
struct SparsePart {
  std::optional<QList<SparseInner>> sparse;
  std::optional<QString> a, b, c, d;
  bool operator==(const SparsePart&) const = default;
};
BOOST_DESCRIBE_STRUCT(SparsePart, (), (sparse, a, b, c, d))
struct Sparse {
  std::optional<QList<SparsePart>> sparse;
  std::optional<JSONValue> free;
  std::optional<QMap<QString, qint64>> map;
  std::optional<QList<QString>> texts;
  bool operator==(const Sparse&) const = default;
};
BOOST_DESCRIBE_STRUCT(Sparse, (), (sparse, free, map, texts))

ORV_RECORD_CODERS(SparseInner)
ORV_RECORD_CODERS(SparsePart)
ORV_RECORD_CODERS(Sparse)

}  // namespace orv

namespace {

const auto full =
    R"({"at":"2026-11-21T09:30:00.250Z","colour":"teal","count":2,"counts":{"a":1,"b":2},"free":{"k":[1,"x",null]},)"
    R"("memo":"m","name":"n","on":true,"part":{"count":4},"parts":[{"count":5,"note":"p"},{"count":6}],"share":0.5})"_ba;

/// The path of the fault; an empty text when the fault is in the text as a whole, nothing when there is none.
std::optional<QString> faultIn(const QByteArray& json) {
  try {
    decodeJSON<Thing>(json);
  } catch (const DecodeError& error) {
    return error.path();
  }
  return std::nullopt;
}

/// {"name":"n","count":1} with further members.
QByteArray thing(const QByteArray& further) { return R"({"name":"n","count":1,)" + further + '}'; }

JSONValue number(double value) { return JSONValue::number(value); }
JSONValue string(const QString& value) { return JSONValue::string(value); }

}  // namespace

class JsonTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void decodes_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("encoded");
    const auto row = [](const char* name, const QByteArray& json, const QByteArray& encoded) {
      QTest::newRow(name) << json << encoded;
    };
    const QByteArray least = R"({"count":1,"name":"n"})";
    row("everything", full, full);
    row("the least",
        R"( { "name" : "n" , "count" : 1 } )"
        "\n",
        least);
    row("null is absent", thing(R"("on":null,"share":null,"part":null,"parts":null,"free":null,"at":null)"), least);
    row("unknown keys", thing(R"("x":{"name":[1,{"count":2}]},"nam":1,"named":"\u00e9","":-1.5e3)"), least);
    row("escaped keys", R"({"n\u0061me":"n","\u0063ount":1,"\u0022count":"x","n\u0061med":{}})", least);
    row("the last of equal keys", thing(R"("name":"first","name":"last")"), R"({"count":1,"name":"last"})");
    row("nothing stays of the first",
        thing(R"("part":{"count":4,"note":"p"},"parts":[{"count":5}],"counts":{"a":1},"memo":"m",)"
              R"("part":{"count":6},"parts":[],"counts":{"b":2},"memo":null)"),
        R"({"count":1,"counts":{"b":2},"memo":null,"name":"n","part":{"count":6},"parts":[]})");
    row("3.0 is a whole number", R"({"name":"","count":3.0})", R"({"count":3,"name":""})");
    row("3e2 is a whole number", R"({"name":"","count":3e2})", R"({"count":300,"name":""})");
    for (const char* great : {"100000000000000", "9223372036854775807", "9223372036854775808", "1e300",
                              "99999999999999999999999999999999999999"})
      row(great, R"({"name":"","count":)"_ba + great + '}', R"({"count":100000000000000,"name":""})");
    for (const char* less : {"-1", "-1.0", "-9223372036854775808", "-1e300"})
      row(less, R"({"name":"","count":)"_ba + less + '}', R"({"count":0,"name":""})");
    row("whole numbers as shares", thing(R"("share":7)"), R"({"count":1,"name":"n","share":7})");
    row("surrogates", R"({"name":"\ud83d\ude00 é","count":1})", R"({"count":1,"name":"😀 é"})");
    row("control characters", R"({"name":"\u0000\n\/\u005c\u0022","count":1})",
        "{\"count\":1,\"name\":\"\\u0000\\n/\\\\\\\"\"}");
    row("an unknown word", thing(R"("colour":"octarine")"), R"({"colour":"octarine","count":1,"name":"n"})");
    row("cleared", thing(R"("memo":null)"), R"({"count":1,"memo":null,"name":"n"})");
    row("empty collections", thing(R"("parts":[],"counts":{})"), R"({"count":1,"counts":{},"name":"n","parts":[]})");
    row("a date in another zone", thing(R"("at":"2026-11-21T10:30:00+01:00")"),
        R"({"at":"2026-11-21T09:30:00.000Z","count":1,"name":"n"})");
  }
  void decodes() {
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, encoded);
    const Thing decoded = decodeJSON<Thing>(json);
    QCOMPARE(encodeJSON(decoded), encoded);
    QVERIFY(decodeJSON<Thing>(encoded) == decoded);
  }

  void refuses_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("path");
    const auto row = [](const QByteArray& json, const QString& path) { QTest::newRow(json.left(60)) << json << path; };
    row(R"({"count":1})", u"name"_s);
    row(R"({"name":null,"count":1})", u"name"_s);
    row(R"({"name":1,"count":1})", u"name"_s);
    for (const char* count : {"3.5", "\"3\"", "true", "-0.5", "1e400", "[]", "{}"})
      row(R"({"name":"n","count":)"_ba + count + '}', u"count"_s);
    row(thing(R"("on":1)"), u"on"_s);
    row(thing(R"("on":"true")"), u"on"_s);
    row(thing(R"("share":"0.5")"), u"share"_s);
    row(thing(R"("colour":["teal"])"), u"colour"_s);
    row(thing(R"("at":"yesterday")"), u"at"_s);
    row(thing(R"("part":[])"), u"part"_s);
    row(thing(R"("part":{"note":"x"})"), u"part.count"_s);
    row(thing(R"("parts":{})"), u"parts"_s);
    row(thing(R"("parts":[{"count":1},{"count":2,"note":7}])"), u"parts[1].note"_s);
    row(thing(R"("parts":[null])"), u"parts[0]"_s);
    row(thing("\"parts\":[" + QByteArray("0,").repeated(1000000) + "0]"), u"parts"_s);
    row(thing(R"("counts":{"maren@example.com":"1"})"), u"counts.*"_s);
    row(thing(R"("memo":{})"), u"memo"_s);
    row(thing(R"("free":)" + QByteArray(100000, '[') + QByteArray(100000, ']')), u"free"_s);
    row(thing(R"("x":)" + QByteArray(100000, '[') + QByteArray(100000, ']')), QString());
  }
  void refuses() {
    QFETCH(QByteArray, json);
    QFETCH(QString, path);
    QCOMPARE(faultIn(json), path);
  }

  /// A few bytes that ask for a lot: what would be built is bounded by what came.
  void refusesToBuildMuchOfLittle_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<bool>("refused");
    const auto many = [](const char* each, int count) {
      return "[" + QByteArray(each).append(',').repeated(count) + each + "]";
    };
    const auto row = [&](const char* name, const char* member, const char* each, int count) {
      for (const bool refused : {false, true})
        QTest::addRow("%s, %s", refused ? "many" : "some", name)
            << "{\"" + QByteArray(member) + "\":" + many(each, refused ? count : 1000) + "}" << refused;
    };
    row("records", "sparse", "{}", 200'000);
    row("records in records", "sparse", R"({"sparse":[{}]})", 200'000);
    row("values", "free", "0", 1'200'000);
    row("objects", "free", R"({"a":0})", 200'000);
    row("texts", "texts", "\"é\"", 1'000'000);
    QTest::newRow("many, members") << R"({"map":{)" + QByteArray(R"("":0,)").repeated(400'000) + R"("a":0}})" << true;
    QTest::newRow("many, words") << R"({"texts":)" + many("\"warm\"", 500'000) + "}" << false;
    QTest::newRow("many, unread") << R"({"other":)" + many(R"({"a":[[],""]})", 200'000) + "}" << false;
  }
  void refusesToBuildMuchOfLittle() {
    QFETCH(QByteArray, json);
    bool refused = false;
    try {
      decodeJSON<Sparse>(json);
    } catch (const DecodeError&) {
      refused = true;
    }
    QTEST(refused, "refused");
  }

  /// What is no JSON is refused wherever it stands, so also where nobody would have read it.
  void refusesWhatIsNoJson_data() {
    QTest::addColumn<QByteArray>("value");
    for (const char* value : {"tru",
                              "truex",
                              "\"x\"y",
                              "\"x\"\"y\"",
                              "nul",
                              "True",
                              "NaN",
                              "-",
                              "+1",
                              "01",
                              ".5",
                              "1.",
                              "1e",
                              "0x10",
                              "1 2",
                              "'x'",
                              "x",
                              "",
                              "\"\\q\"",
                              "\"\\ud800\"",
                              "\"\\ud800\\u0041\"",
                              "\"\\u12\"",
                              "\"a\tb\"",
                              "\"\xff\"",
                              "\"\xc3\"",
                              "\"\xed\xa0\x80\"",
                              "\"open",
                              "[1 2]",
                              "[1,]",
                              "[,1]",
                              "[1",
                              "1]",
                              "[}",
                              "{\"a\":1,}",
                              "{\"a\" 1}",
                              "{\"a\"}",
                              "{\"a\":}",
                              "{a:1}",
                              "{1:1}",
                              "{,}",
                              "{\"a\":1 \"b\":2}",
                              "{\"\\q\":1}",
                              "{\"a\":1",
                              "/* */ 1",
                              "1 // x"})
      QTest::newRow(QByteArray(value).toPercentEncoding(" \"\\[]{}:,'+/*").constData()) << QByteArray(value);
  }
  void refusesWhatIsNoJson() {
    QFETCH(QByteArray, value);
    for (const QByteArray& member : {QByteArray(R"("free":)"), QByteArray(R"("x":)"), QByteArray(R"("\u0078":)"),
                                     QByteArray(R"("share":)"), QByteArray(R"("colour":)")}) {
      QVERIFY2(faultIn(thing(member + value)), member);
      QVERIFY2(faultIn('{' + member + value + R"(,"name":"n","count":1})"), member);
    }
    QVERIFY(faultIn(thing(R"("x":[{"y":)" + value + "}]")));
  }

  void refusesAnythingButOneWholeObject() {
    for (const char* text :
         {"", " ", "\n", "null", "[]", "1", "\"x\"", "<html><body>502</body></html>", "{", "}", "{}"})
      QVERIFY2(faultIn(text), text);
    for (const char* rest : {"x", "{}", "]", "}", ",", "1", "\"", "\xff"}) QVERIFY2(faultIn(full + rest), rest);
    QVERIFY(faultIn('[' + full + ']'));
    for (qsizetype length = 0; length < full.size(); ++length)
      QVERIFY2(faultIn(full.first(length)), full.first(length).constData());
    QCOMPARE(faultIn(full), std::nullopt);
  }

  /// Texts are looked at in steps of several bytes, and short ones are shared: every length around a step, twice, with
  /// whatever needs another way at its begin and at its end.
  void textsOfEveryLengthAreReadAsTheyStand() {
    QStringList texts;
    for (qsizetype length = 0; length <= 70; ++length) {
      const QString plain = u"abcdefghijklmnopqrstuvwxyz0123456789"_s.repeated(2).first(length);
      for (const QString& odd :
           {QString(), u"é"_s, u"😀"_s, u"\\"_s, u"\""_s, u"\n"_s, QString(QChar(0)), u" "_s, u","_s})
        texts << plain + odd << odd + plain;
    }
    texts += texts;
    const Alike record{.texts = texts};
    const QByteArray json = encodeJSON(record);
    QVERIFY(decodeJSON<Alike>(json) == record);
    QVERIFY(decodeJSON<Alike>(QByteArray(json).replace("\",\"", "\" \t,\r\n \"")) == record);
    QVERIFY(!decodeJSON<Thing>(R"({"name":"","count":1})").name.isNull());
  }

  void keysThatBeginAlikeAreToldApart_data() {
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("in order") << R"({"trackingDomain":1,"trackingDomainVerifiedAt":2,"tracking":3,"trackin":4})"_ba;
    QTest::newRow("backwards") << R"({"trackin":4,"tracking":3,"trackingDomainVerifiedAt":2,"trackingDomain":1})"_ba;
    QTest::newRow("among strangers")
        << R"({"t":9,"trackingD":9,"trackingDomain":1,"trackingDomainV":9,"trackingDomainVerifiedAt":2,"track":9,)"
           R"("trackingDomainVerifiedAt2":9,"tracking":3,"tracking_":9,"trackin":4,"trackink":9})"_ba;
  }
  void keysThatBeginAlikeAreToldApart() {
    QFETCH(QByteArray, json);
    const Alike expected{.trackingDomain = 1, .trackingDomainVerifiedAt = 2, .tracking = 3, .trackin = 4};
    QVERIFY(decodeJSON<Alike>(json) == expected);
  }

  void aFailureLeavesTheNextDecodingAlone() {
    QVERIFY(faultIn(full.chopped(1)));
    QVERIFY(faultIn(QByteArray(3 << 20, '[')));
    const QByteArray big = "{\"count\":1,\"name\":\"" + QByteArray(3 << 20, 'x') + "\"}";
    QCOMPARE(encodeJSON(decodeJSON<Thing>(big)), big);
    QCOMPARE(encodeJSON(decodeJSON<Thing>(full)), full);
  }

  void freeValuesKeepTheirShape_data() {
    QTest::addColumn<QByteArray>("json");
    for (const char* json : {"\"x\"", "1", "-0.25", "1e+300", "true", "false", "[]", "{}",
                             R"([1,"two",null,[true,{"a":{}}]])", R"({"a":null,"b":[{"c":"é😀"}],"z":1.5})"})
      QTest::newRow(json) << QByteArray(json);
  }
  void freeValuesKeepTheirShape() {
    QFETCH(QByteArray, json);
    const QByteArray encoded = R"({"count":1,"free":)" + json + R"(,"name":"n"})";
    QCOMPARE(encodeJSON(decodeJSON<Thing>(encoded)), encoded);
  }

  void freeValuesAreEqualByKindAndPayload() {
    const QList<JSONValue> distinct{
        {},
        string(u""_s),
        string(u"1"_s),
        number(1),
        number(0),
        number(1.0000000000000002),
        JSONValue::boolean(true),
        JSONValue::boolean(false),
        JSONValue::array({}),
        JSONValue::array({JSONValue()}),
        JSONValue::array({number(1), number(2)}),
        JSONValue::array({number(2), number(1)}),
        JSONValue::array({JSONValue::array({number(1), number(2)})}),
        JSONValue::object({}),
        JSONValue::object({{u"a"_s, {}}}),
        JSONValue::object({{u"b"_s, {}}}),
        JSONValue::object({{u"a"_s, number(1)}, {u"b"_s, number(2)}}),
        JSONValue::object({{u"a"_s, number(2)}, {u"b"_s, number(1)}}),
    };
    for (qsizetype i = 0; i < distinct.size(); ++i)
      for (qsizetype k = 0; k < distinct.size(); ++k) QCOMPARE(distinct[i] == distinct[k], i == k);
    QSet<JSONValue> set(distinct.begin(), distinct.end());
    set.unite(QSet<JSONValue>(distinct.begin(), distinct.end()));
    QCOMPARE(set.size(), distinct.size());
    QVERIFY(number(0.0) == number(-0.0));
    QCOMPARE(qHash(number(0.0)), qHash(number(-0.0)));
  }

  void fieldsAreWhatQmlReads() {
    const Thing decoded = decodeJSON<Thing>(full);
    const QVariantMap map = toVariantMap(decoded);
    const auto& names = fieldNames<Thing>();
    QCOMPARE(names.first(), "name"_ba);
    QCOMPARE(names.size(), map.size());
    for (int i = 0; i < names.size(); ++i) QCOMPARE(fieldVariant(decoded, i), map.value(QString::fromLatin1(names[i])));
    QCOMPARE(map["count"_L1], QVariant(qint64(2)));
    QCOMPARE(map["parts"_L1].toList().at(0).toMap()["note"_L1].toString(), u"p"_s);
    QCOMPARE(map["free"_L1].toMap()["k"_L1].toList().at(1).toString(), u"x"_s);
    const QVariant absent = toVariantMap(Thing())["share"_L1];
    QVERIFY(absent.isValid() && absent.isNull());
  }

  void aFaultIsLoggedWithoutValues() {
    try {
      decodeJSON<Thing>(thing(R"("counts":{"maren@example.com":"secret"})"));
      QFAIL("decoded");
    } catch (const DecodeError& error) {
      QVERIFY(QByteArray(error.what()).startsWith("counts.*: "));
      QVERIFY(!QByteArray(error.what()).contains("secret"));
      QVERIFY(!QByteArray(error.what()).contains("maren"));
    }
  }
};

QTEST_GUILESS_MAIN(JsonTest)
#include "json_test.moc"
