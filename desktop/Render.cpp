#include "desktop/Render.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTextStream>

#include "demo/DemoService.h"
#include "desktop/ClientWindow.h"
#include "desktop/MemoryKeychain.h"
#include "desktop/RenderStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

struct Scene {
  QString name;
  bool signedIn;
  std::function<void(Stage&)> play;
};

CampaignsStore& campaigns(Stage& stage) { return *stage.app().session()->campaigns(); }

AnalyticsStore& openAnalytics(Stage& stage) {
  stage.app().router()->open(Page::analytics);
  stage.settle();
  return *stage.app().session()->analytics();
}

QString firstCampaign(Stage& stage) { return campaigns(stage).list()->value()->items.first().id; }

/// Opens the first campaign of the status.
CampaignStore& openCampaign(Stage& stage, const QString& status) {
  const auto& items = campaigns(stage).list()->value()->items;
  const auto found = std::ranges::find(items, status, [](const CampaignSummary& item) { return item.status.rawValue; });
  stage.app().router()->openCampaign(found->id);
  return *stage.app().session()->campaignStore(found->id);
}

/// Opens the stats of the first running campaign.
CampaignStatsStore& openStats(Stage& stage, const QString& section) {
  auto& campaign = openCampaign(stage, u"running"_s);
  campaign.setTab(u"stats"_s);
  campaign.stats()->setSection(section);
  stage.settle();
  return *campaign.stats();
}

/// The leads tab of the first campaign of the status.
CampaignLeads& openLeads(Stage& stage, const QString& status = u"running"_s) {
  CampaignStore& campaign = openCampaign(stage, status);
  campaign.setTab(u"leads"_s);
  // A busy machine may need longer than a picture waits for.
  for (int turns = 0; turns < 50 && campaign.leads()->rows()->count() == 0; ++turns) stage.settle();
  return *campaign.leads();
}

QString firstLead(CampaignLeads& leads) { return leads.rows()->records().front().id; }

void tabToTheRows(Stage& stage) {
  // Thousands of leads have their say in what was sent.
  stage.settle();
  const auto inRow = [&stage] {
    const QQuickItem* item = stage.window().activeFocusItem();
    return item && item->property("ticked").isValid();
  };
  for (int i = 0; i < 30 && !inRow(); ++i) stage.press(Qt::Key_Tab);
}

void typeEmail(Stage& stage, const QString& email) {
  stage.app().signIn()->setEmail(email);
  stage.app().signIn()->submitEmail();
}

QList<Scene> signedOutScenes() {
  return {
      {u"sign-in"_s, false, [](Stage&) {}},
      {u"sign-in-unknown"_s, false, [](Stage& s) { typeEmail(s, u"nobody@northgate.example"_s); }},
      {u"sign-in-password"_s, false, [](Stage& s) { typeEmail(s, u"maren@northgate.example"_s); }},
      {u"sign-in-password-wrong"_s, false,
       [](Stage& s) {
         typeEmail(s, u"maren@northgate.example"_s);
         s.settle();
         s.app().signIn()->setPassword(u"wrong"_s);
         s.app().signIn()->submitPassword();
       }},
      {u"sign-in-code"_s, false, [](Stage& s) { typeEmail(s, u"tomas@northgate.example"_s); }},
      {u"sign-in-code-wrong"_s, false,
       [](Stage& s) {
         typeEmail(s, u"tomas@northgate.example"_s);
         s.settle();
         s.app().signIn()->setCode(u"000000"_s);
         s.app().signIn()->submitCode();
       }},
      {u"sign-in-google"_s, false, [](Stage& s) { s.app().signIn()->continueWithGoogle(); }},
      {u"sign-in-offline"_s, false,
       [](Stage& s) {
         s.transport().mode = StagedTransport::Mode::offline;
         typeEmail(s, u"maren@northgate.example"_s);
       }},
  };
}

