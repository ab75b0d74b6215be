#include "app/leads/LeadFilters.h"

#include <algorithm>

#include "app/leads/LeadWords.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto minKey = u"followersMin"_s, maxKey = u"followersMax"_s, keywordsKey = u"q"_s, placeKey = u"qin"_s;
const auto anywhere = u"any"_s;
constexpr int followersAtMost = 2'000'000'000;

QString chipKey(const LeadSearch::Part& part) { return part.key + u'=' + part.value; }

/// What belongs to another filter, or narrows nothing, has no chip of its own.
bool hasChip(const QString& key) { return key != "source"_L1 && key != placeKey && key != minKey && key != maxKey; }

QString number(const QString& text) {
  bool isNumber = false;
  const qint64 count = text.toLongLong(&isNumber);
  return isNumber ? Format::grouped(count) : text;
}

}  // namespace

LeadFilters::LeadFilters(WorkspaceContext& context, Store& whole, Records records)
    : Store(context, &whole),
      m_facetContext{context, *this, m_search, {}, std::move(records)},
      m_isFolded(services().preferences.leadFiltersFolded()) {}

void LeadFilters::edit(const LeadSearch& search, bool typed) {
  if (std::exchange(m_search, search) == search) return;
  for (const auto& [key, list] : m_facets) list->searchChanged();
  learnWords();
  Q_EMIT changed();
  Q_EMIT edited(typed);
}

/// Chips of values that do not speak for themselves need the service's words.
void LeadFilters::learnWords() {
  for (const LeadSearch::Part& part : m_search.parts()) {
    const LeadField* field = leadField(part.key);
    if (field && (field->isCoded || field->kind == LeadField::Kind::record)) facet(part.key)->show();
  }
}

void LeadFilters::setSearch(const LeadSearch& search) { edit(search); }

void LeadFilters::setValues(const QMap<QString, QString>& values) {
  LeadSearch search = m_search;
  search.values = values;
  edit(search);
}

void LeadFilters::setPool(const QString& pool) {
  LeadSearch search = m_search;
  search.only = pool;
  if (search.pool() != m_search.pool()) edit(search);
}

QList<Choice> LeadFilters::databases() const {
  return {{.key = u"all"_s, .label = u"All"_s},
          {.key = u"linkedin"_s, .label = u"LinkedIn"_s},
          {.key = u"instagram"_s, .label = u"Instagram"_s}};
}

void LeadFilters::chooseDatabase(const QString& name) {
  LeadSearch search = m_search;
  search.chooseDatabase(name);
  edit(search);
}

QVariantMap LeadFilters::values() const {
  QVariantMap values;
  for (const auto& [key, value] : m_search.values.asKeyValueRange()) values.insert(key, value);
  return values;
}

int LeadFilters::holding(const QString& group) const {
  int holding = 0;
  for (const LeadSearch::Part& part : m_search.parts()) {
    const LeadField* field = leadField(part.key);
    holding += field && field->group == group && part.key != maxKey;
  }
  // The bounds are one filter.
  return holding + (group == "followers"_L1 && m_search.has(maxKey) && !m_search.has(minKey));
}

QList<Choice> LeadFilters::groups() const {
  QList<Choice> groups;
  for (const LeadFieldGroup& group : leadFieldGroups(database()))
    groups.append(
        {.key = group.key, .label = group.title, .count = holding(group.key), .ticked = m_open.contains(group.key)});
  return groups;
}

Choice LeadFilters::chip(const LeadSearch::Part& part) {
  const LeadField* field = leadField(part.key);
  const bool isExcluded = !includedKey(part.key).isEmpty();
  Choice chip{.key = chipKey(part),
              .label = isExcluded || !field ? QString() : field->title,
              .detail = part.value,
              .ticked = isExcluded};
  // A key that this build does not know is told by itself: nothing narrows a search unseen.
  if (!field) chip.label = part.key;
  if (part.key == "industry"_L1) chip.label = LeadWords::industryTitle(database());
  if (part.key == keywordsKey && m_search.has(placeKey))
    for (const Choice& place : keywordPlaces())
      if (place.key == m_search.value(placeKey) && place.key != anywhere)
        chip.label += u" in "_s + place.label.toLower();
  if (field && field->kind == LeadField::Kind::flag) {
    chip.label.clear();
    chip.detail = field->title;
  }
  if (FacetList* list = facet(part.key)) chip.detail = list->labelOf(part.value);
  return chip;
}

std::optional<Choice> LeadFilters::followersChip() const {
  const QString least = m_search.value(minKey), most = m_search.value(maxKey);
  if (least.isEmpty() && most.isEmpty()) return std::nullopt;
  const QString range = least.isEmpty()  ? u"up to "_s + number(most)
                        : most.isEmpty() ? u"from "_s + number(least)
                                         : number(least) + u" to "_s + number(most);
  return Choice{.key = u"followers="_s, .label = u"Followers:"_s, .detail = range};
}

