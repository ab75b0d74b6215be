#include "app/base/SaveFile.h"

#include <QFileInfo>
#include <QSaveFile>

#include "app/base/shownName.h"
#include "kit/api/wipe.h"
#include "kit/async/background.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Runs on another thread, and goes on there when its job was stopped: then nothing is left behind.
struct Writing {
  std::function<QByteArray()> text;
  bool isSecret = false;
  std::atomic<bool> stopped = false;

  /// Empty on success, else the system's reason.
  QString write(const QString& path) const {
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    const QByteArray bytes = text();
    if (!file.open(QIODevice::WriteOnly)) return file.errorString();
    // Leads are nobody else's business. One that is there keeps the rights that it was given, unless it is to hold
    // passwords: it has taken those rights over when it was opened.
    if ((isNew || isSecret) && !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) && isSecret)
      return file.errorString();
    if (file.write(bytes) != bytes.size()) return file.errorString();
    if (stopped) return {};
    return file.commit() ? QString() : file.errorString();
  }
};

/// What a job holds of its writing.
struct Hold {
  std::shared_ptr<Writing> writing;
  ~Hold() { writing->stopped = true; }
};

/// A file name made of somebody's words: what separates folders or cannot be seen is left out, and it is not longer
/// than file systems take, its ending and what is added to it while it is written included.
QString usableName(const QString& wanted) {
  constexpr qsizetype mostBytes = 240;
  QString name = wanted;
  for (QChar& c : name) {
    if (c == u'/') c = u'-';
    if (!c.isPrint() && !c.isSurrogate()) c = u' ';
  }
  const qsizetype dot = name.lastIndexOf(u'.');
  const QString ending = dot < 0 ? QString() : name.sliced(dot);
  QString stem = name.first(dot < 0 ? name.size() : dot).simplified();
  // Hidden files are for programs.
  while (stem.startsWith(u'.')) stem.remove(0, 1);
  while ((stem + ending).toUtf8().size() > mostBytes) stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
  return (stem.isEmpty() ? u"export"_s : stem) + ending;
}

ConfirmRequest replaceQuestion(const QString& path) {
  return {.title = u"Replace "_s + shownName(QFileInfo(path).fileName()) + u'?',
          .text = u"A file of that name is already there. What it holds would be gone."_s,
          .confirm = u"Replace"_s,
          .destructive = true};
}

/// Tells who waits for the end of a job, on whatever way it ends.
struct Ending {
  OneShot<bool> ended;
  ~Ending() { OneShot(ended).give(true); }
};

struct Wanted {
  QString fileName;
  std::function<QByteArray()> text;
  QString failure;
  QString told;
  bool isSecret = false;
};

Task<JobOutcome> save(Job* job, Wanted wanted, OneShot<bool> ended) {
  const Ending ending{std::move(ended)};
  Services& services = job->context().services();
  job->setStage(u"Choosing where to keep it…"_s);
  const auto chosen =
      co_await services.filePanel.saveFile(usableName(wanted.fileName), u"Comma-separated text"_s, u"csv"_s);
  if (!chosen) co_return JobOutcome{};
  const QString path = chosen->path;
  if (!chosen->mayReplace && QFileInfo::exists(path) && !co_await services.overlays.confirm(replaceQuestion(path)))
    co_return JobOutcome{};
  job->setStage(u"Writing…"_s);
  const Hold hold{std::make_shared<Writing>(std::move(wanted.text), wanted.isSecret)};
  const auto reason = co_await inBackground<QString>([path, writing = hold.writing] { return writing->write(path); });
  if (!reason.isEmpty()) {
    services.toasts.show({.message = wanted.failure, .tone = Toasts::Tone::error, .detail = reason});
    co_return JobOutcome{};
  }
  FileRevealer& revealer = services.revealer;
  services.toasts.show({.message = wanted.told + shownName(QFileInfo(path).fileName()),
                        .tone = Toasts::Tone::success,
                        .actionLabel = u"Show in Finder"_s,
                        .action = [&revealer, path] { revealer.reveal(path); }});
  co_return JobOutcome{};
}

Task<void> start(WorkspaceContext* context, Wanted wanted) {
  const OneShot<bool> ended;
  context->services().jobs.start(
      {.name = u"Saving "_s + shownName(wanted.fileName), .stopped = u"Nothing was saved."_s},
      context->shared_from_this(), [&](Job& job) { return save(&job, wanted, ended); });
  // Gone with the store that asked; the job is not.
  co_await ended.wait();
}

}  // namespace

Task<void> saveCsv(WorkspaceContext& context, QString fileName, std::function<QByteArray()> text, QString failure,
                   QString told) {
  return start(&context, {std::move(fileName), std::move(text), std::move(failure), std::move(told)});
}

Task<JobOutcome> saveCsvOf(Job* job, QString fileName, QByteArray bytes, QString failure, QString told) {
  return save(job, {std::move(fileName), [bytes] { return bytes; }, std::move(failure), std::move(told)}, {});
}

Task<void> saveSecretCsv(WorkspaceContext& context, QString fileName, QByteArray bytes, QString failure) {
  const std::shared_ptr<QByteArray> kept(new QByteArray(std::move(bytes)), [](QByteArray* secret) {
    wipe(*secret);
    delete secret;
  });
  return start(&context, {std::move(fileName), [kept] { return *kept; }, std::move(failure), u"Saved "_s, true});
}

}  // namespace orv
