#include "app/campaigns/CampaignsStore.h"

#include <QPointer>

#include "app/base/shownName.h"
#include "app/campaigns/analyticsDownload.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignStatus.h"
#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

ConfirmRequest removeQuestion(const CampaignSummary& campaign) {
  const QString running = campaign.status.isRunning() ? u"Sending stops at once. "_s : QString();
  return {.title = u"Delete "_s + shownName(campaign.name) + u'?',
          .text = running + u"It moves to Archived for 30 days, so you can restore it."_s,
          .confirm = u"Delete campaign"_s,
          .destructive = true};
}

ConfirmRequest removeForGoodQuestion(const CampaignSummary& campaign) {
  return {.title = u"Delete "_s + shownName(campaign.name) + u" for good?"_s,
          .text = u"Its leads, emails and figures go with it. This can’t be undone."_s,
          .confirm = u"Delete for good"_s,
          .destructive = true};
}

QString resumedText(const QString& name) { return name + u" resumed"_s; }

Archive<Campaign>::Words wordsOfList() {
  const auto cannotRemove = [](const QString& name) { return u"Couldn’t delete "_s + name; };
  return {.removed = [](const QString& name) { return u"Deleted “"_s + name + u"”. It’s in Archived."_s; },
          .removedForGood = [](const QString& name) { return name + u" deleted for good"_s; },
          .restored =
              [](const QString& name, const Campaign& campaign) {
                const bool isPaused = campaign.status.isPaused();
                return name + (isPaused ? u" restored, paused: resume it to send again"_s : u" restored"_s);
              },
          .cannotRemove = cannotRemove,
          .cannotRestore = [](const QString& name) { return u"Couldn’t restore "_s + name; }};
}

/// Its page can be opened from the archive, and its emails written on; there it stays archived.
void followIn(Resource<CampaignList>& archive, const Campaign& campaign) {
  const auto isIt = [&campaign](const CampaignSummary& item) { return item.id == campaign.id; };
  if (!archive.value() || std::ranges::none_of(archive.value()->items, isIt)) return;
  archive.amend([&](CampaignList& list) {
    CampaignSummary& row = *std::ranges::find_if(list.items, isIt);
    const CampaignStatus status = row.status;
    follow(row, campaign);
    row.status = status;
  });
}

}  // namespace

CampaignsStore::CampaignsStore(WorkspaceContext& context, SaveFirst saveFirst, ActInside actInside)
    : Store(context),
      m_saveFirst(std::move(saveFirst)),
      m_actInside(std::move(actInside)),
      m_actions(context, m_busy, [this] { Store::refresh(); }),
      m_archive(context, m_actions, campaignArchiveRequests(), wordsOfList()),
      m_list(*this, [this] { return api().send(Requests::listCampaigns(false)); },
             {.failed = u"Couldn’t load campaigns"_s}),
      m_archived(*this, [this] { return api().send(Requests::listCampaigns(true)); },
                 {.failed = u"Couldn’t load archived campaigns"_s, .loadsByItself = false, .isArchive = true}),
      m_rows(m_busy, context.unsaved()),
      m_archivedRows(m_busy, context.unsaved()),
      m_newCampaign(
          {u"New campaign"_s, u"Name it after the offer and the list. You pick senders, leads and copy next."_s,
           u"Campaign name"_s, u"Create campaign"_s},
          context),
      m_rename({u"Rename campaign"_s, {}, u"Campaign name"_s, u"Rename"_s}, context) {
  connect(&m_list, &ResourceBase::changed, this, &CampaignsStore::changed);
  connect(this, &CampaignsStore::changed, this, &CampaignsStore::tagsChanged);
  connect(this, &CampaignsStore::figuresChanged, this, &CampaignsStore::tagsChanged);
  connect(&m_archived, &ResourceBase::changed, this, &CampaignsStore::changed);
  connect(&m_list, &ResourceBase::valueChanged, this, &CampaignsStore::listArrived);
  connect(&m_archived, &ResourceBase::valueChanged, this, &CampaignsStore::archiveArrived);
  connect(&m_busy, &BusySet::changed, this, &CampaignsStore::busyChanged);
  connect(this, &Store::roleChanged, this, &CampaignsStore::changed);
  context.changes().watch<Campaign>(this, [this](const auto& change) { take(change); });
  context.changes().watch<Archived<Campaign>>(this, [this](const auto& change) { takeArchived(change); });
  // Who sends for a campaign, and by tags also how many, is said of accounts.
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (!change.acted) return;
    m_list.markStale();
    m_archived.markStale();
  });
  m_newCampaign.onSubmit = [this](const QString& name) { m_tasks.start(createTask(name)); };
  m_rename.onSubmit = [this](const QString& name) { m_tasks.start(renameTask(m_renamed.id, name)); };
}

