#pragma once

#include <QString>

#include "kit/api/OpenWord.h"

namespace orv {

/// State of one lead inside one campaign.
struct LeadStatus : OpenWord {
  using OpenWord::OpenWord;
  QString label() const;
};

}  // namespace orv
