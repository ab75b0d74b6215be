#include "app/base/Form.h"

namespace orv {

Form::Submission::Submission(Form* form) : m_form(form), m_showing(form->m_showing) {
  form->m_busy = true;
  form->m_error.clear();
  Q_EMIT form->changed();
}

Form::Submission::~Submission() {
  if (!isCurrent()) return;
  m_form->m_busy = false;
  Q_EMIT m_form->changed();
}

bool Form::Submission::isShown() const { return isCurrent() && m_form->m_shown; }

bool Form::Submission::succeed() {
  if (!isShown()) return false;
  m_form->cancel();
  return true;
}

bool Form::Submission::fail(const QString& sentence) {
  if (!isShown()) return false;
  m_form->m_error = sentence;
  Q_EMIT m_form->changed();
  return true;
}

void Form::Submission::fail(Toasts& toasts, const QString& title, const APIError& error) {
  if (error.is(APIError::Kind::cancelled)) return;
  if (!fail(error.message())) toasts.failure(title, error);
}

void Form::show() {
  ++m_showing;
  m_shown = true;
  m_busy = false;
  m_error.clear();
  Q_EMIT changed();
}

void Form::reopen() {
  if (!std::exchange(m_shown, true)) Q_EMIT changed();
}

void Form::clearError() {
  if (std::exchange(m_error, {}).isEmpty()) return;
  Q_EMIT changed();
}

void Form::cancel() {
  if (std::exchange(m_shown, false)) Q_EMIT changed();
}

}  // namespace orv
