#include "app/shell/Notifier.h"

#include <QLoggingCategory>
#include <QScopeGuard>
#include <limits>

#include "app/base/Poll.h"
#include "app/base/WorkspaceContext.h"
#include "app/base/shownName.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/analytics/dashboard.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxThread.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Q_LOGGING_CATEGORY(lcNotifier, "orvella.notifier")

const auto repliesKind = u"replies"_s;
/// Where nobody has written yet, the first who does is news, however this computer's clock goes.
const auto beforeAll = u"1970-01-01T00:00:00Z"_s;

/// What counts as a good reply.
const QStringList goodLabels{u"interested"_s, u"meeting_booked"_s};

QString idOf(const QString& kind, const QString& slug, const QString& item) { return kind + u'/' + slug + u'/' + item; }

QString whoIs(const InboxThread& thread) {
  const QString name = thread.contactName.value_or(QString());
  return shownName(name.trimmed().isEmpty() ? thread.contactAddress : name);
}

QString whatFailed(const Mailbox& mailbox) {
  const auto error = mailbox.connection ? mailbox.connection->lastError : std::nullopt;
  return shownName(error.value_or(mailbox.pausedReason.value_or(u"Reconnect it to go on sending."_s)));
}

}  // namespace

Notifier::Notifier(Clock& clock, Preferences& preferences, Navigator& navigator, Notifications* notifications,
                   std::function<Task<UnreadCounts>()> counts, QObject* parent)
    : QObject(parent),
      m_clock(clock),
      m_preferences(preferences),
      m_navigator(navigator),
      m_notifications(notifications),
      m_counts(std::move(counts)) {
  if (m_notifications) connect(m_notifications, &Notifications::followed, this, &Notifier::follow);
}

Notifier::~Notifier() {
  // A notification that leads nowhere any more must not stay behind.
  for (const QString& id : m_shown.keys()) withdraw(id);
}

void Notifier::begin() {
  m_begun = true;
  look();
}

void Notifier::enter(Context context) {
  if (m_context == context) return;
  m_beat.cancel();
  m_context = std::move(context);
  m_context->setWatched(m_watched);
  m_watcher = std::make_unique<QObject>();
  connect(m_context.get(), &WorkspaceContext::unreadChanged, m_watcher.get(), [this] {
    m_overtaken = true;
    Q_EMIT changed();
  });
  connect(m_context.get(), &WorkspaceContext::attentionChanged, m_watcher.get(), [this] { Q_EMIT changed(); });
  const QString slug = m_context->workspace().slug;
  m_context->changes().watch<InboxThread>(m_watcher.get(), [this, slug](const Change<InboxThread>& change) {
    const bool isSeen = change.record ? !change.record->unread : change.kind == Change<InboxThread>::Kind::gone;
    if (isSeen) replySeen(slug, change.id);
  });
  Q_EMIT changed();
  look();
}

void Notifier::leave() {
  m_beat.cancel();
  m_watcher.reset();
  m_context.reset();
  for (const QString& id : m_shown.keys()) withdraw(id);
  m_unread.clear();
  m_latest.clear();
  m_failed.clear();
  m_told.clear();
  Q_EMIT changed();
}

void Notifier::setActive(bool active) {
  m_active = m_watched = active;
  if (m_context) m_context->setWatched(active);
  if (active) look();
}

QVariantMap Notifier::unread() const {
  QVariantMap counts;
  for (const auto& [slug, count] : m_unread.asKeyValueRange()) counts.insert(slug, count);
  if (m_context && m_context->unread()) counts.insert(m_context->workspace().slug, *m_context->unread());
  return counts;
}

int Notifier::attention() const { return m_context ? saturated(m_context->attention()) : 0; }

void Notifier::look() {
  if (m_begun && m_context && !m_looking) m_beat.start(beat());
}

Task<void> Notifier::beat() {
  const Context context = m_context;
  co_await lookOnce(context);
  co_await poll(m_clock, {interval, std::numeric_limits<int>::max()}, [this, context] { return lookOnce(context); });
}

