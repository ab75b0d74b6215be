#include "app/settings/ClientForm.h"

#include "app/base/EmailAddress.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ClientForm::ClientForm(WorkspaceContext& context) : m_recovery(context, Recovery::of(m_draft)) {
  m_draft.setKey(u"settings/tab:clients/new"_s);
  m_recovery.keep(*this, m_draft);
  connect(&m_draft, &FieldDraft::changed, this, &Form::changed);
}

void ClientForm::show() {
  m_draft.fill(ClientWorkspaceBody());
  Form::show();
}

void ClientForm::set(const QString& field, const QString& value) {
  if (m_draft.set(field, value)) clearError();
}

void ClientForm::submit() {
  if (busy()) return;
  const ClientWorkspaceBody typed = m_draft.typed();
  const ClientWorkspaceBody body{typed.name.trimmed(), typed.email.trimmed(), typed.workspace.trimmed()};
  QVariantMap problems;
  if (body.workspace.isEmpty()) problems.insert(u"workspace"_s, u"Enter a name."_s);
  if (body.name.isEmpty()) problems.insert(u"name"_s, u"Enter a name."_s);
  if (!isEmailAddress(body.email)) problems.insert(u"email"_s, u"Enter a full email address."_s);
  m_draft.setProblems(problems);
  if (problems.isEmpty() && onSubmit) onSubmit(body);
}

}  // namespace orv
