#pragma once

#include <QDBusConnection>

#include "app/base/desktop/FilePanel.h"
#include "desktop/services/PathForm.h"

namespace orv {

/// The desktop's file panels; where the desktop has none, forms for the path.
class DesktopFilePanel final : public FilePanel {
 public:
  explicit DesktopFilePanel(QDBusConnection bus);

  /// Both open in the folder last chosen from, at first in that of downloads.
  Task<std::optional<ChosenFile>> saveFile(QString suggestedName, QString kind, QString suffix) override;
  Task<std::optional<QString>> openFile(QString kind, QString suffix) override;

  NameForm* saveForm() { return m_save.form(); }
  NameForm* openForm() { return m_open.form(); }

 private:
  QString folder() const;

  QDBusConnection m_bus;
  PathForm m_save;
  PathForm m_open;
  QString m_folder;
};

}  // namespace orv
