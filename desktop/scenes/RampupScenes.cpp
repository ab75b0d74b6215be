#include "app/rampup/RampupAccountStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

RampupStore& openRampup(Stage& stage) {
  stage.app().router()->open(Page::rampup);
  stage.settle();
  return *stage.app().session()->store<RampupStore>();
}

RampupStore& openTickedPlans(Stage& stage) {
  RampupStore& rampup = openRampup(stage);
  const auto& rows = rampup.list()->rows()->records();
  if (rows.size() <= 10) throw StageTrouble(u"There are no accounts to tick"_s);
  for (const size_t row : {2, 3, 4, 10}) rampup.bulk()->selection()->toggle(rows[row].id);
  return rampup;
}

RampupStore& openTemplates(Stage& stage) {
  RampupStore& rampup = openRampup(stage);
  rampup.setShowTemplates(true);
  stage.settle();
  return rampup;
}

QString firstTemplate(RampupStore& rampup) { return rampup.templates()->rows()->records().front().id; }

/// The first account of which that holds.
RampupAccountStore& openAccount(Stage& stage, const std::function<bool(const RampupItem&)>& holds) {
  RampupStore& rampup = openRampup(stage);
  QString id;
  rampup.list()->each([&](const RampupRow& row) {
    if (id.isEmpty() && holds(row.record().item)) id = row.id;
  });
  if (id.isEmpty()) throw StageTrouble(u"no such account"_s);
  rampup.open(id);
  stage.settle();
  return *stage.app().session()->item<RampupAccountStore>(Page::rampup, id);
}

bool isRamping(const RampupItem& item) {
  return RampupWords::phaseOf(item) == RampupWords::Phase::rampup && !item.plan->isPaused();
}

QList<Scene> listScenes() {
  return {
      page(u"rampup"_s, [](Stage& s) { openTickedPlans(s); }),
      {u"rampup-phase"_s, [](Stage& s) { openRampup(s).setFilter(u"rampup"_s); }},
      {u"rampup-sorted"_s, [](Stage& s) { openRampup(s).sort(u"inbox"_s, false); }},
      {u"rampup-bulk-editor"_s, [](Stage& s) { openTickedPlans(s).bulk()->edit(); }},
      {u"rampup-bulk-skips"_s, [](Stage& s) { openTickedPlans(s).bulk()->pause(); }},
      {u"rampup-warmup-off"_s, [](Stage& s) { openTickedPlans(s).bulk()->switchWarmup(false); }},
      {u"rampup-empty"_s, [](Stage& s) { openRampup(s); }, Mode::empty},
      {u"rampup-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         s.app().router()->open(Page::rampup);
       }},
      {u"rampup-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openRampup(s);
       }},
      {u"rampup-offline-saved"_s,
       [](Stage& s) {
         auto& rampup = openRampup(s);
         s.transport().mode = Mode::offline;
         rampup.refresh();
       }},
  };
}

QList<Scene> accountScenes() {
  return {
      page(u"rampup-account"_s, [](Stage& s) { openAccount(s, isRamping); }),
      {u"rampup-account-protected"_s,
       [](Stage& s) { openAccount(s, [](const RampupItem& item) { return item.plan && item.plan->isProtected(); }); }},
      {u"rampup-account-scheduled"_s,
       [](Stage& s) { openAccount(s, [](const RampupItem& item) { return item.plan && item.plan->isScheduled(); }); }},
      {u"rampup-account-done"_s,
       [](Stage& s) { openAccount(s, [](const RampupItem& item) { return item.plan && item.plan->isDone(); }); }},
      {u"rampup-account-without"_s,
       [](Stage& s) { openAccount(s, [](const RampupItem& item) { return !item.plan && !item.isPool(); }); }},
      {u"rampup-account-pool"_s, [](Stage& s) { openAccount(s, &RampupItem::isPool); }},
      {u"rampup-account-warmup"_s,
       [](Stage& s) {
         auto& account = openAccount(s, isRamping);
         account.warmup()->edit();
         account.warmup()->draft()->set(u"replyRate"_s, u"140"_s);
         account.warmup()->save();
       }},
      {u"rampup-account-editor"_s,
       [](Stage& s) {
         auto& account = openAccount(s, isRamping);
         account.act(u"edit"_s);
         s.settle();
         RoadmapEditor& editor = *account.editor();
         editor.set(editor.stages()->records().front().id, u"campaignFrom"_s, u"4"_s);
       }},
      {u"rampup-account-extend"_s, [](Stage& s) { openAccount(s, isRamping).act(u"extend"_s); }},
      {u"rampup-account-restart"_s, [](Stage& s) { openAccount(s, isRamping).act(u"restart"_s); }},
      {u"rampup-account-failed"_s,
       [](Stage& s) {
         auto& rampup = openRampup(s);
         const QString id = rampup.list()->rows()->records().front().id;
         s.transport().mode = Mode::failing;
         rampup.open(id);
       }},
      {u"rampup-account-offline-saved"_s,
       [](Stage& s) {
         auto& account = openAccount(s, isRamping);
         s.transport().mode = Mode::offline;
         account.refresh();
       }},
  };
}

QList<Scene> templateScenes() {
  return {
      page(u"rampup-templates"_s, [](Stage& s) { openTemplates(s); }),
      {u"rampup-template-new"_s, [](Stage& s) { openTemplates(s).templates()->beginCreate(); }},
      {u"rampup-template-editor"_s,
       [](Stage& s) {
         auto& rampup = openTemplates(s);
         rampup.templates()->act(u"edit"_s, firstTemplate(rampup));
       }},
      {u"rampup-template-add"_s,
       [](Stage& s) {
         auto& rampup = openTemplates(s);
         rampup.templates()->act(u"add"_s, rampup.templates()->rows()->records().at(1).id);
       }},
      {u"rampup-template-archived"_s,
       [](Stage& s) {
         auto& rampup = openTemplates(s);
         rampup.templates()->act(u"archive"_s, rampup.templates()->rows()->records().at(2).id);
       }},
      {u"rampup-templates-archive"_s, [](Stage& s) { openTemplates(s).templates()->setShowArchived(true); }},
      {u"rampup-templates-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openTemplates(s);
       }},
  };
}

}  // namespace

QList<Scene> rampupScenes() { return listScenes() + accountScenes() + templateScenes(); }

}  // namespace orv
