#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>
#include <variant>

namespace orv {

/// Where added leads come from. On the wire one flat object whose `source` names the choice.
struct AddLeadsBody {
  struct List {
    QString listId;
    QString dedupe;
  };
  struct Csv {
    /// The whole file's text.
    QString csv;
    std::optional<QString> fileName;
    QString dedupe;
  };
  struct Manual {
    QString email;
    QMap<QString, QString> data;
    QString dedupe;
  };
  struct Leads {
    QList<QString> leadIds;
    bool allowOtherCampaigns = false;
  };
  std::variant<List, Csv, Manual, Leads> source;
};
BOOST_DESCRIBE_STRUCT(AddLeadsBody::List, (), (listId, dedupe))
BOOST_DESCRIBE_STRUCT(AddLeadsBody::Csv, (), (csv, fileName, dedupe))
BOOST_DESCRIBE_STRUCT(AddLeadsBody::Manual, (), (email, data, dedupe))
BOOST_DESCRIBE_STRUCT(AddLeadsBody::Leads, (), (leadIds, allowOtherCampaigns))

struct AddLeadsResult {
  struct Skipped {
    qint64 alreadyInCampaign = 0;
    qint64 inOtherCampaign = 0;
    qint64 inList = 0;
    qint64 suppressed = 0;
    qint64 invalid = 0;
    qint64 duplicateInFile = 0;
    bool operator==(const Skipped&) const = default;
  };
  qint64 added = 0;
  Skipped skipped;
  qint64 total = 0;
  /// The columns found in an uploaded file.
  std::optional<QList<QString>> columns;
  bool operator==(const AddLeadsResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(AddLeadsResult::Skipped, (),
                      (alreadyInCampaign, inOtherCampaign, inList, suppressed, invalid, duplicateInFile))
BOOST_DESCRIBE_STRUCT(AddLeadsResult, (), (added, skipped, total, columns))

}  // namespace orv
