#include "app/inbox/InboxStore.h"
#include "desktop/scenes/Scene.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Mode = StagedTransport::Mode;

InboxStore& openInbox(Stage& stage) {
  stage.app().router()->open(Page::inbox);
  stage.settle();
  return *stage.app().session()->store<InboxStore>();
}

/// The first conversation in the list of which that is true.
InboxStore& openThread(Stage& stage, const std::function<bool(const InboxThread&)>& wanted) {
  InboxStore& store = openInbox(stage);
  QString id;
  store.threads()->list()->each([&](const ThreadRow& row) {
    if (id.isEmpty() && wanted(row.record())) id = row.id;
  });
  if (id.isEmpty()) throw StageTrouble(u"no such conversation in the sample"_s);
  store.open(id);
  stage.settle();
  return store;
}

bool hasDraft(const InboxThread& thread) { return thread.pendingDrafts > 0; }
bool hasNoDraft(const InboxThread& thread) { return thread.pendingDrafts == 0; }

}  // namespace

QList<Scene> inboxScenes() {
  return {
      page(u"inbox"_s, [](Stage& s) { openThread(s, hasDraft); }),
      {u"inbox-nothing-open"_s, [](Stage& s) { openInbox(s); }},
      {u"inbox-reply"_s,
       [](Stage& s) {
         openThread(s, hasNoDraft).act(u"reply"_s);
         s.type(u"Thank you, Tuesday at ten suits us well."_s);
       }},
      {u"inbox-manual-reply"_s,
       [](Stage& s) {
         InboxStore& store = openThread(s, hasDraft);
         store.act(u"reply"_s);
         store.conversation()->reply()->setCc(u"ana@acme.example, nobody"_s);
         store.conversation()->reply()->setBody(u"One more thing."_s);
       }},
      {u"inbox-reply-anyway"_s,
       [](Stage& s) {
         InboxStore& store = openThread(s, hasDraft);
         store.act(u"reply"_s);
         store.conversation()->reply()->setBody(u"One more thing."_s);
         store.send();
       }},
      {u"inbox-edit-draft"_s, [](Stage& s) { openThread(s, hasDraft).act(u"edit"_s); }},
      {u"inbox-uncertain"_s,
       [](Stage& s) {
         InboxStore& store = openThread(s, hasNoDraft);
         store.act(u"reply"_s);
         store.conversation()->reply()->setBody(u"Did this arrive?"_s);
         store.conversation()->reply()->setState(false, true);
       }},
      {u"inbox-labels"_s, [](Stage& s) { openThread(s, hasDraft).act(u"label"_s); }},
      {u"inbox-quoted"_s,
       [](Stage& s) {
         Conversation& open = *openThread(s, hasDraft).conversation();
         const auto& rows = open.messages()->records();
         for (const MessageRow& row : std::vector(rows))
           if (row.part == "fold"_L1) open.fold(row.foldId);
       }},
      {u"inbox-strangers"_s,
       [](Stage& s) { openThread(s, [](const InboxThread& one) { return one.subject.contains("<img"_L1); }); }},
      {u"inbox-no-text"_s,
       [](Stage& s) { openThread(s, [](const InboxThread& one) { return !one.contactName && !one.lead; }); }},
      {u"inbox-long-thread"_s,
       [](Stage& s) { openThread(s, [](const InboxThread& one) { return one.messageCount > 400; }); }},
      {u"inbox-new-mail"_s,
       [](Stage& s) {
         openThread(s, hasDraft);
         Q_EMIT s.app().session()->context().mailCame({});
       }},
      {u"inbox-archived"_s, [](Stage& s) { openInbox(s).threads()->setTab(u"archived"_s); }},
      {u"inbox-last-archived"_s,
       [](Stage& s) {
         InboxStore& store = openThread(s, hasDraft);
         store.threads()->setQuery(store.conversation()->contactAddress());
         s.settle();
         store.act(u"archive"_s);
       }},
      {u"inbox-none-match"_s, [](Stage& s) { openInbox(s).threads()->setQuery(u"nobody of that name"_s); }},
      {u"inbox-empty"_s, [](Stage& s) { openInbox(s); }, Mode::empty},
      {u"inbox-loading"_s,
       [](Stage& s) {
         s.transport().mode = Mode::holding;
         s.app().router()->open(Page::inbox);
       }},
      {u"inbox-failed"_s,
       [](Stage& s) {
         s.transport().mode = Mode::failing;
         openInbox(s);
       }},
      {u"inbox-conversation-failed"_s,
       [](Stage& s) {
         InboxStore& store = openInbox(s);
         s.transport().mode = Mode::failing;
         store.step(1);
       }},
      {u"inbox-offline-saved"_s,
       [](Stage& s) {
         InboxStore& store = openThread(s, hasDraft);
         s.transport().mode = Mode::offline;
         store.refresh();
       }},
  };
}

}  // namespace orv
