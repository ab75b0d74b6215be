#include "app/campaigns/FailedSaves.h"

#include "app/base/shownName.h"
#include "app/base/wayTo.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// By the person, or by the session's end: no failure of the service's.
bool isCutOff(const APIError& error) {
  return error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized);
}

}  // namespace

void FailedSaves::mark(const void* part, bool hasFailed) {
  if (hasFailed)
    m_parts.insert(part);
  else
    m_parts.remove(part);
  if (m_parts.isEmpty())
    m_mark.reset();
  else if (!m_mark)
    m_mark.emplace(m_workspace.unsaved().mark(m_id));
}

bool FailedSaves::tell(const QString& why) const {
  if (m_workspace.openedItem(Page::campaigns) == m_id) return false;
  const Campaign* campaign = m_campaign.value();
  m_workspace.services().toasts.show(
      {.message = u"“%1” has unsaved changes"_s.arg(campaign ? shownName(campaign->name) : QString()),
       .tone = Toasts::Tone::error,
       .actionLabel = u"Open"_s,
       .action = wayTo(m_workspace, Page::campaigns, m_id),
       .detail = why});
  return true;
}

void FailedSaves::follow(FieldDraft& draft) {
  QObject::connect(&draft, &FieldDraft::changed, &draft, [this, &draft] {
    if (!draft.dirty()) mark(&draft, false);
  });
}

bool FailedSaves::failed(FieldDraft& draft, const QString& sentence, const APIError& error) {
  draft.failed(error);
  if (!isCutOff(error)) mark(&draft, true);
  return tell(sentence, error);
}

bool FailedSaves::tell(const QString& sentence, const APIError& error) const {
  return !isCutOff(error) && tell(sentence + u' ' + error.message());
}

}  // namespace orv