Task<bool> Notifier::lookOnce(Context context) {
  m_looking = true;
  const auto done = qScopeGuard([this] { m_looking = false; });
  const QString slug = context->workspace().slug;
  try {
    m_overtaken = false;
    const UnreadCounts counts = co_await m_counts();
    take(counts, *context);
    const auto here = std::ranges::find(counts.workspaces, slug, &UnreadCounts::Workspace::slug);
    if (here == counts.workspaces.end()) {
      const ThreadPage page = co_await context->api().send(Requests::unreadThreads());
      if (page.counts && !m_overtaken) context->setUnread(page.counts->unread);
    } else {
      co_await lookForReplies(context, here->latestAt.value_or(QString()));
    }
    co_await lookForFailures(context);
  } catch (const APIError& error) {
    // The next time, a minute from now.
    qCInfo(lcNotifier, "News could not be read: %s", qPrintable(error.description()));
  }
  co_return false;
}

void Notifier::take(const UnreadCounts& counts, WorkspaceContext& context) {
  m_unread.clear();
  for (const auto& workspace : counts.workspaces) {
    m_unread.insert(workspace.slug, workspace.unread);
    if (workspace.slug == context.workspace().slug && !m_overtaken) context.setUnread(workspace.unread);
  }
  Q_EMIT changed();
}

Task<void> Notifier::lookForReplies(Context context, QString latestAt) {
  const QString slug = context->workspace().slug, since = m_preferences.notifySince(slug);
  const bool moved = m_latest.contains(slug) && m_latest.value(slug) != latestAt;
  if (moved) Q_EMIT context->mailCame(latestAt);
  const bool isNew = !since.isEmpty() && !latestAt.isEmpty() && since != latestAt;
  if (isNew && m_preferences.positiveReplies()) {
    QList<InboxThread> replies;
    for (const QString& label : goodLabels)
      replies += (co_await context->api().send(Requests::newReplies(label, since))).items;
    tell(newsOf(replies, slug), {idOf(repliesKind, slug, {}), u"%1 new positive replies"_s, {.tab = u"unread"_s}});
  }
  if (isNew || since.isEmpty()) m_preferences.setNotifySince(slug, latestAt.isEmpty() ? beforeAll : latestAt);
  m_latest[slug] = latestAt;
}

QList<Notifier::News> Notifier::newsOf(const QList<InboxThread>& replies, const QString& slug) {
  QList<News> news;
  for (const InboxThread& thread : replies) {
    const QString message = thread.id + u' ' + thread.lastInboundAt.value_or(QString());
    if (m_told.contains(message)) continue;
    m_told.insert(message);
    const QString name = whoIs(thread);
    const QString what = thread.label ? thread.label->title() : QString();
    const QStringList body{shownName(thread.subject), shownName(thread.snippet.value_or(QString()))};
    news.append({{.id = idOf(u"reply"_s, slug, thread.id),
                  .title = name + u" · "_s + what,
                  .body = body.join(u'\n').trimmed(),
                  .category = u"email.arrived"_s},
                 {slug, Page::inbox, thread.id},
                 name});
  }
  return news;
}

