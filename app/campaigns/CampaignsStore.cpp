#include "app/campaigns/CampaignsStore.h"

#include "app/base/RoleGate.h"
#include "app/base/SaveFile.h"
#include "app/figures/AnalyticsCsv.h"
#include "app/figures/DateRange.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/analytics/analyticsRequests.h"
#include "kit/models/campaigns/campaignRequests.h"
#include "kit/models/campaigns/campaignStatus.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

bool isEmpty(const CampaignList& list) { return list.items.isEmpty(); }

ConfirmRequest removeQuestion(const CampaignSummary& campaign) {
  const QString running = campaign.status.rawValue == "running"_L1 ? u"Sending stops at once. "_s : QString();
  return {u"Delete "_s + campaign.name + u'?',
          running + u"It moves to Archived for 30 days, so you can restore it."_s,
          u"Delete campaign"_s,
          u"Cancel"_s,
          true,
          {}};
}

ConfirmRequest removeForGoodQuestion(const CampaignSummary& campaign) {
  return {u"Delete "_s + campaign.name + u" for good?"_s,
          u"Its leads, emails and figures go with it. This can’t be undone."_s,
          u"Delete for good"_s,
          u"Cancel"_s,
          true,
          {}};
}

/// The campaign's name as a file's: words in lower case joined by "-". Whatever is neither letter nor digit parts
/// words, so that no name can leave the chosen folder.
QString analyticsFileName(const QString& name) {
  QString slug;
  for (const QChar c : name.toLower()) {
    if (c.isLetterOrNumber() || c.isMark() || c.isSurrogate())
      slug += c;
    else if (!slug.isEmpty() && !slug.endsWith(u'-'))
      slug += u'-';
  }
  if (slug.endsWith(u'-')) slug.chop(1);
  return (slug.isEmpty() ? u"campaign"_s : slug) + u"-analytics.csv"_s;
}

}  // namespace

CampaignsStore::CampaignsStore(APITransport& api, Services& services, QObject* parent)
    : Store(parent),
      m_api(api),
      m_services(services),
      m_actions(api, services.toasts, m_busy, [this] { reload(); }),
      m_list(
          services.clock, [&api] { return api.send(Requests::listCampaigns(false)); }, isEmpty),
      m_archived(
          services.clock, [&api] { return api.send(Requests::listCampaigns(true)); }, isEmpty),
      m_rows(m_busy),
      m_archivedRows(m_busy),
      m_newCampaign({u"New campaign"_s,
                     u"Name it after the offer and the list. You pick senders, leads and copy next."_s,
                     u"Campaign name"_s, u"Create campaign"_s}),
      m_rename({u"Rename campaign"_s, {}, u"Campaign name"_s, u"Rename"_s}) {
  watch(m_list, u"Couldn’t load campaigns"_s);
  watch(m_archived, u"Couldn’t load archived campaigns"_s);
  connect(&m_list, &ResourceBase::valueChanged, this, &CampaignsStore::listArrived);
  connect(&m_archived, &ResourceBase::valueChanged, this, &CampaignsStore::archiveArrived);
  connect(&m_busy, &BusySet::changed, this, &CampaignsStore::busyChanged);
  m_newCampaign.onSubmit = [this](const QString& name) { m_tasks.start(createTask(name)); };
  m_rename.onSubmit = [this](const QString& name) { m_tasks.start(renameTask(m_renamedId, name)); };
}

void CampaignsStore::watch(Resource<CampaignList>& resource, const QString& whatFailed) {
  connect(&resource, &ResourceBase::changed, this, &CampaignsStore::changed);
  connect(&resource, &ResourceBase::refreshFailed, this,
          [this, whatFailed](const APIError& error) { m_services.toasts.failure(whatFailed, error); });
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
}

QStringList CampaignsStore::tags() const {
  QStringList tags(m_query.tags.begin(), m_query.tags.end());
  tags.sort();
  return tags;
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
  if (shown && !std::exchange(m_archiveLoaded, true)) m_archived.load();
  Q_EMIT changed();
}

int CampaignsStore::archivedCount() const {
  const CampaignList* list = m_list.value();
  return list && list->archivedCount ? int(*list->archivedCount) : -1;
}

QVariantList CampaignsStore::statusCounts() const {
  const bool known = m_list.value() != nullptr;
  QMap<QString, int> counts;
  for (const CampaignSummary& item : m_index.items()) ++counts[item.status.rawValue];
  QVariantList segments{QVariantMap{
      {u"key"_s, u"all"_s}, {u"label"_s, u"All"_s}, {u"count"_s, known ? int(m_index.items().size()) : -1}}};
  for (const auto& word : {u"running"_s, u"paused"_s, u"draft"_s, u"completed"_s}) {
    segments.append(QVariantMap{
        {u"key"_s, word}, {u"label"_s, CampaignStatus{word}.label()}, {u"count"_s, known ? counts.value(word) : -1}});
  }
  return segments;
}

