#include "app/inbox/InboxStore.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// While another section is shown, keys stay offered, for a page's keys are asked for once.
void addKeysOf(QList<PageAction>& actions, const QList<PageAction>& others) {
  for (PageAction action : others) {
    const bool isTaken = std::ranges::find(actions, action.keys, &PageAction::keys) != actions.end();
    if (action.keys.isEmpty() || isTaken) continue;
    action.possible = action.inMenu = false;
    // Sections name some of their actions alike.
    action.key = u"key "_s + action.keys;
    action.whyNot.clear();
    actions.append(action);
  }
}

}  // namespace

QList<PageAction> InboxStore::offered(const QString& record) {
  if (!record.isEmpty()) {
    const InboxThread* thread = m_threads.find(record);
    if (shownPart()) return shownPart()->actions(record);
    return thread ? offeredFor(*thread) : QList<PageAction>();
  }
  QList<PageAction> actions = shownPart() ? shownPart()->actions() : offeredHere();
  if (shownPart()) addKeysOf(actions, offeredHere());
  for (Store* part : {m_drafts, m_agent})
    if (part && part != shownPart()) addKeysOf(actions, part->actions());
  return actions;
}

QList<PageAction> InboxStore::offeredHere() {
  QList<PageAction> actions = offeredOpen() + offeredDraft();
  actions.append({{.key = u"next"_s,
                   .title = u"Next conversation"_s,
                   .icon = u"go-down"_s,
                   .keys = u"J"_s,
                   .inMenu = false,
                   .run = [this] { step(1); }},
                  {.key = u"previous"_s,
                   .title = u"Previous conversation"_s,
                   .icon = u"arrow-up"_s,
                   .keys = u"K"_s,
                   .inMenu = false,
                   .run = [this] { step(-1); }},
                  {.key = u"check"_s,
                   .title = u"Check mail now"_s,
                   .icon = u"view-refresh"_s,
                   .writes = true,
                   .possible = !m_threads.polling(),
                   .inMenu = false,
                   .anywhere = true,
                   .run = [this] { m_threads.checkMail(); }}});
  return actions + Store::offered({});
}

QList<PageAction> InboxStore::offeredOpen() {
  const InboxThread* thread = conversation() ? conversation()->thread() : nullptr;
  QList<PageAction> actions = offeredFor(thread ? *thread : InboxThread());
  if (!thread)
    for (PageAction& action : actions) action.possible = false;
  actions.append(
      {{.key = u"reply"_s,
        .title = u"Reply"_s,
        .icon = u"mail-reply-sender"_s,
        .keys = u"R"_s,
        .writes = true,
        .possible = thread != nullptr,
        .inMenu = false,
        .run = [this] { startReply(); }},
       {.key = u"label"_s,
        .title = u"Label"_s,
        .icon = u"tag"_s,
        .keys = u"L"_s,
        .writes = true,
        .possible = thread != nullptr,
        .inMenu = false,
        .run = [this] { Q_EMIT labelsWanted(); }},
       {.key = u"generate"_s,
        .title = conversation() && conversation()->hasDraft() ? u"Regenerate AI reply"_s : u"Generate AI reply"_s,
        .icon = u"view-refresh"_s,
        .writes = true,
        .possible = thread != nullptr && !generating(),
        .run = [this] { m_actions.generate(*conversation()->thread(), conversation()->draft()); }},
       {.key = u"copy-address"_s,
        .title = u"Copy email address"_s,
        .icon = u"edit-copy"_s,
        .possible = thread != nullptr,
        .run = [this] { copyAddress(); }}});
  return actions;
}

QList<PageAction> InboxStore::offeredDraft() {
  const Conversation* open = conversation();
  const bool replies = open && open->replying();
  const bool decides = open && open->hasDraft() && desk() && !deciding();
  // One key for both: whoever is writing means what they write.
  const QString keys = u"Ctrl+Return"_s;
  return {{.key = u"send"_s,
           .title = u"Send email"_s,
           .icon = u"document-send"_s,
           .keys = replies ? keys : QString(),
           .writes = true,
           .possible = replies && open->reply() && open->reply()->canSend(),
           .inMenu = false,
           .run = [this] { send(); }},
          {.key = u"approve"_s,
           .title = u"Approve"_s,
           .icon = u"document-send"_s,
           .keys = replies ? QString() : keys,
           .writes = true,
           .possible = decides,
           .inMenu = false,
           .run = [this] { decide(true); }},
          {.key = u"skip"_s,
           .title = u"Skip"_s,
           .icon = u"orv-close"_s,
           .writes = true,
           .possible = decides,
           .inMenu = false,
           .run = [this] { decide(false); }},
          {.key = u"edit"_s,
           .title = u"Edit the draft"_s,
           .icon = u"document-edit"_s,
           .writes = true,
           .possible = decides,
           .inMenu = false,
           .run = [this] {
             conversation()->setEditing(true);
             Q_EMIT editWanted();
           }}};
}

QList<PageAction> InboxStore::offeredFor(const InboxThread& thread) {
  const auto isFree = [&](ThreadActions::Kind kind) { return !m_actions.isBusy(thread.id, kind); };
  const bool archives = !thread.isArchived();
  return {{.key = u"archive"_s,
           .title = archives ? u"Archive"_s : u"Move to inbox"_s,
           .icon = archives ? u"archive-insert"_s : u"edit-undo"_s,
           .keys = u"E"_s,
           .writes = true,
           .possible = isFree(ThreadActions::Kind::status),
           .run = [this, thread, archives] { leave(thread, archives); }},
          {.key = u"unread"_s,
           .title = u"Mark unread"_s,
           .icon = u"mail-mark-unread"_s,
           .keys = u"U"_s,
           .writes = true,
           .possible = isFree(ThreadActions::Kind::unread) && !m_threads.rows().isUnread(thread),
           .run = [this, thread] { m_actions.markUnread(thread); }}};
}

}  // namespace orv
