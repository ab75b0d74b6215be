#include "app/base/NameForm.h"

namespace orv {

NameForm::Submission::Submission(NameForm* form, int showing) : m_form(form), m_showing(showing) {
  form->m_busy = true;
  form->m_error.clear();
  Q_EMIT form->changed();
}

NameForm::Submission::~Submission() {
  if (!m_form || m_form->m_showing != m_showing) return;
  m_form->m_busy = false;
  Q_EMIT m_form->changed();
}

bool NameForm::Submission::isShown() const { return m_form && m_form->m_shown && m_form->m_showing == m_showing; }

bool NameForm::Submission::succeed() {
  if (!isShown()) return false;
  m_form->cancel();
  return true;
}

bool NameForm::Submission::fail(const QString& error) {
  if (!isShown()) return false;
  m_form->m_error = error;
  Q_EMIT m_form->changed();
  return true;
}

NameForm::NameForm(Words words, QObject* parent) : QObject(parent), m_words(std::move(words)) {}

void NameForm::show(const QString& text) {
  ++m_showing;
  m_shown = true;
  m_busy = false;
  m_text = text;
  m_error.clear();
  Q_EMIT changed();
}

NameForm::Submission NameForm::begin() { return Submission(this, m_showing); }

void NameForm::setText(const QString& text) {
  if (std::exchange(m_text, text) == text) return;
  m_error.clear();
  Q_EMIT changed();
}

void NameForm::submit() {
  if (canSubmit() && onSubmit) onSubmit(m_text.trimmed());
}

void NameForm::cancel() {
  if (!std::exchange(m_shown, false)) return;
  Q_EMIT changed();
}

}  // namespace orv
