#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

CampaignsStore& campaigns(Stage& stage) {
  stage.app().router()->open(Page::campaigns);
  stage.settle();
  return *stage.app().session()->campaigns();
}
QString firstCampaign(Stage& stage) { return campaigns(stage).list()->value()->items.first().id; }

}  // namespace

QList<Scene> campaignsScenes() {
  return {
      page(u"campaigns"_s, [](Stage& s) { campaigns(s); }),
      {u"campaigns-sorted"_s, [](Stage& s) { campaigns(s).toggleSort(u"replied"_s); }},
      {u"campaigns-filtered"_s, [](Stage& s) { campaigns(s).setFilter(u"paused"_s); }},
      {u"campaigns-none-match"_s, [](Stage& s) { campaigns(s).setQuery(u"nothing like this"_s); }},
      {u"campaigns-menu"_s,
       [](Stage& s) {
         s.press(Qt::Key_Down);
         s.press(Qt::Key_F10, Qt::ShiftModifier);
       }},
      {u"campaigns-rename"_s, [](Stage& s) { campaigns(s).beginRename(firstCampaign(s)); }},
      {u"campaigns-new"_s,
       [](Stage& s) {
         campaigns(s);
         s.press(u"New campaign"_s);
       }},
      {u"campaigns-delete"_s, [](Stage& s) { campaigns(s).remove(firstCampaign(s)); }},
      {u"campaigns-busy"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         campaigns(s).duplicate(firstCampaign(s));
       }},
      {u"campaigns-messages"_s,
       [](Stage& s) {
         campaigns(s).copyLink(firstCampaign(s));
         s.transport().mode = Mode::failing;
         campaigns(s).duplicate(firstCampaign(s));
         s.app().toasts()->show(u"Deleted “Boutique hotels, winter”. It’s in Archived."_s, Toasts::Tone::standard,
                                u"Undo"_s, [] {});
       }},
      {u"campaigns-archive"_s,
       [](Stage& s) {
         campaigns(s);
         s.press(u"Archived"_s);
       }},
      {u"campaigns-archive-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         campaigns(s).setShowArchived(true);
       }},
      {u"campaigns-offline-saved"_s,
       [](Stage& s) {
         s.transport().mode = Mode::offline;
         campaigns(s).refresh();
       }},
      {u"campaigns-loading"_s, [](Stage& s) { campaigns(s); }, Mode::holding},
      {u"campaigns-failed"_s, [](Stage& s) { campaigns(s); }, Mode::failing},
      {u"campaigns-offline"_s, [](Stage& s) { campaigns(s); }, Mode::offline},
      {u"campaigns-empty"_s, [](Stage& s) { campaigns(s); }, Mode::empty},
  };
}

}  // namespace orv
