#include "app/inbox/AgentSettingsStore.h"
#include "app/inbox/DraftsStore.h"
#include "app/inbox/InboxStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

InboxStore& openInbox(Stage& stage, const QString& section) {
  stage.app().router()->open(Page::inbox);
  InboxStore& inbox = *stage.app().session()->store<InboxStore>();
  inbox.setSection(section);
  return inbox;
}

DraftsStore& openDrafts(Stage& stage) {
  auto& drafts = static_cast<DraftsStore&>(*openInbox(stage, u"drafts"_s).drafts());
  stage.settle();
  return drafts;
}

AgentSettingsStore& openAgent(Stage& stage) {
  auto& agent = static_cast<AgentSettingsStore&>(*openInbox(stage, u"agent"_s).agent());
  stage.settle();
  return agent;
}

void goTo(DraftsStore& drafts, const std::function<bool(const Draft&)>& is) {
  while (drafts.queue()->hasNext() && !is(drafts.queue()->shown()->draft)) drafts.queue()->goForward();
  if (!drafts.queue()->shown() || !is(drafts.queue()->shown()->draft))
    throw StageTrouble(u"The sample has no such draft"_s);
}

/// Decisions by the store: two within a moment are one key that is held.
void decide(Stage& stage, DraftsStore& drafts, bool approves) {
  const ReviewDraft item = *drafts.queue()->shown();
  approves ? drafts.approve(item) : drafts.skip(item);
  stage.settle();
}

/// An earlier run left an edit, and its draft has been decided since.
void openLeft(Stage& stage) {
  const Journal::Key key{stage.app().session()->slug(), u"inbox/t-gone/drafts/d-gone"_s};
  stage.app().journal().keep(key, [] {
    return JournalText{{}, R"({"typed":{"body":"Hi Ana, the bay on Tuesday is still free. Shall I hold it?"}})"};
  });
  openDrafts(stage).act(u"refresh"_s);
}

QList<Scene> draftScenes() {
  return {
      page(u"drafts"_s, [](Stage& s) { openDrafts(s); }),
      {u"drafts-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         openInbox(s, u"drafts"_s);
       }},
      {u"drafts-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openInbox(s, u"drafts"_s);
       }},
      {u"drafts-offline"_s,
       [](Stage& s) {
         s.transport().mode = Mode::offline;
         openInbox(s, u"drafts"_s);
       }},
      {u"drafts-empty"_s,
       [](Stage& s) {
         s.transport().mode = Mode::empty;
         openInbox(s, u"drafts"_s);
       }},
      {u"drafts-held"_s, [](Stage& s) { goTo(openDrafts(s), [](const Draft& draft) { return draft.isHeld(); }); }},
      {u"drafts-edited"_s,
       [](Stage& s) {
         DraftsStore& drafts = openDrafts(s);
         drafts.writing()->setBody(drafts.writing()->body() + u"\n\nPS: The bay on Tuesday is still free."_s);
       }},
      {u"drafts-style"_s, [](Stage& s) { openDrafts(s).chooseStyle(u"casual"_s); }},
      {u"drafts-decided"_s,
       [](Stage& s) {
         DraftsStore& drafts = openDrafts(s);
         decide(s, drafts, true);
         decide(s, drafts, false);
       }},
      {u"drafts-left"_s, openLeft},
      {u"drafts-why"_s,
       [](Stage& s) {
         DraftsStore& drafts = openDrafts(s);
         decide(s, drafts, false);
         drafts.reason()->ask(drafts.decisions()->done().back().item.draft.id);
       }},
      {u"drafts-history"_s, [](Stage& s) { openDrafts(s).setHistoryShown(true); }},
      {u"drafts-history-edited"_s,
       [](Stage& s) {
         DraftsStore& drafts = openDrafts(s);
         drafts.setHistoryShown(true);
         drafts.history()->setTab(u"edited"_s);
       }},
      {u"drafts-history-skipped"_s,
       [](Stage& s) {
         DraftsStore& drafts = openDrafts(s);
         drafts.setHistoryShown(true);
         drafts.history()->setTab(u"skipped"_s);
       }},
  };
}

QList<Scene> agentScenes() {
  return {
      page(u"agent"_s, [](Stage& s) { openAgent(s); }),
      {u"agent-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openInbox(s, u"agent"_s);
       }},
      {u"agent-unsaved"_s,
       [](Stage& s) {
         AgentForm& form = *openAgent(s).form();
         form.set(u"company"_s, u"Northgate Fleet Care"_s);
         form.set(u"followupMax"_s, u"5"_s);
         form.save();
       }},
      {u"agent-refused"_s,
       [](Stage& s) {
         AgentForm& form = *openAgent(s).form();
         form.set(u"repName"_s, u"Somebody Else"_s);
         s.transport().mode = Mode::failing;
         form.save();
       }},
      {u"agent-auto"_s, [](Stage& s) { openAgent(s).mode()->choose(u"auto"_s); }},
      {u"agent-add-rule"_s, [](Stage& s) { openAgent(s).lessons()->beginAdd(); }},
  };
}

}  // namespace

QList<Scene> draftsScenes() { return draftScenes() + agentScenes(); }

}  // namespace orv
