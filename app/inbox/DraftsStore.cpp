#include "app/inbox/DraftsStore.h"

#include "app/base/shownName.h"
#include "app/inbox/DraftTexts.h"
#include "app/inbox/addresses.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/threadLabel.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

ApproveDraftBody approvalOf(const Draft& draft, const std::optional<QString>& edit,
                            const std::optional<QString>& style) {
  // With `undo` the service waits a minute before it sends; without it an approval is final.
  return {.body = edit, .subject = draft.subject, .undo = true, .style = style};
}

template <class S>
void letGoOf(std::unique_ptr<S>& store) {
  if (!store) return;
  store->close();
  store.release()->deleteLater();
}

}  // namespace

DraftsStore::DraftsStore(WorkspaceContext& context, Writings& writings)
    : Store(context),
      m_writings(writings),
      m_decisions(context, this),
      m_queue(context, this, m_decisions, writings),
      m_styles(context, this),
      m_reason(context, this, m_decisions),
      m_feedback(context, this),
      m_history(context, this, m_decisions),
      m_leftovers(context, this, m_queue, m_decisions, m_reason, writings) {
  connect(&m_queue, &DraftQueue::shownChanged, this, &DraftsStore::showPicked);
  connect(&m_queue, &DraftQueue::changed, this, [this] {
    giveTexts();
    Q_EMIT changed();
  });
  connect(&m_queue, &DraftQueue::replaced, this, [this] {
    m_decidedAt = services().clock.now();
    m_decidedId.clear();
    Q_EMIT replaced();
  });
  connect(&m_queue, &DraftQueue::lost, this, [this](const ReviewDraft& item) { m_tasks.start(lostTask(item)); });
  connect(&writings, &Writings::lost, this, [this](const ReviewDraft& item) {
    m_tasks.start(lostTask(item));
    m_queue.list()->load();
  });
  connect(&m_queue, &DraftQueue::heard, this, [this] {
    for (const ReviewDraft& item : m_queue.list()->value()->items) m_lost.remove(item.draft.id);
  });
  connect(&m_styles, &DraftStyles::changed, this, [this](const QString& draftId) {
    if (draftId == m_queue.picked()) showText();
    Q_EMIT changed();
  });
  connect(&m_decisions, &DraftDecisions::decided, this, &DraftsStore::decided);
  connect(&m_decisions, &DraftDecisions::returned, this, &DraftsStore::returned);
  connect(&m_decisions, &DraftDecisions::passed, this,
          [this](const DraftDecisions::Undoable& decision) { letGo(decision.item.draft); });
  connect(&m_decisions, &DraftDecisions::late, this, &DraftsStore::late);
  connect(&m_reason, &DraftReason::given, this, [this](const QString& draftId) {
    m_feedback.follow(draftId, false);
    m_history.list()->markStale();
  });
  connect(&m_feedback, &TrainingFeedback::taught, this, [this](const DraftTraining& training) {
    // What was learned of a draft stands beside it there.
    m_history.list()->markStale();
    // Waiting drafts have been rewritten to follow the rule, wherever they are shown.
    if (training.refreshed.value_or(0) > 0) this->context().changes().stale<Draft>();
  });
  m_leftovers.look();
}

/// What is being written in another style is marked there, and tells it once more as its task goes.
DraftsStore::~DraftsStore() { m_tasks.cancel(); }

void DraftsStore::setWords(Words words) {
  m_words = std::move(words);
  for (const auto& there : {m_conversation.get(), m_next.get()})
    if (there) Q_EMIT there->changed();
}

std::unique_ptr<Conversation> DraftsStore::open(const ReviewDraft& item) {
  auto conversation = std::make_unique<Conversation>(
      context(), item.thread.id,
      Conversation::Surroundings{.writings = m_writings,
                                 .listed = [thread = item.thread](const QString&) { return std::optional(thread); },
                                 .label = [this](const ThreadLabel& label) { return m_words.label(label); },
                                 .campaign = [this](const QString& id) { return m_words.campaign(id); }});
  conversation->ensureLoaded();
  return conversation;
}

