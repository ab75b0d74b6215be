#pragma once

#include <QSet>
#include <boost/describe/class.hpp>

#include "app/base/Draft.h"
#include "app/base/EnumName.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/newMailbox.h"

namespace orv {

/// How an account is reached, as it is typed, without what is secret: these fields are kept in the journal.
struct ConnectionFields {
  /// Of a new account.
  QString address;
  QString displayName;
  QString username;
  QString smtpHost;
  QString smtpPort = QStringLiteral("587");
  bool smtpSecure = false;
  QString imapHost;
  QString imapPort = QStringLiteral("993");
  bool imapSecure = true;
  /// Reading has no login of its own.
  bool sameLogin = true;
  QString imapUsername;
  QString tenantId;
  QString clientId;
  bool operator==(const ConnectionFields&) const = default;
};
BOOST_DESCRIBE_STRUCT(ConnectionFields, (),
                      (address, displayName, username, smtpHost, smtpPort, smtpSecure, imapHost, imapPort, imapSecure,
                       sameLogin, imapUsername, tenantId, clientId))

struct MailServers {
  QString smtp;
  QString imap;
  bool operator==(const MailServers&) const = default;
};
/// Where the mail of an address most likely is; nothing while its domain is none yet.
std::optional<MailServers> guessedServers(const QString& address);

/// The sign-in of an account while it is typed: of a new one, or a new one of an account there is.
///
/// Secrets are held here and nowhere else. They are wiped when whoever shows the form closes it.
class ConnectionForm : public QObject {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(QString kind READ kindName NOTIFY changed)
  Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY secretsChanged)
  Q_PROPERTY(QString imapPassword READ imapPassword WRITE setImapPassword NOTIFY secretsChanged)
  Q_PROPERTY(QString clientSecret READ clientSecret WRITE setClientSecret NOTIFY secretsChanged)

 public:
  enum class Kind { smtp, microsoftApp };
  Q_ENUM(Kind)

  explicit ConnectionForm(QObject* parent = nullptr);
  ~ConnectionForm() override { wipe(); }

  DraftOf<ConnectionFields>* draft() { return &m_draft; }
  ConnectionFields fields() const { return m_draft.typed(); }
  Kind kind() const { return m_kind; }
  QString kindName() const { return enumName(m_kind); }
  void setKind(Kind kind);
  const QString& password() const { return m_password; }
  void setPassword(const QString& secret) { setSecret(m_password, secret); }
  const QString& imapPassword() const { return m_imapPassword; }
  void setImapPassword(const QString& secret) { setSecret(m_imapPassword, secret); }
  const QString& clientSecret() const { return m_clientSecret; }
  void setClientSecret(const QString& secret) { setSecret(m_clientSecret, secret); }

  /// Empty, for a new account.
  void begin();
  /// For a new sign-in of an account there is.
  void begin(const Mailbox& mailbox);
  /// The person typed in one of the fields. With an address go user name and servers, unless they were typed.
  Q_INVOKABLE void set(const QString& field, const QVariant& value);

  /// A sentence for each field that cannot be sent as it is; they are shown as well.
  bool check();
  MailboxConnectionIn connection() const;
  /// What a journal brought back was typed.
  void restored();
  /// Lets go of every secret.
  void wipe();

 Q_SIGNALS:
  void changed();
  void secretsChanged();

 private:
  void setSecret(QString& secret, const QString& typed);
  void follow(const QString& address);
  void suggest(const QString& field, const QString& value);
  MailboxConnectionIn::SmtpImap smtpLogin() const;

  DraftOf<ConnectionFields> m_draft;
  Kind m_kind = Kind::smtp;
  bool m_isNew = true;
  /// Fields that follow the address until somebody types in them.
  QSet<QString> m_byHand;
  QString m_password;
  QString m_imapPassword;
  QString m_clientSecret;
};

}  // namespace orv
