#include "app/campaigns/TestEmailJob.h"

#include "app/base/shownName.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// Nothing while it is still on its way.
std::optional<JobOutcome> outcomeOf(const TestEmail& test) {
  if (test.state == "sent"_L1)
    return JobOutcome{
        .title = u"Sent from %1 to %2"_s.arg(shownName(test.from.value_or(u"an inbox"_s)), shownName(*test.to)),
        .text = u"Handed to the inbox; it should arrive in a moment."_s};
  if (test.state != "failed"_L1) return std::nullopt;
  QString reason = test.error.value_or(QString()).trimmed();
  if (reason.endsWith(u'.')) reason.chop(1);
  return JobOutcome{.kind = JobOutcome::Kind::failed,
                    .title = u"Not sent"_s,
                    .text = reason.isEmpty() ? u"The inbox refused it. Check that inbox."_s
                                             : u"The inbox refused it. "_s + reason + u". Check that inbox."_s};
}

JobOutcome notTaken(const APIError& error) {
  JobOutcome outcome{.kind = JobOutcome::Kind::failed, .title = u"Couldn’t send the test."_s, .text = error.message()};
  if (mayHaveActed(error)) outcome.text += u" The test may be on its way all the same."_s;
  // The end of the session is told by itself.
  if (error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized)) outcome.title.clear();
  return outcome;
}

/// What is asked again says less than what was said first.
void takeOver(TestEmail& test, TestEmail now) {
  if (now.to.value_or(QString()).isEmpty()) now.to = test.to;
  if (!now.from) now.from = test.from;
  test = std::move(now);
}

/// Whether it has come to an end, which is then in `outcome`.
Task<bool> askOnce(Job* job, TestEmail* test, std::optional<JobOutcome>* outcome) {
  try {
    takeOver(*test, co_await job->context().api().send(Requests::testEmailState(test->id)));
    *outcome = outcomeOf(*test);
  } catch (const APIError& error) {
    if (error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized)) outcome->emplace();
    // One lost reading is no reason to stop; the next one comes.
    else if (error.context().httpStatus >= 400 && error.context().httpStatus < 500)
      outcome->emplace(
          JobOutcome{.kind = JobOutcome::Kind::open, .title = u"Couldn’t follow the test"_s, .text = error.message()});
  }
  co_return outcome->has_value();
}

Task<JobOutcome> follow(Job* job, TestEmail test) {
  auto outcome = outcomeOf(test);
  if (!outcome)
    co_await poll(job->context().services().clock, TestEmailCourse::pace,
                  [job, &test, &outcome] { return askOnce(job, &test, &outcome); });
  if (outcome) co_return *std::move(outcome);
  co_return JobOutcome{
      .kind = JobOutcome::Kind::open,
      .title = u"Not sent yet"_s,
      .text = u"The test is still waiting for the inbox. It may arrive at %1 later."_s.arg(shownName(*test.to))};
}

}  // namespace

Task<JobOutcome> sendTestEmail(Job* job, QString campaign, OneShot<TestEmailBody> body,
                               std::shared_ptr<TestEmailCourse> course) {
  const TestEmailBody email = co_await body.wait();
  TestEmail test;
  try {
    test = co_await job->context().api().send(Requests::sendTestEmail(campaign, email));
  } catch (const APIError& error) {
    co_return notTaken(error);
  }
  if (test.to.value_or(QString()).isEmpty()) test.to = email.to;
  course->isFollowed = true;
  course->warnings = test.warnings.value_or(QList<QString>());
  job->setStage(u"Waiting for the inbox to take it."_s);
  co_return co_await follow(job, std::move(test));
}

}  // namespace orv
