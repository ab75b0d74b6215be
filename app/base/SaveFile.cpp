#include "app/base/SaveFile.h"

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

ConfirmRequest replaceQuestion(const QString& path) {
  return {.title = u"Replace "_s + QFileInfo(path).fileName() + u'?',
          .text = u"A file of that name is already there. What it holds would be gone."_s,
          .confirm = u"Replace"_s,
          .destructive = true};
}

}  // namespace

Task<void> saveCsv(Services& services, QString fileName, QByteArray bytes, QString failure) {
  const auto chosen = co_await services.filePanel.saveFile(fileName, u"Comma-separated text"_s, u"csv"_s);
  if (!chosen) co_return;
  const QString path = chosen->path;
  if (!chosen->mayReplace && QFileInfo::exists(path) && !co_await services.overlays.confirm(replaceQuestion(path)))
    co_return;
  if (const QString reason = write(path, bytes); !reason.isEmpty()) {
    services.toasts.show({.message = failure, .tone = Toasts::Tone::error, .detail = reason});
    co_return;
  }
  FileRevealer& revealer = services.revealer;
  services.toasts.show({.message = u"Saved "_s + QFileInfo(path).fileName(),
                        .tone = Toasts::Tone::success,
                        .actionLabel = u"Show in Finder"_s,
                        .action = [&revealer, path] { revealer.reveal(path); }});
}

}  // namespace orv
