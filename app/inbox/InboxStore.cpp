#include "app/inbox/InboxStore.h"

#include <QUrl>

#include "app/base/EnumName.h"
#include "app/base/shownName.h"
#include "app/inbox/DraftsStore.h"
#include "app/inbox/addresses.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

InboxStore::InboxStore(WorkspaceContext& context, Writings& writings, Store* drafts, Store* agent)
    : Store(context),
      m_writings(writings),
      m_drafts(drafts),
      m_agent(agent),
      m_threads(context, this),
      m_actions(context, this, m_threads, writings),
      m_campaigns(*this, [this] { return api().send(Requests::listCampaigns(false)); }) {
  connect(&m_threads, &ThreadList::arrived, this, &InboxStore::arrived);
  connect(&m_threads, &ThreadList::changed, this, &InboxStore::moved);
  connect(&m_threads, &ThreadList::countsChanged, this, &InboxStore::sectionsChanged);
  connect(&m_actions, &ThreadActions::busyChanged, this, &InboxStore::busyChanged);
  connect(&m_actions, &ThreadActions::readAgain, this, [this](const ThreadDetail& detail) {
    if (Conversation* there = m_kept.find(detail.thread.id)) there->take(detail);
  });
  // It was shut because it left, and nobody went on to another.
  connect(&m_actions, &ThreadActions::stayed, this, [this](const QString& threadId) {
    if (m_shut == threadId && m_openId.isEmpty() && isShown()) open(threadId);
  });
  connect(&m_actions, &ThreadActions::sent, this, [this](const QString& threadId) {
    Conversation* there = m_kept.find(threadId);
    if (there) there->setReplying(false);
    if (threadId == m_openId) Q_EMIT replySent();
  });
  connect(&m_campaigns, &ResourceBase::valueChanged, this, &InboxStore::tellWords);
  connect(&context, &WorkspaceContext::watchedChanged, this, [this] {
    if (this->context().isWatched() && isShown()) lookAtOpen();
  });
  context.changes().watch<Campaign>(this, [this](const Change<Campaign>& change) {
    if (change.acted) m_campaigns.markStale();
  });
  connect(&m_threads, &ThreadList::labelsChanged, this, &InboxStore::tellWords);
  if (auto* review = qobject_cast<DraftsStore*>(drafts)) {
    const DraftDecisions* decisions = review->decisions();
    connect(decisions, &DraftDecisions::changed, this, &InboxStore::busyChanged);
    connect(decisions, &DraftDecisions::decided, this,
            [this](const DraftDecisions::Undoable& decision) { countDraft(decision.item, false); });
    connect(decisions, &DraftDecisions::returned, this, [this](const ReviewDraft& item, DraftDecisions::Return how) {
      if (how != DraftDecisions::Return::failed) countDraft(item, true);
    });
  }
  connect(&writings, &Writings::changed, this, [this](const QString& threadId) {
    const Writing* reply = m_writings.findReply(threadId);
    m_threads.rows().setWritten(threadId, reply && reply->dirty());
  });
}

/// Labels and campaigns have other names than those that are shown.
void InboxStore::tellWords() {
  if (conversation()) Q_EMIT conversation()->changed();
  auto* review = qobject_cast<DraftsStore*>(m_drafts);
  if (!review) return;
  const QPointer inbox(this);
  review->setWords(
      {.label =
           [inbox](const ThreadLabel& label) { return inbox ? inbox->m_threads.read(label) : replyLabel(label, {}); },
       .campaign = [inbox](const QString& id) { return inbox ? inbox->campaignName(id) : QString(); }});
}

QString InboxStore::sectionName() const { return enumName(m_section); }

