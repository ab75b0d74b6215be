#include <QDir>
#include <QFile>
#include <QQuickItem>
#include <QQuickWindow>

#include "app/campaigns/CampaignStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The first campaign of the status.
CampaignStore& openCampaign(Stage& stage, const QString& status) {
  const auto& items = stage.openCampaigns().list()->value()->items;
  const auto found = std::ranges::find(items, status, [](const CampaignSummary& item) { return item.status.rawValue; });
  stage.app().router()->openCampaign(found->id);
  return *stage.app().session()->item<CampaignStore>(Page::campaigns, found->id);
}

CampaignStore& openTab(Stage& stage, const QString& status, const QString& tab) {
  CampaignStore& campaign = openCampaign(stage, status);
  stage.settle();
  campaign.setTab(tab);
  stage.settle();
  return campaign;
}

/// The draft that has leads: nothing keeps it from being launched.
CampaignStore& openReadyDraft(Stage& stage) {
  const auto& items = stage.openCampaigns().list()->value()->items;
  const auto hasLeads = [](const CampaignSummary& item) { return item.status.isDraft() && item.leads > 0; };
  stage.app().router()->openCampaign(std::ranges::find_if(items, hasLeads)->id);
  stage.settle();
  return *stage.app().session()->item<CampaignStore>(Page::campaigns, stage.app().router()->campaign());
}

SequenceEditor& openSequence(Stage& stage, const QString& status) {
  return *openTab(stage, status, u"sequence"_s).sequence();
}

/// The tab of the first running campaign, whose first load fails.
void openFailing(Stage& stage, const QString& tab) {
  CampaignStore& campaign = openCampaign(stage, u"running"_s);
  stage.settle();
  stage.transport().mode = StagedTransport::Mode::failing;
  campaign.setTab(tab);
}

/// Opens the stats of the first running campaign.
CampaignStatsStore& openStats(Stage& stage, const QString& section) {
  CampaignStore& campaign = openTab(stage, u"running"_s, u"stats"_s);
  campaign.stats()->setSection(section);
  stage.settle();
  return *campaign.stats();
}

/// The leads tab of the first running campaign.
CampaignLeads& openLeads(Stage& stage) { return *openTab(stage, u"running"_s, u"leads"_s).leads(); }

QString firstLead(CampaignLeads& leads) { return leads.rows()->records().front().id; }

/// The draft with a sequence that an earlier run of the program left, which ended before it was saved.
void openRestored(Stage& stage) {
  openCampaign(stage, u"draft"_s);
  stage.settle();
  const QString id = stage.app().router()->campaign();
  stage.app().router()->open(Page::campaigns);
  stage.settle();
  stage.app().session()->trim();
  stage.app().journal().keep({stage.app().session()->slug(), u"campaigns/"_s + id + u"/sequence"_s}, [] {
    const VariantIn variant{{}, u"A"_s, u"Back again"_s, u"This was being written when the power went."_s, 1, true};
    return JournalText{1, encodeJSON(StepsBody{{{{}, 0, false, {variant}}}})};
  });
  stage.app().journal().write();
  stage.app().router()->openCampaign(id);
}

QList<Scene> headerScenes() {
  using Mode = StagedTransport::Mode;
  return {
      page(u"campaign"_s, [](Stage& s) { openCampaign(s, u"running"_s); }),
      {u"campaign-pause"_s,
       [](Stage& s) {
         openCampaign(s, u"running"_s);
         s.settle();
         s.press(u"Pause"_s);
       }},
      {u"campaign-launch"_s,
       [](Stage& s) {
         openCampaign(s, u"draft"_s);
         s.settle();
         s.press(u"Launch"_s);
       }},
      {u"campaign-path"_s, [](Stage& s) { openTab(s, u"draft"_s, u"sequence"_s); }},
      {u"campaign-path-done"_s,
       [](Stage& s) {
         openReadyDraft(s);
         s.tabTo(u"Emails 4"_s);
       }},
      {u"campaign-rename"_s,
       [](Stage& s) {
         auto& campaign = openCampaign(s, u"paused"_s);
         s.settle();
         campaign.beginRename();
       }},
      {u"campaign-failed"_s,
       [](Stage& s) {
         s.openCampaigns();
         s.transport().mode = Mode::failing;
         openCampaign(s, u"running"_s);
       }},
  };
}

