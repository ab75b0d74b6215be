#pragma once

#include <QStringList>

/// What the database of leads is put together of.
namespace orv::demo::words {

struct Trade {
  QString industry;
  QStringList niches;
  /// What its companies call themselves.
  QStringList names;
  QStringList keywords;
};
struct Position {
  QString title;
  QString seniority;
  QString department;
};
struct Place {
  QString city;
  QString state;
  QString country;
};
/// A range that is asked for by its number.
struct Band {
  qint64 number;
  qint64 from;
  QString label;
};

const QList<Trade>& trades();
const QList<Position>& positions();
const QList<Place>& places();
const QStringList& technologies();
const QStringList& fundings();
const QStringList& givenNames();
const QStringList& familyNames();
/// By the number of people, and by millions of dollars a year.
const QList<Band>& sizes();
const QList<Band>& revenues();
qint64 bandOf(const QList<Band>& bands, qint64 amount);

}  // namespace orv::demo::words
