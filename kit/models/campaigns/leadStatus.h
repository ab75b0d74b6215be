#pragma once

#include <QString>

#include "kit/api/OpenWord.h"

namespace orv {

/// State of one lead inside one campaign.
struct LeadStatus : OpenWord {
  using OpenWord::OpenWord;
  bool isQueued() const { return is(QLatin1String("queued")); }
  bool isActive() const { return is(QLatin1String("active")); }
  bool isPaused() const { return is(QLatin1String("paused")); }
  bool isBounced() const { return is(QLatin1String("bounced")); }
  QString label() const;
};

}  // namespace orv
