#include "app/inbox/DraftStyles.h"

#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

DraftStyles::DraftStyles(WorkspaceContext& context, Store* whole)
    : Store(context, whole), m_actions(context, m_busy, [] {}) {
  connect(&m_busy, &BusySet::changed, this, &DraftStyles::changed);
}

const DraftStyles::Written* DraftStyles::find(const Draft& draft) const {
  const auto found = m_written.find(draft.id);
  return found != m_written.end() && found->second.body == draft.body ? &found->second : nullptr;
}

const DraftVersion* DraftStyles::in(const Written& written, const QString& style) {
  const auto found = std::ranges::find(written.versions, style, &DraftVersion::style);
  return found == written.versions.cend() ? nullptr : &*found;
}

QList<Choice> DraftStyles::choices(const Draft& draft) const {
  QList<Choice> choices{{.key = words::styleOriginal, .label = u"Original"_s}};
  const Written* written = find(draft);
  if (!written)
    return choices + QList<Choice>{{.key = words::styleProfessional, .label = u"Professional"_s},
                                   {.key = words::styleCasual, .label = u"Casual"_s},
                                   {.key = words::styleExcited, .label = u"Excited"_s}};
  for (const DraftVersion& version : written->versions)
    if (version.style != words::styleOriginal)
      choices.append({.key = version.style, .label = version.label.isEmpty() ? version.style : version.label});
  return choices;
}

QString DraftStyles::styleOf(const Draft& draft) const {
  if (isAsking(draft.id)) return m_wanted.value(draft.id);
  const Written* written = find(draft);
  return written ? written->chosen : QString(words::styleOriginal);
}

const DraftVersion* DraftStyles::versionOf(const Draft& draft) const {
  const Written* written = find(draft);
  return written && written->chosen != words::styleOriginal ? in(*written, written->chosen) : nullptr;
}

Task<bool> DraftStyles::writeTask(Draft draft, QString style) {
  if (style == words::styleOriginal) co_return true;
  if (!find(draft)) {
    if (isAsking(draft.id)) co_return false;
    m_wanted[draft.id] = style;
    const auto mark = m_busy.mark(draft.id);
    const auto answer =
        co_await m_actions.send(Requests::draftVersions(draft.id), u"Couldn’t write the other styles."_s);
    m_wanted.remove(draft.id);
    if (answer) m_written[draft.id] = {draft.body, answer->versions, QString(words::styleOriginal)};
  }
  const Written* written = find(draft);
  co_return written&& in(*written, style);
}

void DraftStyles::choose(const Draft& draft, const QString& style) {
  const Written* written = find(draft);
  if (!written || written->chosen == style) return;
  m_written[draft.id].chosen = style;
  Q_EMIT changed(draft.id);
}

void DraftStyles::forget(const QString& draftId) {
  if (m_written.erase(draftId) > 0) Q_EMIT changed(draftId);
}

}  // namespace orv
