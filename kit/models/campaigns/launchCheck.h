#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/campaigns/emailPreview.h"

namespace orv {

struct QcCheck {
  QString key;
  QString label;
  QString status;
  QString detail;
  /// The offending items.
  std::optional<QList<QString>> items;
  bool operator==(const QcCheck&) const = default;
};
BOOST_DESCRIBE_STRUCT(QcCheck, (), (key, label, status, detail, items))

/// Result of the check before a launch.
struct Qc {
  /// Leads outside the workspace's own domains, who would get a real email.
  struct External {
    qint64 count = 0;
    QList<QString> sample;
    bool operator==(const External&) const = default;
  };
  QString checkedAt;
  bool passed = false;
  /// False once the campaign changed after the check.
  bool current = false;
  QList<QcCheck> checks;
  std::optional<QList<QcPreview>> previews;
  std::optional<External> external;
  /// The sample lead's address.
  std::optional<QString> lead;
  bool operator==(const Qc&) const = default;
};
BOOST_DESCRIBE_STRUCT(Qc::External, (), (count, sample))
BOOST_DESCRIBE_STRUCT(Qc, (), (checkedAt, passed, current, checks, previews, external, lead))

struct LaunchBody {
  bool confirmExternal = false;
  bool operator==(const LaunchBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(LaunchBody, (), (confirmExternal))

}  // namespace orv
