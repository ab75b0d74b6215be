#include "app/inbox/ThreadList.h"

#include <QScopedValueRollback>

#include "app/base/EnumName.h"
#include "app/base/shownName.h"
#include "app/inbox/addresses.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/inbox/inboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

using Tab = ThreadFilter::Tab;

QString nameOf(Tab tab) { return tab == Tab::all ? u"all"_s : tab == Tab::unread ? u"unread"_s : u"archived"_s; }

Tab tabNamed(const QString& name, Tab otherwise) {
  for (const Tab tab : {Tab::all, Tab::unread, Tab::archived})
    if (nameOf(tab) == name) return tab;
  return otherwise;
}

void countLabel(QMap<QString, qint64>& counts, const InboxThread& thread, qint64 by) {
  const QString key = thread.label ? thread.label->rawValue : QString(ThreadFilter::unlabelled);
  if (counts.contains(key) || by > 0) counts[key] = std::max<qint64>(0, counts.value(key) + by);
}

/// What one conversation is in the counts of the inbox.
void countThread(ThreadPage::Counts& counts, const InboxThread& thread, qint64 by) {
  if (thread.isArchived()) return;
  const auto add = [by](qint64& count, bool counts) {
    if (counts) count = std::max<qint64>(0, count + by);
  };
  add(counts.total, true);
  add(counts.unread, thread.unread);
  add(counts.drafts, thread.pendingDrafts > 0);
  if (counts.byLabel) countLabel(*counts.byLabel, thread, by);
  if (!counts.byMailbox) return;
  for (auto& mailbox : *counts.byMailbox) add(mailbox.n, mailbox.id == thread.mailboxId);
}

}  // namespace

ThreadList::ThreadList(WorkspaceContext& context, Store* whole)
    : Store(context, whole),
      m_list(*this, [this](PageRequest page) { return readTask(std::move(page)); },
             {.failed = u"Couldn’t load the inbox"_s,
              .first = 50,
              .further = 50,
              .matches = [this](const ThreadRow& row) { return fits(row.record()); },
              .keepsLost = true}),
      m_labels(*this, [this] { return api().send(Requests::listReplyLabels()); }) {
  rows().setNow([this] { return services().clock.now(); });
  connect(&m_list, &ResourceBase::valueChanged, this, &ThreadList::take);
  connect(&m_list, &ResourceBase::changed, this, &ThreadList::countsChanged);
  connect(&m_labels, &ResourceBase::valueChanged, this, [this] {
    rows().setLabels(m_labels.value()->items);
    Q_EMIT labelsChanged();
    Q_EMIT countsChanged();
  });
  connect(&context, &WorkspaceContext::mailCame, this, &ThreadList::hear);
  connect(&context, &WorkspaceContext::unreadChanged, this, [this] {
    Q_EMIT countsChanged();
    // Whoever counts tells of the mail right after that.
    if (!m_isTelling) QMetaObject::invokeMethod(this, &ThreadList::hearUnread, Qt::QueuedConnection);
  });
}

Task<ThreadPage> ThreadList::readTask(PageRequest page) {
  ThreadPage answer = co_await api().send(Requests::listThreads(m_filter, page.cursor));
  // What a further one counts is not taken over.
  m_isCounted = m_isCounted || !page.cursor;
  co_return answer;
}

void ThreadList::hear(const QString& latestAt) {
  if (!m_list.isAsked() || m_newMail) return;
  // Whoever told it may have asked before the list was read.
  const auto latest = parsePlatformDate(latestAt);
  bool isRead = false;
  m_list.each([&](const ThreadRow& row) {
    const auto at = isRead || !latest ? std::nullopt : parsePlatformDate(row.record().lastInboundAt);
    isRead = isRead || (at && *at >= *latest);
  });
  if (isRead) return;
  m_newMail = true;
  Q_EMIT changed();
}

const InboxThread* ThreadList::find(const QString& id) const {
  const ThreadRow* row = m_list.find(id);
  return row ? &row->record() : nullptr;
}

bool ThreadList::fits(const InboxThread& thread) const {
  return thread.isArchived() == (m_filter.tab == Tab::archived) && !m_leaving.contains(thread.id);
}

void ThreadList::take() {
  tellUnread();
  Q_EMIT arrived();
}

