#include "app/inbox/DraftHistory.h"

#include "app/base/momentText.h"
#include "app/base/shownName.h"
#include "app/inbox/DraftTexts.h"
#include "kit/api/plainText.h"
#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// A whole row is drawn at once; more than that no email of the agent has.
constexpr qsizetype longestText = 20'000;

QString outcomeText(const Draft& draft) {
  const QString outcome = draft.reviewOutcome.value_or(QString());
  if (outcome == words::draftReplaced) return u"You wrote your own"_s;
  if (outcome == words::draftSkipped || outcome == words::draftRejected) return u"Skipped"_s;
  if (outcome == words::draftEdited) return u"Edited by you"_s;
  return outcome == words::draftAsWritten ? u"Approved as written"_s : outcome;
}

QString learnedText(const Draft& draft) {
  if (!draft.learnedText || draft.learnedText->isEmpty()) return {};
  const bool again = draft.learnedKind == QString(words::learnedAgain);
  return (again ? u"Your AI saw this again: "_s : u"Your AI learned: "_s) + *draft.learnedText;
}

}  // namespace

ORV_DEFINE_ROW(DraftHistoryRow)

DraftHistory::DraftHistory(WorkspaceContext& context, Store* whole, DraftDecisions& decisions)
    : Store(context, whole),
      m_decisions(decisions),
      m_tab(words::draftAsWritten),
      m_list(*whole, [this](PageRequest page) { return api().send(Requests::listDrafts(m_tab, page.cursor)); },
             {.failed = u"Couldn’t load your history"_s,
              .first = 100,
              .further = 100,
              .loadsByItself = false,
              .row = [this](const ReviewDraft& item) { return row(item); }}) {
  connect(&decisions, &DraftDecisions::changed, this, &DraftHistory::changed);
  connect(&m_list, &ResourceBase::changed, this, &DraftHistory::changed);
  connect(&decisions, &DraftDecisions::decided, &m_list, &ResourceBase::markStale);
  connect(&decisions, &DraftDecisions::returned, this, [this](const ReviewDraft& item) {
    if (m_list.contains(item.draft.id)) m_list.takeOut({item.draft.id});
  });
}

QList<Choice> DraftHistory::tabs() {
  return {{.key = words::draftAsWritten, .label = u"As written"_s},
          {.key = words::draftEdited, .label = u"Edited"_s},
          {.key = words::draftSkipped, .label = u"Skipped"_s}};
}

void DraftHistory::setTab(const QString& tab) {
  if (m_tab == tab) return;
  m_tab = tab;
  m_list.ask();
  Q_EMIT changed();
}

QString DraftHistory::description() const {
  if (m_tab == words::draftAsWritten) return u"Drafts you approve as the AI wrote them land here."_s;
  if (m_tab == words::draftEdited) return u"Drafts you change before approving land here, next to what the AI wrote."_s;
  return u"Drafts you skip land here, and you can put any of them back."_s;
}

bool DraftHistory::canPutBack() const {
  // Until the tab has been read the rows are those of the one before.
  return canWrite() && m_tab == words::draftSkipped && !m_list.asksAnew();
}

DraftHistoryRow DraftHistory::row(const ReviewDraft& item) const {
  const Draft& draft = item.draft;
  const QString ai = cutTo(draft.aiBody.value_or(draft.body), longestText), body = cutTo(draft.body, longestText);
  return {.id = draft.id,
          .contact = shownName(contactName(item.thread)),
          .kind = draftKindText(draft),
          .when = momentText(draft.reviewedAt ? draft.reviewedAt : draft.updatedAt, services().clock.now()),
          .subject = draft.subject.value_or(QString()),
          .aiText = ai,
          .sentText = draft.edited.value_or(false) && ai != body ? body : QString(),
          .outcome = outcomeText(draft),
          .why = draft.reviewText && !draft.reviewText->isEmpty() ? u"Why: "_s + *draft.reviewText : QString(),
          .lesson = learnedText(draft),
          .item = item};
}

Task<void> DraftHistory::putBackTask(QString draftId) {
  const DraftHistoryRow* row = m_list.find(draftId);
  if (!row || !canPutBack()) co_return;
  const ReviewDraft item = row->item;
  if (co_await m_decisions.putBackTask(item))
    services().toasts.success(u"The draft for "_s + shownName(contactName(item.thread)) + u" waits again"_s);
}

}  // namespace orv
