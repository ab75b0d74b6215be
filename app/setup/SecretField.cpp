#include "app/setup/SecretField.h"

#include <utility>

#include "kit/api/wipe.h"

namespace orv {
namespace {

/// A field that shows it would see its own text change.
void letGo(QString& secret) {
  if (secret.isDetached())
    wipe(secret);
  else
    secret = QString();
}

}  // namespace

void SecretField::setText(const QString& typed) {
  if (m_text == typed) return;
  letGo(m_text);
  m_text = typed;
  m_problem.clear();
  Q_EMIT changed();
}

void SecretField::setProblem(const QString& sentence) {
  if (std::exchange(m_problem, sentence) != sentence) Q_EMIT changed();
}

Clearable<QString> SecretField::change() const {
  if (m_clearing) return Clearable<QString>::cleared();
  return m_text.isEmpty() ? Clearable<QString>() : Clearable<QString>(m_text);
}

void SecretField::replace() {
  m_replacing = true;
  m_clearing = false;
  Q_EMIT changed();
}

void SecretField::clear() {
  letGo(m_text);
  m_problem.clear();
  m_replacing = false;
  m_clearing = m_stored;
  Q_EMIT changed();
}

void SecretField::keep() {
  wipe();
  Q_EMIT changed();
}

void SecretField::follow(bool stored) {
  if (std::exchange(m_stored, stored) == stored) return;
  if (!stored) m_clearing = false;
  // What is being typed is to take the place of the one that has come.
  if (stored && !m_text.isEmpty()) m_replacing = true;
  Q_EMIT changed();
}

void SecretField::taken(const Clearable<QString>& sent) {
  if (!sent.isPresent()) return;
  if (sent == change()) wipe();
  Q_EMIT changed();
}

void SecretField::wipe() {
  letGo(m_text);
  m_problem.clear();
  m_replacing = m_clearing = false;
}

}  // namespace orv
