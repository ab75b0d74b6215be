#include "app/inbox/DraftStyles.h"

#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

DraftStyles::DraftStyles(WorkspaceContext& context, Store* whole)
    : Store(context, whole), m_actions(context, m_busy, [] {}) {
  connect(&m_busy, &BusySet::changed, this, &DraftStyles::changed);
}

QList<Choice> DraftStyles::choices(const QString& draftId) const {
  QList<Choice> choices{{.key = words::styleOriginal, .label = u"Original"_s}};
  const auto versions = m_versions.constFind(draftId);
  if (versions == m_versions.cend())
    return choices + QList<Choice>{{.key = words::styleProfessional, .label = u"Professional"_s},
                                   {.key = words::styleCasual, .label = u"Casual"_s},
                                   {.key = words::styleExcited, .label = u"Excited"_s}};
  for (const DraftVersion& version : *versions)
    if (version.style != words::styleOriginal)
      choices.append({.key = version.style, .label = version.label.isEmpty() ? version.style : version.label});
  return choices;
}

QString DraftStyles::styleOf(const QString& draftId) const {
  return m_styles.value(draftId, QString(words::styleOriginal));
}

const DraftVersion* DraftStyles::versionOf(const QString& draftId) const {
  const auto versions = m_versions.constFind(draftId);
  if (versions == m_versions.cend() || styleOf(draftId) == words::styleOriginal) return nullptr;
  const auto found = std::ranges::find(*versions, styleOf(draftId), &DraftVersion::style);
  return found == versions->cend() ? nullptr : &*found;
}

void DraftStyles::choose(const QString& draftId, const QString& style) {
  if (styleOf(draftId) == style) return;
  m_styles[draftId] = style;
  if (style != words::styleOriginal && !m_versions.contains(draftId)) m_tasks.start(askTask(draftId));
  Q_EMIT changed(draftId);
}

Task<void> DraftStyles::askTask(QString draftId) {
  const auto mark = m_busy.mark(draftId);
  if (!mark) co_return;
  const auto answer = co_await m_actions.send(Requests::draftVersions(draftId), u"Couldn’t write the other styles."_s);
  if (answer) m_versions[draftId] = answer->versions;
  // What was chosen and cannot be shown is not sent either.
  if (!versionOf(draftId)) m_styles.remove(draftId);
  Q_EMIT changed(draftId);
}

void DraftStyles::forget(const QString& draftId) {
  const bool knew = m_versions.remove(draftId) || m_styles.contains(draftId);
  m_styles.remove(draftId);
  if (knew) Q_EMIT changed(draftId);
}

}  // namespace orv
