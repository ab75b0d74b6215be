#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "demo/Routes.h"
#include "tests/demo/DemoFixture.h"
#include "tests/support/fixtures.h"

using namespace orv;
using namespace orv::demo;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const auto maren = u"maren@northgate.example"_s;

/// Every request that the client can make, as it is on the wire.
QMap<QString, DemoRequest> catalogue() {
  QMap<QString, DemoRequest> requests;
  const QJsonObject cases = QJsonDocument::fromJson(readFixture(u"requests.json"_s)).object();
  for (auto one = cases.begin(); one != cases.end(); ++one) {
    const QStringList line = one.value()["request"_L1].toString().split(u' ');
    QUrlQuery query;
    for (const auto& item : one.value()["query"_L1].toArray())
      query.addQueryItem(item[0].toString(), item[1].toString());
    const QString path = line[1].startsWith("/api/"_L1) ? line[1] : u"/api/v1/w/northgate"_s + line[1];
    const QByteArray body = QJsonDocument(one.value()["body"_L1].toObject()).toJson();
    requests.insert(one.key(), DemoRequest::parse(line[0].toLatin1(), (path + u'?' + query.toString()).toLatin1(), {},
                                                  line[0] == "GET"_L1 ? QByteArray() : body));
  }
  return requests;
}

HTTPAnswer answerAs(DemoFixture& f, DemoRequest request) {
  request.headers.insert("authorization", "Bearer " + f.session.token.toUtf8());
  return f.service.answer(request);
}

bool isOfWorkspace(const DemoRequest& request) { return request.path.startsWith("/api/v1/w/"_L1); }

}  // namespace

class DemoRoutesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyRequestOfTheCatalogueMeetsARoute() {
    const auto requests = catalogue();
    QVERIFY(requests.size() > 60);
    QSet<QString> met;
    for (const auto& [name, request] : requests.asKeyValueRange()) {
      const FoundRoute found = findRoute(request);
      QVERIFY2(found.route, qPrintable(name));
      QCOMPARE(found.slug, isOfWorkspace(request) ? u"northgate"_s : QString());
      met.insert(QString::fromLatin1(found.route->method) + u' ' + found.route->path);
    }
    // A route that nothing meets is behind another one, or of no use; the page is for the browser.
    for (const Route& route : allRoutes()) {
      const QString line = QString::fromLatin1(route.method) + u' ' + route.path;
      if (line != "GET /api/v1/auth/google/start"_L1) QVERIFY2(met.contains(line), qPrintable(line));
    }
  }

  void idsAreReadAsTheyWere() {
    const auto requests = catalogue();
    QCOMPARE(findRoute(requests[u"getCampaign"_s]).ids, QStringList{u"c/1 x"_s});
    QCOMPARE(findRoute(requests[u"leadDetail"_s]).ids, (QStringList{u"c1"_s, u"l#1"_s}));
    QVERIFY(!findRoute(DemoRequest::parse("GET", "/api/v1/w/northgate/campaigns/", {}, {})).route);
    QVERIFY(!findRoute(DemoRequest::parse("DELETE", "/api/v1/w/northgate/campaigns", {}, {})).route);
  }

  void nothingIsAnsweredWithoutASession() {
    DemoFixture f;
    f.service.endAllSessions();
    // What people without a session sign in with.
    const QStringList open{u"authMethods"_s, u"checkEmail"_s,  u"signInWithPassword"_s,
                           u"startEmail"_s,  u"verifyEmail"_s, u"exchangeToken"_s};
    for (const auto& [name, request] : catalogue().asKeyValueRange())
      QVERIFY2((answerAs(f, request).status == 401) != open.contains(name), qPrintable(name));
  }

  void whoMayChangeThings_data() {
    QTest::addColumn<bool>("may");
    QTest::addColumn<QStringList>("forbidden");
    // A workspace and who is in it are its managers' matter, and its end is its owners'.
    const QStringList owners{u"deleteWorkspace"_s};
    const QStringList managers{u"updateWorkspace nothing"_s,
                               u"updateWorkspace all"_s,
                               u"changeRole"_s,
                               u"removeMember"_s,
                               u"invite"_s,
                               u"revokeInvite"_s,
                               u"createClientWorkspace"_s};
    QTest::newRow("owner") << true << QStringList();
    QTest::newRow("admin") << true << owners;
    QTest::newRow("member") << true << owners + managers;
    for (const char* role : {"viewer", "client", "a role of tomorrow"}) QTest::newRow(role) << false << QStringList();
  }
  void whoMayChangeThings() {
    QFETCH(bool, may);
    QFETCH(QStringList, forbidden);
    DemoFixture f(1, {.database = 200});
    f.service.setRole(f.slug, maren, QString::fromLatin1(QTest::currentDataTag()));
    const auto campaigns = f.ask(Requests::listCampaigns(false));
    // They only ask, with a body.
    const QStringList asking{u"previewCampaign"_s, u"previewCampaign unsaved"_s, u"ownLeads"_s,
                             u"ownLeads newest"_s, u"ownLeads of a search"_s,    u"exportTickedLeads"_s};
    const auto requests = catalogue();
    QStringList names = requests.keys();
    // Nothing would be left for those after it.
    names.move(names.indexOf(u"deleteWorkspace"_s), names.size() - 1);
    for (const QString& name : std::as_const(names)) {
      const DemoRequest request = requests[name];
      if (!isOfWorkspace(request)) continue;
      const HTTPAnswer answer = answerAs(f, request);
      const bool changes = request.method != "GET" && !asking.contains(name);
      QVERIFY2((answer.status == 403) == ((changes && !may) || forbidden.contains(name)), qPrintable(name));
      if (answer.status != 403) continue;
      QCOMPARE(answer.header("Content-Type"), u"application/problem+json"_s);
      const auto problem = decodeJSON<Problem>(answer.body);
      QCOMPARE(problem.code, u"forbidden"_s);
      QVERIFY(problem.title && problem.detail);
    }
    if (!may) QCOMPARE(f.ask(Requests::listCampaigns(false)), campaigns);
  }
};

QTEST_GUILESS_MAIN(DemoRoutesTest)
#include "routes_test.moc"
