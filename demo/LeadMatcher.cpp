#include "demo/LeadMatcher.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

using Texts = std::optional<QList<QString>>;
using Numbers = std::optional<QList<qint64>>;

bool isOneOf(const QString& text, const QList<QString>& values) { return values.contains(text, Qt::CaseInsensitive); }

bool holdsOneOf(const QString& text, const QList<QString>& fragments) {
  return std::ranges::any_of(fragments, [&](const QString& one) { return text.contains(one, Qt::CaseInsensitive); });
}

bool fitsText(const QString& text, const Texts& wanted, const Texts& unwanted) {
  return (!wanted || isOneOf(text, *wanted)) && !(unwanted && isOneOf(text, *unwanted));
}

bool fitsFragment(const QString& text, const Texts& wanted, const Texts& unwanted) {
  return (!wanted || holdsOneOf(text, *wanted)) && !(unwanted && holdsOneOf(text, *unwanted));
}

bool fitsNumber(qint64 number, const Numbers& wanted, const Numbers& unwanted) {
  return (!wanted || wanted->contains(number)) && !(unwanted && unwanted->contains(number));
}

bool hasOneOf(const QStringList& all, const QList<QString>& values) {
  return std::ranges::any_of(all, [&](const QString& one) { return isOneOf(one, values); });
}

}  // namespace

LeadMatcher::Keywords::Keywords(const std::optional<QString>& phrases, const QString& where) : m_where(where) {
  for (const QString& phrase : phrases.value_or(QString()).split(u','))
    if (!phrase.trimmed().isEmpty()) m_phrases.append(phrase.trimmed());
}

bool LeadMatcher::Keywords::stands(QStringView where, const QString& text) const {
  return (m_where == "any"_L1 || m_where == where) && holdsOneOf(text, m_phrases);
}

bool LeadMatcher::Keywords::areIn(const CompanyFacts& facts) const {
  return stands(u"company", facts.company) || stands(u"industry", facts.industry) || stands(u"niche", facts.niche) ||
         stands(u"keywords", facts.keywords);
}

bool LeadMatcher::Keywords::areIn(const TitleFacts& facts) const { return stands(u"title", facts.title); }

LeadMatcher::LeadMatcher(const LeadFilterBody& filter)
    : m_filter(filter), m_wanted(filter.q, filter.qin.value_or(u"any"_s)), m_unwanted(filter.xq, u"any"_s) {}

bool LeadMatcher::fits(const CompanyFacts& facts) const {
  const LeadFilterBody& f = m_filter;
  return fitsFragment(facts.company, f.company, f.xcompany) && fitsText(facts.industry, f.industry, f.xindustry) &&
         fitsText(facts.niche, f.niche, f.xniche) && fitsText(facts.country, f.country, f.xcountry) &&
         fitsText(facts.state, f.state, f.xstate) && fitsText(facts.city, f.city, f.xcity) &&
         fitsText(facts.esp, f.esp, f.xesp) && fitsNumber(facts.band, f.band, f.xband) &&
         fitsNumber(facts.revenue, f.revenue, {}) && fitsText(facts.funding, f.funding, {}) &&
         (!f.domain || facts.domain.compare(*f.domain, Qt::CaseInsensitive) == 0) &&
         (!f.tech || hasOneOf(facts.technologies, *f.tech)) && !(f.xtech && hasOneOf(facts.technologies, *f.xtech));
}

bool LeadMatcher::fits(const TitleFacts& facts) const {
  const LeadFilterBody& f = m_filter;
  return fitsFragment(facts.title, f.title, f.xtitle) && fitsText(facts.seniority, f.seniority, {}) &&
         fitsText(facts.department, f.department, {});
}

bool LeadMatcher::fits(const PersonFacts& facts) const {
  const LeadFilterBody& f = m_filter;
  return fitsText(facts.source, f.source, {}) && fitsText(facts.verification, f.verification, f.xverification) &&
         (!f.hasPhone.value_or(false) || facts.hasPhone) &&
         (!f.followersMin || (facts.followers && *facts.followers >= *f.followersMin)) &&
         (!f.followersMax || (facts.followers && *facts.followers <= *f.followersMax));
}

}  // namespace orv::demo
