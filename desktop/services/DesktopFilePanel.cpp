#include "desktop/services/DesktopFilePanel.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "desktop/services/FilePortal.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString quoted(const QString& path) { return u'“' + QDir::toNativeSeparators(path) + u'”'; }

/// Why nothing can be kept under the path; empty when it can.
QString refusalToSave(const QString& path) {
  const QFileInfo file(path), folder(file.absolutePath());
  if (file.isDir()) return quoted(path) + u" is a folder. Add a name for the file."_s;
  if (!folder.isDir()) return u"There is no folder "_s + quoted(folder.filePath()) + u'.';
  if (!folder.isWritable()) return u"You can’t save files in "_s + quoted(folder.filePath()) + u'.';
  return {};
}

QString refusalToOpen(const QString& path) {
  const QFileInfo file(path);
  if (file.isDir()) return quoted(path) + u" is a folder. Add the file’s name."_s;
  if (!file.exists()) return u"There is no file "_s + quoted(path) + u'.';
  return {};
}

}  // namespace

DesktopFilePanel::DesktopFilePanel(QDBusConnection bus)
    : m_bus(std::move(bus)),
      m_save({u"Save file"_s, u"Say where to keep it."_s, u"File"_s, u"Save"_s}, refusalToSave),
      m_open({u"Open file"_s, u"Say where it is."_s, u"File"_s, u"Open"_s}, refusalToOpen) {}

Task<std::optional<ChosenFile>> DesktopFilePanel::saveFile(QString suggestedName, QString kind, QString suffix) {
  const QString suggestion = QDir(folder()).filePath(suggestedName);
  FilePortal portal(m_bus);
  const FilePortal::Outcome outcome = co_await portal.askToSave(suggestion, kind, suffix).wait();
  ChosenFile file{outcome.asked ? outcome.path : co_await m_save.ask(suggestion, folder()), outcome.asked};
  if (file.path.isEmpty()) co_return std::nullopt;
  m_folder = QFileInfo(file.path).absolutePath();
  if (QFileInfo(file.path).suffix().isEmpty()) {
    // A panel that asked about a file asked about the one without the ending.
    file = {file.path + u'.' + suffix, false};
  }
  co_return file;
}

Task<std::optional<QString>> DesktopFilePanel::openFile(QString kind, QString suffix) {
  FilePortal portal(m_bus);
  const FilePortal::Outcome outcome = co_await portal.askToOpen(folder(), kind, suffix).wait();
  const QString path = outcome.asked ? outcome.path : co_await m_open.ask(folder() + u'/', folder());
  if (path.isEmpty()) co_return std::nullopt;
  m_folder = QFileInfo(path).absolutePath();
  co_return path;
}

QString DesktopFilePanel::folder() const {
  if (QFileInfo(m_folder).isDir()) return m_folder;
  const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  return QFileInfo(downloads).isDir() ? downloads : QDir::homePath();
}

}  // namespace orv
