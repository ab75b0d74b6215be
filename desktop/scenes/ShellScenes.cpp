#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<Scene> shellScenes() {
  return {
      {u"palette"_s, [](Stage& s) { s.press(u"Search or go to…"_s); }},
      {u"palette-search"_s,
       [](Stage& s) {
         s.app().router()->setPaletteOpen(true);
         s.settle();
         s.type(u"cam"_s);
       }},
      {u"palette-nothing"_s,
       [](Stage& s) {
         s.app().router()->setPaletteOpen(true);
         s.settle();
         s.type(u"zzz"_s);
       }},
      {u"shortcuts"_s, [](Stage& s) { s.app().router()->setShortcutsOpen(true); }},
      {u"sidebar-folded"_s, [](Stage& s) { s.app().router()->setCollapsed(true); }},
      {u"not-built"_s, [](Stage& s) { s.app().router()->open(Page::inboxSetup); }},
      {u"feature-off"_s,
       [](Stage& s) {
         s.app().router()->setFeaturesOff({u"inboxSetup"_s});
         s.app().router()->open(Page::inboxSetup);
       }},
  };
}

}  // namespace orv
