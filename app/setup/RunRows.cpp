#include "app/setup/RunRows.h"

#include <QHash>
#include <QLocale>

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(RunRow)

namespace {

QString timeOf(const std::optional<QString>& instant) {
  const auto at = parsePlatformDate(instant);
  return at ? QLocale().toString(at->toLocalTime().time(), u"HH:mm"_s) : QString();
}

QString toneOf(const RowState& state) {
  if (state.isDone()) return u"positive"_s;
  if (state.isError()) return u"negative"_s;
  if (state.isAuthorize()) return u"warning"_s;
  return state.isWaiting() || state.isStopped() ? u"neutral"_s : u"accent"_s;
}

QString reasonOf(const SetupRow& row) {
  QStringList reasons;
  if (row.lockedUntil)
    reasons.append(u"Google locked this admin. The run tries again when the timer ends. ("_s + timeOf(row.lockedUntil) +
                   u')');
  if (row.message && !row.message->trimmed().isEmpty()) reasons.append(row.message->trimmed());
  return reasons.join(u'\n');
}

RunRow inboxRow(const SetupRow& row) {
  const QString step = row.step.value_or(QString());
  RunRow shown;
  shown.id = row.id;
  shown.domain = row.domain;
  shown.local = row.address.section(u'@', 0, 0) + u'@';
  shown.roleText = row.role.label();
  // A row that failed says in its state only that it did.
  const int reached = row.state.isEnd() && !row.state.isDone() ? RowState(step).stepsDone() : row.state.stepsDone();
  shown.steps = std::max(0, reached);
  shown.isFailed = row.state.isError();
  shown.isDone = row.state.isDone();
  shown.isUnderWay = !row.state.isEnd() && !row.state.isWaiting();
  shown.stateText = row.state.label();
  shown.tone = toneOf(row.state);
  shown.reason = reasonOf(row);
  shown.updatedText = timeOf(row.updatedAt);
  return shown;
}

/// The rows of one domain, in their order.
struct Group {
  QString domain;
  std::vector<const SetupRow*> rows;
};

std::vector<Group> groupsOf(const SetupRun& run) {
  std::vector<Group> groups;
  QHash<QString, size_t> places;
  const auto placeOf = [&](const QString& domain) {
    const auto known = places.constFind(domain);
    if (known != places.cend()) return *known;
    places.insert(domain, groups.size());
    groups.push_back({domain, {}});
    return groups.size() - 1;
  };
  for (const SetupRunDomain& each : run.domains) placeOf(each.domain);
  for (const SetupRow& row : run.rows) groups[placeOf(row.domain)].rows.push_back(&row);
  return groups;
}

RunRow domainRow(const Group& group, bool hasUrl, bool isHeld) {
  RunRow shown;
  shown.id = u"domain:"_s + group.domain;
  shown.isDomain = true;
  shown.domain = group.domain;
  int done = 0;
  bool isWaitingForAdmin = false, isOver = !group.rows.empty(), hasFailed = false;
  for (const SetupRow* row : group.rows) {
    done += row->state.isDone();
    isWaitingForAdmin |= row->state.isAuthorize();
    isOver &= row->state.isEnd();
    hasFailed |= row->state.isError() || row->state.isStopped();
  }
  shown.countText = Format::grouped(done) + u" of "_s + Format::grouped(qint64(group.rows.size()));
  shown.canAuthorize = isWaitingForAdmin && hasUrl;
  shown.canRetry = isOver && hasFailed && !isHeld;
  return shown;
}

}  // namespace

void RunRows::show(const SetupRun& run, const QSet<QString>& folded) {
  QSet<QString> authorizable;
  for (const SetupRunDomain& each : run.domains)
    if (each.authorizeUrl) authorizable.insert(each.domain);
  // One that is through is not held by a pause that nobody took back.
  const bool isHeld = run.control.isPaused() && !run.isOver();
  std::vector<RunRow> rows;
  rows.reserve(size_t(run.rows.size() + run.domains.size()));
  for (const Group& group : groupsOf(run)) {
    rows.push_back(domainRow(group, authorizable.contains(group.domain), isHeld));
    rows.back().folded = folded.contains(group.domain);
    if (rows.back().folded) continue;
    for (const SetupRow* row : group.rows) rows.push_back(inboxRow(*row));
  }
  update(std::move(rows));
}

RunCounts countsOf(const SetupRun& run) {
  RunCounts counts;
  counts.total = run.rows.size();
  for (const SetupRow& row : run.rows) {
    const RowState& state = row.state;
    qint64& count = state.isDone()                             ? counts.connected
                    : state.isError()                          ? counts.failed
                    : state.isStopped()                        ? counts.stopped
                    : state.isWaiting() || state.isAuthorize() ? counts.waiting
                                                               : counts.working;
    ++count;
  }
  return counts;
}

}  // namespace orv
