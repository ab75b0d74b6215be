#pragma once

#include <QObject>

#include "app/base/CsvFile.h"
#include "app/base/desktop/FilePanel.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// A file of comma-separated text that somebody picks, and what its beginning holds: what the forms that send one have
/// in common.
class CsvPick final : public QObject {
  Q_OBJECT

 public:
  explicit CsvPick(FilePanel& panel) : m_panel(panel) {}

  /// Empty before a file is looked into.
  const QString& path() const { return m_path; }
  QString name() const;
  /// "2.4 MB · 5 columns"; empty while nothing is known of it.
  QString facts() const;
  /// Of a file that will not do, only its error.
  const CsvPreview& preview() const { return m_preview; }
  bool looking() const { return m_isLooking; }
  /// It has been looked into and can be sent.
  bool isUsable() const { return !m_isLooking && !m_preview.headers.isEmpty(); }

  /// Asks for a file with the desktop's panel.
  void choose();
  /// Looks into a file, and lets go of the one before.
  void look(const QString& path);
  void clear();

 Q_SIGNALS:
  void changed();
  void chosen(const QString& path);
  /// The look has ended.
  void looked();

 private:
  Task<void> chooseTask();
  Task<void> lookTask(QString path);

  FilePanel& m_panel;
  QString m_path;
  CsvPreview m_preview;
  bool m_isLooking = false;
  TaskSlot m_choose;
  TaskSlot m_look;
};

}  // namespace orv
