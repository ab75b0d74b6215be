#pragma once

#include <QCoreApplication>
#include <QTest>
#include <optional>

#include "kit/async/TaskScope.h"

namespace orv::test {

/// Runs a task and leaves how it ended; for tests that look in between.
template <class T>
Task<void> keepOutcome(Task<T> task, std::optional<T>* value, std::exception_ptr* failure) {
  try {
    value->emplace(co_await std::move(task));
  } catch (...) {
    *failure = std::current_exception();
  }
}
inline Task<bool> succeed(Task<void> task) {
  co_await std::move(task);
  co_return true;
}

/// Runs a task to its end, with the event loop; gives its result or throws what it threw.
template <class T>
T await(Task<T> task) {
  std::optional<T> value;
  std::exception_ptr failure;
  TaskScope scope;
  scope.start(keepOutcome(std::move(task), &value, &failure));
  // What only waits for its turn in the event loop is done then; qWaitFor() looks every ten milliseconds.
  QCoreApplication::processEvents();
  if (!QTest::qWaitFor([&scope] { return scope.isIdle(); }, 20000)) qFatal("The task does not end");
  if (failure) std::rethrow_exception(failure);
  return std::move(*value);
}

inline void await(Task<void> task) { await(succeed(std::move(task))); }

}  // namespace orv::test
