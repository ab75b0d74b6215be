#include "desktop/QuickFilePanel.h"

#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Task<std::optional<QString>> QuickFilePanel::saveFile(QString suggestedName, QString kind, QString suffix) {
  cancel();
  if (m_folder.isEmpty()) m_folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  m_suggestion = QUrl::fromLocalFile(m_folder + u'/' + suggestedName);
  m_nameFilter = kind + u" (*."_s + suffix + u')';
  m_suffix = suffix;
  Answer answer;
  m_answer = answer;
  Q_EMIT changed();
  co_return co_await answer.wait();
}

void QuickFilePanel::choose(const QUrl& file) {
  const QString path = file.toLocalFile();
  m_folder = QFileInfo(path).absolutePath();
  give(path.isEmpty() ? std::nullopt : std::optional(path));
}

void QuickFilePanel::cancel() { give(std::nullopt); }

void QuickFilePanel::give(std::optional<QString> path) {
  if (!m_answer) return;
  Answer answer = *std::exchange(m_answer, std::nullopt);
  Q_EMIT changed();
  answer.give(std::move(path));
}

}  // namespace orv
