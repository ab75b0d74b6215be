#pragma once

#include <QDir>
#include <optional>

#include "desktop/scenes/Scene.h"

namespace orv {

/// Plays scenes, and counts as faults what nobody sees in the pictures: warnings, waits in vain, pages that do not
/// load, texts that are too faint.
class SceneRunner {
 public:
  /// Keeps the pictures where a folder is given.
  explicit SceneRunner(std::optional<QDir> folder);
  ~SceneRunner();

  /// One play serves both themes: the window changes from light to dark as it would for a person.
  void play(const Scene& scene, const QSize& size, bool dark);

  int pictures() const { return m_pictures; }
  /// Each with the name of its scene.
  const QStringList& faults() const { return m_faults; }

 private:
  void picture(Stage& stage, const Scene& scene, bool dark);
  void fault(const QString& what);
  static void take(QtMsgType type, const QMessageLogContext& context, const QString& message);

  std::optional<QDir> m_folder;
  StageTime m_time;
  QQmlEngine m_engine;
  QString m_playing;
  int m_pictures = 0;
  QStringList m_faults;
};

}  // namespace orv
