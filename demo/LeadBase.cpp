#include "demo/LeadBase.h"

#include <array>

#include "demo/DemoRandom.h"
#include "demo/LeadWords.h"
#include "kit/api/JSONCoding.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {

/// What a lead is put together of, by places in the tables.
struct Traits {
  bool isInstagram = false;
  bool hasPhone = false;
  quint8 verification = 0;
  quint8 title = 0;
  quint16 company = 0;
  quint16 given = 0;
  quint16 family = 0;
  qint64 followers = 0;
};

namespace {

using words::bandOf;

constexpr std::array verifications{"valid"_L1, "catch_all"_L1, "unknown"_L1, "invalid"_L1};
constexpr auto idPrefix = "ld"_L1;

QString slug(const QString& name) { return name.toLower().remove(u' '); }

CompanyFacts linkedInCompany(qsizetype index) {
  const auto& families = words::familyNames();
  const auto& trades = words::trades();
  const qsizetype trade = index / families.size();
  const auto& [industry, niches, names, keywords] = trades[trade % trades.size()];
  DemoRandom random(quint64(index) * 0xd1342543de82ef95ULL);
  const auto& [city, state, country] = random.pick(words::places());
  const QString family = families[index % families.size()], name = names[trade / trades.size() % names.size()];
  CompanyFacts facts;
  facts.company = family + u' ' + name;
  facts.industry = industry;
  facts.niche = random.pick(niches);
  facts.country = country;
  facts.state = state;
  facts.city = city;
  facts.domain = slug(family) + u'-' + slug(name) + u".example"_s;
  facts.keywords = random.pick(keywords) + u", "_s + slug(facts.niche);
  facts.band = 1 + random.below(random.between(1, words::sizes().size()));
  facts.revenue = std::min<qint64>(words::revenues().size(), 1 + random.below(facts.band + 1));
  facts.funding = words::fundings()[random.below(random.between(1, words::fundings().size()))];
  static const QStringList providers{u"google"_s, u"google"_s, u"microsoft"_s, u"microsoft"_s, u"zoho"_s, u"other"_s};
  facts.esp = random.pick(providers);
  for (qint64 left = random.below(5); left > 0; --left)
    if (const QString& one = random.pick(words::technologies()); !facts.technologies.contains(one))
      facts.technologies.append(one);
  return facts;
}

/// People there have a category and a place instead.
CompanyFacts instagramCompany(qsizetype index) {
  const auto& places = words::places();
  const auto& trade = words::trades()[index / places.size()];
  CompanyFacts facts;
  facts.industry = trade.industry;
  facts.country = places[index % places.size()].country;
  facts.city = places[index % places.size()].city;
  facts.esp = u"google"_s;
  facts.domain = slug(trade.names.first()) + u'-' + slug(facts.city) + u".example"_s;
  facts.keywords = trade.keywords.first();
  return facts;
}

struct Companies {
  std::vector<CompanyFacts> facts;
  /// Those behind it are Instagram's.
  size_t linkedIn;
};

/// The same for every seed.
const Companies& companies() {
  static const Companies all = [] {
    Companies made;
    qsizetype names = 0;
    for (const auto& trade : words::trades()) names += trade.names.size();
    for (qsizetype i = 0; i < words::familyNames().size() * names; ++i) made.facts.push_back(linkedInCompany(i));
    made.linkedIn = made.facts.size();
    for (qsizetype i = 0; i < words::places().size() * words::trades().size(); ++i)
      made.facts.push_back(instagramCompany(i));
    return made;
  }();
  return all;
}

/// One more than there are positions: the last is none.
const std::vector<TitleFacts>& titles() {
  static const std::vector<TitleFacts> all = [] {
    std::vector<TitleFacts> made;
    for (const auto& [title, seniority, department] : words::positions())
      made.push_back({title, seniority, department});
    made.emplace_back();
    return made;
  }();
  return all;
}

PersonFacts personOf(const Traits& traits) {
  PersonFacts facts{
      traits.isInstagram ? u"instagram"_s : u"linkedin"_s, verifications[traits.verification], traits.hasPhone, {}};
  if (traits.isInstagram) facts.followers = traits.followers;
  return facts;
}

QString fullName(size_t given, size_t family) {
  return words::givenNames()[qsizetype(given)] + u' ' + words::familyNames()[qsizetype(family)];
}

/// From 0 to bound - 1, the lower the likelier.
quint16 skewed(quint64 bits, size_t bound) {
  const quint64 product = (bits & 0xffff) * (bits >> 16 & 0xffff);
  return quint16(product * bound >> 32);
}

template <class Facts, class Ask>
std::vector<bool> asked(const std::vector<Facts>& facts, Ask ask) {
  std::vector<bool> answers;
  answers.reserve(facts.size());
  for (const Facts& one : facts) answers.push_back(ask(one));
  return answers;
}

void addCompany(LeadRecord& lead, const CompanyFacts& facts, DemoRandom& random) {
  lead.company = facts.company;
  lead.niche = facts.niche;
  lead.state = facts.state;
  lead.website = u"https://"_s + facts.domain;
  const auto& size = words::sizes()[facts.band - 1];
  lead.employees = size.from + random.below(size.from * 3);
  const auto& revenue = words::revenues()[facts.revenue - 1];
  lead.annualRevenue = u'$' + QString::number(std::max<qint64>(1, revenue.from) + random.below(9)) + u'M';
  lead.technologies = facts.technologies.join(u", "_s);
}

}  // namespace

