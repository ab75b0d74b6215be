#include "app/leads/LeadsStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

LeadsStore& openLeads(Stage& stage) {
  stage.app().router()->open(Page::leads);
  stage.settle();
  return *stage.app().session()->store<LeadsStore>();
}

/// In one database, narrowed by what it has most of.
LeadsStore& openFiltered(Stage& stage) {
  LeadsStore& leads = openLeads(stage);
  LeadFilters& filters = *leads.finder()->filters();
  filters.chooseDatabase(u"linkedin"_s);
  stage.settle();
  const auto tick = [&](const QString& key, int most) {
    FacetList* facet = filters.facet(key);
    facet->show();
    stage.settle();
    const QList<Choice> rows = facet->rows();
    for (int row = 0; row < most && row < rows.size(); ++row) filters.toggle(key, rows[row].key);
  };
  tick(u"title"_s, 2);
  tick(u"industry"_s, 1);
  tick(u"country"_s, 2);
  filters.toggle(u"xverification"_s, u"invalid"_s);
  stage.settle();
  return leads;
}

LeadsStore& openTicked(Stage& stage) {
  LeadsStore& leads = openFiltered(stage);
  LeadResults& results = *leads.finder()->results();
  const auto& rows = results.list()->rows()->records();
  for (const size_t row : {0, 1, 2, 4})
    if (row < rows.size()) results.selection()->toggle(rows[row].id);
  return leads;
}

void openCard(Stage& stage, bool locked) {
  LeadsStore& leads = locked ? openFiltered(stage) : openLeads(stage);
  if (!locked) leads.finder()->setPool(u"used"_s);
  stage.settle();
  LeadResults& results = *leads.finder()->results();
  for (const FoundLead& row : results.list()->rows()->records()) {
    if (row.record().locked.value_or(false) != locked) continue;
    results.card()->open(row.id);
    break;
  }
}

QList<Scene> searchScenes() {
  return {
      page(u"leads"_s, [](Stage& s) { openTicked(s); }),
      {u"leads-all"_s, [](Stage& s) { openLeads(s); }},
      {u"leads-instagram"_s,
       [](Stage& s) {
         LeadFilters& filters = *openLeads(s).finder()->filters();
         filters.chooseDatabase(u"instagram"_s);
         filters.setOpen(u"followers"_s, true);
         filters.type(u"followersMax"_s, u"50000"_s);
       }},
      {u"leads-groups"_s,
       [](Stage& s) {
         LeadFilters& filters = *openFiltered(s).finder()->filters();
         for (const auto& group : {u"company"_s, u"location"_s, u"email"_s, u"lists"_s, u"more"_s})
           filters.setOpen(group, true);
         filters.setOpen(u"title"_s, false);
         filters.showExclusions(u"industry"_s);
       }},
      {u"leads-facet-typed"_s,
       [](Stage& s) {
         LeadFilters& filters = *openFiltered(s).finder()->filters();
         filters.facet(u"title"_s)->setTyped(u"mana"_s);
       }},
      {u"leads-waiting"_s,
       [](Stage& s) {
         LeadsStore& leads = openFiltered(s);
         s.transport().mode = Mode::holding;
         leads.finder()->filters()->toggle(u"seniority"_s, u"owner"_s);
       }},
      {u"leads-folded"_s, [](Stage& s) { openTicked(s).finder()->filters()->setFolded(true); }},
      {u"leads-first"_s, [](Stage& s) { openTicked(s).finder()->results()->askFirst(); }},
      {u"leads-no-match"_s,
       [](Stage& s) { openLeads(s).finder()->filters()->choose(u"q"_s, u"no lead has these words"_s); }},
      {u"leads-used"_s, [](Stage& s) { openLeads(s).finder()->setPool(u"used"_s); }},
      {u"leads-empty"_s, [](Stage& s) { openLeads(s); }, Mode::empty},
      {u"leads-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         s.app().router()->open(Page::leads);
       }},
      {u"leads-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openLeads(s);
       }},
      {u"leads-offline-saved"_s,
       [](Stage& s) {
         LeadsStore& leads = openFiltered(s);
         s.transport().mode = Mode::offline;
         leads.refresh();
       }},
  };
}

QList<Scene> cardAndSavedScenes() {
  return {
      {u"leads-card"_s, [](Stage& s) { openCard(s, true); }},
      {u"leads-card-known"_s, [](Stage& s) { openCard(s, false); }},
      {u"leads-peek"_s,
       [](Stage& s) {
         LeadResults& results = *openFiltered(s).finder()->results();
         results.card()->peek(results.list()->shownIds().value(1));
         s.until([&results] { return results.card()->peeking(); }, u"the card"_s);
         s.settle();
       }},
      {u"leads-card-failed"_s,
       [](Stage& s) {
         LeadResults& results = *openFiltered(s).finder()->results();
         s.transport().mode = Mode::failing;
         results.card()->open(results.list()->shownIds().value(0));
       }},
      {u"leads-save-search"_s,
       [](Stage& s) {
         LeadFinder& finder = *openFiltered(s).finder();
         finder.save();
         finder.saved()->form()->setText(u"Owners of agencies"_s);
       }},
      {u"leads-saved-searches"_s, [](Stage& s) { openFiltered(s).finder()->saved()->showArchive(); }},
  };
}

}  // namespace

QList<Scene> leadsScenes() { return searchScenes() + cardAndSavedScenes(); }

}  // namespace orv
