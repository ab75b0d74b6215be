#include "app/base/NameForm.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto textField = u"text"_s;

}  // namespace

NameForm::NameForm(Words words, QObject* parent) : Form(parent), m_words(std::move(words)) {
  m_draft.fill({{textField, QString()}}, {});
  connect(&m_draft, &FieldDraft::changed, this, &NameForm::changed);
}

NameForm::NameForm(Words words, WorkspaceContext& context) : NameForm(std::move(words)) {
  m_recovery = std::make_unique<Recovery>(context, Recovery::of(m_draft));
  m_recovery->keep(*this, m_draft);
}

void NameForm::show(const QString& text, const QString& key, FieldDraft::Version version) {
  m_draft.setKey(key);
  m_draft.fill({{textField, text}}, version);
  Form::show();
}

QString NameForm::text() const { return m_draft.values().value(textField).toString(); }

void NameForm::setText(const QString& text) {
  if (m_draft.set(textField, text)) clearError();
}

void NameForm::submit() {
  if (canSubmit() && onSubmit) onSubmit(text().trimmed());
}

}  // namespace orv
