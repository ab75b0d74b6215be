#include "desktop/services/PathForm.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace orv {

/// Closes the form when the task that asked goes away, unless it shows somebody else's question by then.
class PathForm::Question {
 public:
  explicit Question(PathForm& form) : m_form(form), m_number(++form.m_questions) {}
  Question(const Question&) = delete;
  Question& operator=(const Question&) = delete;
  ~Question() {
    if (m_form.m_questions == m_number) m_form.m_form.cancel();
  }

 private:
  PathForm& m_form;
  int m_number;
};

PathForm::PathForm(NameForm::Words words, Refusal refusal) : m_refusal(std::move(refusal)), m_form(std::move(words)) {
  m_form.onSubmit = [this](const QString& typed) { take(typed); };
  QObject::connect(&m_form, &Form::changed, &m_form, [this] {
    if (m_form.shown() || !m_answer) return;
    Answer cancelled = *std::exchange(m_answer, std::nullopt);
    cancelled.give({});
  });
}

Task<QString> PathForm::ask(QString suggestion, QString folder) {
  m_form.cancel();
  const Question question(*this);
  m_folder = folder;
  // Shown first: a form tells of what it is filled with before it is.
  m_form.show(suggestion);
  Answer answer;
  m_answer = answer;
  co_return co_await answer.wait();
}

void PathForm::take(const QString& typed) {
  const QString fromHome = typed.startsWith("~/"_L1) ? QDir::homePath() + typed.mid(1) : typed;
  const QString path = QDir::cleanPath(QDir(m_folder).absoluteFilePath(fromHome));
  auto submission = m_form.begin();
  if (const QString reason = m_refusal(path); !reason.isEmpty()) return (void)submission.fail(reason);
  auto answer = std::exchange(m_answer, std::nullopt);
  submission.succeed();
  if (answer) answer->give(path);
}

}  // namespace orv