QString CampaignsStore::summary() const {
  // Before the first load "0 running" would be a claim that nobody checked.
  if (!m_list.value()) return {};
  qint64 running = 0, sent = 0, positive = 0;
  for (const CampaignSummary& item : m_index.items()) {
    running += item.status.rawValue == "running"_L1;
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

bool CampaignsStore::canCreate() const { return canWrite(m_workspace.role); }

QString CampaignsStore::createHint() const { return canCreate() ? QString() : u"Only members can create campaigns."_s; }

void CampaignsStore::setWorkspace(const WorkspaceSummary& workspace) {
  m_workspace = workspace;
  Q_EMIT changed();
}

void CampaignsStore::ensureLoaded() {
  if (!std::exchange(m_loaded, true)) m_list.load();
}

void CampaignsStore::refresh() { m_showArchived ? m_archived.load() : m_list.load(); }

void CampaignsStore::reload() {
  if (m_loaded) m_list.load();
  if (m_archiveLoaded) m_archived.load();
}

void CampaignsStore::open(const QString& id) { m_services.router.openItem(Page::campaigns, id); }

void CampaignsStore::beginCreate() {
  if (!canCreate()) {
    m_services.toasts.show(createHint());
    return;
  }
  m_newCampaign.show();
}

void CampaignsStore::beginRename(const QString& id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || m_busy.contains(id)) return;
  m_renamedId = id;
  m_rename.show(campaign->name);
}

Task<void> CampaignsStore::createTask(QString name) {
  auto submission = m_newCampaign.begin();
  try {
    const Campaign campaign = co_await m_api.send(Requests::createCampaign({name}));
    m_services.toasts.success(campaign.name + u" created"_s);
    reload();
    if (submission.succeed()) m_services.router.openItem(Page::campaigns, campaign.id);
  } catch (const APIError& error) {
    if (!submission.fail(error.message())) m_services.toasts.failure({}, error);
    if (Actions::outcomeIsUnknown(error)) reload();
  }
}

Task<void> CampaignsStore::renameTask(QString id, QString name) {
  const CampaignSummary* campaign = find(id);
  if (!campaign) co_return m_rename.cancel();
  const QString oldName = campaign->name;
  if (name == oldName) co_return m_rename.cancel();
  CampaignPatch patch;
  patch.name = name;
  auto submission = m_rename.begin();
  auto request = Requests::updateCampaign(id, patch, campaign->version);
  if (const auto renamed = co_await m_actions.perform(id, std::move(request), u"Couldn’t rename the campaign."_s)) {
    applyState(*renamed);
    submission.succeed();
    m_services.toasts.success(u"Renamed "_s + oldName + u" to "_s + renamed->name);
  }
}

Task<void> CampaignsStore::pauseTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign) co_return;
  const QString name = campaign->name;
  if (const auto paused = co_await m_actions.perform(id, Requests::pauseCampaign(id), {})) {
    applyState(*paused);
    m_services.toasts.success(name + u" paused"_s);
  }
}

Task<void> CampaignsStore::resumeTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign) co_return;
  const QString name = campaign->name;
  // Nothing outside the workspace was shown here, so nothing of it is confirmed.
  if (const auto resumed = co_await m_actions.perform(id, Requests::launchCampaign(id, {false}), {})) {
    applyState(*resumed);
    m_services.toasts.success(name + u" resumed"_s);
  }
}

Task<void> CampaignsStore::duplicateTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign) co_return;
  const QString failure = u"Couldn’t duplicate "_s + campaign->name;
  if (const auto copy = co_await m_actions.perform(id, Requests::duplicateCampaign(id), failure)) {
    reload();
    m_services.toasts.success(copy->name + u" created, without leads"_s);
  }
}

Task<void> CampaignsStore::removeTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || m_busy.contains(id)) co_return;
  const QString name = campaign->name;
  if (!co_await m_services.overlays.confirm(removeQuestion(*campaign))) co_return;
  const auto removed =
      co_await m_actions.perform(id, Requests::deleteCampaign(id, false), u"Couldn’t delete "_s + name);
  if (!removed) co_return;
  moveToArchive(id);
  m_services.toasts.show(u"Deleted “"_s + name + u"”. It’s in Archived."_s, Toasts::Tone::standard, u"Undo"_s,
                         [store = QPointer(this), id, name] {
                           if (store) store->m_tasks.start(store->restoreNamedTask(id, name));
                         });
}

