#include "app/inbox/DraftQueue.h"

#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const ReviewDraft* findIn(const QList<ReviewDraft>& items, const QString& draftId) {
  const auto found = std::ranges::find_if(items, [&](const ReviewDraft& item) { return item.draft.id == draftId; });
  return found == items.end() ? nullptr : &*found;
}

bool has(const QList<ReviewDraft>& items, const QString& draftId) { return findIn(items, draftId) != nullptr; }

}  // namespace

DraftQueue::DraftQueue(WorkspaceContext& context, Store* whole, DraftDecisions& decisions, const Writings& writings)
    : Store(context, whole),
      m_decisions(decisions),
      m_writings(writings),
      m_list(*whole, [this] { return loadTask(); },
             {.failed = u"Couldn’t load your drafts"_s, .isEmpty = [this](const ReviewDraftPage& page) {
                const bool isNone = std::ranges::all_of(
                    page.items, [this](const ReviewDraft& item) { return m_decisions.isGone(item.draft.id); });
                return isNone && !(shown() && isTyped(*shown()));
              }}) {
  connect(&m_list, &ResourceBase::valueChanged, this, &DraftQueue::arrange);
  connect(&m_list, &ResourceBase::changed, this, &DraftQueue::changed);
  connect(&decisions, &DraftDecisions::changed, this, [this] {
    // Told each second while a countdown runs; the list is other than before now and then.
    const int kept = m_kept.isEmpty() || m_decisions.isGone(m_kept) ? 0 : 1;
    if (m_list.value() && visible().size() + kept != m_visible.size()) m_list.amend([](ReviewDraftPage&) {});
  });
  connect(&decisions, &DraftDecisions::decided, this, [this] {
    // A reading under way may not know of it.
    if (m_list.refreshing() || m_visible.size() < few) m_list.load();
  });
  connect(&decisions, &DraftDecisions::returned, this, &DraftQueue::takeBack);
  connect(&context, &WorkspaceContext::mailCame, this, [this] { m_tasks.start(mailTask()); });
  context.changes().watch<Draft>(this, [this](const Change<Draft>& change) { follow(change); });
}

Task<ReviewDraftPage> DraftQueue::loadTask() {
  const QSet<QString> settled = m_decisions.settled();
  Q_EMIT asked();
  ReviewDraftPage page = co_await api().send(Requests::listDrafts(words::draftPending));
  m_settledWhenAsked = settled;
  co_return page;
}

/// The agent answers what comes, a little later.
Task<void> DraftQueue::mailTask() {
  m_list.markStale();
  co_await services().clock.sleep(writing);
  m_list.markStale();
}

void DraftQueue::expect(int conversations) {
  const ReviewDraftPage* page = m_list.value();
  if (!page || page->nextCursor || std::exchange(m_expected, conversations) == conversations) return;
  QSet<QString> known;
  for (const ReviewDraft& item : page->items) known.insert(item.draft.threadId);
  if (conversations > known.size()) m_list.markStale();
}

/// Once the list shows it: what is no longer hidden must not come up in the list before.
void DraftQueue::tellDecisions(const QList<ReviewDraft>& before) {
  const auto settled = std::exchange(m_settledWhenAsked, std::nullopt);
  if (!settled) return;
  const ReviewDraftPage& page = *m_list.value();
  QSet<QString> ids;
  for (const ReviewDraft& item : page.items) ids.insert(item.draft.id);
  // Of a list that goes on nobody can tell what has left it.
  if (!page.nextCursor)
    for (const ReviewDraft& item : before)
      if (!ids.contains(item.draft.id) && !m_decisions.isGone(item.draft.id)) Q_EMIT lost(item);
  m_decisions.waiting(ids, *settled);
  Q_EMIT heard();
}

QList<ReviewDraft> DraftQueue::visible() const {
  QList<ReviewDraft> items = m_list.value() ? m_list.value()->items : QList<ReviewDraft>();
  items.removeIf([this](const ReviewDraft& item) { return m_decisions.isGone(item.draft.id); });
  return items;
}

bool DraftQueue::isTyped(const ReviewDraft& item) const {
  return !m_decisions.isGone(item.draft.id) && m_writings.editOf(item.draft);
}