QList<Scene> campaignScenes() {
  using Mode = StagedTransport::Mode;
  return {
      {u"campaigns"_s, true, [](Stage&) {}},
      {u"campaigns-sorted"_s, true, [](Stage& s) { campaigns(s).toggleSort(u"replied"_s); }},
      {u"campaigns-filtered"_s, true, [](Stage& s) { campaigns(s).setFilter(u"paused"_s); }},
      {u"campaigns-none-match"_s, true, [](Stage& s) { campaigns(s).setQuery(u"nothing like this"_s); }},
      {u"campaigns-menu"_s, true,
       [](Stage& s) {
         s.press(Qt::Key_Down);
         s.press(Qt::Key_F10, Qt::ShiftModifier);
       }},
      {u"campaigns-rename"_s, true, [](Stage& s) { campaigns(s).beginRename(firstCampaign(s)); }},
      {u"campaigns-new"_s, true, [](Stage& s) { campaigns(s).beginCreate(); }},
      {u"campaigns-delete"_s, true, [](Stage& s) { campaigns(s).remove(firstCampaign(s)); }},
      {u"campaigns-busy"_s, true,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         campaigns(s).duplicate(firstCampaign(s));
       }},
      {u"campaigns-messages"_s, true,
       [](Stage& s) {
         campaigns(s).copyLink(firstCampaign(s));
         s.transport().mode = Mode::failing;
         campaigns(s).duplicate(firstCampaign(s));
         s.app().toasts()->show(u"Deleted “Boutique hotels, winter”. It’s in Archived."_s, Toasts::Tone::standard,
                                u"Undo"_s, [] {});
       }},
      {u"campaigns-archive"_s, true, [](Stage& s) { campaigns(s).setShowArchived(true); }},
      {u"campaigns-archive-failed"_s, true,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         campaigns(s).setShowArchived(true);
       }},
      {u"campaigns-offline-saved"_s, true,
       [](Stage& s) {
         s.transport().mode = Mode::offline;
         campaigns(s).refresh();
       }},
      {u"campaign"_s, true, [](Stage& s) { openCampaign(s, u"running"_s); }},
      {u"campaign-pause"_s, true,
       [](Stage& s) {
         auto& campaign = openCampaign(s, u"running"_s);
         s.settle();
         campaign.pause();
       }},
      {u"campaign-launch"_s, true,
       [](Stage& s) {
         auto& campaign = openCampaign(s, u"draft"_s);
         s.settle();
         campaign.launch();
       }},
      {u"campaign-rename"_s, true,
       [](Stage& s) {
         auto& campaign = openCampaign(s, u"paused"_s);
         s.settle();
         campaign.beginRename();
       }},
      {u"campaign-failed"_s, true,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openCampaign(s, u"running"_s);
       }},
      {u"palette"_s, true, [](Stage& s) { s.app().router()->setPaletteOpen(true); }},
      {u"palette-search"_s, true,
       [](Stage& s) {
         s.app().router()->setPaletteOpen(true);
         s.settle();
         s.type(u"cam"_s);
       }},
      {u"palette-nothing"_s, true,
       [](Stage& s) {
         s.app().router()->setPaletteOpen(true);
         s.settle();
         s.type(u"zzz"_s);
       }},
      {u"shortcuts"_s, true, [](Stage& s) { s.app().router()->setShortcutsOpen(true); }},
      {u"sidebar-folded"_s, true, [](Stage& s) { s.app().router()->setCollapsed(true); }},
      {u"not-built"_s, true, [](Stage& s) { s.app().router()->open(Page::rampup); }},
      {u"dashboard"_s, true, [](Stage& s) { s.app().router()->open(Page::dashboard); }},
      {u"dashboard-failed"_s, true,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         s.app().router()->open(Page::dashboard);
       }},
      {u"analytics"_s, true, [](Stage& s) { openAnalytics(s); }},
      {u"analytics-accounts"_s, true,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         analytics.setPreset(u"last12m"_s);
         analytics.setTab(u"accounts"_s);
         analytics.toggleSort(u"replied"_s);
         // As far down as the page goes.
         s.press(Qt::Key_PageDown);
       }},
      {u"analytics-days"_s, true, [](Stage& s) { openAnalytics(s).setDayView(u"table"_s); }},
      {u"analytics-custom"_s, true,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         analytics.chooseRange(u"custom"_s);
         analytics.rangeForm()->setTo(u"31.12.2026"_s);
         analytics.rangeForm()->submit();
       }},
      {u"analytics-empty"_s, true, [](Stage& s) { openAnalytics(s).setCustomRange(u"2020-01-01"_s, u"2020-01-31"_s); }},
      {u"analytics-failed"_s, true,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openAnalytics(s);
       }},
      {u"analytics-offline-saved"_s, true,
       [](Stage& s) {
         auto& analytics = openAnalytics(s);
         s.transport().mode = Mode::offline;
         analytics.refresh();
       }},
      {u"campaign-stats"_s, true, [](Stage& s) { openStats(s, u"inboxes"_s); }},
      {u"campaign-stats-emails"_s, true,
       [](Stage& s) {
         openStats(s, u"emails"_s);
         tabToTheRows(s);
       }},
      {u"campaign-stats-messages"_s, true,
       [](Stage& s) {
         openStats(s, u"messages"_s);
         tabToTheRows(s);
         s.press(Qt::Key_PageDown);
       }},
      {u"campaign-stats-activity"_s, true,
       [](Stage& s) {
         openStats(s, u"activity"_s);
         tabToTheRows(s);
         s.press(Qt::Key_End);
       }},
      {u"campaign-stats-draft"_s, true,
       [](Stage& s) {
         auto& campaign = openCampaign(s, u"draft"_s);
         campaign.setTab(u"stats"_s);
       }},
      {u"feature-off"_s, true,
       [](Stage& s) {
         s.app().router()->setFeaturesOff({u"inboxSetup"_s});
         s.app().router()->open(Page::inboxSetup);
       }},
      {u"leads"_s, true, [](Stage& s) { openLeads(s); }},
      {u"leads-ticked"_s, true,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.toggle(firstLead(leads));
         leads.toggle(leads.rows()->records()[2].id);
       }},
      {u"leads-drawer"_s, true,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.open(firstLead(leads));
       }},
      {u"leads-none-match"_s, true,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.setLeadQuery(u"nothing like this"_s);
         s.settle();
         s.settle();
       }},
      {u"leads-archive"_s, true,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.remove({firstLead(leads)});
         s.settle();
         leads.setLeadsArchived(true);
       }},
      {u"leads-empty"_s, true, [](Stage& s) { openLeads(s).setLeadsArchived(true); }},
      {u"leads-add-by-hand"_s, true, [](Stage& s) { openLeads(s).adding()->show(u"manual"_s); }},
      {u"leads-add-list"_s, true, [](Stage& s) { openLeads(s).adding()->show(u"list"_s); }},
      {u"leads-add-own"_s, true, [](Stage& s) { openLeads(s).adding()->show(u"leads"_s); }},
      {u"leads-add-file"_s, true,
       [](Stage& s) {
         auto& adding = *openLeads(s).adding();
         adding.show(u"csv"_s);
         QFile file(QDir::temp().filePath(u"orvella-render.csv"_s));
         if (file.open(QIODevice::WriteOnly)) file.write("email,firstName,company,city\na@x.example,Ana,Acme,Ulm\n");
         file.close();
         adding.setFile(file.fileName());
         s.settle();
       }},
      {u"leads-added"_s, true,
       [](Stage& s) {
         auto& adding = *openLeads(s).adding();
         adding.show(u"list"_s);
         s.settle();
         adding.setListId(u"li_fair"_s);
         adding.submit();
       }},
      {u"leads-move"_s, true,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.beginMove({firstLead(leads)});
       }},
      {u"leads-failed"_s, true,
       [](Stage& s) {
         CampaignStore& campaign = openCampaign(s, u"running"_s);
         s.settle();
         s.transport().mode = Mode::failing;
         campaign.setTab(u"leads"_s);
       }},
  };
}

