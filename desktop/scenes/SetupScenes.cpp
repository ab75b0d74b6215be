#include "app/setup/SetupProjectStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

InboxSetupStore& openSetup(Stage& stage) {
  stage.app().router()->open(Page::inboxSetup);
  stage.settle();
  return *stage.app().session()->store<InboxSetupStore>();
}

/// Of the sample: "sp1" has a run that is paused, "sp2" one that failed in part, "sp3" none.
SetupProjectStore& openProject(Stage& stage, const QString& id, const QString& tab = u"project"_s) {
  openSetup(stage).open(id);
  stage.settle();
  auto& project = *stage.app().session()->item<SetupProjectStore>(Page::inboxSetup, id);
  project.setTab(tab);
  stage.settle();
  return project;
}

QList<Scene> setupListScenes() {
  return {
      page(u"setup"_s, [](Stage& s) { openSetup(s); }),
      {u"setup-new-kind"_s, [](Stage& s) { openSetup(s).beginCreate(); }},
      {u"setup-new-name"_s,
       [](Stage& s) {
         auto& setup = openSetup(s);
         setup.beginCreate();
         setup.newProject()->setMode(u"new"_s);
         setup.newProject()->goOn();
       }},
      {u"setup-archive"_s, [](Stage& s) { openSetup(s).setShowArchived(true); }},
      {u"setup-empty"_s, [](Stage& s) { openSetup(s); }, Mode::empty},
      {u"setup-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openSetup(s);
       }},
  };
}

QList<Scene> setupProjectScenes() {
  return {
      page(u"setup-project"_s, [](Stage& s) { openProject(s, u"sp1"_s).domains()->lookUp(); }),
      {u"setup-project-edited"_s,
       [](Stage& s) {
         auto& project = openProject(s, u"sp2"_s);
         project.domains()->add(u"new-slots.example.com\nnot a domain"_s);
         project.form()->newPassword()->setText(u"short"_s);
         project.form()->recoveryEmail()->clear();
         project.form()->save();
       }},
      {u"setup-project-existing"_s, [](Stage& s) { openProject(s, u"sp3"_s).act(u"run"_s); }},
      {u"setup-project-archived"_s, [](Stage& s) { openProject(s, u"sp4"_s); }},
      {u"setup-project-missing"_s,
       [](Stage& s) {
         openSetup(s).open(u"sp99"_s);
         s.settle();
       }},
  };
}

QList<Scene> runScenes() {
  return {
      page(u"setup-run"_s, [](Stage& s) { openProject(s, u"sp1"_s, u"run"_s); }),
      {u"setup-run-checks"_s,
       [](Stage& s) { openProject(s, u"sp1"_s, u"run"_s).select(u"domain:bay-desk.example.com"_s); }},
      {u"setup-run-folded"_s,
       [](Stage& s) {
         auto& project = openProject(s, u"sp2"_s, u"run"_s);
         project.fold(u"clinic-times.example.com"_s);
         project.fold(u"care-desk.example.com"_s);
       }},
      {u"setup-run-terminate"_s, [](Stage& s) { openProject(s, u"sp1"_s, u"run"_s).act(u"terminate"_s); }},
      {u"setup-run-none"_s, [](Stage& s) { openProject(s, u"sp3"_s, u"run"_s); }},
  };
}

}  // namespace

QList<Scene> setupScenes() { return setupListScenes() + setupProjectScenes() + runScenes(); }

}  // namespace orv
