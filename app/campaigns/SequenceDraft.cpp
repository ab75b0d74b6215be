#include "app/campaigns/SequenceDraft.h"

#include <QSet>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qint64 mostWaitDays = 60;
constexpr qint64 newStepWaitDays = 2;

DraftVariant newVariant(const QString& label) {
  DraftVariant variant;
  variant.key = QUuid::createUuid();
  variant.label = label;
  return variant;
}

template <class Items>
qsizetype indexOf(const Items& items, const QUuid& key) {
  using Item = typename Items::value_type;
  const auto found = std::ranges::find(items, key, &Item::key);
  return found == items.end() ? -1 : found - items.begin();
}

/// Where among `items` the key belongs.
template <class Items>
qsizetype placeAmong(const Items& items, const QList<QUuid>& places, const QUuid& key) {
  const qsizetype own = places.indexOf(key);
  return std::ranges::count_if(items, [&](const auto& item) { return places.indexOf(item.key) < own; });
}

/// `fresh` with the rest of `old`, each behind what it stood behind.
QList<QUuid> merged(QList<QUuid> fresh, const QList<QUuid>& old) {
  qsizetype behind = 0;
  for (const QUuid& key : old) {
    if (const qsizetype at = fresh.indexOf(key); at >= 0)
      behind = at + 1;
    else
      fresh.insert(behind++, key);
  }
  return fresh;
}

/// Gives `fresh` the key that the item of the same id had; null when there was none.
template <class Items, class Item>
const Item* keepKey(const Items& old, Item& fresh) {
  const auto found = std::ranges::find(old, fresh.id, &Item::id);
  if (found == old.end()) return nullptr;
  fresh.key = found->key;
  return &*found;
}

}  // namespace

DraftStep* SequenceDraft::find(const QUuid& step) {
  const qsizetype place = placeOf(step);
  return place < 0 ? nullptr : &m_steps[place];
}

SequenceDraft::Spot SequenceDraft::findVariant(const QUuid& variant) {
  for (DraftStep& step : m_steps)
    if (const qsizetype index = indexOf(step.variants, variant); index >= 0) return {&step, index};
  return {};
}

/// Steps and variants alike, the removed ones included.
template <class Visit>
void SequenceDraft::each(const Visit& visit) {
  const auto whole = [&visit](DraftStep& step) {
    visit(step);
    for (DraftVariant& variant : step.variants) visit(variant);
  };
  for (DraftStep& step : m_steps) whole(step);
  for (RemovedStep& removed : m_removedSteps) whole(removed.step);
  for (RemovedVariant& removed : m_removedVariants) visit(removed.variant);
}

template <class Value>
void SequenceDraft::set(Value& field, const Value& value) {
  if (field == value) return;
  field = value;
  ++m_revision;
}

template <class Value>
void SequenceDraft::setOfVariant(const QUuid& variant, Value DraftVariant::*field, const Value& value) {
  if (const auto [step, index] = findVariant(variant); step) set(step->variants[index].*field, value);
}

qsizetype SequenceDraft::placeOf(const QUuid& step) const { return indexOf(m_steps, step); }

const DraftVariant* SequenceDraft::variant(const QUuid& key) const {
  const qsizetype place = placeOfVariant(key);
  return place < 0 ? nullptr : &m_steps[place].variants[indexOf(m_steps[place].variants, key)];
}

qsizetype SequenceDraft::placeOfVariant(const QUuid& variant) const {
  const auto has = [&variant](const DraftStep& step) { return indexOf(step.variants, variant) >= 0; };
  const auto found = std::ranges::find_if(m_steps, has);
  return found == m_steps.end() ? -1 : found - m_steps.begin();
}

QString SequenceDraft::waitText(qsizetype place) const {
  if (place == 0) return u"Sends first"_s;
  return u"Wait %1 days if no reply"_s.arg(m_steps[place].waitDays());
}

