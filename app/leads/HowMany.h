#pragma once

#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"

/// How many leads something is done with, as a person types it.
namespace orv::HowMany {

constexpr int atMost = 100'000;

inline std::optional<int> number(const QString& text) { return wholeNumber(text, 1, atMost); }

/// Why it cannot be; empty when it can.
inline QString problem(const QString& text) {
  return number(text) ? QString() : QStringLiteral("A whole number from 1 to ") + Format::grouped(atMost);
}

}  // namespace orv::HowMany
