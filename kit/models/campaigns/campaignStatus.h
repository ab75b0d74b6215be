#pragma once

#include <QString>

#include "kit/api/OpenWord.h"

namespace orv {

struct CampaignStatus : OpenWord {
  using OpenWord::OpenWord;
  /// What the screen says; an unknown word stands as it is.
  QString label() const;
};

}  // namespace orv
