#include "app/shell/SaveFile.h"

#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Empty on success, else the system's reason.
QString write(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
    return file.errorString();
  return {};
}

}  // namespace

Task<void> saveCsv(Services& services, QString fileName, QByteArray bytes, QString failure) {
  const auto path = co_await services.filePanel.saveFile(fileName, u"Comma-separated text"_s, u"csv"_s);
  if (!path) co_return;
  if (const QString reason = write(*path, bytes); !reason.isEmpty()) {
    services.toasts.show(failure, Toasts::Tone::error, {}, {}, reason);
    co_return;
  }
  FileRevealer& revealer = services.revealer;
  services.toasts.show(u"Saved "_s + QFileInfo(*path).fileName(), Toasts::Tone::success, u"Show in Finder"_s,
                       [&revealer, saved = *path] { revealer.reveal(saved); });
}

}  // namespace orv
