#include "demo/WorkspaceLeads.h"

#include <algorithm>

#include "demo/LeadWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// Stands for what is not unlocked.
const auto hidden = u"•••"_s;

/// "$12M" is twelve.
qint64 millionsOf(const QString& revenue) {
  QString digits;
  for (const QChar c : revenue)
    if (c.isDigit()) digits += c;
  return digits.toLongLong();
}

QString domainOf(const QString& email) { return email.section(u'@', 1); }

}  // namespace

bool DemoLeadList::add(LeadPlace lead) {
  if (has.contains(lead)) return false;
  has.insert(lead);
  members.append({lead, ++lastOrder});
  return true;
}

bool DemoLeadList::remove(LeadPlace lead) {
  if (!has.remove(lead)) return false;
  members.removeIf([lead](const Member& member) { return member.lead == lead; });
  return true;
}

LeadList DemoLeadList::shown() const {
  LeadList shown = record;
  shown.leadCount = members.size();
  return shown;
}

std::optional<LeadPlace> WorkspaceLeads::placeOf(const QString& id) const {
  if (const qint64 number = base->numberOf(id); number >= 0) return LeadPlace(number);
  const auto own = m_ownById.constFind(id);
  return own == m_ownById.cend() ? std::nullopt : std::optional(*own);
}

LeadRecord WorkspaceLeads::at(LeadPlace place) const {
  return isFromBase(place) ? base->lead(qint64(place)) : m_own[qint64(place) - base->size()];
}

LeadRecord WorkspaceLeads::shown(LeadPlace place) const {
  LeadRecord lead = at(place);
  lead.locked = !has(place);
  if (!*lead.locked) return lead;
  lead.email = hidden + u'@' + domainOf(lead.email);
  if (lead.phone) lead.phone = hidden;
  return lead;
}

LeadPlace WorkspaceLeads::addOwn(const LeadRecord& lead) {
  const LeadPlace place = end();
  m_own.append(lead);
  m_ownById.insert(lead.id, place);
  if (m_byAddress) m_byAddress->insert(lead.email, place);
  return place;
}

std::optional<LeadPlace> WorkspaceLeads::placeOfAddress(const QString& email) {
  if (!m_byAddress) {
    m_byAddress.emplace();
    for (const LeadPlace place : std::as_const(m_unlocked)) m_byAddress->insert(at(place).email, place);
    for (const LeadRecord& lead : std::as_const(m_own)) m_byAddress->insert(lead.email, m_ownById.value(lead.id));
  }
  const auto found = m_byAddress->constFind(email);
  return found == m_byAddress->cend() ? std::nullopt : std::optional(*found);
}

UnlockUsage WorkspaceLeads::usage(const QDate& today) {
  const QDate next = QDate(today.year(), today.month(), 1).addMonths(1);
  if (QDate::fromString(m_usage.resetsAt, Qt::ISODate) != next) {
    // Credits are bought, not given anew.
    const bool isNewMonth = !m_usage.resetsAt.isEmpty() && !m_usage.credits.value_or(false);
    if (isNewMonth) m_usage.used = 0;
    m_usage.resetsAt = next.toString(Qt::ISODate);
  }
  m_usage.left = std::max<qint64>(0, m_usage.limit - m_usage.used);
  return m_usage;
}

void WorkspaceLeads::unlock(LeadPlace place) {
  m_unlocked.insert(place);
  ++m_usage.used;
  if (m_byAddress) m_byAddress->insert(at(place).email, place);
}

LeadFacts::LeadFacts(const LeadRecord& lead)
    : name(lead.fullName.value_or(lead.firstName.value_or(QString()) + u' ' + lead.lastName.value_or(QString()))) {
  const auto text = [](const std::optional<QString>& field) { return field.value_or(QString()); };
  company = {text(lead.company),
             text(lead.industry),
             text(lead.niche),
             text(lead.country),
             text(lead.state),
             text(lead.city),
             lead.esp,
             domainOf(lead.email),
             text(lead.keywords),
             {},
             text(lead.technologies).split(u", "_s, Qt::SkipEmptyParts),
             lead.employees ? words::bandOf(words::sizes(), *lead.employees) : 0,
             lead.annualRevenue ? words::bandOf(words::revenues(), millionsOf(*lead.annualRevenue)) : 0};
  title.title = text(lead.title);
  const auto& positions = words::positions();
  const auto position = std::ranges::find(positions, title.title, &words::Position::title);
  if (position != positions.end()) title = {position->title, position->seniority, position->department};
  person = {lead.source, lead.verification.rawValue, lead.phone.has_value(), lead.followers};
}

bool LeadFacts::fit(const LeadMatcher& matcher) const {
  const auto hasWords = [this](const LeadMatcher::Keywords& words) {
    return words.areIn(company) || words.areIn(title) || words.areInName(name);
  };
  return matcher.fits(company) && matcher.fits(title) && matcher.fits(person) &&
         (matcher.wanted().isEmpty() || hasWords(matcher.wanted())) &&
         !(!matcher.unwanted().isEmpty() && hasWords(matcher.unwanted()));
}

CampaignLead enrollable(const WorkspaceLeads& leads, LeadPlace place) {
  const LeadRecord lead = leads.at(place);
  CampaignLead person;
  person.id = lead.id;
  if (leads.has(place)) person.email = lead.email;
  person.verification = lead.verification.rawValue;
  person.esp = lead.esp;
  person.website = lead.website;
  person.firstName = lead.firstName;
  person.lastName = lead.lastName;
  person.company = lead.company;
  person.title = lead.title;
  person.data = lead.extra;
  return person;
}

LeadRecord recordOf(const CampaignLead& person, const QString& createdAt) {
  LeadRecord lead;
  lead.id = person.id;
  lead.email = person.email;
  lead.verification = LeadVerification(person.verification.value_or(QString()));
  lead.esp = person.esp.value_or(QString());
  lead.website = person.website;
  lead.firstName = person.firstName;
  lead.lastName = person.lastName;
  if (lead.firstName && lead.lastName) lead.fullName = *lead.firstName + u' ' + *lead.lastName;
  lead.company = person.company;
  lead.title = person.title;
  lead.extra = person.data;
  lead.source = u"import"_s;
  lead.createdAt = lead.updatedAt = createdAt;
  return lead;
}

}  // namespace orv::demo