void DraftsStore::showPicked() {
  const ReviewDraft* item = m_queue.shown();
  if (item && (!m_conversation || m_conversation->id() != item->thread.id)) {
    letGoOf(m_conversation);
    const bool isRead = m_next && m_next->id() == item->thread.id;
    m_conversation = isRead ? std::move(m_next) : open(*item);
    m_listed = isRead ? m_nextListed : item->thread;
  }
  if (!item) letGoOf(m_conversation);
  // Only what the list has read anew: the conversation may have been read since.
  if (item && std::exchange(m_listed, item->thread) != item->thread) m_conversation->follow(item->thread);
  const ReviewDraft* next = m_queue.next();
  if (next && item && next->thread.id != item->thread.id && (!m_next || m_next->id() != next->thread.id)) {
    letGoOf(m_next);
    m_next = open(*next);
    m_nextListed = next->thread;
  }
  showText();
  Q_EMIT shownChanged();
  Q_EMIT changed();
}

void DraftsStore::showText() {
  const ReviewDraft* item = m_queue.shown();
  Writing* writing = item ? m_writings.edit(item->draft, contactName(item->thread)) : nullptr;
  const DraftVersion* version = item ? m_styles.versionOf(item->draft) : nullptr;
  if (writing) writing->begin(version ? version->body : item->draft.body, item->draft.body);
  if (std::exchange(m_writing, writing) == writing) return;
  if (writing) connect(writing, &Writing::changed, this, &DraftsStore::changed, Qt::UniqueConnection);
  Q_EMIT shownChanged();
}

const Draft& DraftsStore::shownDraft() const {
  static const Draft none;
  return m_queue.shown() ? m_queue.shown()->draft : none;
}

QString DraftsStore::headline() const { return m_queue.shown() ? draftHeadline(m_queue.shown()->draft) : QString(); }

QString DraftsStore::facts() const {
  const ReviewDraft* item = m_queue.shown();
  if (!item) return {};
  const QString rules = rulesText(item->draft);
  return draftKindText(item->draft) + (rules.isEmpty() ? QString() : u" · "_s + rules);
}

QStringList DraftsStore::failures() const {
  if (m_queue.isOver()) return {alreadyDecided()};
  return m_queue.shown() ? holdReasons(m_queue.shown()->draft) : QStringList();
}

QString DraftsStore::address() const {
  return m_queue.shown() ? shownAddress(draftAddress(*m_queue.shown())) : QString();
}

QString DraftsStore::mailbox() const {
  return m_queue.shown() ? shownAddress(m_queue.shown()->thread.mailboxAddress) : QString();
}

QString DraftsStore::subject() const {
  const ReviewDraft* item = m_queue.shown();
  return item ? shownName(item->draft.subject.value_or(item->thread.subject)) : QString();
}

QString DraftsStore::why() const { return m_queue.shown() ? draftReason(m_queue.shown()->draft) : QString(); }

bool DraftsStore::canApprove() const {
  return canWrite() && m_queue.shown() && !m_queue.isOver() && m_writing && !styling() &&
         !m_writing->body().trimmed().isEmpty();
}

QString DraftsStore::approveText() const { return edited() ? u"Approve your edit ⌘↵"_s : u"Approve"_s; }