void DraftQueue::keepTyped(QList<ReviewDraft>& before) {
  const ReviewDraft* shown = findIn(before, m_picked);
  const bool isKept = shown && !has(m_visible, m_picked) && isTyped(*shown);
  const bool wasOver = isKept && m_isOver;
  m_kept = isKept ? m_picked : QString();
  // Of a list that goes on nobody can tell what has left it.
  m_isOver = isKept && !m_list.value()->nextCursor;
  if (isKept) m_visible.insert(std::min(m_at, m_visible.size()), *shown);
  // It has been told.
  if (wasOver) before.removeIf([this](const ReviewDraft& item) { return item.draft.id == m_kept; });
}

void DraftQueue::arrange() {
  QList<ReviewDraft> before = std::exchange(m_visible, visible());
  keepTyped(before);
  const QString shownBefore = m_picked;
  qsizetype at = -1;
  for (qsizetype row = 0; row < m_visible.size(); ++row)
    if (m_visible[row].draft.id == m_picked) at = row;
  // What was shown is gone: the one that came after it, else the one before.
  m_at = at >= 0 ? at : std::clamp<qsizetype>(m_at, 0, std::max<qsizetype>(0, m_visible.size() - 1));
  m_picked = m_visible.isEmpty() ? QString() : m_visible[m_at].draft.id;
  const auto now = m_visible.isEmpty() ? std::nullopt : std::optional(m_visible[m_at]);
  const bool isOther = std::exchange(m_told, now) != now;
  Q_EMIT changed();
  if (isOther) Q_EMIT shownChanged();
  const bool isReplaced = !shownBefore.isEmpty() && m_picked != shownBefore && !m_decisions.isGone(shownBefore);
  if (isReplaced && !m_picked.isEmpty()) Q_EMIT replaced();
  if (m_list.value()) tellDecisions(before);
}

const ReviewDraft* DraftQueue::find(const QString& draftId) const { return findIn(m_visible, draftId); }

bool DraftQueue::hasBeside(const ReviewDraft& item) const {
  return std::ranges::any_of(visible(), [&](const ReviewDraft& each) {
    return each.draft.threadId == item.draft.threadId && each.draft.id != item.draft.id;
  });
}

const ReviewDraft* DraftQueue::next() const {
  const qsizetype at = m_forward ? m_at + 1 : m_at - 1;
  return at >= 0 && at < m_visible.size() ? &m_visible[at] : nullptr;
}

QString DraftQueue::positionText() const {
  if (m_visible.isEmpty() || isOver()) return {};
  return u"%1 of %2 waiting"_s.arg(m_at + 1).arg(m_visible.size());
}

void DraftQueue::go(int by) {
  const qsizetype at = m_at + by;
  if (at < 0 || at >= m_visible.size()) return;
  m_forward = by > 0;
  pick(m_visible[at].draft.id);
}

void DraftQueue::pick(const QString& draftId) {
  m_picked = draftId;
  arrange();
}

void DraftQueue::leave() {
  m_picked.clear();
  // It may have been the last that there was to show.
  m_list.amend([](ReviewDraftPage&) {});
}

void DraftQueue::takeBack(const ReviewDraft& item, DraftDecisions::Return how) {
  if (m_list.value()) {
    const bool isListed = has(m_list.value()->items, item.draft.id);
    m_list.update([&](ReviewDraftPage& page) {
      for (ReviewDraft& each : page.items)
        if (each.draft.id == item.draft.id) each.draft = item.draft;
      // Read again meanwhile. Where it stands the service says at once.
      if (!isListed) page.items.insert(std::min(m_at, page.items.size()), item);
    });
    if (!isListed || how == DraftDecisions::Return::failed) m_list.load();
  }
  if (how == DraftDecisions::Return::undone) pick(item.draft.id);
}

/// Somebody decided in another place, or the agent wrote it anew.
void DraftQueue::follow(const Change<Draft>& change) {
  if (m_decisions.isGone(change.id)) return;
  using Kind = Change<Draft>::Kind;
  // What is being read for the first time may be older as well.
  if (change.kind == Kind::stale) return m_list.markStale();
  if (!m_list.value()) return;
  const bool isWaiting = change.kind == Kind::is && change.record->isWaiting();
  if (!has(m_list.value()->items, change.id)) {
    if (isWaiting) m_list.markStale();
    return;
  }
  m_list.update([&](ReviewDraftPage& page) {
    if (!isWaiting) page.items.removeIf([&](const ReviewDraft& item) { return item.draft.id == change.id; });
    for (ReviewDraft& item : page.items)
      if (item.draft.id == change.id) item.draft = *change.record;
  });
}

}  // namespace orv
