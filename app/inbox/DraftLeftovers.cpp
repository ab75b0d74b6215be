#include "app/inbox/DraftLeftovers.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "app/base/shownName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(DraftLeftoverRow)

DraftLeftovers::DraftLeftovers(WorkspaceContext& context, Store* whole, DraftQueue& queue, DraftDecisions& decisions,
                               DraftReason& reason, Writings& writings)
    : Store(context, whole), m_queue(queue), m_decisions(decisions), m_reason(reason), m_writings(writings) {
  connect(&queue, &DraftQueue::asked, this, [this] {
    services().journal.write();
    m_keptWhenAsked = kept();
  });
  connect(&queue, &DraftQueue::heard, this, &DraftLeftovers::sort);
  connect(reason.form(), &Form::changed, this, &DraftLeftovers::show);
  // One that is shown there is no leftover yet.
  connect(&queue, &DraftQueue::changed, this, [this] {
    if (!m_over.isEmpty()) show();
  });
  connect(&writings, &Writings::changed, this, [this](const QString& threadId) {
    const auto isOfThread = [&](const QString& key) { return key.startsWith(u"inbox/"_s + threadId + u'/'); };
    if (std::ranges::any_of(m_over, isOfThread)) show();
  });
  connect(&services().journal, &Journal::opened, this, &DraftLeftovers::look);
  // Whoever works in the conversations alone does not have that list read.
  context.changes().watch<InboxThread>(this, [this](const Change<InboxThread>& change) { follow(change); });
}

void DraftLeftovers::follow(const Change<InboxThread>& change) {
  if (!change.record) return;
  const qint64 pending = change.record->pendingDrafts;
  for (const Kept& one : kept()) {
    if (one.draft.threadId != change.id || m_decisions.isGone(one.draft.id)) continue;
    // It may be over by now, or wait again. A list that cannot tell is asked but once.
    if (m_over.contains(one.key) != (pending > 0)) continue;
    if (m_pending.value(change.id, -1) == pending) return;
    m_pending[change.id] = pending;
    return m_queue.list()->load();
  }
  m_pending.remove(change.id);
}

QList<DraftLeftovers::Kept> DraftLeftovers::kept() const {
  QList<Kept> all;
  for (const Journal::Entry& entry : services().journal.entries()) {
    const QStringList name = entry.key.name.split(u'/');
    const bool isReason = name.size() == 5 && name[4] == "reason"_L1;
    const bool isOfDraft = (name.size() == 4 || isReason) && name[0] == "inbox"_L1 && name[2] == "drafts"_L1;
    if (!isOfDraft || entry.key.workspace != context().workspace().slug) continue;
    const QJsonObject journal = QJsonDocument::fromJson(entry.text.bytes).object();
    const QJsonObject typed = journal.value("typed"_L1).toObject();
    all.append({.key = entry.key.name,
                .draft = {.id = name[3], .threadId = name[1]},
                .isReason = isReason,
                .text = typed.value(isReason ? "reason"_L1 : "body"_L1).toString(),
                .mayBeSent = journal.value(Writing::mayBeSentKey).toBool()});
  }
  return all;
}

void DraftLeftovers::look() {
  if (!kept().isEmpty()) m_queue.list()->ensureLoaded();
}

void DraftLeftovers::sort() {
  const ReviewDraftPage& page = *m_queue.list()->value();
  QSet<QString> waiting;
  for (const ReviewDraft& item : page.items) waiting.insert(item.draft.id);
  for (const Kept& one : m_keptWhenAsked) {
    const QString& id = one.draft.id;
    if (waiting.contains(id) || m_decisions.isGone(id) || m_decisions.find(id))
      m_over.remove(one.key);
    else if (!page.nextCursor)
      m_over.insert(one.key);
  }
  show();
}

void DraftLeftovers::show() {
  const QString asked = m_reason.form()->shown() ? m_reason.draft()->key() : QString();
  const QString shown = m_queue.isOver() ? m_queue.picked() : QString();
  std::vector<DraftLeftoverRow> rows;
  for (const Kept& one : kept())
    if (m_over.contains(one.key) && one.key != asked && (one.isReason || one.draft.id != shown))
      rows.push_back({.id = one.key, .text = saidOf(one)});
  m_rows.update(std::move(rows));
}

QString DraftLeftovers::saidOf(const Kept& one) const {
  if (one.isReason) return u"Why you skipped a draft was not told: "_s + shownName(one.text);
  const Writing* writing = m_writings.findEdit(one.draft);
  const bool mayBeSent = writing ? writing->sending() || writing->uncertain() : one.mayBeSent;
  return (mayBeSent ? u"Your edit may not have been sent: "_s : u"Your edit was not sent: "_s) + shownName(one.text);
}

void DraftLeftovers::copy(const QString& id) {
  const QList<Kept> all = kept();
  const auto found = std::ranges::find(all, id, &Kept::key);
  if (found == all.end()) return;
  if (services().clipboard.setText(found->text))
    services().toasts.success(u"Copied"_s);
  else
    services().toasts.show({.message = u"Couldn’t copy."_s, .tone = Toasts::Tone::error});
}

void DraftLeftovers::discard(const QString& id) {
  if (!m_over.remove(id)) return;
  for (const Kept& one : kept()) {
    if (one.key != id) continue;
    Writing* writing = one.isReason ? nullptr : m_writings.findEdit(one.draft);
    // Its draft waits again, and somebody is at it.
    if (writing && writing->isShown()) break;
    // One that is held open would be written again.
    if (writing) writing->discard();
    services().journal.drop({context().workspace().slug, id});
  }
  show();
}

}  // namespace orv
