#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>
#include <boost/type_index.hpp>

#include "kit/api/JSONCoding.h"
#include "kit/models/campaigns/campaignStatus.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/mailboxes/mailboxBrand.h"
#include "kit/models/mailboxes/mailboxPatch.h"
#include "kit/models/mailboxes/newMailbox.h"
#include "tests/support/answerRecords.h"
#include "tests/support/fixtures.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// The way from a record's root to one of its members: keys and places in lists.
using Way = QVariantList;

struct Field {
  Way way;
  bool optional = false;
};

QJsonValue follow(QJsonValue value, const Way& way) {
  for (const QVariant& step : way)
    value = step.typeId() == QMetaType::Int ? value[step.toInt()] : value[step.toString()];
  return value;
}

/// `root` with what stands at the way's end replaced; undefined takes it out.
QJsonValue replaced(const QJsonValue& root, const Way& way, const QJsonValue& by) {
  if (way.isEmpty()) return by;
  const QVariant step = way.first();
  const QJsonValue inner = replaced(follow(root, {step}), way.sliced(1), by);
  if (step.typeId() == QMetaType::Int) {
    QJsonArray array = root.toArray();
    array[step.toInt()] = inner;
    return array;
  }
  QJsonObject object = root.toObject();
  object.insert(step.toString(), inner);
  return object;
}

/// As a decoding failure names it.
QString shown(const Way& way) {
  QString path;
  for (const QVariant& step : way) {
    if (step.typeId() == QMetaType::Int)
      path += u'[' + step.toString() + u']';
    else
      path += (path.isEmpty() ? QString() : u"."_s) + step.toString();
  }
  return path;
}

template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;
template <class T>
inline constexpr bool isOptional<Clearable<T>> = true;
template <class T>
inline constexpr bool isList = false;
template <class T>
inline constexpr bool isList<QList<T>> = true;

/// Appends the members of T, and of the records in it.
template <class T>
void listMembers(QList<Field>& into, const Way& at) {
  if constexpr (std::is_same_v<T, Clearable<qint64>>) {
    return;
  } else if constexpr (isOptional<T> || isList<T>) {
    listMembers<typename T::value_type>(into, isList<T> ? at + Way(1, 0) : at);
  } else if constexpr (boost::describe::has_describe_members<T>::value) {
    constexpr auto whole = boost::describe::mod_public | boost::describe::mod_inherited;
    boost::mp11::mp_for_each<boost::describe::describe_members<T, whole>>([&](auto member) {
      using Type = std::decay_t<decltype(std::declval<T>().*member.pointer)>;
      QString key = QString::fromLatin1(member.name);
      if (key.endsWith(u'_')) key.chop(1);
      const Way way = at + Way{key};
      into.append({way, isOptional<Type>});
      listMembers<Type>(into, way);
    });
  }
}

struct Record {
  QString name;
  QByteArray (*recode)(const QByteArray&);
  QList<Field> members;
};

template <class... R>
QList<Record> records(boost::mp11::mp_list<R...>) {
  const auto record = []<class T>(std::type_identity<T>) {
    QList<Field> members;
    listMembers<T>(members, {});
    return Record{QString::fromStdString(boost::typeindex::type_id<T>().pretty_name()).remove(u"orv::"_s),
                  [](const QByteArray& json) { return encodeJSON(decodeJSON<T>(json)); }, members};
  };
  return {record(std::type_identity<R>())...};
}

const QList<Record>& allRecords() {
  static const auto all = records(AnswerRecords());
  return all;
}

QByteArray text(const QJsonValue& object) { return QJsonDocument(object.toObject()).toJson(QJsonDocument::Compact); }

/// The path of the decoding failure, or nothing when there is none.
std::optional<QString> faultIn(const Record& record, const QJsonValue& json) {
  try {
    record.recode(text(json));
  } catch (const DecodeError& error) {
    return error.path();
  }
  return std::nullopt;
}

QJsonValue ofAnotherKind(const QJsonValue& value) {
  if (value.isObject()) return QJsonArray();
  if (value.isString()) return 1;
  return u"x"_s;
}

}  // namespace

class RecordsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// The example of each record holds every member, once at least, so that the variations below are complete.
  void examplesAreWhole_data() {
    QTest::addColumn<int>("number");
    for (int i = 0; i < allRecords().size(); ++i) QTest::newRow(qPrintable(allRecords()[i].name)) << i;
  }
  void examplesAreWhole() {
    QFETCH(int, number);
    const Record& record = allRecords()[number];
    const QJsonValue example = exampleOf(record);
    QCOMPARE(record.recode(text(example)), text(example));
    for (const Field& member : record.members) {
      QVERIFY2(!follow(example, member.way).isUndefined(), qPrintable(shown(member.way)));
    }
  }

  void membersAreNeededOrNot_data() { examplesAreWhole_data(); }
  void membersAreNeededOrNot() {
    QFETCH(int, number);
    const Record& record = allRecords()[number];
    const QJsonValue example = exampleOf(record);
    for (const auto& [way, optional] : record.members) {
      const QJsonValue value = follow(example, way);
      const QString path = shown(way);
      const auto faultWith = [&](const QJsonValue& by) { return faultIn(record, replaced(example, way, by)); };
      const std::optional<QString> unlessOptional = optional ? std::nullopt : std::optional(path);
      QVERIFY2(faultWith(QJsonValue::Undefined) == unlessOptional, qPrintable(path));
      QVERIFY2(faultWith(QJsonValue::Null) == unlessOptional, qPrintable(path));
      QVERIFY2(faultWith(ofAnotherKind(value)) == path, qPrintable(path));
    }
  }

  void statusesAreLabelled() {
    const QList<QPair<QString, QString>> campaign{{u"draft"_s, u"Draft"_s},       {u"running"_s, u"Running"_s},
                                                  {u"paused"_s, u"Paused"_s},     {u"completed"_s, u"Completed"_s},
                                                  {u"archived"_s, u"Archived"_s}, {u"Hibernating"_s, u"Hibernating"_s}};
    for (const auto& [word, label] : campaign) QCOMPARE(CampaignStatus(word).label(), label);
    const QList<QPair<QString, QString>> lead{{u"queued"_s, u"Queued"_s},
                                              {u"active"_s, u"In sequence"_s},
                                              {u"paused"_s, u"Paused"_s},
                                              {u"completed"_s, u"Finished"_s},
                                              {u"replied"_s, u"Replied"_s},
                                              {u"bounced"_s, u"Bounced"_s},
                                              {u"unsubscribed"_s, u"Unsubscribed"_s},
                                              {u"stopped"_s, u"Stopped"_s},
                                              {u"in_review"_s, u"in_review"_s}};
    for (const auto& [word, label] : lead) QCOMPARE(LeadStatus(word).label(), label);
    const QList<QPair<QString, QString>> mailbox{{u"verifying"_s, u"Verifying"_s}, {u"active"_s, u"Active"_s},
                                                 {u"paused"_s, u"Paused"_s},       {u"failed"_s, u"Failed"_s},
                                                 {u"disabled"_s, u"Disabled"_s},   {u"on_holiday"_s, u"on_holiday"_s}};
    for (const auto& [word, label] : mailbox) QCOMPARE(MailboxStatus(word).label(), label);
  }

  void mailboxesShowOneOfThreeBrands_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("provider");
    QTest::addColumn<QString>("brand");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& kind, const QString& host, const QString& provider,
                        const QString& brand,
                        const QString& shown) { QTest::newRow(name) << kind << host << provider << brand << shown; };
    const QString google = u"google"_s, microsoft = u"microsoft"_s, smtp = u"smtp"_s;
    const QString workspace = u"Google Workspace"_s, servers = u"SMTP / IMAP"_s;
    row("a signed in one", u"google_oauth"_s, {}, microsoft, google, workspace);
    row("a whole domain", u"google_dwd"_s, {}, smtp, google, workspace);
    row("an app password", u"smtp_imap"_s, u"smtp.gmail.com"_s, smtp, google, workspace);
    row("another host", u"smtp_imap"_s, u"smtp.a.example"_s, google, smtp, servers);
    row("no host", u"smtp_imap"_s, {}, google, smtp, servers);
    row("signed in at the other", u"ms_oauth"_s, {}, google, microsoft, u"Microsoft 365"_s);
    row("an app", u"ms_graph_app"_s, {}, google, microsoft, u"Microsoft 365 app"_s);
    row("not connected", {}, {}, google, google, workspace);
    row("not connected to the other", {}, {}, microsoft, microsoft, u"Microsoft 365"_s);
    row("of an unknown provider", {}, {}, u"pigeon"_s, smtp, servers);
    row("a way of tomorrow", u"telepathy"_s, {}, microsoft, microsoft, u"Microsoft 365"_s);
  }
  void mailboxesShowOneOfThreeBrands() {
    QFETCH(QString, kind);
    QFETCH(QString, host);
    Mailbox mailbox;
    mailbox.provider = *static_cast<QString*>(QTest::qData("provider", QMetaType::QString));
    if (!kind.isEmpty()) mailbox.connection = Mailbox::Connection{kind, u"connected"_s, {}, {}, {}};
    if (!host.isEmpty()) mailbox.connection->host = host;
    QTEST(brandWord(brandOf(mailbox)), "brand");
    QTEST(brandName(mailbox), "shown");
  }

 private:
  static QJsonValue exampleOf(const Record& record) {
    static const QJsonObject examples = QJsonDocument::fromJson(readFixture(u"records.json"_s)).object();
    return examples[record.name];
  }
};

QTEST_APPLESS_MAIN(RecordsTest)
#include "records_test.moc"
