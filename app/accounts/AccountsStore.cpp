#include "app/accounts/AccountsStore.h"

#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

struct Campaign;
namespace {

const auto archivedTab = u"archived"_s;

}  // namespace

AccountsStore::AccountsStore(WorkspaceContext& context, AccountActions& actions)
    : Store(context),
      m_actions(actions),
      m_list(*this, [this](const PageRequest& page) { return readPage(false, page); },
             {.failed = u"Couldn’t load accounts"_s,
              .whole = true,
              .matches = [this](const AccountRow& row) { return m_filter.matches(row); }}),
      m_archived(
          *this, [this](const PageRequest& page) { return readPage(true, page); },
          {.failed = u"Couldn’t load archived accounts"_s, .whole = true, .loadsByItself = false, .isArchive = true}),
      m_bulk(
          *this, m_selection, [this] { return knownTags(); },
          [this](const AccountBulk::Ended& ended) { bulkEnded(ended); }),
      m_adding(context, actions, this) {
  connect(&m_list, &ResourceBase::valueChanged, this, &AccountsStore::arrived);
  for (ResourceBase* list : {static_cast<ResourceBase*>(&m_list), static_cast<ResourceBase*>(&m_archived)})
    connect(list, &ResourceBase::changed, this, &AccountsStore::countsChanged);
  connect(&actions, &AccountActions::busyChanged, this, &AccountsStore::busyChanged);
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (change.kind == Change<Mailbox>::Kind::gone) countArchived(1);
  });
  context.changes().watch<Archived<Mailbox>>(this, [this](const Change<Archived<Mailbox>>& change) {
    if (change.kind == Change<Archived<Mailbox>>::Kind::gone) countArchived(-1);
  });
}

Task<MailboxPage> AccountsStore::readPage(bool archived, PageRequest page) {
  MailboxPage read = co_await api().send(Requests::listMailboxes(archived, page.cursor));
  read.items.removeIf([](const Mailbox& mailbox) { return mailbox.isPool(); });
  co_return read;
}

void AccountsStore::setFilter(const QString& status) {
  AccountQuery query = m_query;
  query.status = status;
  ask(query);
}

void AccountsStore::setProvider(const QString& provider) {
  AccountQuery query = m_query;
  query.provider = provider;
  ask(query);
}

void AccountsStore::setQuery(const QString& text) {
  AccountQuery query = m_query;
  query.text = text;
  ask(query);
}

void AccountsStore::showAll() { ask({}); }

void AccountsStore::ask(const AccountQuery& query) {
  if (std::exchange(m_query, query) == query) return;
  m_filter = AccountFilter(query);
  m_list.arrange();
  Q_EMIT changed();
  Q_EMIT moved();
}

void AccountsStore::sort(const QString& key, bool descending) {
  m_sort = sortBy(key, descending);
  m_list.setOrder(accountOrder(m_sort));
  Q_EMIT changed();
}

void AccountsStore::sortArchived(const QString& key, bool descending) {
  m_archivedSort = sortBy(key, descending);
  m_archived.setOrder(accountOrder(m_archivedSort));
  Q_EMIT changed();
}