void DraftsStore::setHistoryShown(bool shown) {
  if (std::exchange(m_historyShown, shown) == shown) return;
  if (shown) m_history.list()->ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

Task<void> DraftsStore::chooseStyleTask(QString style) {
  const ReviewDraft* item = m_queue.shown();
  if (!item || m_queue.isOver() || !canWrite() || styling() || style == this->style()) co_return;
  const Draft draft = item->draft;
  std::optional<QString> replaced;
  if (edited()) {
    const bool replaces = co_await services().overlays.confirm({.title = u"Replace your edit?"_s,
                                                                .text = u"Another style takes the place of what you "
                                                                        u"changed in this draft."_s,
                                                                .confirm = u"Replace it"_s,
                                                                .cancel = u"Keep my edit"_s,
                                                                .destructive = true});
    if (!replaces || m_queue.picked() != draft.id) co_return;
    replaced = m_writings.editOf(draft);
  }
  if (!co_await m_styles.writeTask(draft, style)) co_return;
  // Decided meanwhile, or written anew.
  item = m_queue.find(draft.id);
  if (!item || item->draft.body != draft.body) co_return;
  // What the person wrote goes only for what is there to take its place, and not when they have gone on with it.
  const auto edit = m_writings.editOf(draft);
  if (edit && edit != replaced) {
    services().toasts.show({.message = u"Your edit stays. Choose the style again to replace it."_s});
    co_return;
  }
  if (edit) m_writings.findEdit(draft)->discard();
  m_styles.choose(draft, style);
}

void DraftsStore::openChat() {
  if (const ReviewDraft* item = m_queue.shown()) context().openItem(Page::inbox, QString(item->thread.id));
}

void DraftsStore::decideShown(bool approves) {
  const QDateTime now = services().clock.now();
  const QDateTime before = std::exchange(m_decidedAt, now);
  if (!m_queue.shown()) return;
  if (m_queue.isOver()) return m_queue.leave();
  const ReviewDraft item = *m_queue.shown();
  // A key held too long would decide about the next draft, which nobody has read. One that came back is as it was.
  if (m_decidedId != item.draft.id && before.isValid() && std::abs(before.msecsTo(now)) < 250) return;
  m_decidedId = item.draft.id;
  approves ? approve(item) : skip(item);
}

void DraftsStore::approve(const ReviewDraft& item) {
  const QString id = item.draft.id;
  if (!canWrite() || isDeciding(id) || m_decisions.isGone(id) || m_styles.isAsking(id)) return;
  const ReviewDraft given = item;
  m_undone = false;
  const auto edit = m_writings.editOf(given.draft);
  const DraftVersion* version = m_styles.versionOf(given.draft);
  if (edit && edit->trimmed().isEmpty()) return;
  Writing* writing = m_writings.findEdit(given.draft);
  // What the person saw is what goes out, and that need not be this version by now.
  if (version && !edit && writing && writing->body() != version->body) version = nullptr;
  m_sent[id] = edit ? std::optional(writing->typed()) : std::nullopt;
  if (version) m_styled.insert(id);
  if (edit) writing->setState(true, false);
  m_decisions.approve(given, approvalOf(given.draft, edit, version ? std::optional(version->style) : std::nullopt));
}

void DraftsStore::skip(const ReviewDraft& item) {
  const ReviewDraft given = item;
  if (!canWrite() || isDeciding(given.draft.id) || m_decisions.isGone(given.draft.id)) return;
  m_undone = false;
  m_sent.remove(given.draft.id);
  if (Writing* writing = m_writings.findEdit(given.draft); writing && writing->dirty()) {
    m_sent[given.draft.id] = writing->typed();
    writing->setState(true, false);
  }
  m_decisions.skip(given);
}

bool DraftsStore::isDeciding(const QString& draftId) const { return m_decisions.isBusy(draftId); }

void DraftsStore::decided(const DraftDecisions::Undoable& decision) {
  const Draft& draft = decision.item.draft;
  const auto sent = m_sent.value(draft.id);
  if (Writing* writing = m_writings.findEdit(draft)) {
    writing->setState(false, false);
    // The service has it now; it is kept here for as long as it can come back.
    if (sent) writing->sent(*sent);
  }
  m_feedback.follow(draft.id, decision.approved && !sent && !m_styled.contains(draft.id));
}

void DraftsStore::returned(const ReviewDraft& item, DraftDecisions::Return how) {
  const QString& id = item.draft.id;
  if (Writing* writing = m_writings.findEdit(item.draft)) writing->setState(false, m_decisions.isUncertain(id));
  if (how == DraftDecisions::Return::failed) m_sent.remove(id);
  giveTexts();
  m_styled.remove(id);
  if (how != DraftDecisions::Return::failed) m_feedback.takeBack(id, how == DraftDecisions::Return::undone);
  m_undone = how == DraftDecisions::Return::undone;
  if (m_undone) setHistoryShown(false);
  showText();
}

/// What was made of drafts comes back with them, whatever brought them.
void DraftsStore::giveTexts() {
  for (const QString& id : m_sent.keys()) {
    const ReviewDraft* item = m_queue.find(id);
    if (!item || isDeciding(id)) continue;
    const auto sent = m_sent.take(id);
    if (!sent) continue;
    Writing* writing = m_writings.edit(item->draft, contactName(item->thread));
    if (!writing->dirty()) writing->setBody(sent->body);
  }
}

void DraftsStore::letGo(const Draft& draft) {
  if (m_decisions.isUncertain(draft.id)) return;
  m_sent.remove(draft.id);
  m_styled.remove(draft.id);
  m_styles.forget(draft.id);
}

void DraftsStore::settle(const Draft& draft, const std::optional<Draft>& now) {
  Writing* writing = m_writings.findEdit(draft);
  if (!writing) return;
  // A conversation need not name what was decided.
  const bool isKnown = now && !now->status.isEmpty();
  writing->setState(false, !isKnown);
  if (isKnown && now->body.trimmed() == writing->body().trimmed()) writing->sent(writing->typed());
}

void DraftsStore::late(const DraftDecisions::Undoable& decision, const Draft& now) {
  const Draft& draft = decision.item.draft;
  const auto sent = m_sent.value(draft.id);
  Writing* writing = m_writings.findEdit(draft);
  // Skipped, it takes its text along, whatever was decided before.
  if (writing && sent && !decision.approved) writing->sent(*sent);
  settle(draft, now);
  letGo(draft);
  m_queue.list()->load();
}

/// The last decision from here may have come through after all; else somebody else decided it, and what this person
/// made of it is nowhere else.
Task<void> DraftsStore::lostTask(ReviewDraft item) {
  const auto edit = m_writings.editOf(item.draft);
  if (!edit || m_lost.contains(item.draft.id)) co_return;
  m_lost.insert(item.draft.id);
  if (m_decisions.isUncertain(item.draft.id)) {
    const auto now = co_await m_decisions.readDraft(item.thread.id, item.draft.id);
    // It waits behind what the list shows.
    if (now && now->isWaiting()) {
      m_lost.remove(item.draft.id);
      co_return;
    }
    settle(item.draft, now);
    letGo(item.draft);
    const Writing* left = m_writings.findEdit(item.draft);
    if (!left || !left->dirty() || left->uncertain()) {
      services().toasts.show({.message = alreadyDecided()});
      co_return;
    }
  }
  services().toasts.show({.message = u"Somebody else decided the draft for "_s + shownName(contactName(item.thread)),
                          .actionLabel = u"Copy your edit"_s,
                          .action = [&services = services(), text = *edit] { services.clipboard.setText(text); }});
}

void DraftsStore::ensureLoaded() {
  Store::ensureLoaded();
  if (m_conversation) m_conversation->ensureLoaded();
  showText();
  Q_EMIT changed();
}

void DraftsStore::refresh() {
  Store::refresh();
  if (m_conversation) m_conversation->refresh();
}

void DraftsStore::close() {
  letGoOf(m_conversation);
  letGoOf(m_next);
  Store::close();
}

PagePlace DraftsStore::where() const { return {.tab = m_historyShown ? u"history"_s : QString()}; }

void DraftsStore::goTo(const PagePlace& place) { setHistoryShown(place.tab == "history"_L1); }

QList<PageAction> DraftsStore::offered(const QString& record) {
  if (!record.isEmpty()) return {};
  const bool reviews = !m_historyShown && m_queue.shown();
  const auto& done = m_decisions.done();
  const QString last = done.empty() ? QString() : done.back().item.draft.id;
  QList<PageAction> actions{{.key = u"approve"_s,
                             .title = approveText(),
                             .icon = u"document-send"_s,
                             .keys = u"Ctrl+Return"_s,
                             .inPalette = u"Approve the draft"_s,
                             .writes = true,
                             .possible = reviews && canApprove(),
                             .run = [this] { decideShown(true); }},
                            {.key = u"skip"_s,
                             .title = u"Skip"_s,
                             .icon = u"go-next"_s,
                             .keys = u"X"_s,
                             .inPalette = u"Skip the draft"_s,
                             .writes = true,
                             .possible = reviews,
                             .run = [this] { decideShown(false); }},
                            {.key = u"edit"_s,
                             .title = u"Edit the draft"_s,
                             .icon = u"document-edit"_s,
                             .keys = u"E"_s,
                             .writes = true,
                             .possible = reviews,
                             .run = [this] { Q_EMIT editRequested(); }},
                            {.key = u"next"_s,
                             .title = u"Next draft"_s,
                             .keys = u"J"_s,
                             .possible = reviews && m_queue.hasNext(),
                             .run = [this] { m_queue.goForward(); }},
                            {.key = u"previous"_s,
                             .title = u"Previous draft"_s,
                             .keys = u"K"_s,
                             .possible = reviews && m_queue.hasPrevious(),
                             .run = [this] { m_queue.goBack(); }},
                            {.key = u"chat"_s,
                             .title = u"Open the chat"_s,
                             .icon = u"mail-message"_s,
                             .keys = u"O"_s,
                             .possible = reviews,
                             .run = [this] { openChat(); }},
                            {.key = u"undo"_s,
                             .title = u"Undo the last decision"_s,
                             .icon = u"edit-undo"_s,
                             .keys = u"U"_s,
                             .writes = true,
                             .possible = !last.isEmpty(),
                             .run = [this, last] { m_decisions.undo(last); }},
                            {.key = u"history"_s,
                             .title = m_historyShown ? u"Back to drafts"_s : u"History"_s,
                             .icon = u"view-history"_s,
                             .keys = u"H"_s,
                             .run = [this] { setHistoryShown(!m_historyShown); }}};
  return actions + Store::offered(record);
}

}  // namespace orv
