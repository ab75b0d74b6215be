#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

struct LeadIdsBody {
  QList<QString> leadIds;
  bool operator==(const LeadIdsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadIdsBody, (), (leadIds))

}  // namespace orv
