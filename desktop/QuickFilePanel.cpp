#include "desktop/QuickFilePanel.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Task<std::optional<ChosenFile>> QuickFilePanel::saveFile(QString suggestedName, QString kind, QString suffix) {
  cancel();
  if (m_folder.isEmpty()) m_folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  // A panel that is sent to a folder which is not there opens wherever the program was started.
  if (!QFileInfo(m_folder).isDir()) m_folder = QDir::homePath();
  m_suggestion = QUrl::fromLocalFile(m_folder + u'/' + suggestedName);
  m_nameFilter = kind + u" (*."_s + suffix + u')';
  m_suffix = suffix;
  Answer answer;
  m_answer = answer;
  Q_EMIT changed();
  co_return co_await answer.wait();
}

void QuickFilePanel::choose(const QUrl& file, bool mayReplace) {
  const QString path = file.toLocalFile();
  m_folder = QFileInfo(path).absolutePath();
  give(path.isEmpty() ? std::nullopt : std::optional(ChosenFile{path, mayReplace}));
}

void QuickFilePanel::cancel() { give(std::nullopt); }

void QuickFilePanel::give(std::optional<ChosenFile> file) {
  if (!m_answer) return;
  Answer answer = *std::exchange(m_answer, std::nullopt);
  Q_EMIT changed();
  answer.give(std::move(file));
}

}  // namespace orv