void CampaignsStore::take(const Change<Campaign>& change) {
  using Kind = Change<Campaign>::Kind;
  if (change.kind == Kind::is) followIn(m_archived, *change.record);
  const CampaignSummary* row = m_index.find(change.id);
  if (change.kind == Kind::gone) {
    m_list.update([&change](CampaignList& list) {
      const auto left = list.items.removeIf([&change](const CampaignSummary& item) { return item.id == change.id; });
      if (left > 0 && list.archivedCount) ++*list.archivedCount;
    });
  } else if (change.kind == Kind::is && row) {
    const auto amend = [&change](CampaignList& list) {
      const auto found = std::ranges::find(list.items, change.id, &CampaignSummary::id);
      if (found != list.items.end()) follow(*found, *change.record);
    };
    change.acted ? m_list.update(amend) : m_list.amend(amend);
  } else if (change.acted || change.kind == Kind::stale) {
    m_list.markStale();
  }
}

void CampaignsStore::takeArchived(const Change<Archived<Campaign>>& change) {
  if (change.kind != Change<Archived<Campaign>>::Kind::gone) return m_archived.markStale();
  m_archived.update([&change](CampaignList& list) {
    list.items.removeIf([&change](const CampaignSummary& item) { return item.id == change.id; });
  });
  m_list.amend([](CampaignList& list) {
    if (list.archivedCount && *list.archivedCount > 0) --*list.archivedCount;
  });
}

void CampaignsStore::setFilter(const QString& filter) {
  auto query = m_query;
  query.filter = filter;
  ask(query);
}

void CampaignsStore::setQuery(const QString& text) {
  auto query = m_query;
  query.query = text;
  ask(query);
  Q_EMIT moved();
}

QStringList CampaignsStore::tags() const {
  QStringList tags(m_query.tags.begin(), m_query.tags.end());
  tags.sort();
  return tags;
}

QList<Choice> CampaignsStore::tagOptions() const {
  QList<Choice> options;
  for (const QString& tag : m_index.tags())
    options.append({.key = tag, .label = tag, .ticked = m_query.tags.contains(tag)});
  return options;
}

void CampaignsStore::toggleTag(const QString& tag) {
  auto query = m_query;
  if (!query.tags.remove(tag)) query.tags.insert(tag);
  ask(query);
}

void CampaignsStore::sort(const QString& key, bool descending) {
  auto query = m_query;
  query.sort = sortBy(key, descending);
  ask(query);
}

void CampaignsStore::sortArchived(const QString& key, bool descending) {
  m_archivedSort = sortBy(key, descending);
  showArchivedRows(true);
  Q_EMIT changed();
}

void CampaignsStore::showAll() {
  auto query = m_query;
  query.filter = u"all"_s;
  query.query.clear();
  query.tags.clear();
  ask(query);
}

void CampaignsStore::ask(const CampaignQuery& query) {
  m_query = query;
  m_rows.replace(m_index.visible(m_query));
  Q_EMIT changed();
}

