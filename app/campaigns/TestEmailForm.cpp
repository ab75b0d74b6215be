#include "app/campaigns/TestEmailForm.h"

#include "app/base/EmailAddress.h"
#include "app/base/shownName.h"
#include "kit/models/campaigns/campaign.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

const auto toField = u"to"_s;

}  // namespace

/// Hands the email on to its job: when the sequence is saved or, where its store goes before that, as it is by then.
class TestEmailForm::Writing {
 public:
  Writing(OneShot<TestEmailBody> body, TestEmailBody now) : m_body(std::move(body)), now(std::move(now)) {}
  Writing(const Writing&) = delete;
  Writing& operator=(const Writing&) = delete;
  ~Writing() { m_body.give(now); }

 private:
  OneShot<TestEmailBody> m_body;

 public:
  TestEmailBody now;
};

TestEmailForm::TestEmailForm(CampaignContext& context, SequenceAutosave& autosave,
                             std::function<std::optional<Email>()> email)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_autosave(autosave),
      m_emailShown(std::move(email)),
      m_recovery(context.workspace, Recovery::of(m_draft)) {
  m_draft.fill({{toField, QString()}}, {});
  m_draft.setKey(u"campaigns/"_s + context.id + u"/test-email"_s);
  m_recovery.keep(m_form, m_draft);
  connect(&m_form, &Form::changed, this, &TestEmailForm::changed);
  connect(&m_draft, &FieldDraft::changed, this, &TestEmailForm::changed);
  connect(&context.campaign, &ResourceBase::changed, this, &TestEmailForm::changed);
}

QString TestEmailForm::to() const { return m_draft.values().value(toField).toString(); }

void TestEmailForm::setTo(const QString& to) {
  if (m_draft.set(toField, to)) m_form.clearError();
}

QString TestEmailForm::note() const {
  const QString lead = m_email.leadName.isEmpty() ? u"a sample lead"_s : shownName(m_email.leadName);
  return u"Email %1, variant %2, rendered for %3. Test emails copy nobody."_s.arg(QString::number(m_email.position),
                                                                                  m_email.letter, lead);
}

bool TestEmailForm::hasSender() const {
  const Campaign* campaign = m_context.campaign.value();
  return campaign && campaign->senders && !campaign->senders->isEmpty();
}

void TestEmailForm::show() {
  const auto email = m_emailShown();
  if (!email) return;
  // Closed while it waited: this is how far it has come.
  if (waiting()) {
    m_job->attend(this);
    return m_form.reopen();
  }
  m_email = *email;
  m_draft.fill({{toField, m_lastTo}}, {});
  set(Stage::form);
  m_form.show();
}

void TestEmailForm::cancel() {
  if (m_job) m_job->attend(nullptr);
  if (!waiting()) set(Stage::form);
  m_form.cancel();
}

void TestEmailForm::submit() {
  if (!shown() || waiting() || !hasSender()) return;
  TestEmailBody body;
  body.to = to().trimmed();
  if (!isEmailAddress(body.to)) {
    m_form.begin().fail(u"Enter an email address."_s);
    return;
  }
  m_lastTo = body.to;
  // Written on since the form was opened? What is sent is what stands there now.
  if (const auto email = m_emailShown()) m_email = *email;
  take(body, m_email);
  m_submission.emplace(&m_form);
  m_course = std::make_shared<TestEmailCourse>();
  const OneShot<TestEmailBody> written;
  m_job = m_context.services.jobs.start({.name = u"Sending a test to "_s + body.to,
                                         .stopped = u"The test may be on its way all the same."_s,
                                         .attendant = this},
                                        m_context.workspace.shared_from_this(),
                                        [&](Job& job) { return sendTestEmail(&job, m_context.id, written, m_course); });
  connect(m_job, &Job::changed, this, &TestEmailForm::follow);
  connect(m_job, &Job::ended, this, &TestEmailForm::ended);
  set(Stage::sending);
  m_tasks.start(writeTask(std::make_shared<Writing>(written, body)));
}

/// A new email has its id only once it is saved. Where it cannot be, its text goes out all the same.
Task<void> TestEmailForm::writeTask(std::shared_ptr<Writing> writing) {
  // A frame may be kept beyond its end, and with it what it was given.
  const auto handing = std::move(writing);
  const Email email = m_email;
  co_await m_autosave.flush();
  take(handing->now, email);
}

void TestEmailForm::take(TestEmailBody& body, const Email& email) const {
  body.stepPosition = email.position;
  body.leadId = email.leadId;
  body.subject = email.subject;
  body.body = email.body;
  const DraftVariant* saved = m_autosave.draft().variant(email.variant);
  if (!saved) return;
  body.stepPosition = m_autosave.draft().placeOfVariant(email.variant) + 1;
  body.variantId = saved->id;
}

void TestEmailForm::follow() {
  if (!m_job->running()) return;
  m_warnings = m_course->warnings;
  set(m_course->isFollowed ? Stage::following : Stage::sending, m_job->name(), m_job->stage());
}

void TestEmailForm::ended() {
  using Kind = JobOutcome::Kind;
  const JobOutcome outcome = m_job->outcome();
  if (outcome.kind == Kind::stopped)
    set(Stage::form);
  else if (m_course->isFollowed)
    set(outcome.kind == Kind::done   ? Stage::sent
        : outcome.kind == Kind::open ? Stage::overdue
                                     : Stage::failed,
        outcome.title, outcome.text);
  else {
    set(Stage::form);
    m_submission->fail(outcome.text);
  }
  letGo();
}

void TestEmailForm::letGo() {
  if (m_job) {
    m_job->disconnect(this);
    m_job->attend(nullptr);
  }
  m_job.clear();
  m_submission.reset();
  Q_EMIT changed();
}

void TestEmailForm::set(Stage stage, const QString& headline, const QString& detail) {
  m_stage = stage;
  m_headline = headline;
  m_detail = detail;
  if (stage == Stage::form) m_warnings.clear();
  Q_EMIT changed();
}

void TestEmailForm::close() {
  letGo();
  set(Stage::form);
  Store::close();
}

}  // namespace orv
