#pragma once

#include "app/base/Jobs.h"
#include "app/base/Poll.h"
#include "kit/models/campaigns/testEmail.h"

namespace orv {

/// How far a test email has come, for whoever shows its job.
struct TestEmailCourse {
  static constexpr PollPace pace{.interval = std::chrono::seconds(2), .most = 30};

  /// The service has it, and is asked what becomes of it.
  bool isFollowed = false;
  QStringList warnings;
};

/// Sends one email of a campaign's sequence to somebody who wants to see it, and follows it until it has gone out. A
/// job: it goes on when dialog, page and store have gone. `body` may still be in the making.
Task<JobOutcome> sendTestEmail(Job* job, QString campaign, OneShot<TestEmailBody> body,
                               std::shared_ptr<TestEmailCourse> course);

}  // namespace orv
