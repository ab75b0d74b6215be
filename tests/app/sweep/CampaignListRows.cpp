#include "app/campaigns/CampaignsStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

CampaignsStore& list(SweepStage& s) { return s.the<CampaignsStore>(); }

void arrive(SweepStage& s) {
  auto& store = s.show<CampaignsStore>();
  store.list()->appear();
  store.ensureLoaded();
}
void arriveInArchive(SweepStage& s) {
  arrive(s);
  list(s).archived()->appear();
  list(s).setShowArchived(true);
}
bool busy(SweepStage& s) {
  const auto& store = list(s);
  return !store.busyIds().isEmpty() || s.the<CampaignsStore>().newCampaign()->busy() ||
         s.the<CampaignsStore>().rename()->busy();
}
QVariant shown(SweepStage& s) {
  QStringList rows;
  for (const auto& row : list(s).rows()->records()) rows.append(row.name + u' ' + row.status.rawValue);
  return rows;
}
QVariant shownInArchive(SweepStage& s) {
  QStringList rows;
  for (const auto& row : list(s).archivedRows()->records()) rows.append(row.name);
  return rows;
}

QByteArray campaign(const QString& status, const QString& name = u"Q3"_s) {
  return sample(u"Campaign"_s, {{u"status"_s, status}, {u"name"_s, name}, {u"version"_s, 20}});
}
const QStringList required{u"id"_s, u"name"_s, u"status"_s};

SweepRow onRow(const QString& verb, void (CampaignsStore::*act)(const QString&), const QString& request,
               const QByteArray& answer) {
  return {u"CampaignsStore::"_s + verb,
          arrive,
          [act](SweepStage& s) { (list(s).*act)(u"c1"_s); },
          request,
          answer,
          answer.isEmpty() ? QStringList() : required,
          busy,
          shown};
}

SweepRow inArchive(const QString& verb, void (CampaignsStore::*act)(const QString&), const QString& request,
                   const QByteArray& answer) {
  SweepRow row = onRow(verb, act, request, answer);
  row.arrive = arriveInArchive;
  row.shown = shownInArchive;
  return row;
}

void arriveAtNewName(SweepStage& s) {
  arrive(s);
  list(s).beginCreate();
  list(s).newCampaign()->setText(u"Fair"_s);
}
void arriveAtRename(SweepStage& s) {
  arrive(s);
  s.finish();
  list(s).beginRename(u"c1"_s);
  list(s).rename()->setText(u"Fair"_s);
}

}  // namespace

QList<SweepRow> campaignListRows() {
  SweepRow download = onRow(u"downloadAnalytics"_s, &CampaignsStore::downloadAnalytics, u"GET /analytics/summary"_s,
                            sample(u"AnalyticsSummary"_s));
  download.required = {u"totals"_s, u"days"_s, u"campaigns"_s, u"accounts"_s};
  const SweepRow archive{u"CampaignsStore::showArchived"_s,
                         [](SweepStage& s) {
                           arrive(s);
                           list(s).archived()->appear();
                         },
                         [](SweepStage& s) {
                           list(s).setShowArchived(false);
                           list(s).setShowArchived(true);
                         },
                         u"GET /campaigns"_s,
                         sample(u"CampaignList"_s),
                         {u"items"_s},
                         {},
                         shown,
                         [](SweepStage& s) { return failureOf(*list(s).archived()); },
                         true};
  return {
      archive,
      onRow(u"pause"_s, &CampaignsStore::pause, u"POST /campaigns/c1/pause"_s, campaign(u"paused"_s)),
      onRow(u"resume"_s, &CampaignsStore::resume, u"POST /campaigns/c1/launch"_s, campaign(u"running"_s)),
      onRow(u"duplicate"_s, &CampaignsStore::duplicate, u"POST /campaigns/c1/duplicate"_s,
            sample(u"Campaign"_s, {{u"id"_s, u"c9"_s}})),
      onRow(u"remove"_s, &CampaignsStore::remove, u"DELETE /campaigns/c1"_s, {}),
      inArchive(u"restore"_s, &CampaignsStore::restore, u"POST /campaigns/c1/restore"_s, campaign(u"paused"_s)),
      inArchive(u"removeForGood"_s, &CampaignsStore::removeForGood, u"DELETE /campaigns/c1"_s, {}),
      download,
      {u"CampaignsStore::beginCreate"_s, arriveAtNewName, [](SweepStage& s) { list(s).newCampaign()->submit(); },
       u"POST /campaigns"_s, sample(u"Campaign"_s, {{u"id"_s, u"c9"_s}}), required, busy, shown,
       [](SweepStage& s) { return list(s).newCampaign()->error(); }},
      {u"CampaignsStore::beginRename"_s, arriveAtRename, [](SweepStage& s) { list(s).rename()->submit(); },
       u"PATCH /campaigns/c1"_s, campaign(u"running"_s, u"Fair"_s), required, busy, shown,
       [](SweepStage& s) { return list(s).rename()->error(); }},
  };
}

}  // namespace orv::test