SequenceEditor& openSequence(Stage& stage, const QString& status) {
  CampaignStore& campaign = openCampaign(stage, status);
  stage.settle();
  return *campaign.sequence();
}

CampaignStore& openTab(Stage& stage, const QString& status, const QString& tab) {
  CampaignStore& campaign = openCampaign(stage, status);
  stage.settle();
  campaign.setTab(tab);
  stage.settle();
  return campaign;
}

/// The form scrolls to what has the focus.
void tabOn(Stage& stage, int stops) {
  for (int i = 0; i < stops; ++i) stage.press(Qt::Key_Tab);
}

QList<Scene> formScenes() {
  using Mode = StagedTransport::Mode;
  const auto settings = u"settings"_s, subsequences = u"subsequences"_s;
  return {
      {u"campaign-settings"_s, true, [=](Stage& s) { openTab(s, u"running"_s, settings); }},
      {u"campaign-settings-unsaved"_s, true,
       [=](Stage& s) {
         auto& form = *openTab(s, u"paused"_s, settings).settings();
         form.set(u"name"_s, QString());
         form.addTag(u"spring"_s);
         form.senders()->toggleTag(u"dach"_s);
         form.save();
       }},
      {u"campaign-settings-limits"_s, true,
       [=](Stage& s) {
         openTab(s, u"draft"_s, settings).settings()->set(u"gap"_s, u"1441"_s);
         tabOn(s, 17);
       }},
      {u"campaign-settings-schedule"_s, true,
       [=](Stage& s) {
         auto& form = *openTab(s, u"draft"_s, settings).settings()->schedule();
         form.add();
         form.setText(1, u"end"_s, u"08:00"_s);
         form.setText(1, u"timeZone"_s, u"Europe/Atlantis"_s);
         form.save();
         tabOn(s, 46);
       }},
      {u"campaign-subsequences-none"_s, true, [=](Stage& s) { openTab(s, u"running"_s, subsequences); }},
      {u"campaign-subsequences-new"_s, true,
       [=](Stage& s) {
         auto& page = *openTab(s, u"running"_s, subsequences).subsequences();
         page.beginCreate();
         page.toggleLabel(u"interested"_s);
         page.create();
       }},
      {u"campaign-subsequences"_s, true,
       [=](Stage& s) {
         auto& campaign = openTab(s, u"running"_s, subsequences);
         campaign.subsequences()->beginCreate();
         campaign.subsequences()->setName(u"Asked for a call"_s);
         campaign.subsequences()->toggleLabel(u"interested"_s);
         campaign.subsequences()->create();
         s.settle();
         s.app().router()->openCampaign(campaign.id());
       }},
      {u"campaign-subsequences-failed"_s, true,
       [=](Stage& s) {
         auto& campaign = openCampaign(s, u"running"_s);
         s.settle();
         s.transport().mode = Mode::failing;
         campaign.setTab(subsequences);
       }},
  };
}