void CampaignsStore::setShowArchived(bool shown) {
  if (std::exchange(m_showArchived, shown) == shown) return;
  if (shown) m_archived.ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

int CampaignsStore::archivedCount() const {
  const CampaignList* list = m_list.value();
  return list && list->archivedCount ? saturated(*list->archivedCount) : -1;
}

QList<Choice> CampaignsStore::statusCounts() const {
  const bool known = m_list.value() != nullptr;
  QMap<QString, int> counts;
  for (const CampaignSummary& item : m_index.items()) ++counts[item.status.rawValue];
  QList<Choice> segments{{.key = u"all"_s, .label = u"All"_s, .count = known ? int(m_index.items().size()) : -1}};
  for (const auto& word : {u"running"_s, u"paused"_s, u"draft"_s, u"completed"_s})
    segments.append({.key = word, .label = CampaignStatus{word}.label(), .count = known ? counts.value(word) : -1});
  return segments;
}

QString CampaignsStore::summary() const {
  // Before the first load "0 running" would be a claim that nobody checked.
  if (!m_list.value()) return {};
  qint64 running = 0, sent = 0, positive = 0;
  for (const CampaignSummary& item : m_index.items()) {
    running += item.status.isRunning();
    sent += item.sent;
    positive += item.positive;
  }
  return QStringList{Format::grouped(running) + u" running"_s, Format::counted(sent, u"email sent"_s, u"emails sent"_s),
                     Format::counted(positive, u"positive reply"_s, u"positive replies"_s)}
      .join(u" · "_s);
}

QString CampaignsStore::countText() const {
  if (!m_list.value()) return {};
  const QString all = Format::counted(m_index.items().size(), u"campaign"_s, u"campaigns"_s);
  return m_rows.count() == m_index.items().size() ? all : Format::grouped(m_rows.count()) + u" of "_s + all;
}

QString CampaignsStore::archivedCountText() const {
  if (!m_archived.value()) return {};
  return Format::counted(m_archivedRows.count(), u"archived campaign"_s, u"archived campaigns"_s);
}

QString CampaignsStore::createHint() const { return canWrite() ? QString() : u"Only members can create campaigns."_s; }

void CampaignsStore::refresh() { m_showArchived ? m_archived.load() : m_list.load(); }

PagePlace CampaignsStore::where() const {
  return {.tab = m_showArchived ? u"archived"_s : QString(), .value = m_showArchived ? QString() : m_query.query};
}

void CampaignsStore::goTo(const PagePlace& place) {
  setShowArchived(!place.tab.isEmpty());
  if (place.tab.isEmpty()) setQuery(place.value);
}

void CampaignsStore::open(const QString& id) { context().openItem(Page::campaigns, id); }

void CampaignsStore::beginCreate() {
  if (canWrite()) m_newCampaign.show({}, u"campaigns/new"_s);
}

void CampaignsStore::beginRename(const QString& id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || m_busy.contains(id) || !canWrite()) return;
  m_renamed = RenamedCampaign::of(*campaign);
  m_rename.show(campaign->name, renameKey(id), campaign->version);
}

Task<void> CampaignsStore::createTask(QString name) {
  auto submission = m_newCampaign.begin();
  const Stamp asked = context().changes().stamp();
  WorkspaceContext::Sending sending(context());
  try {
    const Campaign campaign = co_await api().send(Requests::createCampaign({name}));
    services().toasts.success(shownName(campaign.name) + u" created"_s);
    context().changes().publish(campaign, asked, true);
    // Who has gone to another workspace meanwhile is not to be fetched back.
    const bool isHere = services().navigator.workspace() == context().workspace().slug;
    if (submission.succeed() && isHere) open(campaign.id);
  } catch (const APIError& error) {
    if (!submission.fail(error.message())) services().toasts.failure({}, error);
    sending.failed();
    if (mayHaveActed(error)) context().changes().stale<Campaign>();
  }
}

Task<void> CampaignsStore::renameTask(QString id, QString name) {
  const CampaignSummary* campaign = find(id);
  auto submission = m_rename.begin();
  if (!campaign) {
    submission.fail(u"This campaign isn’t in the list any more."_s);
    co_return;
  }
  const QString oldName = campaign->name;
  if (name == oldName) co_return m_rename.cancel();
  CampaignPatch patch;
  patch.name = name;
  // By then the form may be open for another one.
  const auto build = [this, patch, filled = m_renamed] {
    return Requests::updateCampaign(filled.id, patch, filled.versionBeside(find(filled.id)));
  };
  const auto refused = [this, id](const APIError& error) { return m_renamed.id == id && m_renamed.failed(error); };
  if (const auto renamed =
          co_await m_actions.perform<Campaign>({id, id}, build, u"Couldn’t rename the campaign."_s, {}, refused)) {
    submission.succeed();
    services().toasts.success(u"Renamed "_s + shownName(oldName) + u" to "_s + shownName(renamed->name));
  }
}

