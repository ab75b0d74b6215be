#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <utility>

#include "kit/async/TaskRun.h"

namespace orv {

template <class T = void>
class Task;

namespace detail {

struct FinalAwaiter {
  bool await_ready() const noexcept { return false; }
  template <class Promise>
  std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> frame) const noexcept {
    const auto continuation = frame.promise().continuation;
    return continuation ? continuation : std::noop_coroutine();
  }
  void await_resume() const noexcept {}
};

struct PromiseBase {
  TaskRun* run = nullptr;
  std::coroutine_handle<> continuation;
  std::exception_ptr failure;

  std::suspend_always initial_suspend() const noexcept { return {}; }
  FinalAwaiter final_suspend() const noexcept { return {}; }
  void unhandled_exception() noexcept { failure = std::current_exception(); }
};

template <class T>
struct Promise : PromiseBase {
  std::optional<T> value;

  Task<T> get_return_object() noexcept;
  template <class U>
  void return_value(U&& result) {
    value.emplace(std::forward<U>(result));
  }
  T result() {
    if (failure) std::rethrow_exception(failure);
    return std::move(*value);
  }
};

template <>
struct Promise<void> : PromiseBase {
  Task<void> get_return_object() noexcept;
  void return_void() const noexcept {}
  void result() const {
    if (failure) std::rethrow_exception(failure);
  }
};

}  // namespace detail

/// A lazy coroutine that owns its frame: nothing runs until it is awaited or given to a TaskScope or TaskSlot, and
/// destroying it cancels it. Whatever it waits for is let go, and nothing of it runs again.
///
/// Parameters of a task go by value (a reference would dangle at the first suspension), and a task is never a lambda
/// with captures (the lambda is gone before the frame is).
template <class T>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::Promise<T>;
  using Handle = std::coroutine_handle<promise_type>;

  Task() = default;
  explicit Task(Handle frame) : m_frame(frame) {}
  Task(Task&& other) noexcept : m_frame(std::exchange(other.m_frame, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    Task(std::move(other)).swap(*this);
    return *this;
  }
  ~Task() {
    if (m_frame) m_frame.destroy();
  }

  void swap(Task& other) noexcept { std::swap(m_frame, other.m_frame); }

  struct Awaiter {
    Handle frame;
    bool await_ready() const noexcept { return false; }
    template <class Outer>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Outer> outer) const noexcept {
      frame.promise().run = outer.promise().run;
      frame.promise().continuation = outer;
      return frame;
    }
    T await_resume() const { return frame.promise().result(); }
  };
  Awaiter operator co_await() const& noexcept = delete;
  /// Runs the task and gives its result, or throws what it threw. The task must stay alive until then, which it does
  /// as a temporary or a local of the awaiting frame.
  Awaiter operator co_await() && noexcept { return Awaiter{m_frame}; }

 private:
  template <class U>
  friend class RootFrames;
  Handle m_frame;
};

namespace detail {

template <class T>
Task<T> Promise<T>::get_return_object() noexcept {
  return Task<T>(std::coroutine_handle<Promise>::from_promise(*this));
}

inline Task<void> Promise<void>::get_return_object() noexcept {
  return Task<void>(std::coroutine_handle<Promise>::from_promise(*this));
}

}  // namespace detail

/// The outermost task of a run.
template <class T>
class RootFrames final : public TaskRun::Frames {
 public:
  explicit RootFrames(Task<T> task) : m_task(std::move(task)) {}
  std::coroutine_handle<> start(TaskRun* run) override {
    m_task.m_frame.promise().run = run;
    return m_task.m_frame;
  }
  bool done() const override { return m_task.m_frame.done(); }
  std::exception_ptr failure() const override { return m_task.m_frame.promise().failure; }

 private:
  Task<T> m_task;
};

}  // namespace orv