QList<Scene> sequenceScenes() {
  using Mode = StagedTransport::Mode;
  return {
      {u"campaign-sequence-second"_s, true, [](Stage& s) { openSequence(s, u"running"_s).selectPlace(1); }},
      {u"campaign-sequence-variants"_s, true,
       [](Stage& s) {
         auto& editor = openSequence(s, u"paused"_s);
         editor.addVariant();
         editor.setSubject(u"Another way to say it, {{firstName}}"_s);
         editor.setBody(u"{Hi|Hello} {{firstName}},\n\nQuick question about {{company}}.\n\n{{accountSignature}}"_s);
         editor.addVariant();
         editor.setEnabled(false);
       }},
      {u"campaign-sequence-typing"_s, true,
       [](Stage& s) {
         openSequence(s, u"draft"_s).insertStep(1);
         s.press(Qt::Key_Tab);
         s.press(Qt::Key_Return);
         s.type(u"Hello {{c"_s);
       }},
      {u"campaign-sequence-empty"_s, true,
       [](Stage& s) {
         auto& editor = openSequence(s, u"draft"_s);
         while (editor.stepCount() > 0) editor.removeStep(editor.stepKey());
       }},
      {u"campaign-sequence-not-saved"_s, true,
       [](Stage& s) {
         auto& editor = openSequence(s, u"running"_s);
         editor.selectPlace(1);
         s.transport().mode = Mode::failing;
         s.press(Qt::Key_Tab);
         s.press(Qt::Key_Return);
         s.type(u"Written while the service was down. "_s);
         editor.autosave()->save();
       }},
      {u"campaign-sequence-test"_s, true, [](Stage& s) { openSequence(s, u"running"_s).testEmail()->show(); }},
  };
}

/// Scenes whose first load already meets the trouble.
QList<std::pair<QString, StagedTransport::Mode>> firstLoads() {
  using Mode = StagedTransport::Mode;
  return {{u"campaigns-loading"_s, Mode::holding},
          {u"campaigns-failed"_s, Mode::failing},
          {u"campaigns-offline"_s, Mode::offline},
          {u"campaigns-empty"_s, Mode::empty}};
}

class Renderer {
 public:
  Renderer(const QDir& folder, const QString& prefix) : m_folder(folder), m_prefix(prefix) {
    ClientWindow::prepare(m_engine);
  }

  bool all() {
    for (const QSize& size : {QSize(1024, 700), QSize(1280, 800)})
      for (const bool dark : {false, true})
        if (!set(size, dark)) return false;
    return true;
  }
  int count() const { return m_count; }

 private:
  bool set(const QSize& size, bool dark) {
    const QString suffix = u"-%1x%2-%3.png"_s.arg(size.width()).arg(size.height()).arg(dark ? u"dark"_s : u"light"_s);
    for (const Scene& scene : signedOutScenes() + campaignScenes() + sequenceScenes() + formScenes())
      if (!shoot(scene, StagedTransport::Mode::passing, size, dark, suffix)) return false;
    for (const auto& [name, mode] : firstLoads())
      if (!shoot({name, true, [](Stage&) {}}, mode, size, dark, suffix)) return false;
    return true;
  }

  bool shoot(const Scene& scene, StagedTransport::Mode mode, const QSize& size, bool dark, const QString& suffix) {
    if (!scene.name.startsWith(m_prefix)) return true;
    Stage stage(m_engine, scene.signedIn, mode, size, dark);
    if (!stage.isReady()) return false;
    scene.play(stage);
    const QImage image = stage.picture();
    if (image.isNull() || !image.save(m_folder.filePath(scene.name + suffix))) {
      QTextStream(stderr) << m_folder.filePath(scene.name + suffix) << " can’t be written.\n";
      return false;
    }
    ++m_count;
    return true;
  }

  QDir m_folder;
  QString m_prefix;
  QQmlEngine m_engine;
  int m_count = 0;
};

}  // namespace

int renderPages(const QString& folder, const QString& prefix) {
  const QDir dir(folder);
  if (!dir.mkpath(u"."_s)) {
    QTextStream(stderr) << "The folder " << folder << " can’t be made.\n";
    return 1;
  }
  Renderer renderer(dir, prefix);
  if (!renderer.all()) return 1;
  QTextStream(stdout) << renderer.count() << " pictures in " << dir.absolutePath() << '\n';
  return 0;
}

}  // namespace orv
