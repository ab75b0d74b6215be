#include "desktop/WindowPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include "desktop/ActivationToken.h"

namespace orv {
namespace {

constexpr QSize usualSize(1280, 800);

QList<QRect> freeScreens() {
  QList<QRect> screens;
  for (const QScreen* screen : QGuiApplication::screens()) screens.append(screen->availableGeometry());
  return screens;
}

}  // namespace

WindowPlace::WindowPlace(QQuickWindow& window, Preferences& preferences, QObject* parent)
    : QObject(parent), m_window(window), m_preferences(preferences) {
  window.installEventFilter(this);
}

QRect WindowPlace::fitted(QRect remembered, const QList<QRect>& screens, const QSize& smallest, const QSize& usual,
                          const QMargins& frame) {
  if (screens.isEmpty()) return remembered.isValid() ? remembered : QRect({}, usual);
  const QRect first = screens.first().marginsRemoved(frame);
  if (!remembered.isValid()) {
    QRect place({}, usual.boundedTo(first.size()).expandedTo(smallest));
    place.moveCenter(first.center());
    return place;
  }
  // The screen that shows most of it; one that was unplugged shows nothing.
  QRect best = first;
  qint64 bestArea = 0;
  for (const QRect& screen : screens) {
    const QRect seen = screen & remembered;
    const qint64 area = qint64(seen.width()) * seen.height();
    if (seen.isValid() && area > bestArea) {
      best = screen.marginsRemoved(frame);
      bestArea = area;
    }
  }
  QRect place(remembered.topLeft(), remembered.size().boundedTo(best.size()).expandedTo(smallest));
  place.moveLeft(qBound(best.left(), place.left(), qMax(best.left(), best.right() + 1 - place.width())));
  place.moveTop(qBound(best.top(), place.top(), qMax(best.top(), best.bottom() + 1 - place.height())));
  return place;
}

// QWindow's own show() would make a maximised window a normal one.
void WindowPlace::show() {
  m_window.setGeometry(fitted(m_preferences.windowGeometry(), freeScreens(), m_window.minimumSize(), usualSize));
  if (m_preferences.windowMaximized()) m_window.setWindowStates(Qt::WindowMaximized);
  m_window.setVisible(true);
  m_window.requestActivate();
}

void WindowPlace::bringForward(const QString& activationToken) {
  setActivationToken(activationToken.toUtf8());
  m_window.setWindowStates(m_window.windowStates() & ~Qt::WindowStates(Qt::WindowMinimized));
  m_window.setVisible(true);
  m_window.raise();
  m_window.requestActivate();
  setActivationToken({});
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) remember();
  // The desktop has put its frame around the window by the time it wants it drawn.
  if (event->type() == QEvent::Expose && m_window.isExposed() && !m_framed) keepFrameOnScreen();
  return QObject::eventFilter(watched, event);
}

void WindowPlace::keepFrameOnScreen() {
  m_framed = true;
  if (m_window.windowStates() != Qt::WindowNoState || m_window.frameMargins().isNull()) return;
  const QRect place =
      fitted(m_window.geometry(), freeScreens(), m_window.minimumSize(), usualSize, m_window.frameMargins());
  if (place != m_window.geometry()) m_window.setGeometry(place);
}

void WindowPlace::remember() {
  const bool maximized = m_window.windowStates().testFlag(Qt::WindowMaximized);
  m_preferences.setWindowMaximized(maximized);
  if (!maximized && m_window.visibility() == QWindow::Windowed) m_preferences.setWindowGeometry(m_window.geometry());
}

}  // namespace orv