LeadBase::LeadBase(quint64 seed, qint64 size, const QDate& today) : m_seed(seed), m_size(size), m_today(today) {}

Traits LeadBase::traits(qint64 number) const {
  // Not the generator's own step, by which the next lead's bits would be these ones moved on.
  DemoRandom random(m_seed + quint64(number) * 0xd1342543de82ef95ULL);
  const quint64 who = random.next(), where = random.next();
  const Companies& all = companies();
  Traits traits{};
  traits.isInstagram = (who & 3) == 0;
  traits.hasPhone = (who >> 2 & 7) < 3;
  const quint64 checked = who >> 5 & 0xff;
  traits.verification = checked < 184 ? 0 : checked < 216 ? 1 : checked < 240 ? 2 : 3;
  traits.given = quint16((who >> 13 & 0xffff) % quint64(words::givenNames().size()));
  traits.family = quint16((who >> 29 & 0xffff) % quint64(words::familyNames().size()));
  if (traits.isInstagram) {
    traits.title = quint8(titles().size() - 1);
    traits.company = quint16(all.linkedIn + skewed(where, all.facts.size() - all.linkedIn));
    traits.followers = 100 + qint64((who >> 45 & 0x3ff) * (who >> 55) / 8);
  } else {
    traits.title = quint8(skewed(where >> 32, titles().size() - 1));
    traits.company = skewed(where, all.linkedIn);
  }
  return traits;
}

QDate LeadBase::createdOn(qint64 number) const {
  constexpr qint64 daysOfGathering = 700;
  return m_today.addDays(-1 - (m_size - 1 - number) * daysOfGathering / std::max<qint64>(1, m_size));
}

