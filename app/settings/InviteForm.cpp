#include "app/settings/InviteForm.h"

#include "app/base/EmailAddress.h"
#include "app/settings/settingsRoles.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

InviteForm::InviteForm(WorkspaceContext& context) : m_recovery(context, Recovery::of(m_draft)) {
  m_draft.setKey(u"settings/tab:members/new"_s);
  m_recovery.keep(*this, m_draft);
  connect(&m_draft, &FieldDraft::changed, this, &Form::changed);
}

void InviteForm::show() {
  m_draft.fill({{}, u"member"_s});
  Form::show();
}

QList<Choice> InviteForm::roles() const { return roleChoices(); }

QString InviteForm::emailProblem() const { return m_draft.problems().value(u"email"_s).toString(); }

void InviteForm::set(const QString& field, const QString& value) {
  if (m_draft.set(field, value)) clearError();
}

void InviteForm::submit() {
  if (busy()) return;
  InviteFields typed = m_draft.typed();
  // As it was typed but for blanks: the service knows best which letters it tells apart.
  typed.email = typed.email.trimmed();
  if (!looksLikeAddress(typed.email)) return m_draft.setProblems({{u"email"_s, u"Enter a full email address."_s}});
  if (onSubmit) onSubmit(typed);
}

}  // namespace orv
