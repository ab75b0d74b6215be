#pragma once

#include <QObject>

#include "kit/async/TaskScope.h"

namespace orv {

/// Base of the stores: owns the work in flight, so that a store that goes takes its requests along.
///
/// A store may be let go by code that one of its own tasks runs (the answer that ends the session, say); it is then
/// closed at once and deleted through the event loop.
class Store : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Stops everything in flight; nothing of it is applied any more.
  virtual void close() { m_tasks.cancel(); }

 protected:
  TaskScope m_tasks;
};

}  // namespace orv
