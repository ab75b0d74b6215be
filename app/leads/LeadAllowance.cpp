#include "app/leads/LeadAllowance.h"

#include "kit/api/Format.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto eachUsesOne = u"Each lead you don’t have yet uses one unlock."_s;
const auto searchKey = u"search"_s;

}  // namespace

LeadAllowance::LeadAllowance(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_usage(*this, [this] { return api().send(Requests::unlockUsage()); }),
      m_actions(context, m_busy, [this] {
        m_usage.load();
        this->context().changes().stale<UnlockUsage>();
        Q_EMIT inDoubt();
      }) {
  connect(&m_usage, &ResourceBase::changed, this, &LeadAllowance::changed);
  for (const BusySet* busy : {&m_busy, &m_searchBusy})
    connect(busy, &BusySet::changed, this, &LeadAllowance::tellBusySoon);
}

QString LeadAllowance::leftText() const {
  if (!known()) return {};
  const bool isCredits = usage()->credits.value_or(false);
  return Format::grouped(usage()->left) + (isCredits ? u" credits left"_s : u" unlocks left"_s);
}

QString LeadAllowance::usedText() const {
  if (!known()) return {};
  return Format::grouped(usage()->used) + u" of "_s + Format::grouped(usage()->limit) + u" used this month."_s;
}

QString LeadAllowance::note() const {
  if (!known()) return {};
  const QString text = eachUsesOne + u' ' + Format::grouped(usage()->left) + u" left this month."_s;
  const QDate resets = QDate::fromString(usage()->resetsAt, u"yyyy-MM-dd"_s);
  return resets.isValid() ? text + u" More on "_s + QLocale::c().toString(resets, u"d MMM"_s) : text;
}

double LeadAllowance::share() const {
  return known() && usage()->limit > 0 ? std::clamp(double(usage()->used) / double(usage()->limit), 0.0, 1.0) : 0;
}

QString LeadAllowance::cost() const {
  if (known()) return usedText() + u' ' + note();
  return eachUsesOne + u" How many are left isn’t known."_s;
}

/// Thousands may be marked at once.
void LeadAllowance::tellBusySoon() {
  if (std::exchange(m_tellsSoon, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        m_tellsSoon = false;
        Q_EMIT busyChanged();
      },
      Qt::QueuedConnection);
}

Task<void> LeadAllowance::unlockOneTask(QString id) {
  if (canWrite()) co_await unlock({.leadIds = QList<QString>{id}}, u"Couldn’t unlock the lead."_s);
}

Task<std::optional<UnlockResult>> LeadAllowance::unlock(UnlockBody body, QString failure, Actions::Tell tell) {
  std::vector<BusySet::Mark> marks;
  if (searchBusy()) co_return std::nullopt;
  if (body.leadIds) {
    // What is being unlocked already is not asked for again.
    body.leadIds->removeIf([&](const QString& id) {
      auto mark = m_busy.mark(id);
      const bool isFree = bool(mark);
      if (isFree) marks.push_back(std::move(mark));
      return !isFree;
    });
    if (body.leadIds->isEmpty()) co_return std::nullopt;
  } else {
    marks.push_back(m_searchBusy.mark(searchKey));
  }
  // One after another: what is left is what the last answer says.
  auto result = co_await m_actions.change<UnlockResult>(
      u"leads/unlock"_s, [body] { return Requests::unlockLeads(body); }, std::move(failure), {},
      [this, tell = std::move(tell)](const APIError& error) {
        return (tell && tell(error)) || (mayHaveActed(error) && tellDoubt(error));
      });
  if (!result) co_return result;
  if (m_usage.value())
    m_usage.update([&result](UnlockUsage& usage) { usage = result->usage; });
  else
    m_usage.load();
  // Not the leads themselves: read again, those that were unlocked would leave the pool of new ones at once.
  context().changes().stale<UnlockUsage>();
  Q_EMIT unlocked(result->items);
  co_return result;
}

bool LeadAllowance::tellDoubt(const APIError& error) {
  services().toasts.show({.message = u"The unlock may have gone through."_s,
                          .tone = Toasts::Tone::error,
                          .detail = error.message() + u" The allowance is read again."_s});
  return true;
}

}  // namespace orv
