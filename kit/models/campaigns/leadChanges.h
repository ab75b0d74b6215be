#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>

namespace orv {

struct BulkLeadsBody {
  QString action;
  QList<QString> leadIds;
  bool operator==(const BulkLeadsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(BulkLeadsBody, (), (action, leadIds))

struct BulkResult {
  qint64 changed = 0;
  qint64 skipped = 0;
  bool operator==(const BulkResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(BulkResult, (), (changed, skipped))

struct MoveLeadsBody {
  QList<QString> leadIds;
  QString toCampaignId;
  bool operator==(const MoveLeadsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(MoveLeadsBody, (), (leadIds, toCampaignId))

struct MoveResult {
  qint64 moved = 0;
  qint64 skipped = 0;
  bool operator==(const MoveResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(MoveResult, (), (moved, skipped))

struct RestoredResult {
  qint64 restored = 0;
  bool operator==(const RestoredResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(RestoredResult, (), (restored))

}  // namespace orv
