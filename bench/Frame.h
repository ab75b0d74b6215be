#pragma once

#include <QEventLoop>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <cstdio>
#include <memory>

namespace orv::bench {

/// A shown window of the given QML. None, with the reason printed, when it cannot be made.
inline std::unique_ptr<QQuickWindow> windowOf(QQmlEngine& engine, const char* source, const QVariantMap& initial = {}) {
  QQmlComponent component(&engine);
  component.setData(source, QUrl(QStringLiteral("qrc:/bench/window.qml")));
  std::unique_ptr<QObject> made(component.createWithInitialProperties(initial));
  std::unique_ptr<QQuickWindow> window(qobject_cast<QQuickWindow*>(made.get()));
  if (!window) {
    std::printf("  %s\n", qPrintable(component.errorString()));
    return nullptr;
  }
  (void)made.release();
  window->show();
  return window;
}

/// Until the next frame is drawn.
inline void frame(QQuickWindow& window) {
  QEventLoop loop;
  const auto drawn = QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
  window.update();
  loop.exec();
  QObject::disconnect(drawn);
}

/// What scrolls the rows of a table, among all that is on the screen.
inline QQuickItem* rowsIn(QQuickItem* item) {
  if (item->isVisible() && item->property("firstRow").isValid() && item->property("contentY").isValid()) return item;
  for (QQuickItem* child : item->childItems())
    if (QQuickItem* found = rowsIn(child)) return found;
  return nullptr;
}

}  // namespace orv::bench
