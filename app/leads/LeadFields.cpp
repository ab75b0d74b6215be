#include "app/leads/LeadFields.h"

#include <algorithm>

#include "app/leads/LeadWords.h"
#include "kit/models/leads/leadSearch.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString LeadField::kindName() const {
  switch (kind) {
    case Kind::facet:
    case Kind::record:
      break;
    case Kind::text:
      return u"text"_s;
    case Kind::number:
      return u"number"_s;
    case Kind::flag:
      return u"flag"_s;
  }
  return u"facet"_s;
}

const QList<LeadField>& leadFields() {
  using Kind = LeadField::Kind;
  static const QList<LeadField> fields{
      {.key = u"q"_s,
       .group = {},
       .kind = Kind::text,
       .title = u"Keywords"_s,
       .several = u"keywords"_s,
       .excludes = true},
      {.key = u"title"_s,
       .group = u"title"_s,
       .title = u"Title"_s,
       .several = u"titles"_s,
       .takesTyped = true,
       .excludes = true},
      {.key = u"seniority"_s,
       .group = u"title"_s,
       .title = u"Seniority"_s,
       .several = u"seniorities"_s,
       .isCoded = true},
      {.key = u"department"_s,
       .group = u"title"_s,
       .title = u"Department"_s,
       .several = u"departments"_s,
       .isCoded = true},
      {.key = u"company"_s,
       .group = u"company"_s,
       .title = u"Company"_s,
       .several = u"companies"_s,
       .takesTyped = true,
       .excludes = true},
      {.key = u"band"_s,
       .group = u"company"_s,
       .title = u"Size"_s,
       .several = u"sizes"_s,
       .isCoded = true,
       .excludes = true},
      {.key = u"revenue"_s, .group = u"company"_s, .title = u"Revenue"_s, .several = u"revenues"_s, .isCoded = true},
      {.key = u"funding"_s,
       .group = u"company"_s,
       .title = u"Funding"_s,
       .several = u"funding rounds"_s,
       .isCoded = true},
      {.key = u"tech"_s,
       .group = u"tech"_s,
       .title = u"Technology"_s,
       .several = u"technologies"_s,
       .takesTyped = true,
       .excludes = true},
      {.key = u"industry"_s,
       .group = u"industry"_s,
       .title = u"Industry"_s,
       .several = u"industries"_s,
       .excludes = true},
      {.key = u"niche"_s,
       .group = u"industry"_s,
       .title = u"Niche"_s,
       .several = u"niches"_s,
       .takesTyped = true,
       .excludes = true},
      {.key = u"country"_s, .group = u"location"_s, .title = u"Country"_s, .several = u"countries"_s, .excludes = true},
      {.key = u"state"_s,
       .group = u"location"_s,
       .title = u"State"_s,
       .several = u"states"_s,
       .takesTyped = true,
       .excludes = true},
      {.key = u"city"_s,
       .group = u"location"_s,
       .title = u"City"_s,
       .several = u"cities"_s,
       .takesTyped = true,
       .excludes = true},
      {.key = u"followersMin"_s, .group = u"followers"_s, .kind = Kind::number, .title = u"At least"_s},
      {.key = u"followersMax"_s, .group = u"followers"_s, .kind = Kind::number, .title = u"At most"_s},
      {.key = u"verification"_s,
       .group = u"email"_s,
       .title = u"Verification"_s,
       .several = u"states"_s,
       .isCoded = true,
       .excludes = true},
      {.key = u"esp"_s,
       .group = u"email"_s,
       .title = u"Provider"_s,
       .several = u"providers"_s,
       .isCoded = true,
       .excludes = true},
      {.key = u"domain"_s, .group = u"email"_s, .kind = Kind::text, .title = u"Email domain"_s},
      {.key = u"list"_s, .group = u"lists"_s, .kind = Kind::record, .title = u"List"_s, .several = u"lists"_s},
      {.key = u"campaign"_s,
       .group = u"lists"_s,
       .kind = Kind::record,
       .title = u"Campaign"_s,
       .several = u"campaigns"_s},
      {.key = u"hasPhone"_s, .group = u"more"_s, .kind = Kind::flag, .title = u"Has a phone number"_s},
  };
  return fields;
}

const LeadField* leadField(const QString& key) {
  const QString included = includedKey(key);
  const auto field = std::ranges::find(leadFields(), included.isEmpty() ? key : included, &LeadField::key);
  return field == leadFields().end() ? nullptr : &*field;
}

QString includedKey(const QString& key) {
  const QString rest = key.startsWith(u'x') ? key.mid(1) : QString();
  const auto excludes = [&rest](const LeadField& field) { return field.excludes && field.key == rest; };
  return std::ranges::any_of(leadFields(), excludes) ? rest : QString();
}

bool fitsDatabase(const QString& key, const QString& database) {
  // Whoever comes from elsewhere with the filter has it still.
  LeadSearch search{.values = {{key, u"1"_s}, {u"source"_s, u"another"_s}}};
  search.chooseDatabase(database);
  return search.has(key);
}

QList<LeadFieldGroup> leadFieldGroups(const QString& database) {
  QList<LeadFieldGroup> groups{{u"title"_s, u"Job title"_s},   {u"company"_s, u"Company"_s},
                               {u"tech"_s, u"Technologies"_s}, {u"industry"_s, LeadWords::industryTitle(database)},
                               {u"location"_s, u"Location"_s}, {u"followers"_s, u"Followers"_s},
                               {u"email"_s, u"Email"_s},       {u"lists"_s, u"Lists"_s},
                               {u"more"_s, u"More"_s}};
  groups.removeIf([&database](const LeadFieldGroup& group) {
    return std::ranges::none_of(leadFields(), [&](const LeadField& field) {
      return field.group == group.key && fitsDatabase(field.key, database);
    });
  });
  return groups;
}

}  // namespace orv
