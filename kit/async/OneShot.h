#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "kit/async/TaskRun.h"

namespace orv {

/// A value that arrives once, later: a dialog's answer, a callback's argument.
///
/// The giving half (`give`) and the waiting half (`co_await wait()`) may each outlive the other. A value given before
/// anybody waits is kept; at most one task waits. Copies share the value. Confined to one thread.
template <class T>
class OneShot {
  struct State {
    std::optional<T> value;
    /// The awaiter's own; null while nobody waits.
    Resumption* waiter = nullptr;
  };

 public:
  class Awaiter {
   public:
    explicit Awaiter(std::shared_ptr<State> state) : m_state(std::move(state)) {}
    Awaiter(const Awaiter&) = delete;
    Awaiter& operator=(const Awaiter&) = delete;
    ~Awaiter() {
      // A task that was dropped never came to wait: somebody else may be waiting here by now.
      if (m_state->waiter == &m_resumption) m_state->waiter = nullptr;
    }

    bool await_ready() const { return m_state->value.has_value(); }
    template <class Promise>
    void await_suspend(std::coroutine_handle<Promise> frame) {
      if (m_resumption.arm(frame)) m_state->waiter = &m_resumption;
    }
    T await_resume() { return std::move(*m_state->value); }

   private:
    std::shared_ptr<State> m_state;
    Resumption m_resumption;
  };

  /// Only the first value counts: a dialog that is answered and then torn down answers twice.
  void give(T value) {
    if (m_state->value) return;
    const auto state = m_state;
    state->value.emplace(std::move(value));
    if (auto* waiter = std::exchange(state->waiter, nullptr)) (*waiter)();
  }
  bool isGiven() const { return m_state->value.has_value(); }
  Awaiter wait() const { return Awaiter(m_state); }

 private:
  std::shared_ptr<State> m_state = std::make_shared<State>();
};

}  // namespace orv
