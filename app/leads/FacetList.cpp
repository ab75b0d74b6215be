#include "app/leads/FacetList.h"

#include <algorithm>

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadVerification.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const LeadField& fieldOf(const QString& key) {
  static const LeadField none;
  const LeadField* field = leadField(key);
  return field ? *field : none;
}

}  // namespace

FacetList::FacetList(const QString& key, FacetContext& context)
    : Store(context.workspace, &context.whole), m_context(context), m_key(key), m_field(fieldOf(key)) {}

QString FacetList::title() const { return m_key == m_field.key ? m_field.title : u"Exclude "_s + m_field.several; }

FacetList::Question FacetList::question() const {
  // The workspace's own records are few and searched here.
  return single() ? Question{} : Question{m_context.search.database(), m_typed.trimmed()};
}

void FacetList::setTyped(const QString& text) {
  if (std::exchange(m_typed, text) == text) return;
  m_failed = false;
  m_load.cancel();
  if (!isAnswered()) ask(true);
  Q_EMIT changed();
}

void FacetList::setExpanded(bool expanded) {
  if (std::exchange(m_isExpanded, expanded) != expanded) Q_EMIT changed();
}

void FacetList::show() {
  m_isWanted = true;
  if (!isAnswered() && m_load.isIdle()) load();
}

void FacetList::searchChanged() {
  if (!m_isWanted) return Q_EMIT changed();
  if (single())
    load();
  else if (isAnswered())
    m_load.cancel();
  else if (m_load.isIdle() || m_asked != question())
    load();
  Q_EMIT changed();
}

void FacetList::load() {
  m_failed = false;
  ask(false);
  Q_EMIT changed();
}

void FacetList::ask(bool isTyped) {
  m_asked = question();
  m_load.start(loadTask(m_asked, isTyped));
}

Task<void> FacetList::loadTask(Question question, bool isTyped) {
  if (single()) {
    if (const auto records = m_context.records(m_key)) answer(question, *records);
    co_return;
  }
  const auto known = m_context.known.constFind(knownAs(question.database));
  if (question.typed.isEmpty() && known != m_context.known.cend()) {
    answer(question, *known);
    co_return;
  }
  if (isTyped) co_await services().clock.sleep(typingRest);
  try {
    const FacetPage page = co_await api().send(Requests::leadFacets(m_field.key, question.database, question.typed));
    if (question.typed.isEmpty()) m_context.known.insert(knownAs(question.database), page.items);
    answer(question, page.items);
  } catch (const APIError& error) {
    if (error.is(APIError::Kind::cancelled)) co_return;
    m_failed = true;
    Q_EMIT changed();
  }
}

void FacetList::answer(const Question& question, const QList<FacetPage::Item>& items) {
  m_items = items;
  m_answered = question;
  Q_EMIT changed();
  Q_EMIT learned();
}

QList<FacetPage::Item> FacetList::shownItems() const {
  if (!single() || m_typed.trimmed().isEmpty()) return m_items;
  QList<FacetPage::Item> items = m_items;
  items.removeIf(
      [this](const FacetPage::Item& item) { return !item.label.contains(m_typed.trimmed(), Qt::CaseInsensitive); });
  return items;
}

QList<Choice> FacetList::rows() const {
  QStringList ticked = single() ? QStringList{m_context.search.value(m_key)} : m_context.search.pieces(m_key);
  ticked.removeAll(QString());
  QList<Choice> rows;
  const auto items = shownItems();
  qsizetype at = 0;
  QStringList listed;
  for (const FacetPage::Item& item : items) {
    const bool isTicked = holds(item.value);
    listed.append(isTicked && !single() ? LeadSearch::piecesOf(item.value) : QStringList{item.value});
    if (at++ >= shownAtFirst && !m_isExpanded && !isTicked) continue;
    rows.append({.key = item.value,
                 .label = shownName(item.label),
                 .detail = item.n > 0 ? Format::compactCount(item.n) : QString(),
                 .ticked = isTicked});
  }
  // What is set stands first where the service does not name it.
  qsizetype first = 0;
  for (const QString& value : ticked)
    if (!listed.contains(value)) rows.insert(first++, {.key = value, .label = labelOf(value), .ticked = true});
  return rows;
}

bool FacetList::holds(const QString& value) const {
  return single() ? m_context.search.value(m_key) == value : m_context.search.holds(m_key, value);
}

int FacetList::hiddenCount() const {
  const auto items = shownItems();
  if (m_isExpanded) return 0;
  int hidden = 0;
  for (qsizetype at = shownAtFirst; at < items.size(); ++at) hidden += !holds(items[at].value);
  return hidden;
}

bool FacetList::canAdd() const {
  const QString text = m_typed.trimmed();
  if (!m_field.takesTyped || text.isEmpty()) return false;
  const auto isIt = [&text](const QString& value) { return value.compare(text, Qt::CaseInsensitive) == 0; };
  return std::ranges::none_of(m_items, isIt, &FacetPage::Item::value) &&
         std::ranges::none_of(m_context.search.pieces(m_key), isIt);
}

QString FacetList::emptyText() const {
  if (!isAnswered() || !rows().isEmpty()) return {};
  if (m_typed.trimmed().isEmpty()) return u"No "_s + m_field.several;
  return canAdd() ? QString() : u"No "_s + m_field.several + u" match"_s;
}

QString FacetList::hintOf(const QString& value) const {
  return m_field.key == "verification"_L1 ? LeadVerification(value).explanation() : QString();
}

QString FacetList::labelOf(const QString& value) const {
  const auto find = [&value](const QList<FacetPage::Item>& items) -> const FacetPage::Item* {
    const auto item = std::ranges::find(items, value, &FacetPage::Item::value);
    return item == items.end() ? nullptr : &*item;
  };
  if (const auto* item = find(m_items)) return shownName(item->label);
  const auto known = m_context.known.value(knownAs(m_context.search.database()));
  const auto* item = find(known);
  return shownName(item ? item->label : value);
}

}  // namespace orv
