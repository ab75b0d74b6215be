#pragma once

#include <QEventLoop>
#include <QQuickWindow>

namespace orv::bench {

/// Until the next frame is drawn.
inline void frame(QQuickWindow& window) {
  QEventLoop loop;
  const auto drawn = QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
  window.update();
  loop.exec();
  QObject::disconnect(drawn);
}

}  // namespace orv::bench
