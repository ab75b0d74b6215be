#include "app/base/Overlays.h"

#include <QPointer>

namespace orv {

/// Takes the question off the screen on every way out of confirm(), cancellation included.
class Overlays::Asking {
 public:
  Asking(Overlays* overlays, int token) : m_overlays(overlays), m_token(token) {}
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;
  ~Asking() {
    if (!m_overlays) return;
    m_overlays->m_questions.removeIf([this](const Question& question) { return question.token == m_token; });
    Q_EMIT m_overlays->changed();
  }

 private:
  QPointer<Overlays> m_overlays;
  int m_token;
};

Task<bool> Overlays::confirm(ConfirmRequest request) {
  const OneShot<bool> answered;
  const int token = ++m_lastToken;
  m_questions.append({token, std::move(request), answered});
  const Asking asking(this, token);
  Q_EMIT changed();
  co_return co_await answered.wait();
}

const ConfirmRequest& Overlays::current() const {
  static const ConfirmRequest none;
  return asking() ? m_questions.last().request : none;
}

void Overlays::answer(int token, bool confirmed) {
  for (const Question& question : m_questions) {
    if (question.token != token) continue;
    auto answered = question.answered;
    return answered.give(confirmed);
  }
}

void Overlays::dismissAll() {
  const auto questions = m_questions;
  for (auto question : questions) question.answered.give(false);
}

}  // namespace orv
