#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/OpenWord.h"

namespace orv {

struct ImportStatus : OpenWord {
  using OpenWord::OpenWord;
  bool isRunning() const { return is(QLatin1String("running")); }
  bool isFailed() const { return is(QLatin1String("failed")); }
  bool isCancelled() const { return is(QLatin1String("cancelled")); }
  /// It will change by itself, and can be cancelled.
  bool isActive() const { return isRunning() || is(QLatin1String("queued")); }
};

/// A file on its way into the workspace's leads.
struct LeadImport {
  using Record = LeadImport;

  QString id;
  QString kind;
  ImportStatus status;
  std::optional<QString> fileName;
  std::optional<QString> listId;
  /// Absent until the file has been looked through.
  std::optional<qint64> totalRows;
  qint64 readRows = 0;
  qint64 inserted = 0;
  qint64 updated = 0;
  qint64 skipped = 0;
  std::optional<qint64> parts;
  qint64 partsDone = 0;
  std::optional<QString> startedAt;
  std::optional<QString> finishedAt;
  std::optional<QString> lastError;
  QString createdAt;
  bool operator==(const LeadImport&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadImport, (),
                      (id, kind, status, fileName, listId, totalRows, readRows, inserted, updated, skipped, parts,
                       partsDone, startedAt, finishedAt, lastError, createdAt))

struct LeadImportPage {
  QList<LeadImport> items;
  bool operator==(const LeadImportPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(LeadImportPage, (), (items))

struct CsvImportBody {
  QString fileName;
  /// The whole file's text.
  QString csv;
  /// The field that each column goes into, "extra" or "skip", in the order of the columns.
  QList<QString> mapping;
  std::optional<QString> listId;
  std::optional<QString> listName;
  bool operator==(const CsvImportBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(CsvImportBody, (), (fileName, csv, mapping, listId, listName))

struct ImportStarted {
  QString importId;
  QString jobId;
  std::optional<QString> listId;
  bool operator==(const ImportStarted&) const = default;
};
BOOST_DESCRIBE_STRUCT(ImportStarted, (), (importId, jobId, listId))

}  // namespace orv
