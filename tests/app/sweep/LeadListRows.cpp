#include <QJsonArray>
#include <QTemporaryDir>

#include "app/leads/LeadListStore.h"
#include "app/leads/LeadsStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

/// The page of one list, with what the workspace has beside it.
struct LeadsOnShow final : Store {
  explicit LeadsOnShow(WorkspaceContext& context) : Store(context) {}
  void ensureLoaded() override {
    leads.lists()->ensureLoaded();
    list.ensureLoaded();
  }
  void refresh() override {
    leads.lists()->refresh();
    list.refresh();
  }
  void close() override {
    list.close();
    leads.close();
    actions.close();
    Store::close();
  }
  LeadActions actions{context()};
  LeadsStore leads{context(), actions};
  LeadListStore list{u"li1"_s, context(), actions, *leads.lists()};
};

LeadsOnShow& page(SweepStage& s) { return s.the<LeadsOnShow>(); }
LeadListActions& lists(SweepStage& s) { return *page(s).actions.lists(); }

const LeadTarget one{LeadTarget::Ids{u"l1"_s}};

LeadList listOf(SweepStage& s) {
  const QList<LeadList> all = page(s).leads.lists()->all();
  return all.isEmpty() ? LeadList{.id = u"li1"_s, .name = u"Fair"_s, .leadCount = 9} : all.first();
}

void arriveWith(SweepStage& s, const QByteArray& imports) {
  s.answers[u"GET /lead-lists"_s] = R"({"items":[{"id":"li1","name":"Fair","leadCount":9}]})";
  s.answers[u"GET /lead-imports"_s] = imports;
  s.answers[u"GET /leads"_s] = sample(u"LeadSearchPage"_s, {{u"nextCursor"_s, QJsonValue()}});
  s.answers[u"GET /leads/unlocks"_s] = sample(u"UnlockUsage"_s);
  auto& shown = s.show<LeadsOnShow>();
  for (ResourceBase* resource : {static_cast<ResourceBase*>(shown.leads.lists()->list()),
                                 static_cast<ResourceBase*>(shown.leads.lists()->imports()->list()),
                                 static_cast<ResourceBase*>(shown.list.results()->list())})
    resource->appear();
  shown.ensureLoaded();
  s.finish();
}
void arrive(SweepStage& s) {
  arriveWith(s, sample(u"LeadImportPage"_s,
                       {{u"items"_s, QJsonArray{QJsonObject{{u"id"_s, u"i1"_s},
                                                            {u"kind"_s, u"csv"_s},
                                                            {u"status"_s, u"running"_s},
                                                            {u"readRows"_s, 1},
                                                            {u"inserted"_s, 0},
                                                            {u"updated"_s, 0},
                                                            {u"skipped"_s, 0},
                                                            {u"partsDone"_s, 0},
                                                            {u"createdAt"_s, u"2026-03-01T08:00:00Z"_s}}}}}));
}
void arriveWithoutImports(SweepStage& s) { arriveWith(s, "{}"); }
void arriveAtNewList(SweepStage& s) {
  arrive(s);
  lists(s).beginCreate();
  lists(s).form()->draft()->set(u"name"_s, u"Nordics"_s);
}
void arriveAtRename(SweepStage& s) {
  arrive(s);
  lists(s).beginEdit(listOf(s));
  lists(s).form()->draft()->set(u"name"_s, u"Trade fair"_s);
}
void arriveAtExport(SweepStage& s) {
  static const QTemporaryDir folder;
  s.f.filePanel.folder = folder.path();
  arrive(s);
  lists(s).exporting()->open(listOf(s), {});
}
void arriveAtTicked(SweepStage& s) {
  arrive(s);
  page(s).list.results()->selection()->toggleAll();
}
void arriveAtImport(SweepStage& s) {
  static const QTemporaryDir folder;
  QFile file(folder.filePath(u"fair.csv"_s));
  if (!file.open(QIODevice::WriteOnly) || file.write("Email\na@x.example\n") < 0) qFatal("The test writes no file");
  file.close();
  s.f.filePanel.opened = file.fileName();
  arrive(s);
  page(s).actions.importing()->show();
  page(s).actions.importing()->chooseFile();
  s.finish();
}
void arriveAtAdding(SweepStage& s) {
  arrive(s);
  page(s).actions.addToList(one);
  s.finish();
  page(s).actions.listAdding()->list()->setCurrent(u"li1"_s);
}
void arriveAtCampaignAdding(SweepStage& s) {
  arrive(s);
  page(s).actions.addToCampaign(wholeList(listOf(s)));
  s.finish();
  page(s).actions.campaignAdding()->setCurrent(u"c1"_s);
}
void arriveWithout(SweepStage& s, const QString& what) {
  arrive(s);
  s.answers[what] = "{}";
  what.endsWith("lists"_L1) ? page(s).actions.addToList(one) : page(s).actions.addToCampaign(one);
}

QVariant shown(SweepStage& s) {
  QStringList names;
  for (const LeadList& list : page(s).leads.lists()->all()) names.append(list.name);
  return names + page(s).list.results()->list()->shownIds();
}
bool busy(SweepStage& s) { return !lists(s).busyIds().isEmpty(); }

}  // namespace

