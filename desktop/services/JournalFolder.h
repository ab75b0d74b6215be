#pragma once

#include <QThreadPool>

#include "app/base/desktop/JournalFiles.h"

namespace orv {

/// Journal files in a folder of the person's, worked on by one thread in the order of asking.
class JournalFolder final : public JournalFiles {
 public:
  explicit JournalFolder(QString folder);
  ~JournalFolder() override;

  void write(const QString& name, const QByteArray& bytes) override;
  void remove(const QString& name) override;
  void setAside(const QString& name) override;
  Task<QMap<QString, QByteArray>> readAll() override;
  void finish() override;

 private:
  QString m_folder;
  QThreadPool m_queue;
};

}  // namespace orv
