#pragma once

#include <optional>

#include "kit/models/rampup/roadmapStage.h"

namespace orv {

struct ExtendBody {
  qint64 days = 0;
  bool operator==(const ExtendBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(ExtendBody, (), (days))

/// Without a template, on the one that the account follows already.
struct RestartBody {
  std::optional<QString> templateId;
  bool operator==(const RestartBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(RestartBody, (), (templateId))

/// One action on many accounts' roadmaps, with what the action needs.
struct RampupBulkBody {
  QList<QString> mailboxIds;
  /// "pause", "resume", "extend", "restart" or "edit".
  QString action;
  std::optional<qint64> days;
  std::optional<QString> templateId;
  std::optional<QList<RoadmapStage>> stages;
  bool operator==(const RampupBulkBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(RampupBulkBody, (), (mailboxIds, action, days, templateId, stages))

struct RampupBulkResult {
  struct Failed {
    QString mailboxId;
    QString message;
    bool operator==(const Failed&) const = default;
  };
  qint64 ok = 0;
  QList<Failed> failed;
  bool operator==(const RampupBulkResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(RampupBulkResult::Failed, (), (mailboxId, message))
BOOST_DESCRIBE_STRUCT(RampupBulkResult, (), (ok, failed))

}  // namespace orv
