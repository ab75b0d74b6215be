#include "app/leads/LeadImports.h"

#include <limits>

#include "app/base/Poll.h"
#include "app/base/shownName.h"
#include "app/leads/LeadListActions.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/leads/lead.h"
#include "kit/models/leads/leadListRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(LeadImportRow)

namespace {

constexpr PollPace pace{std::chrono::seconds(2), std::numeric_limits<int>::max()};

QString statusLabel(const ImportStatus& status) {
  static const QMap<QString, QString> labels{{u"queued"_s, u"Queued"_s},
                                             {u"running"_s, u"Running"_s},
                                             {u"done"_s, u"Done"_s},
                                             {u"failed"_s, u"Failed"_s},
                                             {u"cancelled"_s, u"Cancelled"_s}};
  return labels.value(status.rawValue, status.rawValue);
}

QString progressOf(const LeadImport& import) {
  if (!import.totalRows) return u"Reading the file…"_s;
  return Format::grouped(import.readRows) + u" of "_s + Format::grouped(*import.totalRows) + u" rows"_s;
}

QString countsOf(const LeadImport& import) {
  QStringList counts;
  if (import.inserted > 0) counts.append(Format::grouped(import.inserted) + u" new"_s);
  if (import.updated > 0) counts.append(Format::grouped(import.updated) + u" updated"_s);
  if (import.skipped > 0) counts.append(Format::grouped(import.skipped) + u" skipped"_s);
  return counts.isEmpty() ? u"Nothing imported"_s : counts.join(u", "_s);
}

QString resultOf(const LeadImport& import) {
  if (import.status.isActive()) return progressOf(import);
  if (import.status.isFailed()) return import.lastError.value_or(u"It failed, and the service did not say why."_s);
  return countsOf(import);
}

QString timeOf(const LeadImport& import) {
  const auto begun = parsePlatformDate(import.startedAt);
  if (import.status.isActive()) return begun ? u"started "_s + begun->toLocalTime().toString(u"HH:mm"_s) : QString();
  const auto at = begun ? begun : parsePlatformDate(import.createdAt);
  return at ? Format::moment(at->toLocalTime()) : QString();
}

}  // namespace

LeadImports::LeadImports(WorkspaceContext& context, Store& whole, std::function<QString(const QString&)> nameOf)
    : Store(context, &whole),
      m_nameOf(std::move(nameOf)),
      m_actions(context, m_busy, [this] { readAnew(); }),
      m_list(*this, [this] { return load(); }, {.failed = u"Couldn’t load imports"_s}) {
  connect(&m_list, &ResourceBase::changed, this, &LeadImports::changed);
  connect(&m_list, &ResourceBase::valueChanged, this, &LeadImports::arrived);
  connect(&m_busy, &BusySet::changed, this, &LeadImports::show);
  // Even where nobody has looked at the history yet: somebody has to see the end.
  context.changes().watch<LeadImport>(this, [this](const Change<LeadImport>&) {
    m_hasBegun = true;
    readAnew();
  });
}

/// Something was done here: what was asked before may not know of it.
void LeadImports::readAnew() {
  m_known = m_asked;
  m_list.load();
}

Task<LeadImportPage> LeadImports::load() {
  const int reading = ++m_asked;
  LeadImportPage page = co_await api().send(Requests::leadImports());
  if (reading <= m_known && m_list.value()) co_return *m_list.value();
  m_known = reading;
  co_return page;
}

int LeadImports::active() const {
  if (!m_list.value()) return 0;
  return int(std::ranges::count_if(m_list.value()->items, [](const LeadImport& one) { return one.status.isActive(); }));
}

void LeadImports::arrived() {
  QSet<QString> now, over;
  QStringList ended;
  const bool hasBegun = std::exchange(m_hasBegun, false);
  for (const LeadImport& import : m_list.value()->items) {
    (import.status.isActive() ? now : over).insert(import.id);
    const bool isNews = m_wereActive.contains(import.id) || (hasBegun && !m_hadEnded.contains(import.id));
    if (!import.status.isActive() && isNews) ended.append(import.listId.value_or(QString()));
  }
  m_wereActive = now;
  m_hadEnded = over;
  show();
  if (!now.isEmpty() && m_following.isIdle()) m_following.start(follow());
  if (ended.isEmpty()) return;
  for (const QString& listId : std::as_const(ended))
    if (!listId.isEmpty()) context().changes().stale<ListedLeads>(listId);
  context().changes().stale<LeadList>();
  context().changes().stale<Lead>();
}

Task<void> LeadImports::follow() {
  co_await poll(services().clock, pace, [this] { return readAgain(); });
}

/// One lost reading is no reason to stop; the next one comes.
Task<bool> LeadImports::readAgain() {
  try {
    const int reading = ++m_asked;
    const LeadImportPage page = co_await api().send(Requests::leadImports());
    if (reading <= m_known) co_return active() == 0;
    m_known = reading;
    m_list.amend([&page](LeadImportPage& shown) { shown = page; });
  } catch (const APIError& error) {
    co_return error.is(APIError::Kind::unauthorized);
  }
  co_return active() == 0;
}

void LeadImports::show() {
  std::vector<LeadImportRow> rows;
  if (m_list.value())
    for (const LeadImport& import : m_list.value()->items) rows.push_back(rowOf(import));
  m_rows.update(std::move(rows));
  Q_EMIT changed();
}

LeadImportRow LeadImports::rowOf(const LeadImport& import) const {
  const bool isActive = import.status.isActive();
  const QString listName = import.listId ? m_nameOf(*import.listId) : QString();
  QStringList place{listName.isEmpty() ? u"No list"_s : u"Into "_s + shownName(listName)};
  // A list that has been deleted since has no name any more.
  if (import.listId && listName.isEmpty()) place.first() = u"Into a list"_s;
  if (const QString time = timeOf(import); !time.isEmpty()) place.append(time);
  const qint64 all = import.totalRows.value_or(0);
  return {.id = import.id,
          .name = import.fileName.value_or(u"CSV file"_s),
          .statusWord = import.status.rawValue,
          .statusText = statusLabel(import.status),
          .placeText = place.join(u" · "_s),
          .resultText = resultOf(import),
          .isFailed = import.status.isFailed(),
          .canCancel = isActive,
          .isBusy = m_busy.contains(import.id),
          .progress = import.status.isRunning() && all > 0 ? double(import.readRows) / double(all) : -1};
}

const LeadImport* LeadImports::find(const QString& id) const {
  if (!m_list.value()) return nullptr;
  const auto& items = m_list.value()->items;
  const auto found = std::ranges::find(items, id, &LeadImport::id);
  return found == items.cend() ? nullptr : &*found;
}

Task<void> LeadImports::cancelTask(QString id) {
  const LeadImport* import = find(id);
  if (!import || !import->status.isActive() || !canWrite()) co_return;
  const QString name = import->fileName ? shownName(*import->fileName) : u"the file"_s;
  if (!co_await m_actions.perform(id, Requests::cancelLeadImport(id), u"Couldn’t cancel the import."_s)) co_return;
  services().toasts.success(u"Cancelled the import of "_s + name);
  readAnew();
}

void LeadImports::close() {
  m_following.cancel();
  Store::close();
}

}  // namespace orv