Task<void> Notifier::lookForFailures(Context context) {
  const QString slug = context->workspace().slug;
  const Dashboard dashboard = co_await context->api().send(Requests::dashboard());
  if (!dashboard.inbox) co_return;
  context->setFailedAccounts(dashboard.inbox->failed);
  if (!m_preferences.accountErrors()) co_return;
  const QStringList known = m_preferences.failedAccounts(slug);
  const qint64 before = m_failed.value(slug, known.size());
  const qint64 failed = dashboard.inbox->failed;
  if (failed > before) {
    QList<News> news;
    QStringList ids;
    const Stamp asked = context->changes().stamp();
    for (const Mailbox& mailbox : co_await failedAccounts(context)) {
      ids.append(mailbox.id);
      // The list that the notification leads to may be of before.
      context->changes().publish(mailbox, asked, false);
      if (known.contains(mailbox.id)) continue;
      const QString address = shownName(mailbox.address);
      news.append({{.id = idOf(u"account"_s, slug, mailbox.id),
                    .title = address + u" failed"_s,
                    .body = whatFailed(mailbox),
                    .category = u"network.error"_s},
                   {slug, Page::accounts, mailbox.id},
                   address});
    }
    tell(news, {idOf(u"accounts"_s, slug, {}), u"%1 accounts failed"_s, {.tab = u"failed"_s}});
    m_preferences.setFailedAccounts(slug, ids);
  } else if (failed == 0 && !known.isEmpty()) {
    // One that fails again is told again.
    m_preferences.setFailedAccounts(slug, {});
    const auto shown = m_shown;
    for (const auto& [id, target] : shown.asKeyValueRange())
      if (target.page == Page::accounts && target.slug == slug) withdraw(id);
  }
  m_failed[slug] = failed;
}

Task<QList<Mailbox>> Notifier::failedAccounts(Context context) {
  QList<Mailbox> failed;
  std::optional<QString> cursor;
  do {
    const MailboxPage page = co_await context->api().send(Requests::listMailboxes(false, cursor));
    for (const Mailbox& mailbox : page.items)
      if (mailbox.status.isFailed()) failed.append(mailbox);
    // A service that stays on one page would keep this going for ever.
    cursor = page.nextCursor == cursor ? std::nullopt : page.nextCursor;
  } while (cursor);
  co_return failed;
}

void Notifier::tell(QList<News> news, const Summary& summary) {
  news.removeIf([this](const News& one) { return isOnScreen(one.target); });
  if (news.size() <= toldSingly) {
    for (const News& one : news) show(one);
    return;
  }
  QStringList names;
  // It takes the place of the last one, whose items nothing else tells of any more.
  const Target& first = news.first().target;
  Target target{first.slug, first.page, {}, summary.place, m_shown.value(summary.id).items};
  for (const News& one : news) {
    names.append(one.name);
    target.items.insert(one.target.item);
  }
  Notifications::Notice notice = news.first().notice;
  notice.id = summary.id;
  notice.title = summary.title.arg(news.size());
  notice.body = names.join(u", "_s);
  show({notice, target, {}});
}

void Notifier::show(const News& news) {
  if (!m_notifications) return;
  m_shown.insert(news.notice.id, news.target);
  m_notifications->show(news.notice);
}

bool Notifier::isOnScreen(const Target& target) const {
  return m_active && m_navigator.workspace() == target.slug && !target.item.isEmpty() &&
         m_navigator.openedItem(target.page) == target.item;
}

void Notifier::withdraw(const QString& id) {
  if (m_shown.remove(id) && m_notifications) m_notifications->withdraw(id);
}

void Notifier::replySeen(const QString& slug, const QString& threadId) {
  withdraw(idOf(u"reply"_s, slug, threadId));
  const QString summary = idOf(repliesKind, slug, {});
  const auto told = m_shown.find(summary);
  if (told == m_shown.end()) return;
  told->items.remove(threadId);
  if (told->items.isEmpty()) withdraw(summary);
}

void Notifier::follow(const QString& id, const QString& token) {
  Q_EMIT followed(token);
  const auto found = m_shown.constFind(id);
  // Of an earlier sign-in, or an earlier run: it leads to the window and nowhere else.
  if (found == m_shown.cend() || !m_context) return;
  const Target target = *found;
  m_shown.remove(id);
  m_navigator.openWorkspace(target.slug);
  if (m_navigator.workspace() != target.slug) return;
  if (!target.item.isEmpty())
    m_navigator.openItem(target.page, target.item);
  else if (onPlaceAsked)
    onPlaceAsked(target.page, target.place);
  else
    m_navigator.open(target.page);
}

}  // namespace orv
