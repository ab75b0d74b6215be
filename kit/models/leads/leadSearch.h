#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

/// What is searched for among leads: the one value behind the filters, their chips, the query, the body and what is
/// saved of it.
struct LeadSearch {
  /// By filter key. Of a filter that takes several, the values joined by commas. An empty value is none.
  QMap<QString, QString> values = {};
  /// The pool: "new" (leads that the workspace does not have yet), "used" or "all". Absent is "new".
  std::optional<QString> only = {};

  /// One value of one filter: what a person takes back at once.
  struct Part {
    QString key;
    QString value;
    bool operator==(const Part&) const = default;
  };

  /// Every key there is, in the order in which they are sent.
  static const QStringList& keys();
  /// The key under which a filter's exclusions stand.
  static QString excluding(const QString& key) { return u'x' + key; }
  static bool takesSeveral(const QString& key);

  QString value(const QString& key) const { return values.value(key); }
  bool has(const QString& key) const { return !value(key).isEmpty(); }
  /// What stands between a text's commas, without the blanks around it.
  static QStringList piecesOf(QStringView text);
  QStringList pieces(const QString& key) const { return piecesOf(value(key)); }
  /// The value is set. One with commas of its own is, when all of its pieces are.
  bool holds(const QString& key, const QString& piece) const;
  /// Whether any filter is set; the database is none, nor is where keywords are looked for.
  bool hasFilters() const;
  /// In the order of the keys, one for each value of a filter that takes several.
  QList<Part> parts() const;

  /// An empty value takes the key out.
  void set(const QString& key, const QString& value);
  /// A value that is there already, or is blank, changes nothing.
  void add(const QString& key, const QString& piece);
  void remove(const QString& key, const QString& piece);
  void remove(const Part& part);

  /// "linkedin", "instagram", or "all".
  QString database() const;
  /// Takes out what only another database can be asked for.
  void chooseDatabase(const QString& name);

  /// The pool that is asked for: a list is always shown whole.
  QString pool() const;
  /// The query of a search, its pool last.
  QList<QueryItem> query() const;
  /// The same without the pool.
  QList<QueryItem> filterQuery() const;

  bool operator==(const LeadSearch&) const = default;
};

}  // namespace orv