QList<Scene> sequenceScenes() {
  using Mode = StagedTransport::Mode;
  return {
      {u"campaign-sequence-restored"_s, openRestored},
      {u"campaign-saving-to-close"_s,
       [](Stage& s) {
         openSequence(s, u"draft"_s).setBody(u"Written a moment ago."_s);
         s.transport().mode = Mode::holding;
         s.window().close();
       }},
      {u"campaign-sequence-second"_s, [](Stage& s) { openSequence(s, u"running"_s).selectPlace(1); }},
      {u"campaign-sequence-variants"_s,
       [](Stage& s) {
         auto& editor = openSequence(s, u"paused"_s);
         editor.addVariant();
         editor.setSubject(u"Another way to say it, {{firstName}}"_s);
         editor.setBody(u"{Hi|Hello} {{firstName}},\n\nQuick question about {{company}}.\n\n{{accountSignature}}"_s);
         editor.addVariant();
         editor.setEnabled(false);
       }},
      {u"campaign-sequence-typing"_s,
       [](Stage& s) {
         openSequence(s, u"draft"_s).insertStep(1);
         s.press(Qt::Key_Down);
         s.press(Qt::Key_Tab);
         s.press(Qt::Key_Return);
         s.type(u"Hello {{c"_s);
       }},
      {u"campaign-sequence-long"_s,
       [](Stage& s) {
         auto& editor = openSequence(s, u"draft"_s);
         while (editor.stepCount() < 12) editor.insertStep(editor.stepCount());
         s.press(Qt::Key_Down);
         s.press(Qt::Key_Tab);
       }},
      {u"campaign-sequence-empty"_s,
       [](Stage& s) {
         auto& editor = openSequence(s, u"draft"_s);
         while (editor.stepCount() > 0) editor.removeStep(editor.stepKey());
       }},
      {u"campaign-sequence-not-saved"_s,
       [](Stage& s) {
         auto& editor = openSequence(s, u"running"_s);
         editor.selectPlace(1);
         s.transport().mode = Mode::failing;
         s.press(Qt::Key_Down);
         s.press(Qt::Key_Tab);
         s.press(Qt::Key_Return);
         s.type(u"Written while the service was down. "_s);
         editor.autosave()->save();
       }},
      {u"campaign-sequence-test"_s,
       [](Stage& s) {
         openSequence(s, u"running"_s);
         s.press(u"Send a test"_s);
       }},
  };
}

/// The wall of the draft that has leads.
CampaignStore& openProof(Stage& stage, const std::function<void(CampaignStore&)>& before = {}) {
  CampaignStore& campaign = openReadyDraft(stage);
  if (before) before(campaign);
  campaign.setTab(u"proof"_s);
  return campaign;
}

QList<Scene> proofScenes() {
  using Mode = StagedTransport::Mode;
  return {
      page(u"campaign-proof"_s, [](Stage& s) { openProof(s); }),
      {u"campaign-proof-wrong"_s,
       [](Stage& s) {
         auto& campaign = openProof(s, [](CampaignStore& store) {
           store.sequence()->setSubject(u"Return loads for {{company}}"_s);
           store.sequence()->setBody(
               u"{Hi|Hello} {{firstName}},\n\naround {{city}} a third of return trips run empty {most of them.\n\n"
               "Worth a look at this week’s list for {{company}}?"_s);
         });
         s.settle();
         campaign.proof()->setCurrent(campaign.proof()->emails()->records()[4].id);
       }},
      {u"campaign-proof-stopped"_s,
       [](Stage& s) {
         auto& campaign = openProof(s);
         s.until([&] { return !campaign.proof()->verdict().isEmpty(); }, u"the first email"_s);
         s.transport().mode = Mode::offline;
       }},
      {u"campaign-proof-without-leads"_s, [](Stage& s) { openTab(s, u"draft"_s, u"proof"_s); }},
      {u"campaign-proof-failed"_s, [](Stage& s) { openFailing(s, u"proof"_s); }},
  };
}

