#include "app/base/CsvFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include "app/base/CsvReader.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qint64 previewBytes = 256 * qint64(1024);
constexpr qint64 pieceBytes = 1024 * qint64(1024);
constexpr qint64 mostBytes = 50 * pieceBytes;
/// The header and five rows.
constexpr qsizetype previewRows = 6;

const auto tooLarge = u"That file is over 50 MB. Split it and import the parts."_s;
const auto notReadable = u"Couldn’t read that file"_s;

/// Opens the file and says why it cannot be taken; empty when it can.
QString open(QFile& file, const QString& path) {
  if (QFileInfo(path).suffix().toLower() != "csv"_L1) return u"Choose a .csv file"_s;
  // What a name stands for may change between two looks at it, so it is judged once it is open. Opening a pipe would
  // wait for somebody who writes to it, and one or a device has no end that anybody could wait for.
  const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  struct stat facts {};
  const bool isFile = descriptor >= 0 && ::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode);
  if (descriptor >= 0) (void)file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
  if (!isFile || !file.isOpen()) return u"Couldn’t open that file"_s;
  return file.size() > mostBytes ? tooLarge : QString();
}

CsvStamp stampOf(const QFile& file) {
  return {file.size(), file.fileTime(QFileDevice::FileModificationTime).toMSecsSinceEpoch()};
}

/// The whole file, read in pieces. Nothing when that failed, or was no longer wanted.
std::optional<QByteArray> readAll(QFile& file, FileWatch& watch) {
  QByteArray bytes;
  bytes.reserve(file.size());
  while (!file.atEnd()) {
    const QByteArray piece = file.read(pieceBytes);
    if (piece.isEmpty() || watch.stopped) return std::nullopt;
    bytes += piece;
    watch.bytes = bytes.size();
    // It may grow as fast as it is read.
    if (bytes.size() > mostBytes) break;
  }
  return bytes;
}

QStringList shown(const QStringList& row, qsizetype cells) {
  QStringList cut;
  cut.reserve(std::min(row.size(), cells));
  for (const QString& cell : row.first(std::min(row.size(), cells))) {
    cut.append(cell.trimmed().left(CsvPreview::shownAtMost));
    if (!cut.last().isEmpty() && cut.last().back().isHighSurrogate()) cut.last().chop(1);
  }
  return cut;
}

}  // namespace

QString megabytes(qint64 bytes) { return QString::number(double(bytes) / (1024 * 1024), 'f', 1) + u" MB"_s; }

CsvPreview previewCsv(const QString& path) {
  QFile file;
  if (const QString error = open(file, path); !error.isEmpty()) return {error, {}, {}, {}};
  const QByteArray start = file.read(previewBytes);
  if (file.error() != QFile::NoError) return {notReadable, {}, {}, {}};
  const bool isCut = file.size() > start.size();
  const QString text = decodeText(isCut ? withoutCutCharacter(start) : QByteArrayView(start));
  const auto rows = csvRows(text, csvDelimiter(text), previewRows);
  if (rows.isEmpty()) return {u"That file has no header row"_s, {}, {}, {}};
  const qsizetype columns = rows.first().size();
  CsvPreview preview{{}, stampOf(file), shown(rows.first(), columns), {}};
  for (const QStringList& row : rows.sliced(1)) preview.samples.append(shown(row, columns));
  return preview;
}

CsvBytes readCsv(const QString& path, FileWatch& watch) {
  QFile file;
  if (const QString error = open(file, path); !error.isEmpty()) return {error, {}, {}};
  auto bytes = readAll(file, watch);
  if (!bytes) return {notReadable, {}, {}};
  // It may have grown since it was opened.
  if (bytes->size() > mostBytes) return {tooLarge, {}, {}};
  return {{}, stampOf(file), *std::move(bytes)};
}

}  // namespace orv
