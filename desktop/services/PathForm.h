#pragma once

#include <functional>
#include <optional>

#include "app/base/NameForm.h"
#include "kit/async/OneShot.h"
#include "kit/async/Task.h"

namespace orv {

/// A form for a path, where the desktop has no panel. It asks one question at a time, a new one cancels the last. A
/// question that nobody waits for any more is closed.
class PathForm {
 public:
  /// Says why the path will not do; empty when it will.
  using Refusal = std::function<QString(const QString& path)>;

  PathForm(NameForm::Words words, Refusal refusal);

  /// The path typed, absolute; empty when the person cancelled. A relative one counts from `folder`.
  Task<QString> ask(QString suggestion, QString folder);

  /// For the window to show.
  NameForm* form() { return &m_form; }

 private:
  using Answer = OneShot<QString>;
  class Question;

  void take(const QString& typed);

  Refusal m_refusal;
  NameForm m_form;
  QString m_folder;
  std::optional<Answer> m_answer;
  int m_questions = 0;
};

}  // namespace orv
