#include "demo/Leads.h"

#include "demo/LeadQuery.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// What is added without anybody waiting.
constexpr qint64 addedPerSecond = 2'000;

void settleList(DemoLeadList& list, const QDateTime& now) {
  const qint64 due = list.queuedSince.msecsTo(now) * addedPerSecond / 1000;
  if (list.queued.isEmpty() || due <= 0) return;
  for (qint64 left = std::min<qint64>(due, list.queued.size()); left > 0; --left) list.add(list.queued.takeLast());
  list.queuedSince = now;
  list.record.updatedAt = formatPlatformDate(now);
}

}  // namespace

void settleLeads(Call& call) {
  DemoWorkspace& workspace = *call.workspace;
  settleImports(workspace, call.random, call.now);
  for (DemoLeadList& list : workspace.lists) settleList(list, call.now);
  workspace.lists.removeIf([&](const DemoLeadList& list) { return isOverdue(list.record.archivedAt, call.now); });
  workspace.leads.searches.removeIf([&](const SavedSearch& one) { return isOverdue(one.archivedAt, call.now); });
}

std::optional<QList<LeadPlace>> targetOf(const Call& call, const std::optional<QList<QString>>& ids,
                                         const std::optional<LeadFilterBody>& filter,
                                         const std::optional<qint64>& limit) {
  const qint64 most = limit.value_or(mostAtATime);
  if (most < 1 || most > mostAtATime || (ids && filter) || (ids && ids->size() > mostAtATime)) return std::nullopt;
  if (filter) return LeadQuery(call, *filter).first(most);
  if (!ids) return std::nullopt;
  QList<LeadPlace> leads;
  QSet<LeadPlace> seen;
  for (const QString& id : *ids) {
    const auto place = call.workspace->leads.placeOf(id);
    if (!place || seen.contains(*place) || leads.size() == most) continue;
    seen.insert(*place);
    leads.append(*place);
  }
  return leads;
}

DemoLeadList& addList(DemoWorkspace& workspace, DemoRandom& random, const QString& name, const QString& by,
                      const QString& stamp) {
  DemoLeadList list;
  list.record.id = random.id(u"li"_s);
  list.record.number = ++workspace.lastListNumber;
  list.record.name = name;
  list.record.createdBy = by;
  list.record.createdAt = list.record.updatedAt = stamp;
  workspace.lists.prepend(list);
  return workspace.lists.first();
}

QString callerName(const Call& call) {
  const User& user = call.state.accounts[call.email].user;
  return user.name.isEmpty() ? user.email : user.name;
}

}  // namespace orv::demo
