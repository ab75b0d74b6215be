#include "desktop/WindowPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

namespace orv {
namespace {
constexpr QSize usualSize(1280, 800);
}

WindowPlace::WindowPlace(QQuickWindow& window, Preferences& preferences, QObject* parent)
    : QObject(parent), m_window(window), m_preferences(preferences) {
  window.installEventFilter(this);
}

QRect WindowPlace::fitted(QRect remembered, const QList<QRect>& screens, const QSize& smallest, const QSize& usual) {
  if (screens.isEmpty()) return remembered.isValid() ? remembered : QRect({}, usual);
  const QRect first = screens.first();
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
      best = screen;
      bestArea = area;
    }
  }
  QRect place(remembered.topLeft(), remembered.size().boundedTo(best.size()).expandedTo(smallest));
  place.moveLeft(qBound(best.left(), place.left(), qMax(best.left(), best.right() + 1 - place.width())));
  place.moveTop(qBound(best.top(), place.top(), qMax(best.top(), best.bottom() + 1 - place.height())));
  return place;
}

void WindowPlace::restore() {
  QList<QRect> screens;
  for (const QScreen* screen : QGuiApplication::screens()) screens.append(screen->availableGeometry());
  m_window.setGeometry(fitted(m_preferences.windowGeometry(), screens, m_window.minimumSize(), usualSize));
  if (m_preferences.windowMaximized()) m_window.setWindowStates(Qt::WindowMaximized);
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) remember();
  return QObject::eventFilter(watched, event);
}

void WindowPlace::remember() {
  const bool maximized = m_window.windowStates().testFlag(Qt::WindowMaximized);
  m_preferences.setWindowMaximized(maximized);
  if (!maximized && m_window.visibility() == QWindow::Windowed) m_preferences.setWindowGeometry(m_window.geometry());
}

}  // namespace orv
