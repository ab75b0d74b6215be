#pragma once

#include <QDBusConnection>

#include "app/shell/NameForm.h"
#include "app/shell/desktop/FilePanel.h"
#include "kit/async/OneShot.h"

namespace orv {

/// The desktop's save panel; where the desktop has none, a form for the path. The form asks one question at a time, a
/// new one cancels the last. A question that nobody waits for any more is closed.
class SavePanel final : public FilePanel {
 public:
  explicit SavePanel(QDBusConnection bus);

  /// Opens in the folder last saved to, at first in that of downloads.
  Task<std::optional<ChosenFile>> saveFile(QString suggestedName, QString kind, QString suffix) override;

  /// For the window to show.
  NameForm* form() { return &m_form; }

 private:
  using Answer = OneShot<QString>;
  class Question;

  Task<QString> askForm(QString suggestion);
  void take(const QString& typed);
  QString folder() const;

  QDBusConnection m_bus;
  NameForm m_form;
  std::optional<Answer> m_answer;
  int m_questions = 0;
  QString m_folder;
};

}  // namespace orv
