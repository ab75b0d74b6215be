#include <QJsonArray>

#include "app/campaigns/CampaignStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

CampaignLeads& leads(SweepStage& s) { return *s.the<CampaignStore>().leads(); }

void arrive(SweepStage& s) {
  s.f.navigator.openItem(Page::campaigns, u"c1"_s);
  auto& store = s.show<CampaignStore>(u"c1"_s);
  store.campaign()->appear();
  store.ensureLoaded();
  store.setTab(u"leads"_s);
  leads(s).leads()->appear();
  leads(s).ensureLoaded();
  s.finish();
}
void arriveAtFirstOfTwoPages(SweepStage& s) {
  s.answers[u"GET /campaigns/c1/leads"_s] = sample(u"LeadPage"_s);
  arrive(s);
}
void arriveAtMove(SweepStage& s) {
  arrive(s);
  leads(s).beginMove({u"l1"_s});
  s.finish();
  leads(s).move()->setTarget(u"c2"_s);
}
void arriveAtMoveWithoutList(SweepStage& s) {
  s.answers[u"GET /campaigns"_s] = "{}";
  arrive(s);
  leads(s).beginMove({u"l1"_s});
}
void arriveAtListsMissing(SweepStage& s) {
  s.answers[u"GET /lead-lists"_s] = "{}";
  arrive(s);
  leads(s).adding()->show(u"list"_s);
}
void arriveAtLeadByHand(SweepStage& s) {
  arrive(s);
  leads(s).adding()->show(u"manual"_s);
  leads(s).adding()->draft()->set(u"email"_s, u"ada@x.example"_s);
}
void arriveAtLead(SweepStage& s) {
  s.answers[u"GET /campaigns/c1/leads/l1"_s] =
      R"({"lead":{"id":"l1","email":"x@b.example","status":"active","data":{"Team size":"9"}},"activity":[]})";
  arrive(s);
  leads(s).open(u"l1"_s);
  s.finish();
  leads(s).panel()->setField(u"Team size"_s, u"12"_s);
}

bool busy(SweepStage& s) { return leads(s).bulkBusy() || !leads(s).busyIds().isEmpty(); }
QVariant shown(SweepStage& s) {
  QStringList ids;
  for (const LeadRow& row : leads(s).rows()->records()) ids.append(row.id + u' ' + row.record().status.rawValue);
  return ids;
}
QVariant fieldsOf(SweepStage& s) { return leads(s).panel()->fieldText(u"Team size"_s); }

SweepRow bulk(const QString& verb, void (CampaignLeads::*act)(const QStringList&), const QStringList& ids,
              const QString& request, const QByteArray& answer, const QStringList& required) {
  return {u"CampaignLeads::"_s + verb,
          arrive,
          [act, ids](SweepStage& s) { (leads(s).*act)(ids); },
          request,
          answer,
          required,
          busy,
          shown};
}

}  // namespace

