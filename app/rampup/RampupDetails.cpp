#include "app/rampup/RampupDetails.h"

#include "app/rampup/RampupRows.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/rampup/rampupRequests.h"

namespace orv {

RampupDetails::RampupDetails(WorkspaceContext& context, Store& whole) : Store(context, &whole) {
  context.changes().watch<RampupAccount>(this, [this](const Change<RampupAccount>& change) {
    if (change.acted || change.kind != Change<RampupAccount>::Kind::is) forget(change.id);
  });
  context.changes().watch<Mailbox>(this, [this](const Change<Mailbox>& change) {
    if (change.acted) forget(change.id);
  });
}

void RampupDetails::look(const QString& id) {
  m_look.cancel();
  if (!id.isEmpty() && !find(id)) m_look.start(lookTask(id));
}

Task<void> RampupDetails::lookTask(QString id) {
  co_await services().clock.sleep(restFor);
  prefetch(id);
}

void RampupDetails::prefetch(const QString& id) {
  if (!find(id)) m_tasks.start(prefetchTask(id));
}

Task<void> RampupDetails::prefetchTask(QString id) {
  const auto mark = m_prefetching.mark(id);
  if (!mark) co_return;
  const int round = ++m_round;
  try {
    const RampupDetail detail = co_await api().send(Requests::getRampup(id));
    if (std::max(m_forgotten.value(id), m_forgotten.value({})) < round) put(detail);
  } catch (const APIError&) {
    // Nobody has asked for it; whoever opens the account is told.
  }
}

const RampupDetail* RampupDetails::find(const QString& id) const {
  const auto known = m_known.constFind(id);
  if (known == m_known.cend() || known->readAt.addSecs(freshFor.count()) < services().clock.now()) return nullptr;
  return &known->detail;
}

void RampupDetails::put(const RampupDetail& detail) {
  if (m_known.size() >= keptAtMost && !m_known.contains(detail.mailboxId)) {
    auto oldest = m_known.begin();
    for (auto each = m_known.begin(); each != m_known.end(); ++each)
      if (each->readAt < oldest->readAt) oldest = each;
    m_known.erase(oldest);
  }
  m_known.insert(detail.mailboxId, {detail, services().clock.now()});
}

void RampupDetails::forget(const QString& id) {
  m_forgotten[id] = ++m_round;
  id.isEmpty() ? m_known.clear() : (void)m_known.remove(id);
}

}  // namespace orv
