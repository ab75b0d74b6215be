#include <QJsonArray>

#include "app/leads/LeadsStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

/// The search with what the workspace has beside it.
struct SearchOnShow final : Store {
  explicit SearchOnShow(WorkspaceContext& context) : Store(context) {}
  void ensureLoaded() override { page.finder()->ensureLoaded(); }
  void refresh() override { page.refresh(); }
  void close() override {
    page.close();
    actions.close();
    Store::close();
  }
  LeadActions actions{context()};
  LeadsStore page{context(), actions};
};

LeadFinder& finder(SweepStage& s) { return *s.the<SearchOnShow>().page.finder(); }
LeadAllowance& allowance(SweepStage& s) { return *s.the<SearchOnShow>().actions.allowance(); }
SavedSearches& saved(SweepStage& s) { return *finder(s).saved(); }

void arrive(SweepStage& s) {
  s.answers[u"GET /leads"_s] = sample(u"LeadSearchPage"_s, {{u"nextCursor"_s, QJsonValue()}});
  s.answers[u"GET /leads/pools"_s] = sample(u"LeadPools"_s);
  s.answers[u"GET /leads/totals"_s] = sample(u"LeadTotals"_s);
  s.answers[u"GET /leads/unlocks"_s] = sample(u"UnlockUsage"_s);
  s.answers[u"GET /leads/facets"_s] = sample(u"FacetPage"_s);
  s.answers[u"GET /leads/l1"_s] = sample(u"LeadRecord"_s);
  s.answers[u"GET /lead-searches"_s] =
      R"([{"id":"s1","name":"Owners","search":{"title":"owner"},"updatedAt":"2026-03-01T08:00:00Z"}])";
  s.show<SearchOnShow>();
  s.the<SearchOnShow>().actions.ensureLoaded();
  finder(s).results()->list()->appear();
  finder(s).ensureLoaded();
  s.finish();
}

QVariant shown(SweepStage& s) { return finder(s).results()->list()->shownIds(); }
QVariant names(SweepStage& s) { return saved(s).choices().size(); }
bool isSavedBusy(SweepStage& s) { return !saved(s).busyIds().isEmpty(); }

SweepRow onSaved(const QString& name, const QString& request, void (SavedSearches::*press)(const QString&)) {
  return {u"SavedSearches::"_s + name,
          [](SweepStage& s) {
            arrive(s);
            saved(s).archived()->appear();
            saved(s).showArchive();
            s.finish();
          },
          [press](SweepStage& s) { (saved(s).*press)(u"s1"_s); },
          request,
          {},
          {},
          isSavedBusy,
          names};
}

}  // namespace

QList<SweepRow> leadSearchRows() {
  const SweepRow unlock{u"LeadAllowance::unlockOne"_s,
                        arrive,
                        [](SweepStage& s) { allowance(s).unlockOne(u"l1"_s); },
                        u"POST /leads/unlock"_s,
                        sample(u"UnlockResult"_s),
                        {u"items"_s, u"usage"_s},
                        [](SweepStage& s) { return !allowance(s).busyIds().isEmpty(); },
                        shown};
  const SweepRow save{u"LeadFinder::save"_s,
                      [](SweepStage& s) {
                        arrive(s);
                        finder(s).filters()->toggle(u"title"_s, u"owner"_s);
                        s.finish();
                        finder(s).save();
                        saved(s).form()->setText(u"Owners"_s);
                      },
                      [](SweepStage& s) { saved(s).form()->submit(); },
                      u"POST /lead-searches"_s,
                      {},
                      {},
                      [](SweepStage& s) { return saved(s).form()->busy(); },
                      names,
                      [](SweepStage& s) { return saved(s).form()->error(); }};
  const SweepRow facet{
      u"FacetList::tryAgain"_s,
      [](SweepStage& s) {
        arrive(s);
        finder(s).filters()->facet(u"industry"_s)->setTyped(u"o"_s);
      },
      [](SweepStage& s) { finder(s).filters()->facet(u"industry"_s)->tryAgain(); },
      u"GET /leads/facets"_s,
      sample(u"FacetPage"_s),
      {u"items"_s},
      {},
      [](SweepStage& s) { return QVariant(finder(s).filters()->facet(u"industry"_s)->rows().size()); },
      [](SweepStage& s) { return finder(s).filters()->facet(u"industry"_s)->failed() ? u"failed"_s : QString(); },
      true};
  return {unlock,
          save,
          facet,
          onSaved(u"remove"_s, u"DELETE /lead-searches/s1"_s, &SavedSearches::remove),
          onSaved(u"restore"_s, u"POST /lead-searches/s1/restore"_s, &SavedSearches::restore),
          onSaved(u"removeForGood"_s, u"DELETE /lead-searches/s1"_s, &SavedSearches::removeForGood)};
}

}  // namespace orv::test
