#pragma once

#include <QObject>

#include "app/base/desktop/Preferences.h"

namespace orv {

/// Light, dark, or as the desktop has it; and how large everything is.
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
  /// Of everything, in percent: as this program shows it from its next start on, for the toolkit takes it up then.
  int size() const { return m_size; }
  /// As it was kept.
  void setSize(int percent);
  /// To the next larger or smaller size there is; 0 goes back to the desktop's own.
  Q_INVOKABLE void stepSize(int by);

  /// What the desktop says, now and whenever it changes.
  void setSystemDark(bool dark);
  void setReducedMotion(bool reduced);

 Q_SIGNALS:
  void changed();
  /// By the person.
  void sizeChosen(int percent);

 private:
  Preferences& m_preferences;
  QString m_theme;
  int m_size = 100;
  bool m_systemDark = false;
  bool m_reducedMotion = false;
};

}  // namespace orv
