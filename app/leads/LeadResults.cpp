#include "app/leads/LeadResults.h"

#include "app/leads/HowMany.h"
#include "app/leads/LeadWords.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadResults::LeadResults(WorkspaceContext& context, Store& whole, LeadActions& actions)
    : Store(context, &whole),
      m_actions(actions),
      m_list(*this, [this](const PageRequest& page) { return readPage(page); },
             {.failed = u"Couldn’t refresh the leads."_s,
              .first = firstPage,
              .further = furtherPage,
              .loadsByItself = false}),
      m_card(context, *this, [this](const QString& id) { return find(id); }) {
  connect(&m_list, &ResourceBase::changed, this, &LeadResults::changed);
  connect(&m_list, &ResourceBase::changed, this, &LeadResults::selectionChanged);
  connect(&m_list, &ResourceBase::valueChanged, this, [this] { m_selection.prune(); });
  connect(&m_selection, &RowSelection::changed, this, &LeadResults::selectionChanged);
  connect(actions.allowance(), &LeadAllowance::unlocked, this, &LeadResults::take);
  connect(actions.allowance(), &LeadAllowance::inDoubt, &m_list, &ResourceBase::markStale);
}

Task<LeadSearchPage> LeadResults::readPage(PageRequest page) {
  return api().send(Requests::searchLeads(m_search, page.cursor));
}

void LeadResults::ask(const LeadSearch& search) {
  const bool isAnswered = m_list.isAsked() && !m_list.asksAnew();
  m_isExpecting = false;
  if (search == m_search && isAnswered) {
    Q_EMIT changed();
    return;
  }
  m_search = search;
  m_selection.clear();
  m_list.ask();
}

void LeadResults::expect() {
  m_isExpecting = true;
  m_list.cancel();
  m_selection.clear();
  Q_EMIT changed();
}

void LeadResults::ensureLoaded() {
  if (m_list.needsLoad()) m_list.load();
}

void LeadResults::refresh() {
  m_selection.clear();
  m_list.load();
}

std::optional<LeadCount> LeadResults::count() const {
  return m_list.head() ? std::optional(m_list.head()->count) : std::nullopt;
}

QString LeadResults::countText() const {
  const auto known = count();
  return known ? LeadWords::matches(*known) : u"Counting"_s;
}

QString LeadResults::shownText() const {
  const auto known = count();
  if (!known) return {};
  const int read = m_list.readCount();
  if (!m_list.canLoadMore()) return LeadWords::counted(read);
  return Format::grouped(read) + (known->exact ? u" of "_s : u" of about "_s) + LeadWords::counted(known->value);
}

QString LeadResults::selectedText() const { return Format::grouped(m_selection.count()) + u" selected"_s; }

std::optional<LeadTarget> LeadResults::target() const {
  if (!m_selection.ids().isEmpty()) return LeadTarget{LeadTarget::Ids(m_selection.ids())};
  const auto known = count();
  if (waiting() || !known) return std::nullopt;
  if (m_selection.first()) return LeadTarget{LeadTarget::Filter{m_search, *known, *m_selection.first()}};
  if (m_search.hasFilters() && known->value > 0) return LeadTarget{LeadTarget::Filter{m_search, *known}};
  return std::nullopt;
}

void LeadResults::withTarget(void (LeadActions::*act)(const LeadTarget&)) {
  if (const auto fixed = target())
    (m_actions.*act)(*fixed);
  else
    services().toasts.show({.message = u"Tick leads or set a filter first"_s});
}

void LeadResults::addToList() { withTarget(&LeadActions::addToList); }
void LeadResults::addToCampaign() { withTarget(&LeadActions::addToCampaign); }
void LeadResults::unlock() { withTarget(&LeadActions::unlock); }

void LeadResults::tickLoaded() {
  m_selection.clear();
  m_selection.toggleAll();
}

QString LeadResults::firstProblem(const QString& text) const { return HowMany::problem(text); }

void LeadResults::takeFirst(const QString& text) {
  const auto number = HowMany::number(text);
  if (!number) return;
  m_firstForm.cancel();
  m_selection.takeFirst(*number);
}

QList<PageAction> LeadResults::offered(const QString& record) {
  const Lead* lead = find(record);
  if (!lead) return {};
  const QString id = record;
  const bool isLocked = LeadWords::isLocked(*lead);
  QList<PageAction> actions{
      {.key = u"open"_s, .title = u"Show the lead"_s, .icon = u"system-users"_s, .run = [this, id] {
         m_card.open(id);
       }}};
  if (isLocked)
    actions.append({.key = u"unlock"_s,
                    .title = u"Unlock"_s,
                    .icon = u"object-unlocked"_s,
                    .writes = true,
                    .possible = !m_actions.unlocking() && !m_actions.allowance()->busyIds().contains(id),
                    .run = [this, id] { m_actions.allowance()->unlockOne(id); }});
  else
    actions.append({.key = u"copy"_s,
                    .title = u"Copy email"_s,
                    .icon = u"edit-copy"_s,
                    .possible = !lead->email.isEmpty(),
                    .run = [this, id] { m_card.copyEmail(id); }});
  return actions;
}

void LeadResults::take(const QList<UnlockResult::Item>& leads) {
  for (const UnlockResult::Item& item : leads) {
    const Lead* known = find(item.id);
    if (!known) continue;
    Lead lead = *known;
    lead.email = item.email;
    lead.phone = item.phone;
    lead.locked.reset();
    m_list.put(lead);
  }
  m_card.take(leads);
}

const Lead* LeadResults::find(const QString& id) const {
  const FoundLead* row = m_list.find(id);
  return row ? &row->record() : nullptr;
}

}  // namespace orv
