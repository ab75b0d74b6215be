#include "kit/models/leads/leadSearch.h"

#include <QSet>
#include <algorithm>
#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>

#include "kit/models/leads/leadFilter.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr auto sourceKey = "source"_L1, allDatabases = "all"_L1;

/// What only one database can be asked for.
const QMap<QString, QStringList>& ownKeys() {
  static const QMap<QString, QStringList> keys{
      {u"linkedin"_s,
       {u"title"_s, u"company"_s, u"band"_s, u"state"_s, u"niche"_s, u"xtitle"_s, u"xcompany"_s, u"xband"_s,
        u"xstate"_s, u"xniche"_s, u"tech"_s, u"xtech"_s, u"revenue"_s, u"funding"_s, u"seniority"_s, u"department"_s}},
      {u"instagram"_s, {u"followersMin"_s, u"followersMax"_s, u"city"_s, u"xcity"_s}},
  };
  return keys;
}

QSet<QString> listFields() {
  QSet<QString> names;
  boost::mp11::mp_for_each<boost::describe::describe_members<LeadFilterBody, boost::describe::mod_public>>(
      [&names](auto member) {
        using Type = std::decay_t<decltype(std::declval<LeadFilterBody>().*member.pointer)>;
        if constexpr (std::is_same_v<Type, std::optional<QList<QString>>> ||
                      std::is_same_v<Type, std::optional<QList<qint64>>>)
          names.insert(QString::fromLatin1(member.name));
      });
  return names;
}

}  // namespace

const QStringList& LeadSearch::keys() {
  static const QStringList keys{
      u"q"_s,        u"qin"_s,    u"title"_s,    u"company"_s,       u"industry"_s,     u"niche"_s,
      u"country"_s,  u"state"_s,  u"city"_s,     u"esp"_s,           u"verification"_s, u"band"_s,
      u"source"_s,   u"domain"_s, u"hasPhone"_s, u"followersMin"_s,  u"followersMax"_s, u"list"_s,
      u"campaign"_s, u"tech"_s,   u"revenue"_s,  u"funding"_s,       u"seniority"_s,    u"department"_s,
      u"xq"_s,       u"xtitle"_s, u"xcompany"_s, u"xindustry"_s,     u"xniche"_s,       u"xcountry"_s,
      u"xstate"_s,   u"xcity"_s,  u"xesp"_s,     u"xverification"_s, u"xband"_s,        u"xtech"_s};
  return keys;
}

bool LeadSearch::takesSeveral(const QString& key) {
  static const QSet<QString> several = listFields();
  return several.contains(key);
}

QStringList LeadSearch::piecesOf(QStringView text) {
  QStringList pieces;
  for (const QStringView piece : QStringTokenizer(text, u',')) {
    if (const QStringView trimmed = piece.trimmed(); !trimmed.isEmpty()) pieces.append(trimmed.toString());
  }
  return pieces;
}

bool LeadSearch::holds(const QString& key, const QString& piece) const {
  const QStringList standing = pieces(key), wanted = piecesOf(piece);
  return !wanted.isEmpty() && std::ranges::all_of(wanted, [&](const QString& one) { return standing.contains(one); });
}

bool LeadSearch::hasFilters() const {
  return std::ranges::any_of(keys(),
                             [this](const QString& key) { return key != sourceKey && key != "qin"_L1 && has(key); });
}

QList<LeadSearch::Part> LeadSearch::parts() const {
  QList<Part> parts;
  for (const QString& key : keys()) {
    if (takesSeveral(key)) {
      for (const QString& piece : pieces(key)) parts.append({key, piece});
    } else if (has(key)) {
      parts.append({key, value(key)});
    }
  }
  return parts;
}

void LeadSearch::set(const QString& key, const QString& value) {
  if (value.isEmpty())
    values.remove(key);
  else
    values.insert(key, value);
}

void LeadSearch::add(const QString& key, const QString& piece) {
  QStringList standing = pieces(key);
  // What is typed may hold commas itself.
  for (const QString& added : piecesOf(piece))
    if (!standing.contains(added)) standing.append(added);
  set(key, standing.join(u','));
}

void LeadSearch::remove(const QString& key, const QString& piece) {
  QStringList standing = pieces(key);
  for (const QString& removed : piecesOf(piece)) standing.removeAll(removed);
  set(key, standing.join(u','));
}

void LeadSearch::remove(const Part& part) {
  if (takesSeveral(part.key))
    remove(part.key, part.value);
  else
    values.remove(part.key);
}

QString LeadSearch::database() const { return has(sourceKey) ? value(sourceKey) : QString(allDatabases); }

void LeadSearch::chooseDatabase(const QString& name) {
  if (name == database()) return;
  set(sourceKey, name == allDatabases ? QString() : name);
  for (const auto& [database, keys] : ownKeys().asKeyValueRange()) {
    if (database == name) continue;
    for (const QString& key : keys) values.remove(key);
  }
}

QString LeadSearch::pool() const { return has(u"list"_s) ? u"all"_s : only.value_or(u"new"_s); }

QList<QueryItem> LeadSearch::query() const {
  QList<QueryItem> items = filterQuery();
  items.append({u"only"_s, pool()});
  return items;
}

QList<QueryItem> LeadSearch::filterQuery() const {
  QList<QueryItem> items;
  for (const QString& key : keys())
    if (has(key)) items.append({key, value(key)});
  return items;
}

}  // namespace orv
