#pragma once

#include <optional>
#include <variant>

#include "kit/api/APIError.h"

namespace orv {

/// What a screen shows of one loaded value. Exactly one of these, so that no mix of flags can contradict itself.
template <class Value>
class ScreenState {
 public:
  struct Loading {
    bool operator==(const Loading&) const = default;
  };
  struct Nothing {
    bool operator==(const Nothing&) const = default;
  };
  struct Ready {
    Value value;
    bool operator==(const Ready&) const = default;
  };
  struct Offline {
    std::optional<Value> cached;
    bool operator==(const Offline&) const = default;
  };
  struct Failed {
    APIError error;
    bool operator==(const Failed&) const = default;
  };

  static ScreenState loading() { return ScreenState(Loading{}); }
  static ScreenState empty() { return ScreenState(Nothing{}); }
  static ScreenState ready(Value value) { return ScreenState(Ready{std::move(value)}); }
  static ScreenState offline(std::optional<Value> cached) { return ScreenState(Offline{std::move(cached)}); }
  static ScreenState error(APIError error) { return ScreenState(Failed{std::move(error)}); }

  bool isLoading() const { return std::holds_alternative<Loading>(m_state); }
  bool isEmpty() const { return std::holds_alternative<Nothing>(m_state); }
  bool isReady() const { return std::holds_alternative<Ready>(m_state); }
  bool isOffline() const { return std::holds_alternative<Offline>(m_state); }
  const APIError* error() const {
    const auto* failed = std::get_if<Failed>(&m_state);
    return failed ? &failed->error : nullptr;
  }
  /// The content on screen: of `ready`, or cached while offline.
  const Value* value() const {
    if (const auto* ready = std::get_if<Ready>(&m_state)) return &ready->value;
    const auto* offline = std::get_if<Offline>(&m_state);
    return offline && offline->cached ? &*offline->cached : nullptr;
  }

  bool operator==(const ScreenState&) const = default;

 private:
  using State = std::variant<Loading, Nothing, Ready, Offline, Failed>;
  explicit ScreenState(State state) : m_state(std::move(state)) {}
  State m_state;
};

}  // namespace orv
