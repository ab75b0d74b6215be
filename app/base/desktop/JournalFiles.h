#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include "kit/async/Task.h"

namespace orv {

/// Small private files that survive the process. What is asked for is done in that order, so that the removal of a
/// file never overtakes its writing; nobody waits for it but finish().
class JournalFiles {
 public:
  virtual ~JournalFiles() = default;

  /// Whole or not at all, readable by the person alone.
  virtual void write(const QString& name, const QByteArray& bytes) = 0;
  virtual void remove(const QString& name) = 0;
  /// Out of the way, but not gone: it is not listed any more.
  virtual void setAside(const QString& name) = 0;
  /// All files by name, as everything asked for before has left them.
  virtual Task<QMap<QString, QByteArray>> readAll() = 0;
  /// Returns when everything asked for is on the disk, or after a few seconds.
  virtual void finish() = 0;
};

/// Files of a process that leaves none behind: the sample's, a test's.
class MemoryJournalFiles final : public JournalFiles {
 public:
  QMap<QString, QByteArray> files;
  QMap<QString, QByteArray> aside;

  void write(const QString& name, const QByteArray& bytes) override { files.insert(name, bytes); }
  void remove(const QString& name) override { files.remove(name); }
  void setAside(const QString& name) override { aside.insert(name, files.take(name)); }
  Task<QMap<QString, QByteArray>> readAll() override { co_return files; }
  void finish() override {}
};

}  // namespace orv
