#pragma once

#include <boost/describe/class.hpp>

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/campaigns/SequenceDraft.h"
#include "kit/models/campaigns/sequence.h"

namespace orv {

/// One email as the timeline shows it.
struct StepRow {
  /// The draft's key of the step.
  QString id;
  /// "Email 2".
  QString title;
  /// "Sends first", or the day it goes out on when nobody replies: "Day 2".
  QString when;
  /// "Wait 2 days if no reply"; empty for the first.
  QString wait;
  QString subject;
  /// The subject is said in our words, not in the person's.
  bool subjectIsNote = false;
  /// The variants' letters, those that are off excepted.
  QString letters;
  /// "1,702 sent" and "3.1% replied"; empty before anything was sent.
  QString sent;
  QString replied;
  bool current = false;
  bool operator==(const StepRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(StepRow, (), (id, title, when, wait, subject, subjectIsNote, letters, sent, replied, current))

ORV_DECLARE_ROW(StepRow)

class SequenceRows final : public RecordModel<StepRow> {
 public:
  using RecordModel::RecordModel;
};

/// `saved` are the service's steps, for the figures. `current` is the step that the editor shows.
std::vector<StepRow> stepRows(const SequenceDraft& draft, const QList<CampaignStep>& saved, const QUuid& current);

}  // namespace orv
