#include "app/leads/LeadColumns.h"

#include <algorithm>

#include "app/leads/LeadWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr auto all = "all"_L1, linkedin = "linkedin"_L1, instagram = "instagram"_L1;

struct Column {
  QString key;
  QString title;
  /// The one database whose leads have it; empty for each.
  QString database{};
  /// Databases in whose table it shows unless the person says otherwise.
  QStringList shownFor{};
};

const QList<Column>& columns() {
  static const QStringList each{all, linkedin, instagram};
  static const QList<Column> columns{
      {u"name"_s, u"Name"_s, {}, each},
      {u"email"_s, u"Email"_s, {}, each},
      {u"provider"_s, u"Provider"_s},
      {u"location"_s, u"Location"_s, {}, each},
      {u"title"_s, u"Title"_s, linkedin},
      {u"industry"_s, u"Industry"_s, {}, {instagram}},
      {u"niche"_s, u"Niche"_s, linkedin},
      {u"phone"_s, u"Phone"_s},
      {u"revenue"_s, u"Revenue"_s, linkedin},
      {u"tier"_s, u"ICP tier"_s},
      {u"keywords"_s, u"Keywords"_s},
      {u"technologies"_s, u"Technologies"_s, linkedin},
      {u"company"_s, u"Company"_s, {}, {all, linkedin}},
      {u"size"_s, u"Size"_s, linkedin, {linkedin}},
      {u"followers"_s, u"Followers"_s, instagram, {instagram}},
      {u"verified"_s, u"Verified"_s, {}, each},
      {u"added"_s, u"Added"_s},
      {u"linkedin"_s, u"LinkedIn"_s, linkedin},
      {u"website"_s, u"Website"_s},
      {u"database"_s, u"Database"_s, {}, {all}},
  };
  return columns;
}

bool has(const QString& database, const Column& column) {
  // Of all databases there are leads of each, so there is every column.
  return database == all || column.database.isEmpty() || column.database == database;
}

}  // namespace

LeadColumns::LeadColumns(Preferences& preferences, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_chosen(preferences.leadColumns()) {}

void LeadColumns::setDatabase(const QString& database) {
  if (std::exchange(m_database, database) != database) Q_EMIT changed();
}

void LeadColumns::readAgain() {
  const auto kept = m_preferences.leadColumns();
  if (std::exchange(m_chosen, kept) != kept) Q_EMIT changed();
}

QStringList LeadColumns::shown() const {
  const auto chosen = m_chosen.constFind(m_database);
  QStringList shown;
  for (const Column& column : columns()) {
    const bool isChosen =
        chosen == m_chosen.cend() ? column.shownFor.contains(m_database) : chosen->contains(column.key);
    if (column.key == "name"_L1 || (has(m_database, column) && isChosen)) shown.append(column.key);
  }
  return shown;
}

QList<Choice> LeadColumns::choices() const {
  const QStringList showing = shown();
  QList<Choice> choices;
  for (const Column& column : columns())
    if (column.key != "name"_L1 && has(m_database, column))
      choices.append({.key = column.key,
                      .label = column.key == "industry"_L1 ? industryTitle() : column.title,
                      .ticked = showing.contains(column.key)});
  return choices;
}

QString LeadColumns::industryTitle() const { return LeadWords::industryTitle(m_database); }

void LeadColumns::toggle(const QString& key) {
  readAgain();
  QStringList keys = shown();
  if (!keys.removeOne(key)) keys.append(key);
  // Kept in the order of the table.
  QStringList ordered;
  for (const Column& column : columns())
    if (keys.contains(column.key)) ordered.append(column.key);
  m_chosen.insert(m_database, ordered);
  m_preferences.setLeadColumns(m_chosen);
  Q_EMIT changed();
}

void LeadColumns::reset() {
  readAgain();
  if (m_chosen.remove(m_database) == 0) return;
  m_preferences.setLeadColumns(m_chosen);
  Q_EMIT changed();
}

}  // namespace orv