/// What the service starts or copies is what it has, and the person means what they wrote.
Task<bool> CampaignsStore::savedFirst(QString id) {
  if (!m_saveFirst) co_return true;
  const QString reason = co_await m_saveFirst(id);
  if (!reason.isEmpty()) services().toasts.show({.message = reason, .tone = Toasts::Tone::error});
  co_return reason.isEmpty();
}

Task<void> CampaignsStore::pauseTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || !canWrite()) co_return;
  const QString name = shownName(campaign->name);
  if (!co_await m_actions.perform(id, Requests::pauseCampaign(id), {})) co_return;
  services().toasts.show(
      {.message = name + u" paused"_s,
       .tone = Toasts::Tone::success,
       .actionLabel = u"Resume"_s,
       .action = [store = QPointer(this), id, resume = laterResume(context(), id, resumedText(name))] {
         store ? store->resume(id) : resume();
       }});
}

Task<void> CampaignsStore::resumeTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || !canWrite()) co_return;
  const QString name = shownName(campaign->name);
  const auto mark = m_busy.mark(id);
  if (!mark || !co_await savedFirst(id)) co_return;
  // Nothing outside the workspace was shown here, so nothing of it is confirmed.
  if (co_await m_actions.change(id, Requests::launchCampaign(id, {false}), {}))
    services().toasts.success(resumedText(name));
}

Task<void> CampaignsStore::duplicateTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || !canWrite()) co_return;
  const QString failure = u"Couldn’t duplicate "_s + shownName(campaign->name);
  const auto mark = m_busy.mark(id);
  if (!mark || !co_await savedFirst(id)) co_return;
  if (const auto copy = co_await m_actions.change(id, Requests::duplicateCampaign(id), failure))
    services().toasts.success(shownName(copy->name) + u" created, without leads"_s);
}

Task<void> CampaignsStore::removeTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || m_busy.contains(id) || !canWrite()) co_return;
  const QString name = campaign->name;
  if (!co_await services().overlays.confirm(removeQuestion(*campaign))) co_return;
  if (const auto mark = m_busy.mark(id)) co_await m_archive.remove(id, name);
}

Task<void> CampaignsStore::restoreTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || !canWrite()) co_return;
  const QString name = campaign->name;
  if (const auto mark = m_busy.mark(id)) co_await m_archive.restore(id, name);
}

Task<void> CampaignsStore::removeForGoodTask(QString id) {
  // Of one that is not in the archive it would only be the way there.
  const CampaignSummary* campaign = m_archiveIndex.find(id);
  if (!campaign || m_busy.contains(id) || !canWrite()) co_return;
  const QString name = campaign->name;
  if (!co_await services().overlays.confirm(removeForGoodQuestion(*campaign))) co_return;
  if (const auto mark = m_busy.mark(id)) co_await m_archive.removeForGood(id, name);
}

Task<void> CampaignsStore::downloadAnalyticsTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign) co_return;
  const CampaignSummary shown = *campaign;
  if (const auto mark = m_busy.mark(id)) co_await downloadAnalyticsOf(shown, &context(), &m_actions);
}

void CampaignsStore::copyLink(const QString& id) { copyCampaignLink(services(), id); }

const CampaignSummary* CampaignsStore::find(const QString& id) const {
  const CampaignSummary* live = m_index.find(id);
  return live ? live : m_archiveIndex.find(id);
}

void CampaignsStore::listArrived() {
  m_index = CampaignIndex(m_list.value()->items);
  m_rows.update(m_index.visible(m_query));
  m_renamed.follow(find(m_renamed.id));
  Q_EMIT figuresChanged();
  Q_EMIT foundChanged();
}

void CampaignsStore::archiveArrived() {
  m_archiveIndex = CampaignIndex(m_archived.value()->items);
  m_renamed.follow(find(m_renamed.id));
  showArchivedRows(false);
}

void CampaignsStore::showArchivedRows(bool newQuestion) {
  auto rows = m_archiveIndex.visible({u"all"_s, {}, {}, m_archivedSort});
  newQuestion ? m_archivedRows.replace(std::move(rows)) : m_archivedRows.update(std::move(rows));
}

}  // namespace orv
