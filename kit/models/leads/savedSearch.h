#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

struct HTTPAnswer;

/// Filters that were kept under a name.
struct SavedSearch {
  using Record = SavedSearch;

  QString id;
  QString name;
  /// The values of a LeadSearch.
  QMap<QString, QString> search;
  QString updatedAt;
  std::optional<QString> archivedAt;
  bool operator==(const SavedSearch&) const = default;
};
BOOST_DESCRIBE_STRUCT(SavedSearch, (), (id, name, search, updatedAt, archivedAt))

struct SavedSearchList {
  QList<SavedSearch> items;
  bool operator==(const SavedSearchList&) const = default;
};
BOOST_DESCRIBE_STRUCT(SavedSearchList, (), (items))

struct SavedSearchBody {
  QString name;
  QMap<QString, QString> search;
  bool operator==(const SavedSearchBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SavedSearchBody, (), (name, search))

namespace detail {

template <class R>
struct AnswerDecoder;
/// The one list of the service that comes bare, with nothing around it.
template <>
struct AnswerDecoder<SavedSearchList> {
  static SavedSearchList decode(const HTTPAnswer& answer);
};

}  // namespace detail
}  // namespace orv
