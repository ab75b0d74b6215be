#include "app/base/Changes.h"

#include <algorithm>

namespace orv {

Changes::Verdict Changes::judge(const void* about, const QString& id, std::optional<qint64> version,
                                Stamp asked) const {
  const auto records = m_known.constFind(about);
  if (records == m_known.cend()) return Verdict::unknown;
  const auto known = records->constFind(id);
  if (known == records->cend()) return Verdict::unknown;
  if (known->gone) return asked > known->asked ? Verdict::newer : Verdict::older;
  if (version && known->version) {
    if (*version == *known->version) return Verdict::same;
    return *version > *known->version ? Verdict::newer : Verdict::older;
  }
  if (asked == known->asked) return Verdict::same;
  // Without a version nobody can tell whether a later reading brought anything new, so it counts as the same.
  return asked > known->asked ? Verdict::same : Verdict::older;
}

bool Changes::learn(const void* about, const QString& id, std::optional<qint64> version, Stamp asked) {
  if (judge(about, id, version, asked) == Verdict::older) return false;
  Known& known = m_known[about][id];
  known = {std::max(known.asked, asked), version ? version : known.version, false};
  return true;
}

bool Changes::bury(const void* about, const QString& id, Stamp asked) {
  Known& known = m_known[about][id];
  if (known.asked > asked) return false;
  known = {asked, std::nullopt, true};
  return true;
}

bool Changes::isBuried(const void* about, const QString& id, Stamp asked) const {
  const auto records = m_known.constFind(about);
  if (records == m_known.cend()) return false;
  const auto known = records->constFind(id);
  return known != records->cend() && known->gone && known->asked > asked;
}

void Changes::listen(const void* about, QObject* watcher, std::function<void(const void*)> take) {
  m_watchers.push_back({about, watcher, std::move(take)});
  connect(watcher, &QObject::destroyed, this,
          [this, watcher] { std::erase_if(m_watchers, [=](const Watcher& one) { return one.watcher == watcher; }); });
}

void Changes::tellWatchers(const void* about, const void* change) {
  // A watcher may bring others, or go, while it takes a change.
  const auto watchers = m_watchers;
  for (const Watcher& one : watchers) {
    const bool isThere = std::ranges::any_of(
        m_watchers, [&](const Watcher& there) { return there.watcher == one.watcher && there.about == about; });
    if (one.about == about && isThere) one.take(change);
  }
}

}  // namespace orv
