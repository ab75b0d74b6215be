#pragma once

#include <QString>

#include "kit/api/OpenWord.h"

namespace orv {

struct MailboxStatus : OpenWord {
  using OpenWord::OpenWord;
  /// Its connection is being checked for the first time, or anew.
  bool isVerifying() const { return is(QLatin1String("verifying")); }
  bool isActive() const { return is(QLatin1String("active")); }
  bool isPaused() const { return is(QLatin1String("paused")); }
  bool isFailed() const { return is(QLatin1String("failed")); }
  /// What the screen says; an unknown word stands as it is.
  QString label() const;
};

}  // namespace orv
