#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

/// The values that a field has in a database, the most frequent first.
struct FacetPage {
  struct Item {
    /// What goes into the filter.
    QString value;
    /// What the person reads.
    QString label;
    /// How many leads carry it.
    qint64 n = 0;
    bool operator==(const Item&) const = default;
  };
  QList<Item> items;
  bool operator==(const FacetPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(FacetPage::Item, (), (value, label, n))
BOOST_DESCRIBE_STRUCT(FacetPage, (), (items))

}  // namespace orv
