#include "app/inbox/DraftReason.h"

#include "app/base/shownName.h"
#include "app/inbox/DraftTexts.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

DraftReason::DraftReason(WorkspaceContext& context, Store* whole, DraftDecisions& decisions)
    : Store(context, whole), m_decisions(decisions), m_recovery(context, Recovery::of(m_draft)) {
  m_recovery.keep(m_form, m_draft);
  connect(&decisions, &DraftDecisions::returned, this, [this](const ReviewDraft& item) {
    // It was not skipped after all.
    if (m_item && m_item->draft.id == item.draft.id) m_form.cancel();
  });
}

QString DraftReason::contact() const { return m_item ? shownName(contactName(m_item->thread)) : QString(); }

void DraftReason::ask(const QString& draftId) {
  const DraftDecisions::Undoable* decision = m_decisions.find(draftId);
  if (!canWrite() || !decision || decision->approved || decision->undoing) return;
  if (m_form.shown() && m_item && m_item->draft.id == draftId) return;
  m_form.cancel();
  m_item = decision->item;
  m_draft.fill(DraftReasonFields());
  m_draft.setKey(u"inbox/"_s + m_item->thread.id + u"/drafts/"_s + draftId + u"/reason"_s);
  m_form.show();
  Q_EMIT changed();
}

Task<void> DraftReason::submitTask() {
  const QString reason = m_draft.typed().reason.trimmed();
  if (!m_form.shown() || m_form.busy() || !m_item || reason.isEmpty()) co_return;
  auto submission = m_form.begin();
  const ReviewDraft item = *m_item;
  const bool done = co_await m_decisions.explainTask(item, reason, [this, &submission](const APIError& error) {
    submission.fail(services().toasts, u"Couldn’t reject the draft."_s, error);
    return true;
  });
  if (!done) co_return;
  submission.succeed();
  Q_EMIT given(item.draft.id);
}

}  // namespace orv