Task<void> CampaignsStore::restoreTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (campaign) co_await restoreNamedTask(id, campaign->name);
}

Task<void> CampaignsStore::restoreNamedTask(QString id, QString name) {
  const auto restored = co_await m_actions.perform(id, Requests::restoreCampaign(id), u"Couldn’t restore "_s + name);
  if (!restored) co_return;
  takeFromArchive(id);
  reload();
  const bool paused = restored->status.rawValue == "paused"_L1;
  m_services.toasts.success(name + (paused ? u" restored, paused: resume it to send again"_s : u" restored"_s));
}

Task<void> CampaignsStore::removeForGoodTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign || m_busy.contains(id)) co_return;
  const QString name = campaign->name;
  if (!co_await m_services.overlays.confirm(removeForGoodQuestion(*campaign))) co_return;
  const auto removed = co_await m_actions.perform(id, Requests::deleteCampaign(id, true), u"Couldn’t delete "_s + name);
  if (!removed) co_return;
  takeFromArchive(id);
  m_services.toasts.success(name + u" deleted for good"_s);
}

Task<void> CampaignsStore::downloadAnalyticsTask(QString id) {
  const CampaignSummary* campaign = find(id);
  if (!campaign) co_return;
  const auto mark = m_busy.mark(id);
  if (!mark) co_return;
  const QString fileName = analyticsFileName(campaign->name);
  const QDate today = localToday(m_services.clock);
  const auto created = parsePlatformDate(campaign->createdAt);
  const QDate from = created ? created->toLocalTime().date() : today;
  const QString failure = u"Couldn’t download the analytics."_s;
  const auto summary = co_await m_actions.send(
      Requests::analyticsSummary(Format::calendarDay(from), Format::calendarDay(today), id), failure);
  if (!summary) co_return;
  auto rows = summary->campaigns;
  rows.removeIf([&id](const auto& row) { return row.id != id; });
  if (rows.isEmpty()) {
    m_services.toasts.show(u"Nothing to export yet."_s);
    co_return;
  }
  co_await saveCsv(m_services, fileName, campaignsCsv(rows), failure);
}

void CampaignsStore::copyLink(const QString& id) {
  QUrl link = m_services.webOrigin;
  link.setPath(u"/w/"_s + m_workspace.slug + u"/campaigns/"_s + id);
  m_services.clipboard.setText(link.toString(QUrl::FullyEncoded));
  m_services.toasts.success(u"Link copied"_s);
}

void CampaignsStore::close() {
  m_list.cancel();
  m_archived.cancel();
  Store::close();
}

const CampaignSummary* CampaignsStore::find(const QString& id) const {
  const CampaignSummary* live = m_index.find(id);
  return live ? live : m_archiveIndex.find(id);
}

void CampaignsStore::listArrived() {
  m_index = CampaignIndex(m_list.value()->items);
  m_rows.update(m_index.visible(m_query));
  Q_EMIT figuresChanged();
}

void CampaignsStore::archiveArrived() {
  m_archiveIndex = CampaignIndex(m_archived.value()->items);
  showArchivedRows(false);
}

void CampaignsStore::showArchivedRows(bool newQuestion) {
  auto rows = m_archiveIndex.visible({u"all"_s, {}, {}, m_archivedSort});
  newQuestion ? m_archivedRows.replace(std::move(rows)) : m_archivedRows.update(std::move(rows));
}

void CampaignsStore::applyState(const Campaign& campaign) {
  m_list.update([&campaign](CampaignList& list) {
    for (CampaignSummary& item : list.items) {
      if (item.id != campaign.id) continue;
      item.name = campaign.name;
      item.status = campaign.status;
      item.version = campaign.version;
      if (campaign.launchedAt) item.launchedAt = campaign.launchedAt;
    }
  });
}

void CampaignsStore::moveToArchive(const QString& id) {
  m_list.update([&id](CampaignList& list) {
    list.items.removeIf([&id](const CampaignSummary& item) { return item.id == id; });
    if (list.archivedCount) ++*list.archivedCount;
  });
  if (m_archiveLoaded) m_archived.load();
}

void CampaignsStore::takeFromArchive(const QString& id) {
  m_archived.update(
      [&id](CampaignList& list) { list.items.removeIf([&id](const CampaignSummary& item) { return item.id == id; }); });
  m_list.update([](CampaignList& list) {
    if (list.archivedCount && *list.archivedCount > 0) --*list.archivedCount;
  });
}

}  // namespace orv
