#pragma once

#include <QDBusConnection>
#include <QUrl>
#include <functional>

#include "app/base/desktop/FileRevealer.h"

namespace orv {

/// Has the desktop's file manager show a file selected; without one that can, opens the folder.
class FileManagerRevealer final : public FileRevealer {
 public:
  using OpenFolder = std::function<void(const QUrl&)>;

  explicit FileManagerRevealer(QDBusConnection bus);
  FileManagerRevealer(QDBusConnection bus, OpenFolder openFolder);

  void reveal(const QString& path) override;

 private:
  QDBusConnection m_bus;
  OpenFolder m_openFolder;
};

}  // namespace orv
