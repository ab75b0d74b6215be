#include "app/leads/LeadListForm.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

LeadListForm::LeadListForm(WorkspaceContext& context) : m_recovery(context, Recovery::of(m_draft)) {
  m_recovery.keep(*this, m_draft);
  connect(&m_draft, &FieldDraft::changed, this, &Form::changed);
  connect(&m_draft, &FieldDraft::fieldChanged, this, &Form::clearError);
}

QString LeadListForm::title() const { return m_edited ? u"Rename list"_s : u"New list"_s; }

QString LeadListForm::hint() const {
  return m_edited ? QString() : u"It starts empty. Find leads in Search, tick them, then Add to list."_s;
}

QString LeadListForm::submitLabel() const { return m_edited ? u"Save"_s : u"Create list"_s; }

void LeadListForm::showNew() {
  m_edited.reset();
  m_draft.setKey(u"leads/tab:lists/new"_s);
  m_draft.fill(LeadListFields{});
  Form::show();
}

void LeadListForm::showList(const LeadList& list) {
  m_edited = list;
  m_draft.setKey(u"leads/"_s + list.id + u"/name"_s);
  m_draft.fill(LeadListFields{list.name, list.description.value_or(QString())});
  Form::show();
}

LeadListFields LeadListForm::typed() const {
  const LeadListFields typed = m_draft.typed();
  return {typed.name.trimmed(), typed.description.trimmed()};
}

void LeadListForm::submit() {
  if (canSubmit()) Q_EMIT submitted();
}

}  // namespace orv
