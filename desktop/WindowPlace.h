#pragma once

#include <QObject>
#include <QQuickWindow>

#include "app/base/desktop/Preferences.h"

namespace orv {

/// Puts the window where the person left it, as far as the screens of today allow, and remembers where they leave it.
class WindowPlace final : public QObject {
  Q_OBJECT

 public:
  WindowPlace(QQuickWindow& window, Preferences& preferences, QObject* parent = nullptr);

  /// The remembered place cut to the screens: all of it where it fits, else moved and shrunk into the nearest screen.
  static QRect fitted(QRect remembered, const QList<QRect>& screens, const QSize& smallest, const QSize& usual);

  void restore();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void remember();

  QQuickWindow& m_window;
  Preferences& m_preferences;
};

}  // namespace orv
