#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <atomic>

namespace orv {

/// What a file of leads holds, as far as its beginning tells.
struct LeadFilePreview {
  /// Why it will not do; empty when it will. The rest is then empty.
  QString error;
  qint64 bytes = 0;
  QStringList headers;
  QList<QStringList> samples;
  bool operator==(const LeadFilePreview&) const = default;
};

/// Shared between the threads that read and send a file and the one that shows how far it is.
struct FileWatch {
  /// Read, or sent.
  std::atomic<qint64> bytes = 0;
  /// Set by who no longer wants the file.
  std::atomic<bool> stopped = false;
};

/// A file of leads as it is.
struct LeadFileBytes {
  /// Why it will not do; empty when it will.
  QString error;
  QByteArray bytes;
};

/// "2.4 MB".
QString megabytes(qint64 bytes);

/// Both read the file where they are called: not for the main thread.
LeadFilePreview previewLeadFile(const QString& path);
LeadFileBytes readLeadFile(const QString& path, FileWatch& watch);

}  // namespace orv