QList<Scene> daysScenes() {
  return {
      {u"campaign-days-moved"_s,
       [](Stage& s) {
         auto& editor = openSequence(s, u"running"_s);
         editor.selectPlace(2);
         editor.days()->addToWait(2, 3);
       }},
      {u"campaign-days-later"_s,
       [](Stage& s) {
         auto& editor = openSequence(s, u"draft"_s);
         editor.days()->addToWait(1, 4);
         while (editor.stepCount() < 6) editor.insertStep(editor.stepCount());
         editor.selectPlace(1);
         s.tabTo(u"Email 2"_s);
         s.press(Qt::Key_Right);
       }},
  };
}

QList<Scene> leadScenes() {
  return {
      page(u"campaign-leads"_s, [](Stage& s) { openLeads(s); }),
      {u"leads-ticked"_s,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.selection()->toggle(firstLead(leads));
         leads.selection()->toggle(leads.rows()->records()[2].id);
       }},
      {u"leads-drawer"_s,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.open(firstLead(leads));
       }},
      {u"leads-none-match"_s,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.setLeadQuery(u"nothing like this"_s);
         s.settle();
       }},
      {u"leads-archive"_s,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.remove({firstLead(leads)});
         s.settle();
         leads.setLeadsArchived(true);
       }},
      {u"leads-empty"_s, [](Stage& s) { openLeads(s).setLeadsArchived(true); }},
      {u"leads-add-by-hand"_s, [](Stage& s) { openLeads(s).adding()->show(u"manual"_s); }},
      {u"leads-added-by-hand"_s,
       [](Stage& s) {
         auto& adding = *openLeads(s).adding();
         adding.show(u"manual"_s);
         s.settle();
         s.type(u"jo@lead.example"_s);
         s.press(Qt::Key_Return);
         s.settle();
         s.type(u"next@"_s);
       }},
      {u"leads-add-list"_s, [](Stage& s) { openLeads(s).adding()->show(u"list"_s); }},
      {u"leads-add-own"_s, [](Stage& s) { openLeads(s).adding()->show(u"leads"_s); }},
      {u"leads-add-file"_s,
       [](Stage& s) {
         auto& adding = *openLeads(s).adding();
         adding.show(u"csv"_s);
         QFile file(QDir::temp().filePath(u"orvella-render.csv"_s));
         if (file.open(QIODevice::WriteOnly)) file.write("email,firstName,company,city\na@x.example,Ana,Acme,Ulm\n");
         file.close();
         adding.setFile(file.fileName());
       }},
      {u"leads-added"_s,
       [](Stage& s) {
         auto& adding = *openLeads(s).adding();
         adding.show(u"list"_s);
         s.settle();
         adding.setListId(u"li_fair"_s);
         adding.submit();
       }},
      {u"leads-adding-elsewhere"_s,
       [](Stage& s) {
         auto& adding = *openLeads(s).adding();
         adding.show(u"manual"_s);
         adding.draft()->set(u"email"_s, u"jo@lead.example"_s);
         s.transport().mode = StagedTransport::Mode::holding;
         adding.submit();
         adding.dismiss();
         s.app().router()->open(Page::dashboard);
         s.settle();
         s.press(s.app().jobs()->line());
       }},
      {u"leads-move"_s,
       [](Stage& s) {
         auto& leads = openLeads(s);
         leads.beginMove({firstLead(leads)});
       }},
      {u"leads-failed"_s, [](Stage& s) { openFailing(s, u"leads"_s); }},
  };
}

