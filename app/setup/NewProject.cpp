#include "app/setup/NewProject.h"

#include "app/setup/SetupRules.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

NewProject::NewProject(WorkspaceContext& context) : m_recovery(context, Recovery::of(m_draft)) {
  connect(&m_draft, &FieldDraft::changed, this, &Form::changed);
  m_recovery.keep(*this, m_draft);
}

void NewProject::begin() {
  m_draft.setKey(u"inboxSetup/new"_s);
  m_draft.fill(NewProjectFields());
  m_named = false;
  show();
}

QList<Choice> NewProject::modes() const {
  QList<Choice> modes;
  for (const SetupMode& mode : {SetupMode::fresh(), SetupMode::existing()})
    modes.append({.key = mode.rawValue, .label = mode.label(), .detail = mode.detail()});
  return modes;
}

void NewProject::setMode(const QString& mode) { m_draft.set(u"mode"_s, mode); }

void NewProject::setName(const QString& name) {
  if (m_draft.set(u"name"_s, name)) clearError();
}

void NewProject::goOn() {
  if (!canGoOn()) return;
  if (!m_named) {
    m_named = true;
    Q_EMIT changed();
    return;
  }
  const QString given = name().trimmed();
  if (const QString problem = projectNameProblem(given); !problem.isEmpty()) return (void)Form::begin().fail(problem);
  if (onSubmit) onSubmit(given, SetupMode(mode()));
}

void NewProject::back() {
  m_named = false;
  clearError();
  Q_EMIT changed();
}

}  // namespace orv
