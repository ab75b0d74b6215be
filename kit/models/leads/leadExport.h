#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

/// Leads of a list that were ticked.
struct ExportTickedBody {
  QString list;
  QList<QString> leadIds;
  bool operator==(const ExportTickedBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ExportTickedBody, (), (list, leadIds))

}  // namespace orv