QList<Choice> LeadFilters::chips() {
  QList<Choice> chips;
  for (const LeadSearch::Part& part : m_search.parts())
    if (hasChip(part.key)) chips.append(chip(part));
  if (const auto followers = followersChip()) chips.append(*followers);
  return chips;
}

void LeadFilters::removeChip(const QString& chip) {
  LeadSearch search = m_search;
  if (chip == "followers="_L1) {
    search.values.remove(minKey);
    search.values.remove(maxKey);
  } else {
    const qsizetype at = chip.indexOf(u'=');
    search.remove(LeadSearch::Part{chip.left(at), chip.mid(at + 1)});
    if (!search.has(keywordsKey)) search.values.remove(placeKey);
  }
  edit(search);
}

void LeadFilters::clear() {
  if (!std::exchange(m_shownExclusions, {}).isEmpty()) Q_EMIT changed();
  LeadSearch search;
  search.only = m_search.only;
  search.set(u"source"_s, m_search.value(u"source"_s));
  edit(search);
}

QStringList LeadFilters::exclusions() const {
  QStringList keys = m_shownExclusions;
  for (const LeadField& field : leadFields())
    if (field.excludes && m_search.has(LeadSearch::excluding(field.key)) && !keys.contains(field.key))
      keys.append(field.key);
  return keys;
}

QList<Choice> LeadFilters::keywordPlaces() {
  return {{.key = anywhere, .label = u"Anywhere"_s},
          {.key = u"title"_s, .label = u"Title"_s},
          {.key = u"company"_s, .label = u"Company"_s},
          {.key = u"keywords"_s, .label = u"Company keywords"_s}};
}

void LeadFilters::setFolded(bool folded) {
  if (std::exchange(m_isFolded, folded) == folded) return;
  services().preferences.setLeadFiltersFolded(folded);
  Q_EMIT foldedChanged();
}

void LeadFilters::type(const QString& key, const QString& text) {
  LeadSearch search = m_search;
  search.set(key, text.trimmed().isEmpty() ? QString() : text);
  if (key == keywordsKey && !search.has(keywordsKey)) search.values.remove(placeKey);
  edit(search, true);
}

void LeadFilters::choose(const QString& key, const QString& value) {
  LeadSearch search = m_search;
  search.set(key, key == placeKey && value == anywhere ? QString() : value);
  edit(search);
}

void LeadFilters::toggle(const QString& key, const QString& value) {
  LeadSearch search = m_search;
  if (!LeadSearch::takesSeveral(key))
    search.set(key, search.value(key) == value ? QString() : value);
  else if (search.holds(key, value))
    search.remove(key, value);
  else
    search.add(key, value);
  edit(search);
}

void LeadFilters::addTyped(const QString& key) {
  FacetList* list = facet(key);
  if (!list || !list->canAdd()) return;
  LeadSearch search = m_search;
  search.add(key, list->typed());
  list->setTyped({});
  edit(search);
}

void LeadFilters::setOpen(const QString& group, bool open) {
  if (m_open.contains(group) == open) return;
  open ? m_open.append(group) : (void)m_open.removeAll(group);
  Q_EMIT changed();
}

void LeadFilters::showExclusions(const QString& key) {
  if (exclusions().contains(key)) return;
  m_shownExclusions.append(key);
  Q_EMIT changed();
}

QString LeadFilters::numberProblem(const QString& text) const {
  const bool isFine = text.trimmed().isEmpty() || wholeNumber(text, 0, followersAtMost);
  return isFine ? QString() : u"A whole number"_s;
}

QList<LeadField> LeadFilters::fields(const QString& group) const {
  QList<LeadField> fields = leadFields();
  fields.removeIf([&](const LeadField& field) { return field.group != group || !fitsDatabase(field.key, database()); });
  return fields;
}

FacetList* LeadFilters::facet(const QString& key) {
  using Kind = LeadField::Kind;
  const LeadField* field = leadField(key);
  if (!field || (field->kind != Kind::facet && field->kind != Kind::record)) return nullptr;
  auto& list = m_facets[key];
  if (!list) {
    list = std::make_unique<FacetList>(key, m_facetContext);
    // QML takes what a call returns for its own, unless it has a parent.
    list->setParent(this);
    // Not at once: it is made while somebody evaluates what this would change.
    connect(list.get(), &FacetList::learned, this, &LeadFilters::changed, Qt::QueuedConnection);
  }
  return list.get();
}

void LeadFilters::recordsChanged() {
  for (const LeadField& field : leadFields())
    if (const auto list = m_facets.find(field.key); field.kind == LeadField::Kind::record && list != m_facets.end())
      list->second->searchChanged();
  Q_EMIT changed();
}

}  // namespace orv
