#pragma once

#include "kit/api/OpenWord.h"

namespace orv {

/// What checking a lead's address has shown.
struct LeadVerification : OpenWord {
  using OpenWord::OpenWord;
  bool isInvalid() const { return is(QLatin1String("invalid")); }
  /// Mail to it may come back.
  bool isRisky() const { return isInvalid() || is(QLatin1String("catch_all")); }
  /// Empty where the word says all.
  QString explanation() const;
};

}  // namespace orv