LeadRecord LeadBase::lead(qint64 number) const {
  const Traits t = traits(number);
  const CompanyFacts& company = companies().facts[t.company];
  const TitleFacts& title = titles()[t.title];
  const PersonFacts person = personOf(t);
  DemoRandom random(m_seed ^ quint64(number) * 0xd1342543de82ef95ULL);
  LeadRecord lead;
  lead.id = idPrefix + QString::number(number);
  lead.firstName = words::givenNames()[t.given];
  lead.lastName = words::familyNames()[t.family];
  lead.fullName = fullName(t.given, t.family);
  // Namesakes work at one company.
  const QString account = slug(*lead.firstName) + u'.' + slug(*lead.lastName) + QString::number(number, 36);
  lead.email = account + u'@' + company.domain;
  lead.esp = company.esp;
  lead.verification = LeadVerification(person.verification);
  lead.industry = company.industry;
  lead.country = company.country;
  lead.city = company.city;
  lead.source = person.source;
  lead.keywords = company.keywords;
  const QDate created = createdOn(number);
  lead.createdAt = formatPlatformDate(created.startOfDay(Qt::UTC));
  lead.updatedAt = lead.createdAt;
  lead.dateScraped = created.addDays(-3).toString(Qt::ISODate);
  if (!lead.verification.rawValue.isEmpty()) lead.dateVerified = created.toString(Qt::ISODate);
  lead.batchId = created.toString(u"'b'yyyyMM"_s);
  lead.leadSource = u"Orvella"_s;
  lead.icpTier = QString(QChar(u'A' + ushort(random.below(3))));
  if (t.hasPhone) lead.phone = u"+49 30 "_s + QString::number(random.between(1'000'000, 9'999'999));
  if (t.isInstagram) {
    lead.followers = t.followers;
    lead.instagramUsername = account;
    lead.instagramUrl = u"https://instagram.example/"_s + account;
  } else {
    lead.title = title.title;
    lead.linkedinUrl = u"https://linkedin.example/in/"_s + account;
    addCompany(lead, company, random);
  }
  return lead;
}

qint64 LeadBase::numberOf(const QString& id) const {
  bool isNumber = false;
  const qint64 number = id.startsWith(idPrefix) ? QStringView(id).sliced(idPrefix.size()).toLongLong(&isNumber) : -1;
  return isNumber && number >= 0 && number < m_size ? number : -1;
}

LeadBase::Plan::Plan(const LeadBase& base, const LeadFilterBody& filter)
    : m_base(base), m_matcher(filter), m_asksForFollowers(filter.followersMin || filter.followersMax) {
  // Those that are followed are looked at one by one.
  LeadFilterBody anyFollowers = filter;
  anyFollowers.followersMin.reset();
  anyFollowers.followersMax.reset();
  const LeadMatcher people(anyFollowers);
  for (quint8 i = 0; i < verifications.size(); ++i)
    for (const bool isInstagram : {false, true})
      for (const bool hasPhone : {false, true})
        m_people[isInstagram][i][hasPhone] =
            people.fits(personOf({.isInstagram = isInstagram, .hasPhone = hasPhone, .verification = i}));
  const auto fits = [this](const auto& facts) { return m_matcher.fits(facts); };
  m_companies = asked(companies().facts, fits);
  m_titles = asked(titles(), fits);
  const LeadMatcher::Keywords* const words[]{&m_matcher.wanted(), &m_matcher.unwanted()};
  for (size_t i = 0; i < std::size(words); ++i) {
    m_hasWords[i] = !words[i]->isEmpty();
    if (!m_hasWords[i]) continue;
    const auto holds = [&](const auto& facts) { return words[i]->areIn(facts); };
    m_companyHits[i] = asked(companies().facts, holds);
    m_titleHits[i] = asked(titles(), holds);
    for (size_t given = 0; given < size_t(words::givenNames().size()); ++given)
      for (size_t family = 0; family < size_t(words::familyNames().size()); ++family)
        m_nameHits[i].push_back(words[i]->areInName(fullName(given, family)));
  }
}

bool LeadBase::Plan::hasWords(const Traits& traits, size_t which) const {
  return m_companyHits[which][traits.company] || m_titleHits[which][traits.title] ||
         m_nameHits[which][size_t(traits.given) * size_t(words::familyNames().size()) + traits.family];
}

bool LeadBase::Plan::fits(qint64 number) const {
  const Traits traits = m_base.traits(number);
  return m_companies[traits.company] && m_titles[traits.title] &&
         m_people[traits.isInstagram][traits.verification][traits.hasPhone] &&
         !(m_asksForFollowers && !m_matcher.fits(personOf(traits))) && !(m_hasWords[0] && !hasWords(traits, 0)) &&
         !(m_hasWords[1] && hasWords(traits, 1));
}

