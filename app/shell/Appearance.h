#pragma once

#include <QObject>

#include "app/base/desktop/Preferences.h"

namespace orv {

/// Light, dark, or as the desktop has it.
class Appearance final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY changed)
  Q_PROPERTY(bool dark READ dark NOTIFY changed)
  Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)

 public:
  explicit Appearance(Preferences& preferences, QObject* parent = nullptr);

  /// "system", "light" or "dark".
  const QString& theme() const { return m_theme; }
  /// Anything else than the three words is "system".
  void setTheme(const QString& theme);
  bool dark() const;
  bool reducedMotion() const { return m_reducedMotion; }

  /// What the desktop says, now and whenever it changes.
  void setSystemDark(bool dark);
  void setReducedMotion(bool reduced);

 Q_SIGNALS:
  void changed();

 private:
  Preferences& m_preferences;
  QString m_theme;
  bool m_systemDark = false;
  bool m_reducedMotion = false;
};

}  // namespace orv
