#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

/// A named set of leads that campaigns are filled from.
struct LeadList {
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

/// Which of the workspace's own leads are meant: these, or the newest up to a limit.
struct OwnLeadsBody {
  std::optional<QList<QString>> leadIds;
  std::optional<qint64> limit;
  bool operator==(const OwnLeadsBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(OwnLeadsBody, (), (leadIds, limit))

struct OwnLeads {
  QList<QString> ids;
  bool operator==(const OwnLeads&) const = default;
};
BOOST_DESCRIBE_STRUCT(OwnLeads, (), (ids))

namespace Requests {

Request<LeadListPage> leadLists(bool archived);
/// Asks for the ids of leads that the workspace has already; changes nothing, though it is a POST.
Request<OwnLeads> ownLeads(const OwnLeadsBody& body);

}  // namespace Requests
}  // namespace orv
