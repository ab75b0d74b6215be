#include "app/campaigns/LeadFile.h"

#include <QFile>
#include <QFileInfo>

#include "app/base/CsvReader.h"
#include "kit/models/campaigns/campaignLeadRequests.h"

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
QString open(QFile& file) {
  if (QFileInfo(file).suffix().toLower() != "csv"_L1) return u"Choose a .csv file"_s;
  // A pipe or a device has no end that anybody could wait for.
  if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return u"Couldn’t open that file"_s;
  return file.size() > mostBytes ? tooLarge : QString();
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
  }
  return bytes;
}

}  // namespace

QString megabytes(qint64 bytes) { return QString::number(double(bytes) / (1024 * 1024), 'f', 1) + u" MB"_s; }

LeadFilePreview previewLeadFile(const QString& path) {
  QFile file(path);
  if (const QString error = open(file); !error.isEmpty()) return {error, 0, {}, {}};
  const QByteArray start = file.read(previewBytes);
  if (file.error() != QFile::NoError) return {notReadable, 0, {}, {}};
  const bool isCut = file.size() > start.size();
  const QString text = decodeText(isCut ? withoutCutCharacter(start) : QByteArrayView(start));
  auto rows = csvRows(text, csvDelimiter(text), previewRows);
  if (rows.isEmpty()) return {u"That file has no header row"_s, 0, {}, {}};
  QStringList headers = rows.takeFirst();
  for (QString& header : headers) header = header.trimmed();
  return {{}, file.size(), headers, rows};
}

LeadFileBytes readLeadFile(const QString& path, FileWatch& watch) {
  QFile file(path);
  if (const QString error = open(file); !error.isEmpty()) return {error, {}};
  auto bytes = readAll(file, watch);
  if (!bytes) return {notReadable, {}};
  // It may have grown since it was opened.
  if (bytes->size() > mostBytes) return {tooLarge, {}};
  return {{}, *std::move(bytes)};
}

}  // namespace orv
