#include "desktop/RenderScenes.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

CampaignsStore& campaigns(Stage& stage) { return *stage.app().session()->campaigns(); }

AnalyticsStore& openAnalytics(Stage& stage) {
  stage.app().router()->open(Page::analytics);
  stage.settle();
  return *stage.app().session()->analytics();
}

QString firstCampaign(Stage& stage) { return campaigns(stage).list()->value()->items.first().id; }

void typeEmail(Stage& stage, const QString& email) {
  stage.app().signIn()->setEmail(email);
  stage.app().signIn()->submitEmail();
}

QList<Scene> signedOutScenes() {
  QList<Scene> scenes{
      {u"sign-in"_s, [](Stage&) {}},
      {u"sign-in-unknown"_s, [](Stage& s) { typeEmail(s, u"nobody@northgate.example"_s); }},
      {u"sign-in-password"_s, [](Stage& s) { typeEmail(s, u"maren@northgate.example"_s); }},
      {u"sign-in-password-wrong"_s,
       [](Stage& s) {
         typeEmail(s, u"maren@northgate.example"_s);
         s.settle();
         s.app().signIn()->setPassword(u"wrong"_s);
         s.app().signIn()->submitPassword();
       }},
      {u"sign-in-code"_s, [](Stage& s) { typeEmail(s, u"tomas@northgate.example"_s); }},
      {u"sign-in-code-wrong"_s,
       [](Stage& s) {
         typeEmail(s, u"tomas@northgate.example"_s);
         s.settle();
         s.app().signIn()->setCode(u"000000"_s);
         s.app().signIn()->submitCode();
       }},
      {u"sign-in-google"_s, [](Stage& s) { s.app().signIn()->continueWithGoogle(); }},
      {u"sign-in-offline"_s,
       [](Stage& s) {
         s.transport().mode = StagedTransport::Mode::offline;
         typeEmail(s, u"maren@northgate.example"_s);
       }},
  };
  for (Scene& scene : scenes) scene.signedIn = false;
  return scenes;
}

QList<Scene> listScenes() {
  using Mode = StagedTransport::Mode;
  return {
      {u"campaigns"_s, [](Stage&) {}},
      {u"campaigns-sorted"_s, [](Stage& s) { campaigns(s).toggleSort(u"replied"_s); }},
      {u"campaigns-filtered"_s, [](Stage& s) { campaigns(s).setFilter(u"paused"_s); }},
      {u"campaigns-none-match"_s, [](Stage& s) { campaigns(s).setQuery(u"nothing like this"_s); }},
      {u"campaigns-menu"_s,
       [](Stage& s) {
         s.press(Qt::Key_Down);
         s.press(Qt::Key_F10, Qt::ShiftModifier);
       }},
      {u"campaigns-rename"_s, [](Stage& s) { campaigns(s).beginRename(firstCampaign(s)); }},
      {u"campaigns-new"_s, [](Stage& s) { campaigns(s).beginCreate(); }},
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
      {u"campaigns-archive"_s, [](Stage& s) { campaigns(s).setShowArchived(true); }},
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
  };
}

QList<Scene> figureScenes() {
  using Mode = StagedTransport::Mode;
  return {
      {u"dashboard"_s, [](Stage& s) { s.app().router()->open(Page::dashboard); }},
      {u"dashboard-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         s.app().router()->open(Page::dashboard);
       }},
      {u"analytics"_s, [](Stage& s) { openAnalytics(s); }},
      {u"analytics-accounts"_s,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         analytics.setPreset(u"last12m"_s);
         analytics.setTab(u"accounts"_s);
         analytics.toggleSort(u"replied"_s);
         // As far down as the page goes.
         s.press(Qt::Key_PageDown);
       }},
      {u"analytics-days"_s, [](Stage& s) { openAnalytics(s).setDayView(u"table"_s); }},
      {u"analytics-custom"_s,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         analytics.chooseRange(u"custom"_s);
         analytics.rangeForm()->setTo(u"31.12.2026"_s);
         analytics.rangeForm()->submit();
       }},
      {u"analytics-empty"_s, [](Stage& s) { openAnalytics(s).setCustomRange(u"2020-01-01"_s, u"2020-01-31"_s); }},
      {u"analytics-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openAnalytics(s);
       }},
      {u"analytics-offline-saved"_s,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         s.transport().mode = Mode::offline;
         analytics.refresh();
       }},
  };
}

QList<Scene> shellScenes() {
  return {
      {u"palette"_s, [](Stage& s) { s.app().router()->setPaletteOpen(true); }},
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
      {u"not-built"_s, [](Stage& s) { s.app().router()->open(Page::rampup); }},
      {u"feature-off"_s,
       [](Stage& s) {
         s.app().router()->setFeaturesOff({u"inboxSetup"_s});
         s.app().router()->open(Page::inboxSetup);
       }},
  };
}

QList<Scene> firstLoadScenes() {
  using Mode = StagedTransport::Mode;
  const auto nothing = [](Stage&) {};
  return {
      {u"campaigns-loading"_s, nothing, Mode::holding},
      {u"campaigns-failed"_s, nothing, Mode::failing},
      {u"campaigns-offline"_s, nothing, Mode::offline},
      {u"campaigns-empty"_s, nothing, Mode::empty},
  };
}

}  // namespace

QList<Scene> allScenes() {
  return signedOutScenes() + listScenes() + campaignPageScenes() + figureScenes() + shellScenes() + firstLoadScenes();
}

}  // namespace orv
