#pragma once

#include <QObject>
#include <QThreadPool>
#include <functional>
#include <memory>

#include "kit/async/OneShot.h"

namespace orv {

/// Runs `work` on a thread of the pool and gives its result on the thread that awaits, which needs an event loop.
///
/// A task that is dropped meanwhile leaves the work running: what takes long looks at a flag that it shares with its
/// owner. `work` must own what it reads and must not throw.
template <class R>
Task<R> inBackground(std::function<R()> work, QThreadPool* pool = QThreadPool::globalInstance()) {
  // The last to let go may be the worker, when the task is gone already; the object dies on its own thread all the
  // same.
  const std::shared_ptr<QObject> home(new QObject, [](QObject* object) { object->deleteLater(); });
  const OneShot<R> done;
  pool->start([home, done, work = std::move(work)] {
    auto result = std::make_shared<R>(work());
    QMetaObject::invokeMethod(
        home.get(), [done = OneShot<R>(done), result]() mutable { done.give(std::move(*result)); },
        Qt::QueuedConnection);
  });
  co_return co_await done.wait();
}

}  // namespace orv