QList<SweepRow> leadListRows() {
  const auto oneList = u"/lead-lists/li1"_s;
  const QByteArray renamed = R"({"id":"li1","name":"Trade fair","leadCount":9})";
  const auto reads = [](const QString& name, const QString& what, const QByteArray& answer,
                        std::function<void(SweepStage&)> press, std::function<QString(SweepStage&)> error) {
    return SweepRow{name,
                    [what](SweepStage& s) { arriveWithout(s, what); },
                    std::move(press),
                    what,
                    answer,
                    {u"items"_s},
                    {},
                    shown,
                    std::move(error),
                    true};
  };
  return {
      {u"LeadListForm::submit"_s,
       arriveAtNewList,
       [](SweepStage& s) { lists(s).form()->submit(); },
       u"POST /lead-lists"_s,
       sample(u"ListCreated"_s),
       {u"list"_s, u"added"_s},
       [](SweepStage& s) { return lists(s).form()->busy(); },
       shown,
       [](SweepStage& s) { return lists(s).form()->error(); }},
      {u"LeadListForm::submit, a list that is there"_s,
       arriveAtRename,
       [](SweepStage& s) { lists(s).form()->submit(); },
       u"PATCH "_s + oneList,
       renamed,
       {u"id"_s, u"name"_s},
       busy,
       shown,
       [](SweepStage& s) { return lists(s).form()->error(); }},
      {u"A list, deleted"_s,
       arrive,
       [](SweepStage& s) { lists(s).remove(listOf(s)); },
       u"DELETE "_s + oneList,
       {},
       {},
       busy,
       shown},
      {u"A list, deleted for good"_s,
       arrive,
       [](SweepStage& s) { lists(s).removeForGood(listOf(s)); },
       u"DELETE "_s + oneList,
       {},
       {},
       busy,
       shown},
      {u"A list, restored"_s,
       arrive,
       [](SweepStage& s) { lists(s).restore(listOf(s)); },
       u"POST "_s + oneList + u"/restore"_s,
       {},
       {},
       busy,
       shown},
      {u"LeadListStore::removeTicked"_s,
       arriveAtTicked,
       [](SweepStage& s) { page(s).list.removeTicked(); },
       u"DELETE "_s + oneList + u"/leads"_s,
       sample(u"ListRemoved"_s),
       {u"removed"_s, u"leadCount"_s},
       busy,
       shown},
      {u"LeadExport::submit"_s,
       arriveAtExport,
       [](SweepStage& s) { lists(s).exporting()->submit(); },
       u"GET /leads/export.csv"_s,
       {},
       {},
       [](SweepStage& s) { return lists(s).exporting()->form()->busy(); },
       shown,
       [](SweepStage& s) { return lists(s).exporting()->form()->error(); },
       false,
       true},
      {u"LeadImports::cancel"_s,
       arrive,
       [](SweepStage& s) { page(s).leads.lists()->imports()->cancel(u"i1"_s); },
       u"POST /lead-imports/i1/cancel"_s,
       {},
       {},
       [](SweepStage& s) { return page(s).leads.lists()->imports()->rows()->records().front().isBusy; },
       shown},
      {u"LeadImports::retry"_s,
       arriveWithoutImports,
       [](SweepStage& s) { page(s).leads.lists()->imports()->retry(); },
       u"GET /lead-imports"_s,
       sample(u"LeadImportPage"_s),
       {u"items"_s},
       {},
       shown,
       [](SweepStage& s) { return failureOf(*page(s).leads.lists()->imports()->list()); },
       true},
      {u"AddToList::submit"_s,
       arriveAtAdding,
       [](SweepStage& s) { page(s).actions.listAdding()->submit(); },
       u"POST "_s + oneList + u"/leads"_s,
       sample(u"ListAddResult"_s),
       {u"added"_s, u"queued"_s},
       [](SweepStage& s) { return page(s).actions.listAdding()->form()->busy(); },
       shown,
       [](SweepStage& s) { return page(s).actions.listAdding()->form()->error(); }},
      reads(
          u"LeadListPicker::retry"_s, u"GET /lead-lists"_s, R"({"items":[{"id":"li1","name":"Fair","leadCount":9}]})",
          [](SweepStage& s) { page(s).actions.listAdding()->list()->retry(); },
          [](SweepStage& s) { return failureOf(*page(s).actions.listAdding()->list()->lists()); }),
      {u"AddToCampaign::submit"_s,
       arriveAtCampaignAdding,
       [](SweepStage& s) { page(s).actions.campaignAdding()->submit(); },
       u"POST /campaigns/c1/leads"_s,
       sample(u"AddLeadsResult"_s),
       {u"added"_s, u"skipped"_s, u"total"_s},
       [](SweepStage& s) { return page(s).actions.campaignAdding()->form()->busy(); },
       shown,
       [](SweepStage& s) { return page(s).actions.campaignAdding()->form()->error(); },
       false,
       true},
      reads(
          u"AddToCampaign::retry"_s, u"GET /campaigns"_s, sample(u"CampaignList"_s),
          [](SweepStage& s) { page(s).actions.campaignAdding()->retry(); },
          [](SweepStage& s) { return failureOf(*page(s).actions.campaignAdding()->campaigns()); }),
      {u"CsvImportForm::submit"_s,
       arriveAtImport,
       [](SweepStage& s) { page(s).actions.importing()->submit(); },
       u"POST /lead-imports/csv"_s,
       sample(u"ImportStarted"_s),
       {u"importId"_s, u"jobId"_s},
       [](SweepStage& s) { return page(s).actions.importing()->form()->busy(); },
       shown,
       [](SweepStage& s) { return page(s).actions.importing()->form()->error(); },
       false,
       true},
      {u"LeadResults::unlock"_s,
       arriveAtTicked,
       [](SweepStage& s) { page(s).list.results()->unlock(); },
       u"POST /leads/unlock"_s,
       sample(u"UnlockResult"_s),
       {u"items"_s, u"unlocked"_s, u"usage"_s},
       [](SweepStage& s) { return page(s).actions.unlocking(); },
       shown},
  };
}

}  // namespace orv::test
