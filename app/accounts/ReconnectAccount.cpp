#include "app/accounts/ReconnectAccount.h"

#include "app/base/shownName.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ReconnectAccount::ReconnectAccount(WorkspaceContext& context, AccountActions& actions, Store* whole)
    : Store(context, whole),
      m_actions(actions),
      m_requests(context, actions.busy(), [this] { this->context().changes().stale<Mailbox>(m_account.id); }),
      m_recovery(context, Recovery::of(*m_connection.draft())) {
  m_recovery.keep(m_form, *m_connection.draft());
  connect(&m_form, &Form::changed, this, &ReconnectAccount::follow);
  connect(m_connection.draft(), &FieldDraft::changed, this, &ReconnectAccount::changed);
  connect(&m_connection, &ConnectionForm::secretsChanged, this, &ReconnectAccount::changed);
}

bool ReconnectAccount::canSubmit() const {
  const bool isSmtp = m_connection.kind() == ConnectionForm::Kind::smtp;
  const QString& secret = isSmtp ? m_connection.password() : m_connection.clientSecret();
  return canWrite() && !busy() && !secret.isEmpty();
}

void ReconnectAccount::show(const Mailbox& account) {
  if (shown() || !canWrite()) return;
  m_account = account;
  m_connection.draft()->setKey(u"accounts/"_s + account.id + u"/connection"_s);
  m_connection.begin(account);
  m_form.show();
}

void ReconnectAccount::submit() {
  if (canSubmit() && shown()) m_tasks.start(submitTask());
}

Task<void> ReconnectAccount::submitTask() {
  if (!m_connection.check()) co_return;
  const QString id = m_account.id, address = m_account.address;
  const auto request = Requests::reconnectMailbox(id, m_connection.connection());
  auto submission = m_form.begin();
  const auto told = [this, &submission](const APIError& error) {
    const bool isMute = error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized);
    const QString sentence = u"Couldn’t reconnect. "_s + error.message();
    if (!isMute && !submission.fail(sentence))
      services().toasts.show({.message = sentence, .tone = Toasts::Tone::error});
    return true;
  };
  const auto changed = co_await m_requests.change<Mailbox>(
      id, [request] { return request; }, {}, {}, told);
  if (!changed) co_return;
  submission.succeed();
  services().toasts.show({.message = u"Checking the new sign-in for "_s + shownName(address)});
  m_actions.followCheck(id, address);
}

void ReconnectAccount::follow() {
  if (!shown()) m_connection.wipe();
  Q_EMIT changed();
}

}  // namespace orv