/// A reading says how many there are; between two of them, what was done here is reckoned on to whatever others
/// learned.
void ThreadList::tellUnread() {
  const bool isReading = std::exchange(m_isCounted, false);
  const int count = unreadCount();
  if (count < 0) return;
  if (isReading && m_doubted == counts()->unread) m_doubted.reset();
  const int before = std::exchange(m_toldUnread, count);
  const QScopedValueRollback telling(m_isTelling, true);
  if (isReading || before < 0)
    context().setUnread(count);
  else if (count != before && context().unread())
    context().setUnread(std::max<qint64>(0, *context().unread() + count - before));
}

/// Somebody read elsewhere, or marked unread: where no mail explains another number, the list is not what it was.
void ThreadList::hearUnread() {
  const auto told = context().unread();
  if (!told || !counts() || m_newMail || *told == counts()->unread || *told == unreadCount()) return;
  if (std::exchange(m_doubted, told) != told) m_list.markStale();
}

const ThreadPage::Counts* ThreadList::counts() const {
  return m_list.head() && m_list.head()->counts ? &*m_list.head()->counts : nullptr;
}

void ThreadList::setShownRead(const QString& id, bool shown) {
  rows().setShownRead(id, shown);
  tellUnread();
  Q_EMIT countsChanged();
}

void ThreadList::ask(const ThreadFilter& filter) {
  if (m_filter == filter) return;
  m_filter = filter;
  m_newMail = false;
  m_list.ask();
  Q_EMIT changed();
  Q_EMIT countsChanged();
}

QString ThreadList::tabName() const { return nameOf(m_filter.tab); }

void ThreadList::setTab(const QString& name) {
  ThreadFilter filter = m_filter;
  filter.tab = tabNamed(name, m_filter.tab);
  ask(filter);
}

void ThreadList::setQuery(const QString& text) {
  if (std::exchange(m_typed, text) == text) return;
  m_typing.start(askTyped());
  Q_EMIT changed();
}

Task<void> ThreadList::askTyped() {
  co_await services().clock.sleep(typingRest);
  ThreadFilter filter = m_filter;
  filter.query = m_typed;
  // Blanks ask for nothing else.
  if (filter.queryItems() != m_filter.queryItems()) ask(filter);
}

void ThreadList::setLabel(const QString& key) {
  ThreadFilter filter = m_filter;
  filter.label = key.isEmpty() ? std::nullopt : std::optional(key);
  ask(filter);
}

void ThreadList::setMailbox(const QString& id) {
  ThreadFilter filter = m_filter;
  filter.mailbox = id.isEmpty() ? std::nullopt : std::optional(id);
  ask(filter);
}

void ThreadList::showAllIn(const QString& tab) {
  m_typed.clear();
  m_typing.cancel();
  ask({.tab = tabNamed(tab, m_filter.tab), .query = {}, .label = {}, .mailbox = {}});
}

bool ThreadList::filtered() const { return !m_filter.query.trimmed().isEmpty() || m_filter.label || m_filter.mailbox; }

QList<Choice> ThreadList::tabs() const {
  // The list may be behind what the badges show.
  const auto unread = context().unread();
  return {{.key = nameOf(Tab::all), .label = u"All"_s, .count = counts() ? saturated(counts()->total) : -1},
          {.key = nameOf(Tab::unread), .label = u"Unread"_s, .count = unread ? saturated(*unread) : unreadCount()},
          {.key = nameOf(Tab::archived), .label = u"Archived"_s},
          // A section of its own, to the page.
          {.key = ThreadFilter::drafts, .label = u"Drafts"_s, .count = draftCount()}};
}

int ThreadList::draftCount() const { return counts() ? saturated(counts()->drafts) : -1; }

int ThreadList::unreadCount() const {
  if (!counts()) return -1;
  qint64 count = counts()->unread;
  m_list.each([&](const ThreadRow& row) {
    if (row.record().unread && !row.record().isArchived() && rows().isShownRead(row.id)) --count;
  });
  return saturated(std::max<qint64>(0, count));
}

QList<Choice> ThreadList::labels() const {
  QList<Choice> choices{{.key = {}, .label = u"All statuses"_s, .detail = u"Every open conversation"_s},
                        {.key = ThreadFilter::drafts, .label = u"Draft ready"_s, .detail = u"An AI reply is waiting"_s},
                        {.key = ThreadFilter::unlabelled, .label = u"No status yet"_s}};
  return choices + labelsToSet();
}

