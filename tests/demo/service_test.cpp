#include <QCryptographicHash>
#include <QRegularExpression>
#include <QTest>

#include "kit/api/PlatformDate.h"
#include "kit/models/analytics/analyticsOverview.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/analyticsSummary.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/analytics/warmupHealth.h"
#include "kit/models/campaigns/addLeads.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignFeed.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/emailPreview.h"
#include "kit/models/campaigns/launchCheck.h"
#include "kit/models/campaigns/leadChanges.h"
#include "kit/models/campaigns/leadStatus.h"
#include "kit/models/campaigns/sentMessage.h"
#include "kit/models/campaigns/sequence.h"
#include "kit/models/campaigns/subsequence.h"
#include "kit/models/campaigns/testEmail.h"
#include "kit/models/labels.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/leadList.h"
#include "kit/models/leads/leadListRequests.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxRequests.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::demo;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto maren = u"maren@northgate.example"_s;
const auto tomas = u"tomas@northgate.example"_s;

QByteArray bodyOf(DemoFixture& f, const QByteArray& target) {
  const QList<QPair<QByteArray, QByteArray>> headers{{"Authorization", "Bearer " + f.session.token.toUtf8()}};
  return f.service.answer(DemoRequest::parse("GET", target, headers, {})).body;
}

QByteArray everythingOf(DemoFixture& f) {
  const QByteArray root = "/api/v1/w/northgate/campaigns", id = f.idOf(u"running"_s).toLatin1();
  QByteArray bytes = bodyOf(f, "/api/v1/auth/me") + bodyOf(f, root) + bodyOf(f, root + "?archived=1");
  for (const QByteArray& part : {"", "/leads?limit=50", "/activity?limit=50", "/messages?limit=100"})
    bytes += bodyOf(f, root + '/' + id + part);
  return bytes;
}

struct Call {
  const char* name;
  std::function<void(DemoFixture&, const QString& id, const CampaignLead& lead)> send;
};

