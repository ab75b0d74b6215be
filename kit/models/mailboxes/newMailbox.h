#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>
#include <variant>

namespace orv {

/// How the service is to reach an inbox. On the wire one flat object whose `kind` names the choice. It holds secrets:
/// whoever fills one in lets go of it as soon as the request is made.
struct MailboxConnectionIn {
  struct Server {
    QString host;
    qint64 port = 0;
    /// TLS from the first byte; otherwise the connection is upgraded as the server offers.
    bool secure = false;
    bool operator==(const Server&) const = default;
  };
  struct SmtpImap {
    QString username;
    QString password;
    Server smtp;
    Server imap;
    /// Only where reading has a login of its own.
    std::optional<QString> imapUsername;
    std::optional<QString> imapPassword;
    bool operator==(const SmtpImap&) const = default;
  };
  /// An app registration of Microsoft 365.
  struct MsGraphApp {
    QString tenantId;
    QString clientId;
    QString clientSecret;
    bool operator==(const MsGraphApp&) const = default;
  };
  /// Domain-wide delegation of Google Workspace: the admin has let the service in.
  struct GoogleDwd {
    bool operator==(const GoogleDwd&) const = default;
  };
  std::variant<SmtpImap, MsGraphApp, GoogleDwd> way;
  bool operator==(const MailboxConnectionIn&) const = default;
};
BOOST_DESCRIBE_STRUCT(MailboxConnectionIn::Server, (), (host, port, secure))
BOOST_DESCRIBE_STRUCT(MailboxConnectionIn::SmtpImap, (), (username, password, smtp, imap, imapUsername, imapPassword))
BOOST_DESCRIBE_STRUCT(MailboxConnectionIn::MsGraphApp, (), (tenantId, clientId, clientSecret))
BOOST_DESCRIBE_STRUCT(MailboxConnectionIn::GoogleDwd, (), ())

/// The account itself, beside its connection.
struct NewMailboxBody {
  QString address;
  QString displayName;
  std::optional<qint64> dailyCap;
  std::optional<qint64> sendLimit;
  std::optional<qint64> sendingGapMinutes;
  std::optional<QString> signature;
  std::optional<QList<QString>> tags;
  bool operator==(const NewMailboxBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(NewMailboxBody, (),
                      (address, displayName, dailyCap, sendLimit, sendingGapMinutes, signature, tags))

}  // namespace orv
