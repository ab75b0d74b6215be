#include "app/rampup/RoadmapActions.h"

#include "app/base/shownName.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/rampup/rampupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

RoadmapActions::RoadmapActions(WorkspaceContext& context, Store& whole)
    : Store(context, &whole), m_actions(context, m_busy, [&context] { context.changes().stale<RampupAccount>(); }) {
  connect(&m_busy, &BusySet::changed, this, &RoadmapActions::busyChanged);
}

Task<std::optional<RampupDetail>> RoadmapActions::change(QString id, Actions::Build<RampupDetail> build,
                                                         QString failure, Actions::Tell tell,
                                                         Actions::First<RampupDetail> first) {
  auto detail = co_await m_actions.perform<RampupDetail>({id, id}, std::move(build), std::move(failure),
                                                         std::move(first), std::move(tell));
  if (!detail) co_return std::nullopt;
  Q_EMIT learned(*detail);
  // As of now: what was asked for before this answer came may not know it.
  context().changes().publish(RampupAccount{id, detail->item()}, context().changes().stamp(), true);
  // Where its mail lands and what it sends for a campaign follow from it.
  context().changes().stale<Mailbox>(id);
  co_return detail;
}

Task<void> RoadmapActions::pauseTask(QString id) {
  if (!canWrite()) co_return;
  const auto build = [id] { return Requests::pauseRoadmap(id); };
  if (co_await change(id, build, u"Couldn’t pause the roadmap."_s)) services().toasts.success(u"Roadmap paused"_s);
}

Task<void> RoadmapActions::resumeTask(QString id) {
  if (!canWrite()) co_return;
  const auto build = [id] { return Requests::resumeRoadmap(id); };
  if (co_await change(id, build, u"Couldn’t resume the roadmap."_s)) services().toasts.success(u"Roadmap resumed"_s);
}

Task<void> RoadmapActions::warmupTask(QString id, QString address, bool on) {
  if (!canWrite()) co_return;
  const auto build = [id, on] {
    WarmupSettingsPatch patch;
    patch.enabled = on;
    return Requests::updateWarmup(id, patch);
  };
  if (co_await change(id, build, u"Couldn’t update "_s + shownName(address)))
    services().toasts.success(on ? u"Warm-up resumed on 1 mailbox"_s : u"Warm-up paused on 1 mailbox"_s);
}

}  // namespace orv
