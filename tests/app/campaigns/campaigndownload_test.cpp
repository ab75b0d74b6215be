#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "app/campaigns/CampaignsStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// The analytics of one campaign of the list, saved as a file.
class CampaignDownloadTest : public QObject {
  Q_OBJECT

  std::unique_ptr<AppFixture> f;
  std::unique_ptr<CampaignsStore> store;

  void load(const QString& name = u"Acme Q3"_s) {
    CampaignSummary campaign;
    campaign.id = u"c1"_s;
    campaign.name = name;
    campaign.status = {u"running"_s};
    campaign.createdAt = u"2026-03-01T10:00:00Z"_s;
    f->api.expect(u"GET /campaigns"_s);
    store->ensureLoaded();
    f->api.answer(u"GET /campaigns"_s, encodeJSON(CampaignList{{campaign}, 0}));
  }

 private Q_SLOTS:
  void init() {
    f = std::make_unique<AppFixture>();
    store = std::make_unique<CampaignsStore>(*f->context);
  }
  void cleanup() {
    store.reset();
    f.reset();
  }

  void analyticsAreSavedUnderTheCampaignsName_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("words") << u"Q3 Outreach"_s << u"q3-outreach-analytics.csv"_s;
    QTest::newRow("no path") << u"../A/B  test."_s << u"a-b-test-analytics.csv"_s;
    QTest::newRow("letters of any script") << u"Größe 测试"_s << u"größe-测试-analytics.csv"_s;
    QTest::newRow("nothing") << u" "_s << u"campaign-analytics.csv"_s;
  }
  void analyticsAreSavedUnderTheCampaignsName() {
    QFETCH(QString, name);
    QTemporaryDir folder;
    load(name);
    f->filePanel.folder = folder.path();
    f->api.expect(u"GET /analytics/summary"_s);
    store->downloadAnalytics(u"c1"_s);
    QCOMPARE(f->api.last().request.query,
             (QList<QueryItem>{{u"from"_s, u"2026-03-01"_s}, {u"to"_s, u"2026-11-21"_s}, {u"campaigns"_s, u"c1"_s}}));
    f->api.answer(u"GET /analytics/summary"_s, readFixture(u"analytics-summary.json"_s));
    QTEST(f->filePanel.suggested, "file");
    QTRY_VERIFY(!f->toasts.toasts().isEmpty());
    const auto toast = f->toasts.toasts().last();
    QCOMPARE(toast.message, u"Saved "_s + f->filePanel.suggested);
    QCOMPARE(toast.actionLabel, u"Show in Finder"_s);
    f->toasts.act(toast.id);
    QCOMPARE(f->revealer.revealed, folder.filePath(f->filePanel.suggested));
    QFile file(f->revealer.revealed);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(),
             "Campaign,Status,Leads,Contacted,Sent,Opened,Replied,Clicked,Bounced,Interested,Opportunities,Value\n"
             "\"Acme, \"\"Q3\"\"\",running,100,90,200,,5,,7,3,2,1500.00\n"_ba);
  }

  void analyticsFailuresLeaveNoFile() {
    QTemporaryDir folder;
    load();
    f->api.expect(u"GET /analytics/summary"_s);
    store->downloadAnalytics(u"c1"_s);
    f->api.answer(u"GET /analytics/summary"_s, "<html>", 500);
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t download the analytics."_s);
    QVERIFY(store->busy().ids().isEmpty());

    f->filePanel.folder = folder.filePath(u"missing"_s);
    f->api.expect(u"GET /analytics/summary"_s);
    store->downloadAnalytics(u"c1"_s);
    f->toasts.clear();
    f->api.answer(u"GET /analytics/summary"_s, readFixture(u"analytics-summary.json"_s));
    QTRY_VERIFY(!f->toasts.toasts().isEmpty());
    QCOMPARE(f->toasts.toasts().last().message, u"Couldn’t download the analytics."_s);

    // A summary without the campaign: it has sent nothing.
    f->toasts.clear();
    f->filePanel.folder = folder.path();
    f->api.expect(u"GET /analytics/summary"_s);
    store->downloadAnalytics(u"c1"_s);
    f->api.answer(u"GET /analytics/summary"_s, readFixture(u"analytics-summary.json"_s).replace("\"c1\"", "\"c8\""));
    QCOMPARE(f->toasts.toasts().last().message, u"Nothing to export yet."_s);
    QVERIFY(QDir(folder.path()).isEmpty());

    f->filePanel.folder.clear();
    f->toasts.clear();
    f->api.expect(u"GET /analytics/summary"_s);
    store->downloadAnalytics(u"c1"_s);
    f->api.answer(u"GET /analytics/summary"_s, readFixture(u"analytics-summary.json"_s));
    QCOMPARE(f->toasts.count(), 0);
    QVERIFY(store->busy().ids().isEmpty());
  }

  void filesAreNotReplacedUnasked() {
    QTemporaryDir folder;
    load();
    f->filePanel.folder = folder.path();
    f->filePanel.asksBeforeReplacing = false;
    const auto download = [this] {
      f->api.expect(u"GET /analytics/summary"_s);
      store->downloadAnalytics(u"c1"_s);
      f->api.answer(u"GET /analytics/summary"_s, readFixture(u"analytics-summary.json"_s));
    };
    download();
    QVERIFY2(!f->overlays.asking(), "nothing is there yet");
    QTRY_VERIFY(store->busy().ids().isEmpty());
    const QString path = folder.filePath(f->filePanel.suggested);
    QFile theirs(path);
    QVERIFY(theirs.open(QIODevice::WriteOnly | QIODevice::Truncate) && theirs.write("theirs") > 0);
    theirs.close();

    for (const bool agreed : {false, true}) {
      download();
      QVERIFY(f->overlays.asking());
      QVERIFY(f->overlays.destructive());
      f->overlays.answer(f->overlays.token(), agreed);
      QTRY_VERIFY(store->busy().ids().isEmpty());
      QVERIFY(theirs.open(QIODevice::ReadOnly));
      QCOMPARE(theirs.readAll() != "theirs", agreed);
      theirs.close();
    }
  }
};

QTEST_GUILESS_MAIN(CampaignDownloadTest)
#include "campaigndownload_test.moc"
