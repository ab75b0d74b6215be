#include "app/deliverability/DeliverabilityStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

DeliverabilityStore& openDeliverability(Stage& stage) {
  stage.app().router()->open(Page::deliverability);
  stage.settle();
  return *stage.app().session()->store<DeliverabilityStore>();
}

void openMailbox(Stage& stage, const QString& tab) {
  auto& store = openDeliverability(stage);
  store.setStage(tab);
  if (store.rows()->rowCount() > 0) store.open(store.rows()->records().front().id);
}

}  // namespace

QList<Scene> deliverabilityScenes() {
  return {
      page(u"deliverability"_s, [](Stage& s) { openMailbox(s, u"repair"_s); }),
      {u"deliverability-list"_s, [](Stage& s) { openDeliverability(s).sort(u"rate"_s, false); }},
      {u"deliverability-watching-only"_s,
       [](Stage& s) {
         s.app().openWorkspace(u"caldera"_s);
         s.settle();
         openMailbox(s, {});
       }},
      {u"deliverability-not-scanned"_s,
       [](Stage& s) {
         s.app().openWorkspace(u"harbour"_s);
         s.settle();
         openDeliverability(s);
       }},
      {u"deliverability-none-in-stage"_s,
       [](Stage& s) {
         s.app().openWorkspace(u"harbour"_s);
         s.settle();
         openDeliverability(s).setStage(u"repair"_s);
       }},
      {u"deliverability-empty"_s, [](Stage& s) { openDeliverability(s); }, Mode::empty},
      {u"deliverability-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         s.app().router()->open(Page::deliverability);
       }},
      {u"deliverability-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openDeliverability(s);
       }},
      {u"deliverability-inbox-failed"_s,
       [](Stage& s) {
         openDeliverability(s);
         s.transport().mode = Mode::failing;
         openMailbox(s, {});
       }},
      {u"deliverability-offline-saved"_s,
       [](Stage& s) {
         auto& store = openDeliverability(s);
         s.transport().mode = Mode::offline;
         store.refresh();
       }},
  };
}

}  // namespace orv
