#include "desktop/services/SavePanel.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "desktop/services/SavePortal.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString quoted(const QString& path) { return u'“' + QDir::toNativeSeparators(path) + u'”'; }

/// Why nothing can be kept under the path; empty when it can.
QString refusal(const QString& path) {
  const QFileInfo file(path), folder(file.absolutePath());
  if (file.isDir()) return quoted(path) + u" is a folder. Add a name for the file."_s;
  if (!folder.isDir()) return u"There is no folder "_s + quoted(folder.filePath()) + u'.';
  if (!folder.isWritable()) return u"You can’t save files in "_s + quoted(folder.filePath()) + u'.';
  return {};
}

}  // namespace

/// Closes the form when the task that asked goes away, unless it shows somebody else's question by then.
class SavePanel::Question {
 public:
  explicit Question(SavePanel& panel) : m_panel(panel), m_number(++panel.m_questions) {}
  Question(const Question&) = delete;
  Question& operator=(const Question&) = delete;
  ~Question() {
    if (m_panel.m_questions == m_number) m_panel.m_form.cancel();
  }

 private:
  SavePanel& m_panel;
  int m_number;
};

SavePanel::SavePanel(QDBusConnection bus)
    : m_bus(std::move(bus)), m_form({u"Save file"_s, u"Say where to keep it."_s, u"File"_s, u"Save"_s}) {
  m_form.onSubmit = [this](const QString& typed) { take(typed); };
  QObject::connect(&m_form, &NameForm::changed, &m_form, [this] {
    if (m_form.shown() || !m_answer) return;
    Answer cancelled = *std::exchange(m_answer, std::nullopt);
    cancelled.give({});
  });
}

Task<std::optional<ChosenFile>> SavePanel::saveFile(QString suggestedName, QString kind, QString suffix) {
  const QString suggestion = QDir(folder()).filePath(suggestedName);
  SavePortal portal(m_bus);
  const SavePortal::Outcome outcome = co_await portal.ask(suggestion, kind, suffix).wait();
  ChosenFile file{outcome.asked ? outcome.path : co_await askForm(suggestion), outcome.asked};
  if (file.path.isEmpty()) co_return std::nullopt;
  m_folder = QFileInfo(file.path).absolutePath();
  if (QFileInfo(file.path).suffix().isEmpty()) {
    // A panel that asked about a file asked about the one without the ending.
    file = {file.path + u'.' + suffix, false};
  }
  co_return file;
}

Task<QString> SavePanel::askForm(QString suggestion) {
  m_form.cancel();
  const Question question(*this);
  Answer answer;
  m_answer = answer;
  m_form.show(suggestion);
  co_return co_await answer.wait();
}

void SavePanel::take(const QString& typed) {
  const QString fromHome = typed.startsWith("~/"_L1) ? QDir::homePath() + typed.mid(1) : typed;
  const QString path = QDir::cleanPath(QDir(folder()).absoluteFilePath(fromHome));
  auto submission = m_form.begin();
  if (const QString reason = refusal(path); !reason.isEmpty()) return (void)submission.fail(reason);
  auto answer = std::exchange(m_answer, std::nullopt);
  submission.succeed();
  if (answer) answer->give(path);
}

QString SavePanel::folder() const {
  if (QFileInfo(m_folder).isDir()) return m_folder;
  const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  return QFileInfo(downloads).isDir() ? downloads : QDir::homePath();
}

}  // namespace orv