QList<SweepRow> campaignLeadRows() {
  const auto many = u"POST /campaigns/c1/leads/bulk"_s;
  const auto changed = sample(u"BulkResult"_s);
  const QStringList both{u"l1"_s, u"l2"_s};
  const auto page = u"GET /campaigns/c1/leads"_s;
  const auto campaigns = sample(u"CampaignList"_s);
  const auto lastPage = sample(u"LeadPage"_s, {{u"nextCursor"_s, QJsonValue()}});
  return {
      bulk(u"pause"_s, &CampaignLeads::pause, both, many, changed, {u"changed"_s, u"skipped"_s}),
      bulk(u"resume"_s, &CampaignLeads::resume, both, many, changed, {u"changed"_s, u"skipped"_s}),
      bulk(u"remove"_s, &CampaignLeads::remove, both, many, changed, {u"changed"_s, u"skipped"_s}),
      bulk(u"remove, one"_s, &CampaignLeads::remove, {u"l1"_s}, u"DELETE /campaigns/c1/leads/l1"_s, {}, {}),
      bulk(u"restore"_s, &CampaignLeads::restore, both, u"POST /campaigns/c1/leads/restore"_s,
           sample(u"RestoredResult"_s), {u"restored"_s}),
      {u"CampaignLeads::removeForGood"_s,
       arrive,
       [](SweepStage& s) { leads(s).removeForGood(u"l1"_s); },
       u"DELETE /campaigns/c1/leads/l1"_s,
       {},
       {},
       busy,
       shown},
      {u"CampaignLeads, the next page"_s,
       arriveAtFirstOfTwoPages,
       [](SweepStage& s) { leads(s).leads()->loadMore(); },
       page,
       lastPage,
       {u"items"_s},
       [](SweepStage& s) { return leads(s).leads()->loadingMore(); },
       shown,
       [](SweepStage& s) { return leads(s).leads()->moreFailed() ? u"failed"_s : QString(); }},
      {u"CampaignLeads::open"_s,
       arrive,
       [](SweepStage& s) { leads(s).open(u"l1"_s); },
       u"GET /campaigns/c1/leads/l1"_s,
       sample(u"LeadDetail"_s),
       {u"lead"_s, u"activity"_s},
       {},
       shown,
       [](SweepStage& s) { return failureOf(*leads(s).panel()->detail()); },
       true},
      {u"CampaignLeads::beginMove"_s,
       arrive,
       [](SweepStage& s) { leads(s).beginMove({u"l1"_s}); },
       u"GET /campaigns"_s,
       campaigns,
       {u"items"_s},
       {},
       shown,
       [](SweepStage& s) { return failureOf(*leads(s).move()->campaigns()); },
       true},
      {u"LeadMove::retry"_s,
       arriveAtMoveWithoutList,
       [](SweepStage& s) { leads(s).move()->retry(); },
       u"GET /campaigns"_s,
       campaigns,
       {u"items"_s},
       {},
       shown,
       [](SweepStage& s) { return failureOf(*leads(s).move()->campaigns()); },
       true},
      {u"LeadAdding::retryLists"_s,
       arriveAtListsMissing,
       [](SweepStage& s) { leads(s).adding()->retryLists(); },
       u"GET /lead-lists"_s,
       sample(u"LeadListPage"_s),
       {u"items"_s},
       {},
       shown,
       [](SweepStage& s) { return failureOf(*leads(s).adding()->lists()); },
       true},
      {u"LeadAdding::submit"_s,
       arriveAtLeadByHand,
       [](SweepStage& s) { leads(s).adding()->submit(); },
       u"POST /campaigns/c1/leads"_s,
       sample(u"AddLeadsResult"_s),
       {u"added"_s, u"skipped"_s, u"total"_s},
       [](SweepStage& s) { return leads(s).adding()->form()->busy(); },
       shown,
       [](SweepStage& s) { return leads(s).adding()->form()->error(); },
       false,
       true},
      {u"LeadMove::submit"_s,
       arriveAtMove,
       [](SweepStage& s) { leads(s).move()->submit(); },
       u"POST /campaigns/c1/leads/move"_s,
       sample(u"MoveResult"_s),
       {u"moved"_s, u"skipped"_s},
       [](SweepStage& s) { return leads(s).move()->busy(); },
       shown,
       [](SweepStage& s) { return leads(s).move()->error(); }},
      {u"LeadPanel::save"_s,
       arriveAtLead,
       [](SweepStage& s) { leads(s).panel()->save(); },
       u"PATCH /campaigns/c1/leads/l1"_s,
       R"({"id":"l1","email":"x@b.example","status":"active","data":{"Team size":"12"}})",
       {u"id"_s, u"email"_s},
       [](SweepStage& s) { return leads(s).panel()->saving(); },
       fieldsOf,
       [](SweepStage& s) { return leads(s).panel()->error(); }},
  };
}

}  // namespace orv::test
