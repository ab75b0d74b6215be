#include "app/accounts/ConnectionForm.h"

#include "app/base/EmailAddress.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/mailboxes/mailboxBrand.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr int firstPort = 1, lastPort = 65535;

const QStringList& followingFields() {
  static const QStringList fields{u"username"_s, u"smtpHost"_s, u"imapHost"_s};
  return fields;
}

QString domainOf(const QString& address) {
  const auto at = address.lastIndexOf(u'@');
  return at < 0 ? QString() : address.sliced(at + 1).trimmed().toLower();
}

std::optional<int> portOf(const QString& text) { return wholeNumber(text, firstPort, lastPort); }

/// Overwritten before it is let go, where nobody else holds it as well.
void wipeOut(QString& secret) {
  if (secret.isDetached()) secret.fill(u'\0');
  secret = QString();
}

}  // namespace

std::optional<MailServers> guessedServers(const QString& address) {
  const QString domain = domainOf(address);
  if (!domain.contains(u'.') || domain.startsWith(u'.') || domain.endsWith(u'.')) return std::nullopt;
  if (domain == "gmail.com"_L1 || domain == "googlemail.com"_L1)
    return MailServers{QString(mailHosts::gmailSmtp), QString(mailHosts::gmailImap)};
  if (domain == "outlook.com"_L1 || domain == "hotmail.com"_L1 || domain == "live.com"_L1)
    return MailServers{QString(mailHosts::outlookSmtp), QString(mailHosts::outlookImap)};
  return MailServers{u"smtp."_s + domain, u"imap."_s + domain};
}

ConnectionForm::ConnectionForm(QObject* parent) : QObject(parent) {}

void ConnectionForm::setKind(Kind kind) {
  if (std::exchange(m_kind, kind) == kind) return;
  m_draft.setProblems({});
  Q_EMIT changed();
}

void ConnectionForm::begin() {
  m_isNew = true;
  m_byHand.clear();
  m_draft.fill(ConnectionFields());
  wipe();
}

void ConnectionForm::begin(const Mailbox& mailbox) {
  m_isNew = false;
  m_kind = mailbox.connection && mailbox.connection->kind == "ms_graph_app"_L1 ? Kind::microsoftApp : Kind::smtp;
  ConnectionFields fields;
  fields.address = fields.username = mailbox.address;
  fields.displayName = mailbox.displayName;
  const QString host = mailbox.connection ? mailbox.connection->host.value_or(QString()) : QString();
  const QString domain = domainOf(mailbox.address);
  if (!host.isEmpty()) {
    fields.smtpHost = host;
    fields.imapHost = QString(host).replace(u"smtp."_s, u"imap."_s);
  } else if (!domain.isEmpty()) {
    fields.smtpHost = u"smtp."_s + domain;
    fields.imapHost = u"imap."_s + domain;
  }
  m_byHand.clear();
  m_draft.fill(fields);
  wipe();
  Q_EMIT changed();
}

void ConnectionForm::set(const QString& field, const QVariant& value) {
  if (!m_draft.set(field, value)) return;
  if (followingFields().contains(field)) m_byHand.insert(field);
  if (field == "address"_L1) follow(value.toString());
}

/// A host that somebody took away again may be guessed anew; a user name may not.
void ConnectionForm::follow(const QString& address) {
  const auto servers = guessedServers(address);
  if (!servers) return;
  suggest(u"username"_s, address.trimmed());
  suggest(u"smtpHost"_s, servers->smtp);
  suggest(u"imapHost"_s, servers->imap);
}

void ConnectionForm::suggest(const QString& field, const QString& value) {
  const bool isFree = field != "username"_L1 && m_draft.values().value(field).toString().trimmed().isEmpty();
  if (isFree) m_byHand.remove(field);
  if (!m_byHand.contains(field)) m_draft.set(field, value);
}

void ConnectionForm::restored() {
  const ConnectionFields fields = m_draft.typed();
  const MailServers servers = guessedServers(fields.address).value_or(MailServers());
  m_byHand.clear();
  if (fields.username != fields.address.trimmed()) m_byHand.insert(u"username"_s);
  if (fields.smtpHost != servers.smtp) m_byHand.insert(u"smtpHost"_s);
  if (fields.imapHost != servers.imap) m_byHand.insert(u"imapHost"_s);
}

bool ConnectionForm::check() {
  QVariantMap problems;
  const ConnectionFields fields = m_draft.typed();
  const auto require = [&problems](const QString& field, bool isGood, const QString& sentence) {
    if (!isGood) problems.insert(field, sentence);
  };
  // An account that is there has its address, which nobody sees or changes here.
  if (m_isNew) require(u"address"_s, isEmailAddress(fields.address.trimmed()), u"Enter an email address."_s);
  if (m_kind == Kind::smtp) {
    const auto sentence = u"Enter a port from 1 to 65535"_s;
    require(u"smtpPort"_s, portOf(fields.smtpPort).has_value(), sentence);
    require(u"imapPort"_s, portOf(fields.imapPort).has_value(), sentence);
  }
  m_draft.setProblems(problems);
  return problems.isEmpty();
}

MailboxConnectionIn ConnectionForm::connection() const {
  const ConnectionFields fields = m_draft.typed();
  if (m_kind == Kind::smtp) return {smtpLogin()};
  return {MailboxConnectionIn::MsGraphApp{fields.tenantId.trimmed(), fields.clientId.trimmed(), m_clientSecret}};
}

MailboxConnectionIn::SmtpImap ConnectionForm::smtpLogin() const {
  const ConnectionFields fields = m_draft.typed();
  MailboxConnectionIn::SmtpImap login{
      fields.username.trimmed(),
      m_password,
      {fields.smtpHost.trimmed(), portOf(fields.smtpPort).value_or(0), fields.smtpSecure},
      {fields.imapHost.trimmed(), portOf(fields.imapPort).value_or(0), fields.imapSecure},
      {},
      {}};
  if (fields.sameLogin) return login;
  login.imapUsername = fields.imapUsername.trimmed();
  login.imapPassword = m_imapPassword;
  return login;
}

void ConnectionForm::setSecret(QString& secret, const QString& typed) {
  if (secret == typed) return;
  wipeOut(secret);
  secret = typed;
  Q_EMIT secretsChanged();
}

void ConnectionForm::wipe() {
  for (QString* secret : {&m_password, &m_imapPassword, &m_clientSecret}) wipeOut(*secret);
  Q_EMIT secretsChanged();
}

}  // namespace orv