qint64 SequenceDraft::day(qsizetype place) const {
  qint64 minutes = 0;
  for (qsizetype i = 0; i <= place; ++i) minutes += m_steps[i].delayMinutes;
  return wholeDays(minutes);
}

QUuid SequenceDraft::insertStep(qsizetype place) {
  if (place < 0 || place > m_steps.size()) place = m_steps.size();
  DraftStep step;
  step.key = QUuid::createUuid();
  step.delayMinutes = place == 0 ? 0 : newStepWaitDays * minutesPerDay;
  step.variants.append(newVariant(u"A"_s));
  if (place == 0 && !m_steps.isEmpty()) m_waitsBeforeFirst.remove(m_steps.first().key);
  m_stepPlaces.insert(place < m_steps.size() ? m_stepPlaces.indexOf(m_steps[place].key) : m_stepPlaces.size(),
                      step.key);
  m_variantPlaces.append(step.variants.first().key);
  m_steps.insert(place, step);
  ++m_revision;
  return step.key;
}

bool SequenceDraft::removeStep(const QUuid& step) {
  const qsizetype place = placeOf(step);
  if (place < 0) return false;
  m_removedSteps.insert(step, {m_steps.takeAt(place), place == 0});
  if (place == 0) startFirstAtOnce();
  ++m_revision;
  return true;
}

bool SequenceDraft::restoreStep(const QUuid& step) {
  const auto removed = m_removedSteps.constFind(step);
  if (removed == m_removedSteps.cend()) return false;
  const qsizetype place = placeAmong(m_steps, m_stepPlaces, step);
  const bool wasFirst = removed->wasFirst;
  m_steps.insert(place, removed->step);
  m_removedSteps.erase(removed);
  if (place == 0 && !wasFirst) startFirstAtOnce();
  giveWaitBack(place == 0 ? 1 : place);
  ++m_revision;
  return true;
}

/// The step that has just become the first; one that is the first as loaded keeps whatever wait it has.
void SequenceDraft::startFirstAtOnce() {
  if (m_steps.isEmpty() || m_steps.first().delayMinutes == 0) return;
  DraftStep& first = m_steps.first();
  m_waitsBeforeFirst.insert(first.key, std::exchange(first.delayMinutes, 0));
}

/// Taking a removal back takes back what it did to the wait of the step behind.
void SequenceDraft::giveWaitBack(qsizetype place) {
  if (place >= m_steps.size()) return;
  const auto wait = m_waitsBeforeFirst.constFind(m_steps[place].key);
  if (wait == m_waitsBeforeFirst.cend()) return;
  m_steps[place].delayMinutes = *wait;
  m_waitsBeforeFirst.erase(wait);
}

void SequenceDraft::setWaitDays(const QUuid& step, qint64 days) {
  setDelay(step, std::clamp(days, qint64(1), mostWaitDays) * minutesPerDay);
}

void SequenceDraft::setDelay(const QUuid& step, qint64 minutes) {
  DraftStep* found = find(step);
  if (!found) return;
  m_waitsBeforeFirst.remove(step);
  set(found->delayMinutes, minutes);
}

void SequenceDraft::setSameThread(const QUuid& step, bool sameThread) {
  DraftStep* found = find(step);
  if (!found || found->sameThread == sameThread) return;
  set(found->sameThread, sameThread);
  if (placeOf(step) == 0) return;
  for (DraftVariant& variant : found->variants) {
    if (sameThread && !variant.subject.isEmpty())
      m_subjectsAside.insert(variant.key, std::exchange(variant.subject, {}));
    else if (!sameThread && variant.subject.isEmpty())
      variant.subject = m_subjectsAside.take(variant.key);
  }
}

void SequenceDraft::show(const QUuid& step, qsizetype variant) {
  DraftStep* found = find(step);
  if (found && variant >= 0 && variant < found->variants.size()) found->shown = variant;
}