/// Every request of the catalogue; one that the service does not know, or answers with another record, throws.
QList<Call> calls() {
  using namespace Requests;
  using F = DemoFixture&;
  using S = const QString&;
  using L = const CampaignLead&;
  static const StepIn step{{}, 0, false, {{{}, u"A"_s, u"S"_s, u"B"_s, 100, true}}};
  return {
      {"methods", [](F f, S, L) { f.ask(authMethods()); }},
      {"check email", [](F f, S, L) { f.ask(checkEmail(maren)); }},
      {"me", [](F f, S, L) { f.ask(me()); }},
      {"unread", [](F f, S, L) { f.ask(unreadCounts()); }},
      {"set workspace", [](F f, S, L) { f.ask(setCurrentWorkspace(u"caldera"_s)); }},
      {"log out", [](F f, S, L) { f.ask(logOut()); }},
      {"list", [](F f, S, L) { f.ask(listCampaigns(false)); }},
      {"archive list", [](F f, S, L) { f.ask(listCampaigns(true)); }},
      {"get", [](F f, S id, L) { f.ask(getCampaign(id)); }},
      {"create", [](F f, S, L) { f.ask(createCampaign({u"New"_s})); }},
      {"update", [](F f, S id, L) { f.ask(updateCampaign(id, {}, {})); }},
      {"steps", [](F f, S id, L) { f.ask(saveSteps(id, {{step}})); }},
      {"preview",
       [](F f, S id, L lead) {
         f.ask(previewCampaign(id, {lead.id, {}}));
       }},
      {"preview unsaved",
       [](F f, S id, L) {
         f.ask(previewCampaign(id, {{}, QList{step}}));
       }},
      {"test email",
       [](F f, S id, L) {
         f.ask(testEmailState(f.ask(sendTestEmail(id, {u"a@b.example"_s, {}, {}, 1, {}, {}, {}})).id));
       }},
      {"check", [](F f, S id, L) { f.ask(checkCampaign(id)); }},
      {"pause and launch",
       [](F f, S id, L) {
         f.ask(pauseCampaign(id));
         f.ask(launchCampaign(id, {false}));
       }},
      {"duplicate", [](F f, S id, L) { f.ask(duplicateCampaign(id)); }},
      {"delete and restore",
       [](F f, S id, L) {
         f.ask(deleteCampaign(id, false));
         f.ask(restoreCampaign(id));
       }},
      {"delete for good", [](F f, S id, L) { f.ask(deleteCampaign(id, true)); }},
      {"leads",
       [](F f, S id, L) {
         f.ask(listLeads(id, {50, LeadStatus(u"active"_s), false, {}}));
       }},
      {"removed leads",
       [](F f, S id, L) {
         f.ask(listLeads(id, {50, {}, true, {}}));
       }},
      {"add leads",
       [](F f, S id, L) {
         f.ask(addLeads(id, {AddLeadsBody::List{u"li_fair"_s, {}}}));
       }},
      {"lead", [](F f, S id, L lead) { f.ask(leadDetail(id, lead.id)); }},
      {"edit lead",
       [](F f, S id, L lead) {
         f.ask(editLeadData(id, lead.id, {{{u"city"_s, u"Riga"_s}}}));
       }},
      {"remove lead", [](F f, S id, L lead) { f.ask(removeLead(id, lead.id, false)); }},
      {"restore leads", [](F f, S id, L lead) { f.ask(restoreLeads(id, {{lead.id}})); }},
      {"move leads",
       [](F f, S id, L lead) {
         f.ask(moveLeads(id, {{lead.id}, f.idOf(u"draft"_s)}));
       }},
      {"bulk leads",
       [](F f, S id, L lead) {
         f.ask(bulkLeads(id, {u"pause"_s, {lead.id}}));
       }},
      {"activity", [](F f, S id, L) { f.ask(campaignActivity(id, 50, {})); }},
      {"messages", [](F f, S id, L) { f.ask(campaignMessages(id)); }},
      {"subsequences", [](F f, S id, L) { f.ask(listSubsequences(id)); }},
      {"new subsequence",
       [](F f, S id, L) {
         f.ask(createSubsequence(id, {u"Later"_s, {{u"interested"_s}}}));
       }},
      {"spintax",
       [](F f, S, L) {
         f.ask(spinText({u"Hi there"_s, u"body"_s}));
       }},
      {"analytics", [](F f, S id, L) { f.ask(analyticsSummary(u"2026-10-01"_s, u"2026-11-21"_s, id)); }},
      {"overview", [](F f, S, L) { f.ask(analyticsOverview(u"2026-10-01"_s, u"2026-11-21"_s)); }},
      {"warm-up health", [](F f, S, L) { f.ask(warmupHealth()); }},
      {"dashboard", [](F f, S, L) { f.ask(dashboard()); }},
  };
}

}  // namespace

class DemoServiceTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theSampleFollowsFromItsSeed() {
    DemoFixture one(7), same(7), other(8);
    QCOMPARE(everythingOf(one), everythingOf(same));
    QVERIFY(everythingOf(one) != everythingOf(other));
  }

  void theScaleIsALowerBound() {
    DemoFixture f(1, {40, 60, 5000});
    const auto items = f.ask(Requests::listCampaigns(false)).items;
    QCOMPARE(items.size(), 40);
    QCOMPARE(f.leads(items.first().id).size(), items.first().leads);
    QVERIFY(items.first().leads >= 5000);
  }

  void knowsEveryRequest_data() {
    QTest::addColumn<int>("index");
    for (int index = 0; const Call& call : calls()) QTest::newRow(call.name) << index++;
  }
  void knowsEveryRequest() {
    QFETCH(int, index);
    DemoFixture f;
    const QString id = f.idOf(u"running"_s);
    const auto lead = f.ask(Requests::listLeads(id, {1, {}, false, {}})).items.first();
    calls().at(index).send(f, id, lead);
  }

  void refusesWhatIsNotThere_data() {
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("no such call") << "/api/v1/w/northgate/campaigns/x/y/z"_ba;
    QTest::newRow("no such campaign") << "/api/v1/w/northgate/campaigns/c_none"_ba;
    QTest::newRow("no such workspace") << "/api/v1/w/elsewhere/campaigns"_ba;
    QTest::newRow("no workspace") << "/api/v1/w"_ba;
    QTest::newRow("no such account call") << "/api/v1/auth/nothing"_ba;
    QTest::newRow("outside") << "/etc/passwd"_ba;
  }
  void refusesWhatIsNotThere() {
    QFETCH(QByteArray, target);
    DemoFixture f;
    QCOMPARE(decodeJSON<Problem>(bodyOf(f, target)).code, u"not_found"_s);
  }

  void aKeyIsAnsweredOnceAndForAll() {
    DemoFixture f;
    const auto before = f.ask(Requests::listCampaigns(false)).items.size();
    const auto create = Requests::createCampaign({u"Once"_s});
    const Campaign first = f.ask(create), again = f.ask(create);
    QCOMPARE(first, again);
    QCOMPARE(f.ask(Requests::listCampaigns(false)).items.size(), before + 1);

    auto other = Requests::createCampaign({u"Twice"_s});
    other.idempotencyKey = create.idempotencyKey;
    QCOMPARE(f.refusalCode(other), u"idempotency_key_reused"_s);

    // A refusal is an answer as well: the repetition does not try again.
    const QString id = f.idOf(u"paused"_s);
    const auto pause = Requests::pauseCampaign(id);
    QCOMPARE(f.refusalCode(pause), u"not_running"_s);
    f.launch(id);
    QCOMPARE(f.refusalCode(pause), u"not_running"_s);
    QCOMPARE(f.row(id)->status.rawValue, u"running"_s);
  }

  void aKeyIsForgottenWhenOthersTakeItsPlace() {
    const auto request = [](const QByteArray& key, const QByteArray& body) {
      return DemoRequest::parse("POST", "/x", {{"Idempotency-Key", key}}, body);
    };
    const HTTPAnswer answer{201, {{"Content-Type", "text/plain"}}, QByteArray(1000, 'x')};
    AnswerMemory memory(10'000);
    // However much was sent, what counts is what was answered.
    const QByteArray file(1'000'000, 'f');
    memory.keep(request("first", file), answer);
    QCOMPARE(memory.find(request("first", file)).answer->body, answer.body);
    QVERIFY(memory.find(request("first", file + ' ')).misused);
    for (int key = 0; key < 100; ++key) memory.keep(request(QByteArray::number(key), {}), answer);
    QVERIFY(!memory.find(request("first", file)).answer);
    QVERIFY(!memory.find(request("first", {})).misused);
    QCOMPARE(memory.find(request("99", {})).answer->status, 201);
  }

  void theSameKeyOfAnotherSessionIsAnotherKey() {
    DemoFixture f;
    const auto create = Requests::createCampaign({u"Mine"_s});
    const QString mine = f.ask(create).id;
    f.session = f.service.signInDirectly();
    QVERIFY(f.ask(create).id != mine);
  }

  void passwords() {
    DemoFixture f;
    QCOMPARE(f.refusalCode(Requests::signInWithPassword(maren, u"nearly"_s)), u"bad_password"_s);
    QCOMPARE(f.refusalCode(Requests::signInWithPassword(maren, {})), u"bad_password"_s);
    QCOMPARE(f.refusalCode(Requests::signInWithPassword(tomas, {})), u"bad_password"_s);
    f.session = f.ask(Requests::signInWithPassword(maren, u"northgate-demo"_s));
    QCOMPARE(f.session.user.email, maren);
    QVERIFY(*parsePlatformDate(f.session.expiresAt) > f.clock.now());
    QCOMPARE(f.ask(Requests::me()).workspaces, f.session.workspaces);
    QCOMPARE(f.ask(Requests::checkEmail(u"nobody@northgate.example"_s)), (EmailCheck{false, false, false}));
    QCOMPARE(f.ask(Requests::checkEmail(tomas)), (EmailCheck{true, false, false}));
  }

  void codes() {
    DemoFixture f;
    QStringList sent;
    f.service.onCode = [&sent](const QString&, const QString& code) { sent.append(code); };
    QCOMPARE(f.refusalCode(Requests::verifyEmail(tomas, u"123456"_s)), u"code_expired"_s);
    QCOMPARE(f.ask(Requests::startEmail(tomas)).retryIn, 30);
    f.clock.advance(10s);
    QCOMPARE(f.refusal(Requests::startEmail(tomas)).problem().retryIn, 20);
    f.clock.advance(20s);
    f.ask(Requests::startEmail(tomas));
    QCOMPARE(sent.size(), 2);
    QVERIFY(QRegularExpression(u"\\A\\d{6}\\z"_s).match(sent.last()).hasMatch());

    const QString wrong = sent.last() == u"000000"_s ? u"000001"_s : u"000000"_s;
    QCOMPARE(f.refusal(Requests::verifyEmail(tomas, wrong)).problem().triesLeft, 4);
    QCOMPARE(f.ask(Requests::verifyEmail(tomas, sent.last())).user.email, tomas);
    QCOMPARE(f.refusalCode(Requests::verifyEmail(tomas, sent.last())), u"code_expired"_s);
  }

  void codesWearOut() {
    DemoFixture f;
    QString code;
    f.service.onCode = [&code](const QString&, const QString& sent) { code = sent; };
    f.ask(Requests::startEmail(tomas));
    f.clock.advance(601s);
    QCOMPARE(f.refusalCode(Requests::verifyEmail(tomas, code)), u"code_expired"_s);
    f.ask(Requests::startEmail(tomas));
    for (int left = 4; left >= 0; --left)
      QCOMPARE(f.refusal(Requests::verifyEmail(tomas, u"no"_s)).problem().triesLeft, left);
    QCOMPARE(f.refusalCode(Requests::verifyEmail(tomas, code)), u"code_expired"_s);
  }

  void googleGrants() {
    DemoFixture f;
    const QString verifier = u"a verifier of this program alone, long enough"_s;
    const auto challengeOf = [](const QString& text) {
      return QString::fromLatin1(QCryptographicHash::hash(text.toLatin1(), QCryptographicHash::Sha256)
                                     .toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals));
    };
    const QString stolen = f.service.googleCode(maren, challengeOf(verifier));
    QCOMPARE(f.refusalCode(Requests::exchangeToken(stolen, u"another"_s, {})), u"bad_grant"_s);
    QCOMPARE(f.refusalCode(Requests::exchangeToken(stolen, verifier, {})), u"bad_grant"_s);
    const QString code = f.service.googleCode(maren, challengeOf(verifier));
    QCOMPARE(f.ask(Requests::exchangeToken(code, verifier, {})).user.email, maren);
    QCOMPARE(f.refusalCode(Requests::exchangeToken(code, verifier, {})), u"bad_grant"_s);
    QVERIFY(bodyOf(f, "/api/v1/auth/google/start?client=macos").contains("bad_request"));
  }

  void signingOutEndsThatSessionAlone() {
    DemoFixture f;
    const auto kept = f.service.signInDirectly();
    f.ask(Requests::logOut());
    QVERIFY(f.refusal(Requests::me()).is(APIError::Kind::unauthorized));
    f.session = kept;
    QVERIFY(f.ask(Requests::me()).user);
  }

  void aWorkspaceIsThereForItsMembers() {
    DemoFixture f;
    QString code;
    f.service.onCode = [&code](const QString&, const QString& sent) { code = sent; };
    f.ask(Requests::startEmail(tomas));
    f.session = f.ask(Requests::verifyEmail(tomas, code));
    f.ask(Requests::listCampaigns(false));
    f.slug = u"harbour"_s;
    QCOMPARE(f.refusalCode(Requests::listCampaigns(false)), u"not_found"_s);
    QCOMPARE(f.refusalCode(Requests::createCampaign({u"Mine"_s})), u"not_found"_s);
  }
};

QTEST_GUILESS_MAIN(DemoServiceTest)
#include "service_test.moc"
