#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// A named set of leads that campaigns are filled from.
struct LeadList {
  using Record = LeadList;

  QString id;
  /// The workspace's running number of the list.
  std::optional<qint64> number;
  QString name;
  std::optional<QString> description;
  qint64 leadCount = 0;
  std::optional<QString> createdBy;
  std::optional<QString> createdAt;
  std::optional<QString> updatedAt;
  std::optional<QString> archivedAt;
  bool operator==(const LeadList&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadList, (),
                      (id, number, name, description, leadCount, createdBy, createdAt, updatedAt, archivedAt))

struct LeadListPage {
  QList<LeadList> items;
  bool operator==(const LeadListPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadListPage, (), (items))

/// Carries only what is set.
struct ListPatch {
  std::optional<QString> name;
  std::optional<QString> description;
  bool operator==(const ListPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(ListPatch, (), (name, description))

}  // namespace orv