qint64 LeadBase::Plan::count() const {
  if (m_count) return *m_count;
  m_count = 0;
  for (qint64 number = 0; number < m_base.size(); ++number) *m_count += fits(number);
  return *m_count;
}

std::shared_ptr<const LeadBase::Plan> LeadBase::plan(const LeadFilterBody& filter) const {
  const QByteArray key = encodeJSON(filter);
  if (const auto* known = m_plans.object(key)) return *known;
  const auto made = std::make_shared<const Plan>(*this, filter);
  m_plans.insert(key, new std::shared_ptr<const Plan>(made));
  return made;
}

bool LeadBase::hasFacet(const QString& field) {
  static const QStringList fields{u"title"_s, u"company"_s, u"industry"_s, u"niche"_s,        u"country"_s,
                                  u"state"_s, u"city"_s,    u"esp"_s,      u"verification"_s, u"band"_s,
                                  u"tech"_s,  u"revenue"_s, u"funding"_s,  u"seniority"_s,    u"department"_s};
  return fields.contains(field);
}

const QHash<QString, qint64>& LeadBase::tally(const QString& field, const QString& database) const {
  auto& tally = m_tallies[field + u'/' + database];
  if (!tally.isEmpty() || !hasFacet(field)) return tally;
  // Thousands of leads share their values; those are looked up once for all.
  std::vector<qint64> inCompany(companies().facts.size()), withTitle(titles().size());
  std::array<qint64, 4> verified{};
  for (qint64 number = 0; number < m_size; ++number) {
    const Traits one = traits(number);
    if (database == (one.isInstagram ? "linkedin"_L1 : "instagram"_L1)) continue;
    ++inCompany[one.company];
    ++withTitle[one.title];
    ++verified[one.verification];
  }
  const auto count = [&](const QStringList& values, qint64 leads) {
    for (const QString& value : values)
      if (leads > 0 && !value.isEmpty()) tally[value] += leads;
  };
  for (size_t i = 0; i < inCompany.size(); ++i) count(facetValues(field, companies().facts[i], {}, {}), inCompany[i]);
  for (size_t i = 0; i < withTitle.size(); ++i) count(facetValues(field, {}, titles()[i], {}), withTitle[i]);
  for (size_t i = 0; i < verified.size(); ++i)
    count(facetValues(field, {}, {}, {.verification = verifications[i]}), verified[i]);
  return tally;
}

QStringList facetValues(const QString& field, const CompanyFacts& company, const TitleFacts& title,
                        const PersonFacts& person) {
  const auto number = [](qint64 band) { return band > 0 ? QString::number(band) : QString(); };
  if (field == "tech"_L1) return company.technologies;
  const QHash<QString, QString> values{
      {u"title"_s, title.title},
      {u"seniority"_s, title.seniority},
      {u"department"_s, title.department},
      {u"verification"_s, person.verification},
      {u"company"_s, company.company},
      {u"industry"_s, company.industry},
      {u"niche"_s, company.niche},
      {u"country"_s, company.country},
      {u"state"_s, company.state},
      {u"city"_s, company.city},
      {u"esp"_s, company.esp},
      {u"band"_s, number(company.band)},
      {u"revenue"_s, number(company.revenue)},
      {u"funding"_s, company.funding},
  };
  return {values.value(field)};
}

QString facetLabel(const QString& field, const QString& value) {
  const QList<words::Band> none;
  for (const auto& band : field == "band"_L1 ? words::sizes() : field == "revenue"_L1 ? words::revenues() : none)
    if (QString::number(band.number) == value) return band.label;
  static const QHash<QString, QString> labels{{u"google"_s, u"Google"_s},   {u"microsoft"_s, u"Microsoft"_s},
                                              {u"zoho"_s, u"Zoho"_s},       {u"other"_s, u"Other"_s},
                                              {u"valid"_s, u"Valid"_s},     {u"catch_all"_s, u"Catch-all"_s},
                                              {u"unknown"_s, u"Unknown"_s}, {u"invalid"_s, u"Invalid"_s}};
  return labels.value(value, value);
}

}  // namespace orv::demo
