#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

QString firstOf(CampaignsStore& store) { return store.list()->value()->items.first().id; }

}  // namespace

QList<Scene> campaignsScenes() {
  return {
      page(u"campaigns"_s, [](Stage& s) { s.openCampaigns(); }),
      {u"campaigns-sorted"_s, [](Stage& s) { s.openCampaigns().sort(u"replied"_s, true); }},
      {u"campaigns-filtered"_s, [](Stage& s) { s.openCampaigns().setFilter(u"paused"_s); }},
      {u"campaigns-none-match"_s, [](Stage& s) { s.openCampaigns().setQuery(u"nothing like this"_s); }},
      {u"campaigns-menu"_s,
       [](Stage& s) {
         s.openCampaigns();
         s.press(Qt::Key_Down);
         s.press(Qt::Key_F10, Qt::ShiftModifier);
       }},
      {u"campaigns-rename"_s,
       [](Stage& s) {
         auto& store = s.openCampaigns();
         store.beginRename(firstOf(store));
       }},
      {u"campaigns-new"_s,
       [](Stage& s) {
         s.openCampaigns();
         s.press(u"New campaign"_s);
       }},
      {u"campaigns-delete"_s,
       [](Stage& s) {
         auto& store = s.openCampaigns();
         store.remove(firstOf(store));
       }},
      {u"campaigns-busy"_s,
       [](Stage& s) {
         auto& store = s.openCampaigns();
         s.transport().mode = Mode::holding;
         store.duplicate(firstOf(store));
       }},
      {u"campaigns-messages"_s,
       [](Stage& s) {
         auto& store = s.openCampaigns();
         store.copyLink(firstOf(store));
         s.transport().mode = Mode::failing;
         store.duplicate(firstOf(store));
         s.app().toasts()->show({.message = u"Deleted “Boutique hotels, winter”. It’s in Archived."_s,
                                 .actionLabel = u"Undo"_s,
                                 .action = [] {}});
       }},
      {u"campaigns-archive"_s,
       [](Stage& s) {
         s.openCampaigns();
         s.press(u"Archived"_s);
       }},
      {u"campaigns-archive-failed"_s,
       [](Stage& s) {
         auto& store = s.openCampaigns();
         s.transport().mode = Mode::failing;
         store.setShowArchived(true);
       }},
      {u"campaigns-offline-saved"_s,
       [](Stage& s) {
         auto& store = s.openCampaigns();
         s.transport().mode = Mode::offline;
         store.refresh();
       }},
      {u"campaigns-loading"_s, [](Stage& s) { s.openCampaigns(); }, Mode::holding},
      {u"campaigns-failed"_s, [](Stage& s) { s.openCampaigns(); }, Mode::failing},
      {u"campaigns-offline"_s, [](Stage& s) { s.openCampaigns(); }, Mode::offline},
      {u"campaigns-empty"_s, [](Stage& s) { s.openCampaigns(); }, Mode::empty},
  };
}

}  // namespace orv