void InboxStore::setSection(const QString& name) {
  const auto section = enumNamed<Section>(name);
  if (!section || *section == m_section) return;
  if ((*section == Section::drafts && !m_drafts) || (*section == Section::agent && !m_agent)) return;
  m_section = *section;
  context().showing(Page::inbox, m_section == Section::conversations ? m_openId : QString());
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> InboxStore::sections() const {
  QList<Choice> sections{{.key = enumName(Section::conversations), .label = u"Conversations"_s}};
  if (m_drafts)
    sections.append({.key = enumName(Section::drafts), .label = u"Drafts"_s, .count = m_threads.draftCount()});
  if (m_agent) sections.append({.key = enumName(Section::agent), .label = u"Agent"_s});
  return sections;
}

Store* InboxStore::shownPart() const {
  return m_section == Section::drafts ? m_drafts : m_section == Section::agent ? m_agent : nullptr;
}

void InboxStore::ensureLoaded() {
  Store::ensureLoaded();
  m_threads.ensureLoaded();
  lookAtOpen();
}

/// What was read while the page was elsewhere counts as read from now on.
void InboxStore::lookAtOpen() {
  if (m_section != Section::conversations || !conversation()) return;
  if (m_unseen == m_openId && context().isWatched()) {
    m_unseen.clear();
    m_threads.setShownRead(m_openId, true);
  }
  conversation()->ensureLoaded();
  if (conversation()->detail()->value()) conversationRead(m_openId);
}

void InboxStore::refresh() {
  if (Store* part = shownPart()) return part->refresh();
  m_threads.refresh();
  if (conversation()) conversation()->refresh();
}

PagePlace InboxStore::where() const { return {.tab = sectionName(), .value = m_threads.query()}; }

void InboxStore::goTo(const PagePlace& place) {
  const bool isSection = enumNamed<Section>(place.tab).has_value();
  setSection(isSection ? place.tab : enumName(Section::conversations));
  if (!isSection && !place.tab.isEmpty()) {
    // A tab of the list: who is led there sees everything in it, and what has just come.
    m_threads.showAllIn(place.tab);
    if (m_threads.newMail()) m_threads.refresh();
  }
  if (m_section == Section::conversations) m_threads.setQuery(place.value);
  context().showing(Page::inbox, m_section == Section::conversations ? m_openId : QString());
}

void InboxStore::begin() {
  setSection(enumName(Section::conversations));
  context().showing(Page::inbox, m_openId);
}

void InboxStore::showRecord(const QString& id) {
  if (m_section == Section::conversations && id == m_openId) return lookAtOpen();
  setSection(enumName(Section::conversations));
  open(id);
}

QList<FoundRecord> InboxStore::found() const {
  QList<FoundRecord> records;
  const_cast<InboxStore*>(this)->m_threads.list()->each([&records](const ThreadRow& row) {
    records.append({row.id, contactOf(row.record()), row.record().subject});
  });
  return records;
}

bool InboxStore::deciding() const {
  const Draft* draft = conversation() ? conversation()->draft() : nullptr;
  return draft && desk() && desk()->isDeciding(draft->id);
}

int InboxStore::leadsWidth() const {
  const int width = services().preferences.inboxLeadsWidth();
  return width == 0 ? 0 : std::clamp(width, leastLeadsWidth, mostLeadsWidth);
}

void InboxStore::setLeadsWidth(int width) {
  services().preferences.setInboxLeadsWidth(std::clamp(width, leastLeadsWidth, mostLeadsWidth));
  Q_EMIT leadsWidthChanged();
}

void InboxStore::trim() {
  m_kept.keepOnly(m_openId);
  m_writings.trim();
  if (conversation()) conversation()->openWritings();
}

void InboxStore::close() {
  Store::close();
  // They go with this, and the page that shows one may go later than this is closed.
  for (const QString& id : m_kept.keys()) m_kept.find(id)->close();
}

QString InboxStore::campaignName(const QString& id) const {
  if (!m_campaigns.value()) return {};
  const auto& items = m_campaigns.value()->items;
  const auto found = std::ranges::find(items, id, &CampaignSummary::id);
  return found != items.end() ? found->name : QString();
}

Conversation* InboxStore::kept(const QString& id) {
  return m_kept.open(id, [this, &id] {
    auto* made = new Conversation(context(), id,
                                  {.writings = m_writings,
                                   .listed = [this](const QString& thread) -> std::optional<InboxThread> {
                                     const InboxThread* listed = m_threads.find(thread);
                                     return listed ? std::optional(*listed) : std::nullopt;
                                   },
                                   .label = [this](const ThreadLabel& label) { return m_threads.read(label); },
                                   .campaign = [this](const QString& campaign) { return campaignName(campaign); }});
    made->setParent(this);
    connect(made, &Conversation::threadRead, &m_threads, &ThreadList::count);
    connect(made->detail(), &ResourceBase::valueChanged, this, [this, id] { conversationRead(id); });
    return made;
  });
}

void InboxStore::open(const QString& id) {
  if (id.isEmpty()) return;
  if (id == m_openId) return conversation()->ensureLoaded();
  Conversation* before = conversation();
  const QStringList ids = m_threads.list()->shownIds();
  if (before && ids.indexOf(id) >= 0) m_direction = ids.indexOf(id) < ids.indexOf(m_openId) ? -1 : 1;
  Conversation* next = kept(id);
  next->appear();
  m_openId = id;
  m_unseen.clear();
  Q_EMIT openChanged();
  if (before) letGo(*before);
  m_threads.setShownRead(id, true);
  next->ensureLoaded();
  if (next->detail()->value()) conversationRead(id);
  context().showing(Page::inbox, id);
  Q_EMIT busyChanged();
}

void InboxStore::letGo(Conversation& left) {
  // What nobody waits for any more is read when they come back, and counts as read no sooner.
  if (!left.detail()->value()) {
    left.detail()->cancel();
    left.detail()->markStale();
    m_threads.setShownRead(left.id(), false);
  }
  left.disappear();
}

void InboxStore::step(int by) { open(next(by)); }

QString InboxStore::next(int by) const {
  // The open one may have left the list, or never have been in it.
  const bool isListed = m_threads.rows().rowOf(m_openId) >= 0;
  return isListed ? m_threads.neighbour(m_openId, by) : m_threads.first();
}

void InboxStore::conversationRead(const QString& id) {
  if (id != m_openId) return;
  const Conversation& open = *conversation();
  const InboxThread* thread = open.thread();
  if (thread->unread && m_threads.rows().isShownRead(id) && canWrite() && isShown()) {
    if (context().isWatched()) {
      m_actions.markRead(*thread);
    } else if (!m_actions.isMarkingRead(id)) {
      m_unseen = id;
      m_threads.setShownRead(id, false);
    }
  }
  readAhead();
  Q_EMIT busyChanged();
}

void InboxStore::readAhead() {
  const QString next = m_threads.neighbour(m_openId, m_direction);
  if (!next.isEmpty()) kept(next)->ensureLoaded();
}

void InboxStore::arrived() {
  const QStringList keys = m_kept.keys();
  for (const QString& id : keys) {
    const InboxThread* listed = m_threads.find(id);
    if (listed) m_kept.find(id)->follow(*listed);
  }
  // The service knows by now; what is unread there has come since.
  const QSet<QString> shownRead = m_threads.rows().shownRead();
  for (const QString& id : shownRead)
    if (id != m_openId && !m_actions.isMarkingRead(id)) m_threads.setShownRead(id, false);
  Q_EMIT foundChanged();
}

void InboxStore::setLabel(const QString& key) {
  const InboxThread* thread = conversation() ? conversation()->thread() : nullptr;
  if (thread && canWrite() && m_actions.labelOf(*thread) != key) m_actions.setLabel(*thread, key);
}

void InboxStore::leave(const InboxThread& thread, bool archives) {
  const bool isOpen = thread.id == m_openId;
  const bool goesOut = archives != (m_threads.filter().tab == ThreadFilter::Tab::archived);
  QString other;
  if (isOpen && goesOut) {
    other = next(1);
    if (other.isEmpty()) other = next(-1);
  }
  // Open, it would be taken back at once by the same key.
  const bool isLast = isOpen && goesOut && other.isEmpty();
  m_shut = isLast ? thread.id : QString();
  if (archives)
    m_actions.archive(thread);
  else
    m_actions.moveToInbox(thread);
  isLast ? shut() : open(other);
}

void InboxStore::shut() {
  Conversation* before = conversation();
  m_openId.clear();
  Q_EMIT openChanged();
  if (before) letGo(*before);
  context().showing(Page::inbox, {});
  Q_EMIT busyChanged();
}

void InboxStore::startReply() {
  if (!conversation()) return;
  conversation()->setReplying(true);
  Q_EMIT replyWanted();
}

void InboxStore::send() {
  const InboxThread* thread = conversation() ? conversation()->thread() : nullptr;
  if (thread && canWrite()) m_actions.send(*thread, conversation()->detail()->value(), conversation()->hasDraft());
}

void InboxStore::decide(bool approves) {
  const Draft* draft = conversation() ? conversation()->draft() : nullptr;
  if (!draft || !desk()) return;
  ReviewDraft item{*draft, *conversation()->thread()};
  // The review may have read a newer one, which is what is shown here.
  if (const Writing* edit = conversation()->edit()) item.draft.body = edit->begunFor().value_or(draft->body);
  conversation()->setEditing(false);
  if (approves)
    desk()->approve(item);
  else
    desk()->skip(item);
  Q_EMIT busyChanged();
}

void InboxStore::countDraft(const ReviewDraft& item, bool waits) {
  auto* review = qobject_cast<DraftsStore*>(m_drafts);
  if (!review->queue()->hasBeside(item)) m_threads.setWaiting(item.thread, waits);
}

void InboxStore::openLink(const QString& url) {
  if (!services().browser.open(QUrl(url)))
    services().toasts.show({.message = u"Couldn’t open the link."_s, .tone = Toasts::Tone::error});
}

void InboxStore::copyAddress() {
  const InboxThread* thread = conversation() ? conversation()->thread() : nullptr;
  if (!thread) return;
  if (services().clipboard.setText(thread->contactAddress))
    services().toasts.success(u"Copied"_s);
  else
    services().toasts.show(
        {.message = u"Couldn’t copy. Select the address and copy it."_s, .tone = Toasts::Tone::error});
}

}  // namespace orv