QList<Scene> settingsTabScenes() {
  return {
      page(u"campaign-settings"_s, [](Stage& s) { openTab(s, u"running"_s, u"settings"_s); }),
      {u"campaign-settings-unsaved"_s,
       [](Stage& s) {
         auto& form = *openTab(s, u"paused"_s, u"settings"_s).settings();
         form.draft()->set(u"name"_s, QString());
         form.addTags({u"spring"_s});
         form.senders()->toggleTag(u"dach"_s);
         s.settle();
         s.press(u"Save settings"_s);
       }},
      {u"campaign-settings-limits"_s,
       [](Stage& s) {
         openTab(s, u"draft"_s, u"settings"_s).settings()->draft()->set(u"gap"_s, u"1441"_s);
         s.tabTo(u"Max new leads a day"_s);
       }},
      {u"campaign-settings-both"_s,
       [](Stage& s) {
         auto& form = *openTab(s, u"paused"_s, u"settings"_s).settings();
         form.draft()->set(u"gap"_s, u"25"_s);
         form.draft()->set(u"stopOnAutoReply"_s, true);
         form.draft()->set(u"bcc"_s, u"crm@northgate.example"_s);
         form.schedule()->toggleDay(0, 6);
         s.settle();
         s.press(u"Go to Limits"_s);
       }},
      {u"campaign-settings-schedule"_s,
       [](Stage& s) {
         auto& form = *openTab(s, u"draft"_s, u"settings"_s).settings()->schedule();
         form.add();
         form.setText(1, u"end"_s, u"08:00"_s);
         form.setText(1, u"timeZone"_s, u"Europe/Atlantis"_s);
         form.save();
         s.tabTo(u"Add schedule"_s);
       }},
  };
}

QList<Scene> subsequenceScenes() {
  return {
      {u"campaign-subsequences-none"_s, [](Stage& s) { openTab(s, u"running"_s, u"subsequences"_s); }},
      {u"campaign-subsequences-new"_s,
       [](Stage& s) {
         auto& page = *openTab(s, u"running"_s, u"subsequences"_s).subsequences();
         page.beginCreate();
         page.toggleLabel(u"interested"_s);
         page.create();
       }},
      page(u"campaign-subsequences"_s,
           [](Stage& s) {
             auto& campaign = openTab(s, u"running"_s, u"subsequences"_s);
             campaign.subsequences()->beginCreate();
             campaign.subsequences()->draft()->set(u"name"_s, u"Asked for a call"_s);
             campaign.subsequences()->toggleLabel(u"interested"_s);
             campaign.subsequences()->create();
             s.settle();
             s.app().router()->openCampaign(campaign.id());
           }),
      {u"campaign-subsequences-failed"_s, [](Stage& s) { openFailing(s, u"subsequences"_s); }},
  };
}

QList<Scene> statsScenes() {
  return {
      page(u"campaign-stats"_s, [](Stage& s) { openStats(s, u"inboxes"_s); }),
      {u"campaign-stats-emails"_s,
       [](Stage& s) {
         openStats(s, u"emails"_s);
         s.tabTo(u"row 1"_s);
       }},
      {u"campaign-stats-messages"_s,
       [](Stage& s) {
         openStats(s, u"messages"_s);
         s.tabTo(u"row 1"_s);
         s.press(Qt::Key_PageDown);
       }},
      {u"campaign-stats-activity"_s,
       [](Stage& s) {
         openStats(s, u"activity"_s);
         s.tabTo(u"row 1"_s);
         s.press(Qt::Key_End);
       }},
      {u"campaign-stats-draft"_s,
       [](Stage& s) {
         auto& campaign = openCampaign(s, u"draft"_s);
         campaign.setTab(u"stats"_s);
       }},
  };
}

/// What each tab shows when the service goes after it was loaded.
QList<Scene> offlineScenes() {
  QList<Scene> scenes;
  for (const auto& tab : {u"sequence"_s, u"leads"_s, u"settings"_s, u"subsequences"_s, u"stats"_s})
    scenes.append({u"campaign-offline-"_s + tab, [tab](Stage& s) {
                     CampaignStore& campaign = openTab(s, u"running"_s, tab);
                     s.settle();
                     s.transport().mode = StagedTransport::Mode::offline;
                     campaign.refreshShown();
                   }});
  return scenes;
}

}  // namespace

QList<Scene> campaignScenes() {
  return headerScenes() + sequenceScenes() + daysScenes() + proofScenes() + leadScenes() + settingsTabScenes() +
         subsequenceScenes() + statsScenes() + offlineScenes();
}

}  // namespace orv
