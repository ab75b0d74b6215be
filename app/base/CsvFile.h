#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <atomic>

namespace orv {

/// By what a file is known again.
struct CsvStamp {
  qint64 bytes = 0;
  /// Milliseconds since 1970.
  qint64 changedAt = 0;
  bool operator==(const CsvStamp&) const = default;
};

/// What a file of comma-separated text holds, as far as its beginning tells.
struct CsvPreview {
  /// More of a cell is shown nowhere.
  static constexpr qsizetype shownAtMost = 200;

  /// Why it will not do; empty when it will. The rest is then empty.
  QString error;
  CsvStamp file;
  QStringList headers;
  /// The rows after it, none of them longer than the header.
  QList<QStringList> samples;
  bool operator==(const CsvPreview&) const = default;
};

/// Shared between the threads that read and send a file and the one that shows how far it is.
struct FileWatch {
  /// Read, or sent.
  std::atomic<qint64> bytes = 0;
  /// Set by who no longer wants the file.
  std::atomic<bool> stopped = false;
};

/// A file as it is.
struct CsvBytes {
  /// Why it will not do; empty when it will.
  QString error;
  CsvStamp stamp;
  QByteArray bytes;
};

/// "2.4 MB".
QString megabytes(qint64 bytes);

/// The first rows are read from a beginning of the file, whatever its length; the cells of the longest header that fits
/// there are a few megabytes. Both read the file where they are called: not for the main thread.
CsvPreview previewCsv(const QString& path);
CsvBytes readCsv(const QString& path, FileWatch& watch);

}  // namespace orv
