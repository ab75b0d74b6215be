#include "app/base/CsvUpload.h"

#include <QFileInfo>

#include "app/base/CsvText.h"
#include "app/base/shownName.h"
#include "kit/async/background.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Tells the thread that reads a file when nobody waits for it any more.
struct Watching {
  std::shared_ptr<FileWatch> watch = std::make_shared<FileWatch>();
  ~Watching() { watch->stopped = true; }
};

struct Packed {
  QString error;
  QByteArray body;
};

Packed pack(const CsvAttachment& file, const QByteArray& body, FileWatch& watch) {
  const CsvBytes read = readCsv(file.path, watch);
  if (!read.error.isEmpty()) return {read.error, {}};
  // What was shown of it, and how its columns were named, holds for the file that was chosen.
  if (read.stamp != file.stamp) return {u"That file has changed since you chose it. Choose it again."_s, {}};
  return {{}, bodyWithCsv(body, read.bytes)};
}

}  // namespace

QByteArray bodyWithCsv(const QByteArray& body, QByteArrayView bytes) {
  constexpr QByteArrayView empty = R"("csv":"")";
  const qsizetype place = body.indexOf(empty) + empty.size() - 1;
  return packText(bytes, QByteArrayView(body).first(place), QByteArrayView(body).sliced(place));
}

Task<APIRequest> packCsv(Job* job, CsvAttachment file, APIRequest request) {
  const Watching watching;
  const auto watch = watching.watch;
  const QString name = shownName(QFileInfo(file.path).fileName());
  const auto done = [watch] { return watch->bytes.load(); };
  job->followStage(u"Reading "_s + name + u"…"_s, done, file.stamp.bytes);
  Packed packed = co_await inBackground<Packed>(
      [file, body = request.body.value_or(QByteArray()), watch] { return pack(file, body, *watch); });
  if (!packed.error.isEmpty()) throw FileTrouble{packed.error};
  watch->bytes = 0;
  const qint64 size = packed.body.size();
  request.body = std::move(packed.body);
  request.sent = {watch, &watch->bytes};
  job->followStage(u"Sending "_s + name + u", "_s + megabytes(size) + u"…"_s, done, size);
  co_return request;
}

}  // namespace orv
