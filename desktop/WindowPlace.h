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
  /// The frame around it, which the desktop draws, is on the screen as well.
  static QRect fitted(QRect remembered, const QList<QRect>& screens, const QSize& smallest, const QSize& usual,
                      const QMargins& frame = {});

  /// Shows the window for the first time.
  void show();
  /// To the front and into sight, as large as it is. The token is the desktop's leave to take the focus.
  void bringForward(const QString& activationToken = {});

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void keepFrameOnScreen();
  void remember();

  QQuickWindow& m_window;
  Preferences& m_preferences;
  bool m_framed = false;
};

}  // namespace orv
