#include "app/leads/LeadActions.h"

#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto manyKey = u"many"_s;

UnlockBody bodyFor(const LeadTarget& target) {
  if (const auto* ids = target.ids()) return {.leadIds = *ids};
  return {.filter = filterBody(target.filter()->search), .limit = target.filter()->first};
}

/// "Unlock 3 selected leads", "Unlock the first 500 matching leads".
QString titleFor(const LeadTarget& target) {
  return (target.ids() ? u"Unlock "_s : u"Unlock the first "_s) + target.description();
}

}  // namespace

LeadTarget wholeList(const LeadList& list) {
  return {LeadTarget::Filter{.search = {.values = {{u"list"_s, list.id}}}, .count = {list.leadCount, true, {}}}};
}

LeadActions::LeadActions(WorkspaceContext& context) : Store(context) {
  connect(&m_unlocking, &BusySet::changed, this, &LeadActions::changed);
}

Task<void> LeadActions::unlockTask(LeadTarget target) {
  if (!canWrite()) co_return;
  const auto mark = m_unlocking.mark(manyKey);
  if (!mark) co_return;
  if (target.filter() && !target.filter()->first) {
    // Nobody buys every match of a search by one press.
    services().toasts.show({.message = u"Tick leads, or select how many, to unlock them"_s});
    co_return;
  }
  const ConfirmRequest question{.title = titleFor(target) + u'?', .text = m_allowance.cost(), .confirm = u"Unlock"_s};
  if (!co_await services().overlays.confirm(question)) co_return;
  const auto result = co_await m_allowance.unlock(bodyFor(target), u"Couldn’t unlock the leads."_s);
  if (!result) co_return;
  services().toasts.show({.message = u"Unlocked "_s + LeadWords::counted(result->unlocked),
                          .tone = Toasts::Tone::success,
                          .detail = m_allowance.leftText()});
}

}  // namespace orv