QList<Choice> ThreadList::labelsToSet() const {
  const auto own = m_labels.value() ? m_labels.value()->items : QList<ReplyLabel>();
  const auto* byLabel = counts() && counts()->byLabel ? &*counts()->byLabel : nullptr;
  QList<Choice> choices;
  for (const ReplyLabel& label : replyLabels(own))
    choices.append({.key = label.key,
                    .label = shownName(label.title()),
                    .count = byLabel ? saturated(byLabel->value(label.key)) : -1});
  return choices;
}

ReplyLabel ThreadList::read(const ThreadLabel& label) const {
  return replyLabel(label, m_labels.value() ? m_labels.value()->items : QList<ReplyLabel>());
}

QList<Choice> ThreadList::mailboxes() const {
  QList<Choice> choices{{.key = {}, .label = u"Every mailbox"_s}};
  if (!counts() || !counts()->byMailbox) return choices;
  for (const auto& mailbox : *counts()->byMailbox)
    choices.append({.key = mailbox.id, .label = shownAddress(mailbox.address), .count = saturated(mailbox.n)});
  return choices;
}

QString ThreadList::neighbour(const QString& id, int by) const {
  const QStringList ids = m_list.shownIds();
  const qsizetype from = ids.indexOf(id);
  return from < 0 ? QString() : staying(ids, from + by, by);
}

QString ThreadList::first() const { return staying(m_list.shownIds(), 0, 1); }

/// What is on its way out may stand there for a moment longer.
QString ThreadList::staying(const QStringList& ids, qsizetype at, int by) const {
  while (m_leaving.contains(ids.value(at))) at += by;
  return ids.value(at);
}

void ThreadList::setLeaving(const QString& id, bool leaving) {
  if (leaving == m_leaving.contains(id)) return;
  if (leaving)
    m_leaving.insert(id);
  else
    m_leaving.remove(id);
  if (const ThreadRow* row = m_list.find(id)) m_list.put(InboxThread(row->record()));
}

void ThreadList::count(const InboxThread& before, const InboxThread& after) {
  m_list.amendHead([&](ThreadPage& head) {
    if (!head.counts) return;
    countThread(*head.counts, before, -1);
    countThread(*head.counts, after, 1);
  });
  tellUnread();
  Q_EMIT countsChanged();
}

void ThreadList::setWaiting(const InboxThread& thread, bool waits) {
  const InboxThread* listed = find(thread.id);
  InboxThread before = listed ? *listed : thread;
  if (!listed) before.pendingDrafts = waits ? 0 : 1;
  InboxThread after = before;
  after.pendingDrafts = waits ? std::max<qint64>(1, before.pendingDrafts) : 0;
  if (listed) m_list.put(after);
  count(before, after);
}

void ThreadList::ensureLoaded() {
  Store::ensureLoaded();
  // Whoever comes back wants to see what came meanwhile.
  if (m_newMail) refresh();
}

void ThreadList::showNewMail() {
  const bool isArchive = m_filter.tab == Tab::archived;
  if (filtered() || isArchive)
    showAllIn(isArchive ? nameOf(Tab::all) : tabName());
  else
    refresh();
}

void ThreadList::refresh() {
  m_list.load();
  if (std::exchange(m_newMail, false)) Q_EMIT changed();
}

void ThreadList::close() {
  Store::close();
  m_typing.cancel();
  m_polling.cancel();
}

void ThreadList::checkMail() {
  if (polling()) return;
  m_polling.start(checkMailTask());
  Q_EMIT changed();
}

Task<void> ThreadList::checkMailTask() {
  services().toasts.show({.message = u"Checking every mailbox now…"_s});
  bool isChecked = false;
  try {
    co_await api().send(Requests::checkMail());
    isChecked = true;
  } catch (const APIError& error) {
    services().toasts.failure(u"Couldn’t check for new replies."_s, error);
  }
  // It reads as ended once this has returned.
  QMetaObject::invokeMethod(this, &ThreadList::changed, Qt::QueuedConnection);
  if (!isChecked) co_return;
  m_syncedAt = services().clock.now();
  refresh();
}

}  // namespace orv
