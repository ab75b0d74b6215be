#pragma once

#include <optional>

namespace orv {

/// A field of a partial update: left alone (the default), cleared, or set.
template <class T>
class Clearable {
 public:
  Clearable() = default;
  Clearable(T value) : m_present(true), m_value(std::move(value)) {}
  static Clearable cleared() {
    Clearable field;
    field.m_present = true;
    return field;
  }

  /// The key stands in the body, with a value or with null.
  bool isPresent() const { return m_present; }
  const std::optional<T>& value() const { return m_value; }
  bool operator==(const Clearable&) const = default;

 private:
  bool m_present = false;
  std::optional<T> m_value;
};

}  // namespace orv
