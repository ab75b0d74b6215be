#include "desktop/services/FileManagerRevealer.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>

#include "desktop/services/Programs.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {
// A file manager that has to be started first may take this long; one that hangs must not keep the person waiting.
constexpr int answerMilliseconds = 3000;
}  // namespace

FileManagerRevealer::FileManagerRevealer(QDBusConnection bus)
    : FileManagerRevealer(std::move(bus),
                          [](const QUrl& folder) { openByDesktop(folder.toString(QUrl::FullyEncoded)); }) {}

FileManagerRevealer::FileManagerRevealer(QDBusConnection bus, OpenFolder openFolder)
    : m_bus(std::move(bus)), m_openFolder(std::move(openFolder)) {}

void FileManagerRevealer::reveal(const QString& path) {
  const QUrl folder = QUrl::fromLocalFile(QFileInfo(path).absolutePath());
  if (!m_bus.isConnected()) return m_openFolder(folder);
  auto message = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                                u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
  message << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << QString();
  auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, answerMilliseconds));
  // The watcher may outlive this object: a panel is closed while the file manager starts.
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, folder, open = m_openFolder] {
    if (watcher->isError()) open(folder);
    watcher->deleteLater();
  });
}

}  // namespace orv
