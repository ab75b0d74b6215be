#pragma once

#include "demo/InboxTexts.h"
#include "kit/models/campaigns/sequence.h"

namespace orv::demo {

class DemoRandom;

/// What a campaign writes about, to whom, and what they ask when it interests them.
struct Pitch {
  /// A word of the campaigns' names.
  QString about{};
  /// What the companies are called after their own name: "Transport".
  QStringList trades{};
  QString subject{};
  QString opening{};
  /// A second text of the first email; empty where there is none.
  QString otherSubject{};
  QString otherOpening{};
  QString second{};
  /// As sentences name it: "the workshop slots".
  QString topic{};
  /// The first is answered, the second asks for a price that the agent may not name by itself.
  QList<Talk> questions{};
};

/// Of a campaign by its name.
const Pitch& pitchOf(const QString& campaign);
QList<CampaignStep> stepsFor(const Pitch& pitch, qint64 count, DemoRandom& random);

}  // namespace orv::demo
