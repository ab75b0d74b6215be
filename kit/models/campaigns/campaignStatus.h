#pragma once

#include <QString>

#include "kit/api/OpenWord.h"

namespace orv {

struct CampaignStatus : OpenWord {
  using OpenWord::OpenWord;
  bool isDraft() const { return is(QLatin1String("draft")); }
  bool isRunning() const { return is(QLatin1String("running")); }
  bool isPaused() const { return is(QLatin1String("paused")); }
  bool isCompleted() const { return is(QLatin1String("completed")); }
  /// What the screen says; an unknown word stands as it is.
  QString label() const;
};

}  // namespace orv
