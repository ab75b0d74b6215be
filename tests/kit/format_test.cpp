#include <QTest>
#include <limits>

#include "kit/api/APIEnvironment.h"
#include "kit/api/APIError.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/plainText.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

namespace {

const QLocale english(QLocale::English, QLocale::UnitedStates);
const QLocale german(QLocale::German, QLocale::Germany);

}  // namespace

Q_DECLARE_METATYPE(std::optional<QString>)

class FormatTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void instants_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("instant");
    const auto row = [](const QString& text, const QString& instant) {
      QTest::newRow(qPrintable(text)) << text << instant;
    };
    row(u"2024-05-01"_s, u"2024-05-01T00:00:00.000Z"_s);
    row(u"2024-05-01T10:00:00Z"_s, u"2024-05-01T10:00:00.000Z"_s);
    row(u"2024-05-01T10:00:00.5Z"_s, u"2024-05-01T10:00:00.500Z"_s);
    row(u"2024-05-01T10:00:00.123456789Z"_s, u"2024-05-01T10:00:00.123Z"_s);
    row(u"2024-12-31T23:59:59.9999Z"_s, u"2025-01-01T00:00:00.000Z"_s);
    row(u"2024-05-01T10:00:00+05:30"_s, u"2024-05-01T04:30:00.000Z"_s);
    row(u"2024-05-01T01:00:00+0530"_s, u"2024-04-30T19:30:00.000Z"_s);
    row(u"2024-12-31T23:00:00-08:00"_s, u"2025-01-01T07:00:00.000Z"_s);
    row(u"2024-05-01T24:00:00Z"_s, u"2024-05-02T00:00:00.000Z"_s);
    row(u"1969-12-31T23:59:59.999Z"_s, u"1969-12-31T23:59:59.999Z"_s);
    // What reads like a date elsewhere is none here; in a zone that nobody named it would be hours off.
    for (const char* none : {"",
                             " ",
                             "yesterday",
                             "2024",
                             "2024-05",
                             "2024-5-1",
                             "20240501",
                             "2024-05-01 10:00:00Z",
                             "2024-05-01T10:00Z",
                             "2024-05-01T10:00:00",
                             "2024-05-01T10:00:00z",
                             "2024-05-01T10:00:00.Z",
                             "2024-05-01T25:00:00Z",
                             "2024-05-01T24:00:01Z",
                             "2024-05-01T10:60:00Z",
                             "2024-05-01T10:00:60Z",
                             "2024-05-01T10:00:00+5",
                             "2024-05-01T10:00:00+05",
                             "2024-05-01T10:00:00+99:99",
                             "2024-02-30",
                             "2023-02-29T00:00:00Z",
                             "2024-13-01",
                             "2024-05-01\n",
                             " 2024-05-01",
                             "2024-05-01T10:00:00Z\n",
                             "01.05.2024",
                             "1714557600",
                             "Wed, 01 May 2024 10:00"})
      row(QString::fromLatin1(none), QString());
    row(u"２０２４-05-01"_s, QString());
  }
  void instants() {
    QFETCH(QString, text);
    QFETCH(QString, instant);
    const auto parsed = parsePlatformDate(text);
    QCOMPARE(parsed ? formatPlatformDate(*parsed) : QString(), instant);
    if (!parsed) return;
    QCOMPARE(parsed->timeSpec(), Qt::UTC);
    QVERIFY(parsePlatformDate(instant) == parsed);
  }

  void writesInUtc() {
    const QDateTime inTokyo({2024, 5, 1}, {8, 0}, Qt::OffsetFromUTC, 9 * 3600);
    QCOMPARE(formatPlatformDate(inTokyo), u"2024-04-30T23:00:00.000Z"_s);
  }

  void oneDecimal_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("up at the half") << 4.25 << u"4.3"_s;
    QTest::newRow("away from zero") << -4.25 << u"-4.3"_s;
    QTest::newRow("whole after rounding") << 3.96 << u"4"_s;
    QTest::newRow("down") << 2.74 << u"2.7"_s;
    QTest::newRow("zero") << 0.0 << u"0"_s;
    QTest::newRow("no negative zero") << -0.04 << u"0"_s;
    QTest::newRow("a tenth") << 0.05 << u"0.1"_s;
    QTest::newRow("beyond a whole number's range") << 1e20 << u"100000000000000000000"_s;
  }
  void oneDecimal() {
    QFETCH(double, value);
    QTEST(Format::oneDecimal(value), "shown");
  }

  void fixed_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a half to the even below") << 0.125 << u"0.12"_s;
    QTest::newRow("a half to the even above") << 0.375 << u"0.38"_s;
    QTest::newRow("less than a half in truth") << 1.005 << u"1.00"_s;
    QTest::newRow("money") << 1500.0 << u"1500.00"_s;
    QTest::newRow("negative") << -2.5 << u"-2.50"_s;
    QTest::newRow("the greatest has all its digits") << std::numeric_limits<double>::max() << QString();
  }
  void fixed() {
    QFETCH(double, value);
    QFETCH(QString, shown);
    const QString written = Format::fixed(value, 2);
    if (shown.isEmpty())
      QCOMPARE(written.toDouble(), value);
    else
      QCOMPARE(written, shown);
  }

  void counts_data() {
    QTest::addColumn<qint64>("count");
    QTest::addColumn<QString>("compact");
    QTest::addColumn<QString>("grouped");
    const auto row = [](qint64 count, const QString& compact, const QString& grouped) {
      QTest::newRow(qPrintable(grouped)) << count << compact << grouped;
    };
    row(0, u"0"_s, u"0"_s);
    row(-1500, u"-1,500"_s, u"-1,500"_s);
    row(999, u"999"_s, u"999"_s);
    row(9999, u"9,999"_s, u"9,999"_s);
    row(10000, u"10K"_s, u"10,000"_s);
    row(10049, u"10K"_s, u"10,049"_s);
    row(12500, u"12.5K"_s, u"12,500"_s);
    row(999999, u"1000K"_s, u"999,999"_s);
    row(1000000, u"1M"_s, u"1,000,000"_s);
    row(1949999, u"1.9M"_s, u"1,949,999"_s);
    row(2000000, u"2M"_s, u"2,000,000"_s);
  }
  void counts() {
    QFETCH(qint64, count);
    QFETCH(QString, compact);
    QFETCH(QString, grouped);
    QCOMPARE(Format::compactCount(count, english), compact);
    QCOMPARE(Format::grouped(count, english), grouped);
    QCOMPARE(Format::grouped(count, german), QString(grouped).replace(u',', u'.'));
    // The locale of a machine that has none groups nothing by itself.
    QCOMPARE(Format::grouped(count, QLocale::c()), grouped);
  }

  void money_data() {
    QTest::addColumn<double>("amount");
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("shown");
    QTest::newRow("rounded") << 1234.6 << english << u"$1,235"_s;
    QTest::newRow("nothing") << 0.0 << english << u"$0"_s;
    QTest::newRow("no negative zero") << -0.4 << english << u"$0"_s;
    QTest::newRow("negative") << -1234.6 << english << u"-$1,235"_s;
    QTest::newRow("no locale") << 1234.6 << QLocale::c() << u"$1,235"_s;
    QTest::newRow("another locale") << 1234.6 << german << u"1.235\u00a0$"_s;
    QTest::newRow("not a number") << qQNaN() << english << u"$0"_s;
    QTest::newRow("endless") << -qInf() << english << u"$0"_s;
  }
  void money() {
    QFETCH(double, amount);
    QFETCH(QLocale, locale);
    QTEST(Format::money(amount, locale), "shown");
  }

  void shares() {
    QCOMPARE(Format::rate(0, 0), u"0%"_s);
    QCOMPARE(Format::rate(5, 0), u"0%"_s);
    QCOMPARE(Format::rate(1, 3), u"33.3%"_s);
    QCOMPARE(Format::rate(200, 200), u"100%"_s);
    QCOMPARE(Format::rate(1, 2000), u"0.1%"_s);
  }

  void wordsAndDays() {
    QCOMPARE(Format::counted(1, u"step"_s, u"steps"_s, english), u"1 step"_s);
    QCOMPARE(Format::counted(0, u"step"_s, u"steps"_s, english), u"0 steps"_s);
    QCOMPARE(Format::counted(12000, u"lead"_s, u"leads"_s, english), u"12,000 leads"_s);
    QCOMPARE(Format::calendarDay({2024, 3, 7}), u"2024-03-07"_s);
    QCOMPARE(Format::calendarDay({987, 12, 31}), u"0987-12-31"_s);
    QCOMPARE(parseCalendarDay(u"2028-02-29"_s), QDate(2028, 2, 29));
    for (const auto& none :
         {u"2026-02-29"_s, u"2026-2-9"_s, u"2026-02-09T10:00"_s, u"x2026-02-09"_s, u"2026-02-09\n"_s, u""_s})
      QVERIFY2(!parseCalendarDay(none), qPrintable(none));
    QCOMPARE(Format::shortDate({2024, 3, 7}, english), u"7 Mar"_s);
    QCOMPARE(Format::moment(QDateTime({2024, 3, 7}, {9, 5}), english), u"7 Mar, 09:05"_s);
  }

  void theBaseAddressIsTheFirstWithAHost_data() {
    QTest::addColumn<QStringList>("candidates");
    QTest::addColumn<QString>("origin");
    const auto production = u"https://app.orvella.example"_s;
    QTest::newRow("nothing set") << QStringList{} << production;
    QTest::newRow("empty") << QStringList{u""_s, u""_s} << production;
    QTest::newRow("no scheme") << QStringList{u"localhost:3000"_s} << production;
    QTest::newRow("no scheme, then one") << QStringList{u"localhost:3000"_s, u"http://b:1"_s} << u"http://b:1"_s;
    QTest::newRow("the first") << QStringList{u"http://a"_s, u"http://b"_s} << u"http://a"_s;
    QTest::newRow("with a path") << QStringList{u"http://a:81/x/?y#z"_s} << u"http://a:81"_s;
    QTest::newRow("credentials") << QStringList{u"http://me:secret@a/"_s} << u"http://a"_s;
    QTest::newRow("not safe") << QStringList{u"http://b.example"_s, u"https://c.example"_s} << u"http://b.example"_s;
    QTest::newRow("address in brackets") << QStringList{u"http://[::1]:81"_s} << u"http://[::1]:81"_s;
  }
  void theBaseAddressIsTheFirstWithAHost() {
    QFETCH(QStringList, candidates);
    QFETCH(QString, origin);
    const auto environment = APIEnvironment::resolve(candidates);
    QCOMPARE(environment.origin(), origin);
    QCOMPARE(environment.isProduction(), origin == "https://app.orvella.example"_L1);
  }

  void onlyThisMachineIsSpokenToInPlain_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("safe");
    for (const auto& safe :
         {u"https://b.example"_s, u"HTTPS://b.example:81/x"_s, u"http://localhost:8787"_s, u"http://LOCALHOST"_s,
          u"http://127.0.0.1"_s, u"http://127.9.8.7:1/x"_s, u"http://[::1]:81"_s})
      QTest::newRow(qPrintable(safe)) << safe << true;
    for (const auto& unsafe :
         {u"http://b.example"_s, u"http://app.orvella.example"_s, u"http://127.0.0.1.b.example"_s,
          u"http://127.0.0.1@b"_s, u"http://localhost@b.example"_s, u"http://localhost.b.example"_s,
          u"http://b.localhost"_s, u"http://localhost."_s, u"http://0.0.0.0"_s, u"http://10.0.0.2"_s,
          u"http://128.0.0.1"_s, u"http://[::]"_s, u"http://[2001:db8::1]"_s, u"http://[::ffff:10.0.0.2]"_s,
          u"ftp://localhost"_s, u"ws://127.0.0.1"_s, u"file://localhost/etc"_s})
      QTest::newRow(qPrintable(unsafe)) << unsafe << false;
  }
  void onlyThisMachineIsSpokenToInPlain() {
    QFETCH(QString, address);
    const auto environment = APIEnvironment::resolve({address});
    QTEST(environment.isSafe(), "safe");
    QVERIFY(environment.otherOrigin().has_value());
  }

  void everyOriginButProductionsIsAnother_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<std::optional<QString>>("other");
    const std::optional<QString> none;
    QTest::newRow("production") << QString() << none;
    QTest::newRow("its port said") << u"https://app.orvella.example:443/"_s << none;
    QTest::newRow("in capitals") << u"https://APP.Orvella.Example"_s << none;
    QTest::newRow("in plain") << u"http://app.orvella.example"_s << std::optional(u"http://app.orvella.example"_s);
    QTest::newRow("another port") << u"https://app.orvella.example:444"_s
                                  << std::optional(u"https://app.orvella.example:444"_s);
    QTest::newRow("another host") << u"https://b.example/x"_s << std::optional(u"https://b.example"_s);
    QTest::newRow("below it") << u"https://x.app.orvella.example"_s
                              << std::optional(u"https://x.app.orvella.example"_s);
  }
  void everyOriginButProductionsIsAnother() {
    QFETCH(QString, address);
    QTEST(APIEnvironment::resolve({address}).otherOrigin(), "other");
    // A letter of another script that looks the same does not stay hidden.
    const auto alike = APIEnvironment::resolve({u"https://app.\u043ervella.example"_s});
    QVERIFY(alike.otherOrigin().value_or(QString()).startsWith(u"https://app.xn--"_s));
  }

  void whatAProblemSaysIsBounded() {
    const QString endless(2'000'000, u'x');
    const auto error = APIError::problem({.title = endless,
                                          .detail = endless,
                                          .requestId = u"doc"_s,
                                          .errors = QList<Problem::FieldError>(1000, {endless, endless}),
                                          .retryIn = -5,
                                          .triesLeft = -1},
                                         endless);
    QCOMPARE(error.message().size(), 2002);
    QVERIFY(error.message().endsWith(u'…'));
    QCOMPARE(error.requestId(), u"doc"_s);
    QCOMPARE(error.problem().errors->size(), 100);
    QCOMPARE(error.problem().errors->first().message->size(), 1000);
    QCOMPARE(error.problem().retryIn, 0);
    QCOMPARE(error.problem().triesLeft, 0);
    QCOMPARE(APIError::problem({.title = u"x"_s, .retryIn = 1'000'000}, {}).problem().retryIn, 3600);
    QCOMPARE(APIError::problem({.title = QString(999, u'x') + u"😀"_s}, {}).message(), QString(999, u'x') + u'…');
    const auto idOf = [](const QString& id) { return APIError::problem({.code = u"x"_s}, id).requestId(); };
    QCOMPARE(idOf(QString(128, u'r')), QString(128, u'r'));
    for (const QString& none : {QString(129, u'r'), u"r\n1"_s, u"r\x7f"_s, u"ré"_s, u"\u202er"_s, u""_s})
      QCOMPARE(idOf(none), std::nullopt);
  }

  void aLogLineIsOne() {
    QCOMPARE(logLine(u"plain é😀 \"x\\\""_s), u"plain é😀 \"x\\\""_s);
    QCOMPARE(logLine(u"a\r\nb\t\x1b[2J\u2028\u202e"_s), u"a\\u000d\\u000ab\\u0009\\u001b[2J\\u2028\\u202e"_s);
    for (const QString& each : {u"x"_s, u"é"_s, u"😀"_s, u"\n"_s}) {
      const QString line = logLine(each.repeated(1'000'000));
      QVERIFY(line.endsWith(u'…'));
      QVERIFY2(line.toUtf8().size() <= 4096, qPrintable(QString::number(line.toUtf8().size())));
      QVERIFY(line.toUtf8().size() > 2000);
    }
  }

  void everyFailureHasItsSentence() {
    using Kind = APIError::Kind;
    const QList<QPair<APIError, QString>> sentences{
        {APIError::rateLimited(3), u"Too many requests. Wait a minute and try again."_s},
        {APIError::server(500), u"Something went wrong on our side. Please try again."_s},
        {APIError::of(Kind::offline), u"You’re offline. Connect to the internet and try again."_s},
        {APIError::of(Kind::unreachable), u"Orvella can’t be reached right now. Try again in a moment."_s},
        {APIError::of(Kind::timedOut), u"That took too long. Check your connection and try again."_s},
        {APIError::of(Kind::cancelled), u"Cancelled."_s},
        {APIError::of(Kind::unauthorized), u"This workspace’s connection ended. Sign in again."_s},
        {APIError::of(Kind::invalidResponse), u"Something went wrong on our side. Please try again."_s}};
    for (const auto& [error, sentence] : sentences) {
      QCOMPARE(error.message(), sentence);
      QVERIFY(!error.requestId() && !error.code());
      for (const auto& [other, ignored] : sentences) QCOMPARE(error == other, error.kind() == other.kind());
    }
    QVERIFY(!(APIError::server(500) == APIError::server(501)));
    QVERIFY(!(APIError::rateLimited(1) == APIError::rateLimited({})));
  }
};

QTEST_GUILESS_MAIN(FormatTest)
#include "format_test.moc"
