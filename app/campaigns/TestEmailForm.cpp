#include "app/campaigns/TestEmailForm.h"

#include "app/base/EmailAddress.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/campaignRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

TestEmailForm::TestEmailForm(CampaignContext& context, SequenceAutosave& autosave,
                             std::function<std::optional<Email>()> email)
    : Store(context.workspace, &context.whole),
      m_context(context),
      m_autosave(autosave),
      m_emailShown(std::move(email)) {
  connect(&context.campaign, &ResourceBase::changed, this, &TestEmailForm::changed);
}

void TestEmailForm::setTo(const QString& to) {
  if (m_to == to) return;
  m_to = to;
  m_error.clear();
  Q_EMIT changed();
}

QString TestEmailForm::note() const {
  const QString lead = m_email.leadName.isEmpty() ? u"a sample lead"_s : m_email.leadName;
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
  m_shown = true;
  // Closed while it waited: this is how far it has come.
  if (waiting()) return Q_EMIT changed();
  m_email = *email;
  m_error.clear();
  m_warnings.clear();
  set(Stage::form);
}

void TestEmailForm::cancel() {
  m_shown = false;
  waiting() ? Q_EMIT changed() : set(Stage::form);
}

void TestEmailForm::submit() {
  if (!m_shown || waiting() || !hasSender()) return;
  const QString to = m_to.trimmed();
  if (!isEmailAddress(to)) return fail(u"Enter an email address."_s);
  // Written on since the form was opened? What is sent is what stands there now.
  if (const auto email = m_emailShown()) m_email = *email;
  m_error.clear();
  m_task.start(sendTask(to, m_email));
}

Task<void> TestEmailForm::sendTask(QString to, Email email) {
  set(Stage::sending);
  // A new email has its id only once it is saved. Where it cannot be, its text goes out all the same.
  co_await m_autosave.flush();
  TestEmailBody body;
  if (const DraftVariant* saved = m_autosave.draft().variant(email.variant)) {
    email.position = m_autosave.draft().placeOfVariant(email.variant) + 1;
    body.variantId = saved->id;
  }
  body.to = to;
  body.leadId = email.leadId;
  body.stepPosition = email.position;
  body.subject = email.subject;
  body.body = email.body;
  TestEmail test;
  try {
    test = co_await m_context.api.send(Requests::sendTestEmail(m_context.id, body));
  } catch (const APIError& error) {
    co_return fail(error);
  }
  if (test.to.value_or(QString()).isEmpty()) test.to = to;
  co_await followTask(test);
}

Task<void> TestEmailForm::followTask(TestEmail test) {
  const QDateTime start = m_context.services.clock.now();
  const QString to = *test.to;
  m_warnings = test.warnings.value_or(QList<QString>());
  set(Stage::following, u"Sending a test to "_s + to, u"Waiting for the inbox to take it."_s);
  while (!tell(test)) {
    if (start.secsTo(m_context.services.clock.now()) >= limit.count()) {
      end(Stage::overdue, u"Not sent yet"_s,
          u"The test is still waiting for the inbox. It may arrive at %1 later."_s.arg(to));
      co_return;
    }
    co_await m_context.services.clock.sleep(interval);
    try {
      TestEmail now = co_await m_context.api.send(Requests::testEmailState(test.id));
      if (now.to.value_or(QString()).isEmpty()) now.to = to;
      if (!now.from) now.from = test.from;
      test = now;
    } catch (const APIError& error) {
      // One lost reading is no reason to stop; the next one comes.
      if (error.context().httpStatus >= 400 && error.context().httpStatus < 500) {
        end(Stage::overdue, u"Couldn’t follow the test"_s, error.message());
        co_return;
      }
    }
  }
}

/// True when this is how it ended.
bool TestEmailForm::tell(const TestEmail& test) {
  if (test.state == "sent"_L1) {
    end(Stage::sent, u"Sent from %1 to %2"_s.arg(test.from.value_or(u"an inbox"_s), *test.to),
        u"Handed to the inbox; it should arrive in a moment."_s);
    return true;
  }
  if (test.state != "failed"_L1) return false;
  QString reason = test.error.value_or(QString()).trimmed();
  if (reason.endsWith(u'.')) reason.chop(1);
  end(Stage::failed, u"Not sent"_s,
      reason.isEmpty() ? u"The inbox refused it. Check that inbox."_s
                       : u"The inbox refused it. "_s + reason + u". Check that inbox."_s);
  return true;
}

void TestEmailForm::set(Stage stage, const QString& headline, const QString& detail) {
  m_stage = stage;
  m_headline = headline;
  m_detail = detail;
  Q_EMIT changed();
}

void TestEmailForm::end(Stage stage, const QString& headline, const QString& detail) {
  set(stage, headline, detail);
  if (m_shown) return;
  const auto tone = stage == Stage::failed ? Toasts::Tone::error : Toasts::Tone::standard;
  m_context.services.toasts.show({.message = headline, .tone = tone, .detail = detail});
}

void TestEmailForm::fail(const QString& error) {
  m_error = error;
  set(Stage::form);
}

void TestEmailForm::fail(const APIError& error) {
  if (!m_shown) m_context.services.toasts.failure(u"Couldn’t send the test."_s, error);
  fail(mayHaveActed(error) ? error.message() + u" The test may be on its way all the same."_s : error.message());
}

void TestEmailForm::close() {
  m_task.cancel();
  set(Stage::form);
  Store::close();
}

}  // namespace orv
