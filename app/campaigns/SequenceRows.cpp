#include "app/campaigns/SequenceRows.h"

#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(StepRow)

namespace {

void setSubject(StepRow& row, const SequenceDraft& draft, qsizetype place) {
  const DraftStep& step = draft.steps()[place];
  row.subject = step.variants[step.shown].subject.simplified();
  row.subjectIsNote = row.subject.isEmpty() || draft.repliesInThread(place);
  if (draft.repliesInThread(place))
    row.subject = u"Re: same thread"_s;
  else if (row.subject.isEmpty())
    row.subject = u"(no subject)"_s;
}

void setFigures(StepRow& row, const std::optional<QString>& id, const QList<CampaignStep>& saved) {
  const auto found = id ? std::ranges::find(saved, *id, &CampaignStep::id) : saved.end();
  if (found == saved.end() || !found->stats || found->stats->sent == 0) return;
  row.sent = Format::grouped(found->stats->sent) + u" sent"_s;
  row.replied = Format::rate(found->stats->replied, found->stats->sent) + u" replied"_s;
}

}  // namespace

std::vector<StepRow> stepRows(const SequenceDraft& draft, const QList<CampaignStep>& saved, const QUuid& current) {
  std::vector<StepRow> rows;
  rows.reserve(size_t(draft.steps().size()));
  for (qsizetype place = 0; place < draft.steps().size(); ++place) {
    const DraftStep& step = draft.steps()[place];
    StepRow row;
    row.id = step.key.toString();
    row.title = u"Email %1"_s.arg(place + 1);
    row.when = place == 0 ? draft.waitText(0) : u"Day %1"_s.arg(draft.day(place));
    if (place > 0) row.wait = draft.waitText(place);
    for (const DraftVariant& variant : step.variants)
      if (variant.enabled) row.letters += variant.label;
    row.current = step.key == current;
    setSubject(row, draft, place);
    setFigures(row, step.id, saved);
    rows.push_back(row);
  }
  return rows;
}

}  // namespace orv
