#include "app/accounts/AddAccount.h"

#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString sentenceOr(const APIError& error, const QString& otherwise) {
  const bool isMute = error.is(APIError::Kind::problem) && !error.problem().title && !error.problem().detail;
  return isMute ? otherwise : error.message();
}

AddAccount::AddAccount(WorkspaceContext& context, AccountActions& actions, Store* whole)
    : Store(context, whole),
      m_actions(actions),
      m_requests(context, m_busy, [&context] { context.changes().stale<Mailbox>(); }),
      m_google(context, this, m_form),
      m_recovery(context, Recovery::of(*m_connection.draft())) {
  m_connection.draft()->setKey(u"accounts/new"_s);
  m_recovery.keep(m_form, *m_connection.draft());
  connect(&m_form, &Form::changed, this, &AddAccount::follow);
  connect(&m_google, &GoogleConnect::changed, this, &AddAccount::changed);
  connect(m_connection.draft(), &FieldDraft::changed, this, &AddAccount::changed);
  connect(&m_connection, &ConnectionForm::secretsChanged, this, &AddAccount::changed);
  connect(&m_recovery, &Recovery::changed, &m_connection, [this] {
    if (!m_recovery.notice().isEmpty()) m_connection.restored();
  });
}

QString AddAccount::title() const {
  switch (m_way) {
    case Way::none:
      return u"Add account"_s;
    case Way::google:
      return u"Google Workspace: every inbox on the domain"_s;
    case Way::microsoft:
      return u"Microsoft 365: one inbox through an app registration"_s;
    case Way::smtp:
      return u"SMTP / IMAP: any email provider"_s;
  }
  return {};
}

bool AddAccount::canSubmit() const {
  const bool isTyped = m_way == Way::smtp ? !m_connection.password().isEmpty()
                                          : m_way == Way::microsoft && !m_connection.clientSecret().isEmpty();
  return isTyped && canWrite() && !busy() && !m_connection.fields().address.trimmed().isEmpty();
}

void AddAccount::setAdmin(const QString& admin) {
  if (std::exchange(m_admin, admin) != admin) Q_EMIT changed();
}

void AddAccount::show() {
  if (shown()) return;
  m_way = Way::none;
  m_admin.clear();
  m_connection.begin();
  m_form.show();
}

void AddAccount::choose(const QString& way) {
  const auto chosen = enumNamed<Way>(way);
  if (!chosen || *chosen == Way::none || !shown() || !canWrite()) return;
  m_way = *chosen;
  m_form.clearError();
  if (m_way == Way::google)
    m_google.start();
  else
    m_connection.setKind(m_way == Way::smtp ? ConnectionForm::Kind::smtp : ConnectionForm::Kind::microsoftApp);
  Q_EMIT changed();
}

void AddAccount::back() {
  if (busy()) return;
  m_way = Way::none;
  m_google.stop();
  m_form.clearError();
  Q_EMIT changed();
}

void AddAccount::submit() {
  if (canSubmit() && shown()) m_tasks.start(submitTask());
}

Task<void> AddAccount::submitTask() {
  if (!m_connection.check()) co_return;
  const ConnectionFields fields = m_connection.fields();
  const QString address = fields.address.trimmed();
  NewMailboxBody body;
  body.address = address;
  body.displayName = fields.displayName.trimmed();
  const QString otherwise = m_way == Way::smtp
                                ? u"Check the server names, the port and the app password, then try again."_s
                                : u"Check the details and try again."_s;
  auto submission = m_form.begin();
  const auto made = co_await m_requests.send(
      Requests::createMailbox(body, m_connection.connection()), {}, {},
      [this, &submission, otherwise](const APIError& error) {
        const bool isMute = error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized);
        const QString sentence = u"Couldn’t add the account. "_s + sentenceOr(error, otherwise);
        if (!isMute && !submission.fail(sentence))
          services().toasts.show({.message = sentence, .tone = Toasts::Tone::error});
        return true;
      });
  if (!made) co_return;
  submission.succeed();
  services().toasts.success(address + u" added. Checking the connection…"_s);
  m_actions.followCheck(made->id, address);
}

/// Whatever closes the dialog: nothing secret stays behind, and nobody waits any more.
void AddAccount::follow() {
  if (std::exchange(m_wasShown, shown()) && !shown()) {
    m_connection.wipe();
    m_google.stop();
  }
  Q_EMIT changed();
}

}  // namespace orv