QUuid SequenceDraft::addVariant(const QUuid& step) {
  DraftStep* found = find(step);
  const QString label = found ? found->freeLabel() : QString();
  if (label.isEmpty()) return {};
  found->variants.append(newVariant(label));
  found->shown = found->variants.size() - 1;
  m_variantPlaces.append(found->variants.last().key);
  ++m_revision;
  return found->variants.last().key;
}

bool SequenceDraft::removeVariant(const QUuid& variant) {
  const auto [step, index] = findVariant(variant);
  if (!step || step->variants.size() == 1) return false;
  m_removedVariants.insert(variant, {step->key, step->variants.takeAt(index)});
  if (step->shown > index || step->shown == step->variants.size()) --step->shown;
  ++m_revision;
  return true;
}

bool SequenceDraft::restoreVariant(const QUuid& variant) {
  const auto removed = m_removedVariants.constFind(variant);
  if (removed == m_removedVariants.cend()) return false;
  DraftStep* step = find(removed->step);
  // Its step may be gone as well, and may come back.
  if (const auto gone = m_removedSteps.find(removed->step); gone != m_removedSteps.end()) step = &gone->step;
  if (!step) return false;
  DraftVariant back = removed->variant;
  if (step->hasLabel(back.label)) back.label = step->freeLabel();
  if (back.label.isEmpty()) return false;
  step->shown = placeAmong(step->variants, m_variantPlaces, variant);
  step->variants.insert(step->shown, back);
  m_removedVariants.erase(removed);
  ++m_revision;
  return true;
}

void SequenceDraft::setSubject(const QUuid& variant, const QString& subject) {
  setOfVariant(variant, &DraftVariant::subject, subject);
}

void SequenceDraft::setBody(const QUuid& variant, const QString& body) {
  setOfVariant(variant, &DraftVariant::body, body);
}

void SequenceDraft::setWeight(const QUuid& variant, qint64 weight) {
  setOfVariant(variant, &DraftVariant::weight, std::max(weight, qint64(0)));
}

void SequenceDraft::setEnabled(const QUuid& variant, bool enabled) {
  setOfVariant(variant, &DraftVariant::enabled, enabled);
}

void SequenceDraft::takeIds(const QList<DraftStep>& held) {
  QHash<QUuid, std::optional<QString>> ids;
  for (const DraftStep& step : held) {
    ids.insert(step.key, step.id);
    for (const DraftVariant& variant : step.variants) ids.insert(variant.key, variant.id);
  }
  each([&ids](auto& item) { item.id = ids.value(item.key); });
}

void SequenceDraft::keepIdsOf(const QList<CampaignStep>& steps) {
  QSet<QString> stepIds, variantIds;
  for (const CampaignStep& step : steps) {
    stepIds.insert(step.id);
    for (const CampaignVariant& variant : step.variants) variantIds.insert(variant.id);
  }
  each([&]<class Item>(Item& item) {
    const auto& known = std::is_same_v<Item, DraftStep> ? stepIds : variantIds;
    if (item.id && !known.contains(*item.id)) item.id.reset();
  });
}

void SequenceDraft::rebuild(const QList<CampaignStep>& steps) {
  const QList<DraftStep> old = std::exchange(m_steps, draftOf(steps));
  QList<QUuid> stepPlaces, variantPlaces;
  for (DraftStep& step : m_steps) {
    const DraftStep* before = keepKey(old, step);
    for (qsizetype i = 0; before && i < step.variants.size(); ++i) {
      const DraftVariant* same = keepKey(before->variants, step.variants[i]);
      if (same == &before->variants[before->shown]) step.shown = i;
    }
    stepPlaces.append(step.key);
    for (const DraftVariant& variant : std::as_const(step.variants)) variantPlaces.append(variant.key);
  }
  m_stepPlaces = merged(stepPlaces, m_stepPlaces);
  m_variantPlaces = merged(variantPlaces, m_variantPlaces);
  m_waitsBeforeFirst.clear();
  ++m_revision;
}

}  // namespace orv
