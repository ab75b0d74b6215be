#include <QTemporaryDir>
#include <QTest>

#include "app/leads/LeadsStore.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/campaigns/campaignLead.h"
#include "kit/models/campaigns/campaignLeadRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/leads/leadListRequests.h"
#include "kit/models/leads/leadRecord.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadSearch.h"
#include "kit/models/leads/unlocks.h"
#include "tests/service/Client.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;

/// Leads' whole way over HTTP, from a file or a search to a campaign that writes to them.
class LeadsJourneyTest : public QObject {
  Q_OBJECT

  std::unique_ptr<ServiceProcess> service;
  std::unique_ptr<Desk> desk;
  std::unique_ptr<Client> client;
  QTemporaryDir folder;

  LeadsStore& leads() { return *client->app().session()->store<LeadsStore>(); }
  LeadActions& actions() { return *leads().leadActions(); }

  QString writeFile(int rows) {
    QFile out(folder.filePath(u"people.csv"_s));
    QByteArray csv = "\xEF\xBB\xBFWork Email;First Name;Company Name;Team size\r\n";
    for (int i = 0; i < rows; ++i) {
      const QByteArray number = QByteArray::number(i);
      csv += "p" + number + "@people.example;\"Ana \"\"" + number +
             "\"\"\";Stra\xC3\x9F"
             "e; " +
             number + "\r\n";
    }
    csv += "nobody;X;Y;1\r\n";
    if (!out.open(QIODevice::WriteOnly) || out.write(csv) != csv.size()) qFatal("The test writes no file");
    return out.fileName();
  }
  std::optional<LeadList> listNamed(const QString& name) {
    for (const LeadList& list : client->sendElsewhere(Requests::leadLists(false)).items)
      if (list.name == name) return list;
    return std::nullopt;
  }
  QString campaignNamed(const QString& name) {
    for (const auto& campaign : client->sendElsewhere(Requests::listCampaigns(false)).items)
      if (campaign.name == name) return campaign.id;
    return {};
  }
  /// To a new campaign, in the form.
  void addToNewCampaign(const LeadTarget& target, const QString& name) {
    AddToCampaign& form = *actions().campaignAdding();
    actions().addToCampaign(target);
    QTRY_VERIFY(form.campaigns()->hasContent());
    form.setCurrent(AddToCampaign::makeNew);
    form.setNewName(name);
    QVERIFY2(form.canSubmit(), qPrintable(form.need()));
    form.submit();
    QTRY_VERIFY2(form.ended(), qPrintable(form.form()->error()));
  }

 private Q_SLOTS:
  void init() {
    service = std::make_unique<ServiceProcess>(QStringList{u"--database"_s, u"20000"_s});
    desk = std::make_unique<Desk>();
    client = std::make_unique<Client>(*desk, service->url());
    client->signInWithPassword();
    leads().setTab(u"lists"_s);
    leads().appear();
    leads().ensureLoaded();
  }
  void cleanup() {
    client.reset();
    desk.reset();
    service.reset();
  }

  void aFileBecomesAListAndTheListACampaign() {
    const Dashboard before = client->sendElsewhere(Requests::dashboard());
    CsvImportForm& form = *actions().importing();
    form.show();
    form.setFile(writeFile(1200));
    QTRY_VERIFY(!form.looking());
    QTRY_VERIFY(form.list()->lists()->hasContent());
    form.list()->setCurrent(LeadListPicker::makeNew);
    QCOMPARE(form.list()->newName(), u"people"_s);
    QVERIFY2(form.canSubmit(), qPrintable(form.need()));
    form.submit();
    QTRY_VERIFY2(!form.form()->shown(), qPrintable(form.form()->error()));

    // The history follows it to its end by itself.
    LeadImports& imports = *leads().lists()->imports();
    QTRY_VERIFY(imports.active() == 1);
    QTRY_VERIFY_WITH_TIMEOUT(imports.active() == 0, 20000);
    const LeadImport import = imports.list()->value()->items.first();
    QCOMPARE(import.status.rawValue, u"done"_s);
    QCOMPARE(import.inserted, 1200);
    QCOMPARE(import.skipped, 1);
    const auto list = listNamed(u"people"_s);
    QVERIFY(list);
    QCOMPARE(list->leadCount, 1200);

    addToNewCampaign(wholeList(*list), u"From a file"_s);
    const QString campaign = campaignNamed(u"From a file"_s);
    const LeadPage page = client->sendElsewhere(Requests::listLeads(campaign, {.limit = 200}));
    QCOMPARE(page.counts->value(u"queued"_s), 1200);
    const auto lead = std::ranges::find(page.items, u"p1@people.example"_s, &CampaignLead::email);
    QVERIFY(lead != page.items.end());
    QCOMPARE(lead->firstName, u"Ana \"1\""_s);
    QCOMPARE(lead->company, u"Straße"_s);
    QCOMPARE(lead->data->value(u"Team size"_s), JSONValue::string(u"1"_s));
    const LeadRecord record = client->sendElsewhere(Requests::getLead(lead->id));
    QCOMPARE(record.lists.first().name, u"people"_s);
    QCOMPARE(record.campaigns.first().name, u"From a file"_s);
    const Dashboard after = client->sendElsewhere(Requests::dashboard());
    QCOMPARE(after.leads->lists, before.leads->lists + 1);
    QCOMPARE(after.leads->total, before.leads->total + 2400);
  }

  void whatASearchFindsIsUnlockedAndWrittenTo() {
    const LeadSearch search{{{u"source"_s, u"linkedin"_s}, {u"title"_s, u"Owner"_s}}, {}};
    const auto page = client->sendElsewhere(Requests::searchLeads(search));
    LeadTarget target{LeadTarget::Ids{page.items[0].id, page.items[1].id, page.items[2].id}};
    const auto usage = client->sendElsewhere(Requests::unlockUsage());
    client->sendElsewhere(Requests::unlockLeads({.leadIds = *target.ids()}));
    QCOMPARE(client->sendElsewhere(Requests::unlockUsage()).left, usage.left - 3);

    addToNewCampaign(target, u"From a search"_s);
    const QString campaign = campaignNamed(u"From a search"_s);
    QCOMPARE(client->sendElsewhere(Requests::listLeads(campaign, {})).items.size(), 3);
    // In the search as well.
    QCOMPARE(client->sendElsewhere(Requests::searchLeads({{{u"campaign"_s, campaign}}, u"used"_s})).count.value, 3);
  }
};

QTEST_GUILESS_MAIN(LeadsJourneyTest)
#include "leads_test.moc"
