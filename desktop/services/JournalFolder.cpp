#include "desktop/services/JournalFolder.h"

#include <fcntl.h>
#include <unistd.h>
#include <QDir>
#include <QLoggingCategory>
#include <QSaveFile>

#include "kit/async/background.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcJournalFolder, "orvella.journal")

namespace {

constexpr auto onlyOwner = QFile::ReadOwner | QFile::WriteOwner;
constexpr int endPatience = 3000;

const auto suffix = u".text"_s;

/// A new name in a folder is on the disk once the folder is.
void syncFolder(const QString& folder) {
  const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

void writeFile(const QString& folder, const QString& name, const QByteArray& bytes) {
  if (!QDir().mkpath(folder)) qCWarning(lcJournalFolder, "The journal's folder cannot be made");
  QFile::setPermissions(folder, onlyOwner | QFile::ExeOwner);
  QSaveFile file(folder + u'/' + name + suffix);
  // A file that is there lends its permissions to the new one: whoever widened them has no say here.
  const bool isKept = file.open(QIODevice::WriteOnly) && file.setPermissions(onlyOwner) &&
                      file.write(bytes) == bytes.size() && file.commit();
  if (!isKept) qCWarning(lcJournalFolder, "What was typed cannot be kept: %s", qPrintable(file.errorString()));
  syncFolder(folder);
}

QMap<QString, QByteArray> readFiles(const QString& folder) {
  QMap<QString, QByteArray> files;
  const auto found = QDir(folder).entryInfoList({u'*' + suffix}, QDir::Files | QDir::NoSymLinks);
  for (const QFileInfo& info : found) {
    QFile file(info.filePath());
    if (file.open(QIODevice::ReadOnly)) files.insert(info.completeBaseName(), file.readAll());
  }
  return files;
}

}  // namespace

JournalFolder::JournalFolder(QString folder) : m_folder(std::move(folder)) { m_queue.setMaxThreadCount(1); }

JournalFolder::~JournalFolder() { m_queue.waitForDone(); }

void JournalFolder::write(const QString& name, const QByteArray& bytes) {
  m_queue.start([folder = m_folder, name, bytes] { writeFile(folder, name, bytes); });
}

void JournalFolder::remove(const QString& name) {
  m_queue.start([folder = m_folder, name] {
    if (QFile::remove(folder + u'/' + name + suffix)) syncFolder(folder);
  });
}

void JournalFolder::setAside(const QString& name) {
  m_queue.start([folder = m_folder, name] {
    const QString from = folder + u'/' + name + suffix;
    QString to = from + u".unread"_s;
    for (int more = 2; QFile::exists(to); ++more) to = from + u".unread%1"_s.arg(more);
    QFile::rename(from, to);
  });
}

Task<QMap<QString, QByteArray>> JournalFolder::readAll() {
  return inBackground<QMap<QString, QByteArray>>([folder = m_folder] { return readFiles(folder); }, &m_queue);
}

void JournalFolder::finish() {
  if (!m_queue.waitForDone(endPatience)) qCWarning(lcJournalFolder, "The disk is too slow for what was typed");
}

}  // namespace orv
