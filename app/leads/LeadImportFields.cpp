#include "app/leads/LeadImportFields.h"

#include <QHash>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace orv::LeadImportFields {
namespace {

struct Field {
  QString word;
  QString label;
  /// What columns of it are called in the files that people bring.
  QStringList headers;
};

const QList<Field>& fields() {
  static const QList<Field> all{
      {email, u"Email"_s, {u"email"_s, u"email address"_s, u"work email"_s}},
      {u"first_name"_s, u"First name"_s, {u"first name"_s, u"firstname"_s}},
      {u"last_name"_s, u"Last name"_s, {u"last name"_s, u"lastname"_s}},
      {u"full_name"_s, u"Full name"_s, {u"full name"_s, u"name"_s}},
      {u"title"_s, u"Title"_s, {u"title"_s, u"job title"_s}},
      {u"company"_s, u"Company"_s, {u"company"_s, u"company name"_s, u"company name for emails"_s}},
      {u"website"_s, u"Website"_s, {u"website"_s, u"company website"_s, u"domain"_s}},
      {u"industry"_s, u"Industry"_s, {u"industry"_s, u"apollo industry"_s, u"industry (apollo)"_s}},
      {u"niche"_s, u"Niche"_s, {u"niche"_s, u"niche (orvella)"_s}},
      {u"employees"_s, u"Employees"_s, {u"employees"_s, u"# employees"_s, u"company size"_s}},
      {u"annual_revenue"_s, u"Annual revenue"_s, {u"annual revenue"_s}},
      {u"country"_s, u"Country"_s, {u"country"_s, u"company country"_s}},
      {u"state"_s, u"State"_s, {u"state"_s, u"company state"_s}},
      {u"city"_s, u"City"_s, {u"city"_s, u"company city"_s}},
      {u"linkedin_url"_s,
       u"LinkedIn address"_s,
       {u"linkedin url"_s, u"person linkedin url"_s, u"linkedin profile link"_s, u"linkedin"_s}},
      {u"instagram_url"_s, u"Instagram address"_s, {u"instagram profile link"_s}},
      {u"instagram_username"_s, u"Instagram name"_s, {u"instagram username"_s, u"username"_s}},
      {u"followers"_s, u"Followers"_s, {u"followers"_s}},
      {u"phone"_s,
       u"Phone"_s,
       {u"phone"_s, u"phone number"_s, u"mobile phone"_s, u"work direct phone"_s, u"corporate phone"_s}},
      {u"icp_tier"_s, u"ICP tier"_s, {u"icp tier"_s}},
      {u"keywords"_s, u"Keywords"_s, {u"keywords"_s, u"company keywords"_s, u"company keywords/description"_s}},
      {u"technologies"_s, u"Technologies"_s, {u"technologies"_s}},
      {u"lead_source"_s, u"Lead source"_s, {u"lead source"_s}},
      {u"list_code"_s, u"List code"_s, {u"list code"_s}},
      {u"batch_id"_s, u"Batch"_s, {u"batch id"_s}},
      {u"date_scraped"_s, u"Scraped"_s, {u"date scraped"_s}},
      {u"date_verified"_s, u"Verified"_s, {u"date verified"_s}},
      {u"esp"_s, u"Email provider"_s, {u"email service provider"_s, u"email provider"_s, u"esp"_s}},
      {u"verification"_s,
       u"Verification"_s,
       {u"verification status"_s, u"verification"_s, u"email status"_s, u"result"_s}},
  };
  return all;
}

/// The field's word by the header.
const QHash<QString, QString>& aliases() {
  static const QHash<QString, QString> all = [] {
    QHash<QString, QString> table;
    for (const Field& field : fields())
      for (const QString& header : field.headers) table.insert(header, field.word);
    return table;
  }();
  return all;
}

/// Only blanks are folded: "first_name" is no "first name".
QString normalised(QString header) {
  if (header.startsWith(QChar::ByteOrderMark)) header.remove(0, 1);
  return header.simplified().toLower();
}

}  // namespace

const QList<Choice>& choices() {
  static const QList<Choice> all = [] {
    QList<Choice> targets{{.key = kept, .label = u"Kept with the lead"_s}, {.key = skipped, .label = u"Skip"_s}};
    for (const Field& field : fields()) targets.append({.key = field.word, .label = field.label});
    return targets;
  }();
  return all;
}

bool isField(const QString& target) { return target != kept && target != skipped; }

QStringList proposedFor(const QStringList& headers) {
  QStringList mapping;
  QSet<QString> taken;
  for (const QString& header : headers) {
    const QString field = aliases().value(normalised(header), kept);
    mapping.append(taken.contains(field) ? QString(kept) : field);
    if (isField(field)) taken.insert(field);
  }
  return mapping;
}

}  // namespace orv::LeadImportFields