void AccountsStore::setShowArchived(bool shown) {
  if (std::exchange(m_showArchived, shown) == shown) return;
  if (shown) m_archived.ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

QList<Choice> AccountsStore::statusCounts() const {
  const bool isKnown = m_list.head() != nullptr;
  const auto counted = [&](const QString& word, const QString& label) {
    return Choice{.key = word, .label = label, .count = isKnown ? m_figures.byStatus.value(word) : -1};
  };
  QList<Choice> segments{{.key = {}, .label = u"All"_s, .count = isKnown ? int(m_figures.accounts) : -1}};
  // How many there are is reckoned here, for the service counts the pool as well.
  QSet<QString> words;
  if (isKnown && m_list.head()->counts)
    for (const auto& [word, count] : m_list.head()->counts->asKeyValueRange()) words.insert(word);
  for (const auto& [word, count] : m_figures.byStatus.asKeyValueRange()) words.insert(word);
  if (!m_query.status.isEmpty()) words.insert(m_query.status);
  for (const auto& known : {u"active"_s, u"paused"_s, u"verifying"_s, u"failed"_s, u"disabled"_s})
    if (words.remove(known)) segments.append(counted(known, MailboxStatus(known).label()));
  QStringList others(words.begin(), words.end());
  others.sort();
  for (const QString& word : others) segments.append(counted(word, MailboxStatus(word).label()));
  return segments;
}

QList<Choice> AccountsStore::providers() {
  QList<Choice> choices{{.key = {}, .label = u"All providers"_s}};
  for (const auto brand : {MailboxBrand::google, MailboxBrand::microsoft, MailboxBrand::smtp})
    choices.append({.key = brandWord(brand), .label = brandName(brand)});
  return choices;
}

int AccountsStore::archivedCount() const {
  return m_list.head() && m_list.head()->archivedCount ? saturated(*m_list.head()->archivedCount) : -1;
}

QString AccountsStore::summary() const {
  // Before the first load "0 connected" would be a claim that nobody checked.
  if (!m_list.head() || m_figures.accounts == 0) return {};
  return Format::grouped(m_figures.accounts) + u" connected · "_s + Format::grouped(m_figures.usable) +
         u" accounts campaigns can use today · "_s + Format::grouped(m_figures.sent) + u" of "_s +
         Format::grouped(m_figures.limit) + u" campaign emails of today’s limit"_s;
}

QString AccountsStore::attention() const {
  return m_figures.attention > 0 ? Format::grouped(m_figures.attention) + u" need attention"_s : QString();
}

QString AccountsStore::countText() const {
  if (!m_list.head() || m_list.asksAnew()) return {};
  const int read = m_list.readCount();
  QString text = countedAccounts(read);
  if (!m_query.isAll()) text = Format::grouped(m_list.shownCount()) + u" of "_s + text;
  if (!m_list.canLoadMore()) return text;
  text += u" read so far"_s;
  qint64 all = 0;
  if (m_list.head()->counts)
    for (const auto& [word, count] : m_list.head()->counts->asKeyValueRange()) all += count;
  return all > read ? text + u" · "_s + QString::number(100LL * read / all) + u'%' : text;
}

QString AccountsStore::archivedCountText() const {
  if (!m_archived.head()) return {};
  const int count = m_archived.readCount();
  return Format::counted(count, u"archived account"_s, u"archived accounts"_s) +
         (m_archived.canLoadMore() ? u" read so far"_s : QString());
}

QString AccountsStore::addHint() const { return canWrite() ? QString() : u"Only members can add accounts."_s; }

void AccountsStore::refresh() { m_showArchived ? m_archived.load() : m_list.load(); }

PagePlace AccountsStore::where() const {
  return {.tab = m_showArchived ? archivedTab : QString(), .value = m_showArchived ? QString() : m_query.text};
}

void AccountsStore::goTo(const PagePlace& place) {
  setShowArchived(place.tab == archivedTab);
  if (m_showArchived) return;
  // Who is led to those of a status sees them all, whatever the list was narrowed to before.
  AccountQuery query = place.tab.isEmpty() ? m_query : AccountQuery{.status = place.tab};
  query.text = place.value;
  ask(query);
}

void AccountsStore::open(const QString& id) { context().openItem(Page::accounts, id); }

QList<Choice> AccountsStore::knownTags() const {
  QMap<QString, int> counts;
  m_list.each([&counts](const AccountRow& row) {
    for (const QString& tag : row.record().tags.value_or(QList<QString>())) ++counts[tag];
  });
  QList<Choice> tags;
  for (const auto& [tag, count] : counts.asKeyValueRange()) tags.append({.key = tag, .label = tag, .count = count});
  return tags;
}

void AccountsStore::arrived() {
  m_figures = {};
  m_list.each([this](const AccountRow& row) {
    const Mailbox& mailbox = row.record();
    ++m_figures.accounts;
    m_figures.usable += mailbox.sendReady && mailbox.sendReady->ready;
    m_figures.sent += mailbox.sentToday();
    m_figures.limit += mailbox.limitToday().value_or(0);
    m_figures.attention += needsAttention(mailbox);
    ++m_figures.byStatus[mailbox.status.rawValue];
  });
  m_selection.prune();
  const qint64 failed = m_figures.byStatus.value(u"failed"_s);
  if (m_list.head() && !m_list.canLoadMore()) {
    context().setFailedAccounts(failed);
    context().setPoorAccounts(m_figures.attention - failed);
  }
  Q_EMIT figuresChanged();
  Q_EMIT foundChanged();
}

void AccountsStore::countArchived(qint64 by) {
  m_list.amendHead([by](MailboxPage& head) {
    if (head.archivedCount) head.archivedCount = std::max<qint64>(0, *head.archivedCount + by);
  });
  Q_EMIT figuresChanged();
}

void AccountsStore::bulkEnded(const AccountBulk::Ended& ended) {
  m_selection.clear();
  if (ended.action == "delete"_L1) {
    m_list.takeOut(ended.done);
    countArchived(ended.done.size());
    context().changes().stale<Archived<Mailbox>>();
  }
  // The answer holds only counts.
  context().changes().stale<Mailbox>();
  if (ended.action == "verify"_L1) m_following.start(follow());
}

/// Checks that have begun end some time later, and nobody says when.
Task<void> AccountsStore::follow() {
  co_await poll(services().clock, AccountActions::checkPace, [this] { return lookAgain(); });
  // Which of its senders are ready, a campaign says.
  context().changes().stale<Campaign>();
}

Task<bool> AccountsStore::lookAgain() {
  QStringList verifying;
  m_list.each([&verifying](const AccountRow& row) {
    if (checkStateOf(row.record()) == CheckState::running) verifying.append(row.id);
  });
  for (const QString& id : verifying) m_list.recordStale(id);
  co_return verifying.isEmpty();
}

}  // namespace orv
