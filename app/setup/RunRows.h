#pragma once

#include <QSet>

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "kit/models/setup/setupRun.h"

namespace orv {

/// A domain of a run, or one of its inboxes.
struct RunRow {
  QString id;
  bool isDomain = false;
  QString domain;
  /// Of an inbox "ellen@", before its domain.
  QString local;
  QString roleText;
  /// "2 of 3", of a domain.
  QString countText;
  bool folded = false;
  /// How many of the steps lie behind it; the one after them is under way, or failed.
  int steps = 0;
  bool isUnderWay = false;
  bool isFailed = false;
  bool isDone = false;
  QString stateText;
  QString tone;
  /// Why it is as it is.
  QString reason;
  QString updatedText;
  /// A way for the domain's admin to let the service in.
  bool canAuthorize = false;
  bool canRetry = false;
  bool operator==(const RunRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(RunRow, (),
                      (id, isDomain, domain, local, roleText, countText, folded, steps, isUnderWay, isFailed, isDone,
                       stateText, tone, reason, updatedText, canAuthorize, canRetry))
ORV_DECLARE_ROW(RunRow)

class RunRows final : public RecordModel<RunRow> {
 public:
  using RecordModel::RecordModel;

  /// The rows of the run by domain; inboxes of folded ones are left out.
  void show(const SetupRun& run, const QSet<QString>& folded);
};

/// How many inboxes of a run stand how.
struct RunCounts {
  qint64 total = 0;
  qint64 connected = 0;
  qint64 working = 0;
  qint64 waiting = 0;
  qint64 failed = 0;
  qint64 stopped = 0;
};
RunCounts countsOf(const SetupRun& run);

}  // namespace orv
