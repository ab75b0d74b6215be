#include <QJsonDocument>
#include <QJsonObject>

#include "demo/Mailboxes.h"
#include "kit/models/mailboxes/newMailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

/// A connection as it was sent: what is kept of it, and what its check will find.
struct GivenConnection {
  Mailbox::Connection kept;
  QString provider;
  std::optional<QString> fault;
};

GivenConnection given(const MailboxConnectionIn::SmtpImap& login) {
  GivenConnection connection{{u"smtp_imap"_s, u"verifying"_s, {}, {}, login.smtp.host}, u"smtp"_s, {}};
  // So that a check can be seen to fail.
  if (login.password == "wrong"_L1) connection.fault = u"535 5.7.8 Username and password not accepted"_s;
  if (login.imapPassword == u"wrong"_s) connection.fault = u"IMAP sign-in refused"_s;
  for (const auto& server : {login.smtp, login.imap})
    if (server.host.startsWith("nowhere."_L1)) connection.fault = u"There is no server "_s + server.host;
  return connection;
}

GivenConnection given(const MailboxConnectionIn::MsGraphApp& app) {
  GivenConnection connection{{u"ms_graph_app"_s, u"verifying"_s, {}, {}, {}}, u"microsoft"_s, {}};
  if (app.clientSecret == "expired"_L1) connection.fault = u"The app’s client secret has expired"_s;
  return connection;
}

GivenConnection given(const MailboxConnectionIn::GoogleDwd&) {
  return {{u"google_dwd"_s, u"verifying"_s, {}, {}, {}}, u"google"_s, {}};
}

bool isServer(const MailboxConnectionIn::Server& server) {
  return !server.host.isEmpty() && !server.host.contains(u' ') && server.port >= 1 && server.port <= 65535;
}

std::optional<HTTPAnswer> refusalOf(const MailboxConnectionIn::SmtpImap& login) {
  if (!isServer(login.smtp)) return invalid(u"The SMTP server is not a server."_s, u"connection.smtp"_s);
  if (!isServer(login.imap)) return invalid(u"The IMAP server is not a server."_s, u"connection.imap"_s);
  if (login.username.isEmpty() || login.password.isEmpty())
    return invalid(u"Enter username and password."_s, u"connection.password"_s);
  return std::nullopt;
}

std::optional<HTTPAnswer> refusalOf(const MailboxConnectionIn::MsGraphApp& app) {
  if (app.tenantId.size() == 36 && app.clientId.size() == 36 && !app.clientSecret.isEmpty()) return std::nullopt;
  return invalid(u"Microsoft does not know this tenant or client."_s, u"connection.tenantId"_s);
}

std::optional<HTTPAnswer> refusalOf(const MailboxConnectionIn::GoogleDwd&) { return std::nullopt; }

template <class Way>
std::optional<HTTPAnswer> read(const QByteArray& json, GivenConnection& into) {
  const auto way = decodeJSON<Way>(json);
  into = given(way);
  return refusalOf(way);
}

/// What the body's connection says; a refusal when it cannot be used.
std::optional<HTTPAnswer> readConnection(const Call& call, GivenConnection& into) {
  const QJsonObject object = QJsonDocument::fromJson(call.request.body)["connection"_L1].toObject();
  const QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
  const QString kind = object["kind"_L1].toString();
  try {
    if (kind == "smtp_imap"_L1) return read<MailboxConnectionIn::SmtpImap>(json, into);
    if (kind == "ms_graph_app"_L1) return read<MailboxConnectionIn::MsGraphApp>(json, into);
    if (kind == "google_dwd"_L1) return read<MailboxConnectionIn::GoogleDwd>(json, into);
  } catch (const DecodeError&) {
  }
  return invalid(u"This connection can’t be read."_s, u"connection"_s);
}

HTTPAnswer create(Call& call) {
  const auto body = call.request.bodyAs<NewMailboxBody>();
  const QString address = body ? body->address.trimmed() : QString();
  if (!address.contains(u'@')) return invalid(u"Enter an email address."_s, u"address"_s);
  if (isConnected(*call.workspace, address))
    return problemAnswer(409, u"exists"_s, {}, address + u" is connected already."_s);
  GivenConnection connection;
  if (auto refusal = readConnection(call, connection)) return *std::move(refusal);
  DemoMailbox mailbox = newMailbox(call, address, body->displayName.trimmed());
  Mailbox& record = mailbox.record;
  record.provider = connection.provider;
  record.connection = connection.kept;
  mailbox.fault = connection.fault;
  if (body->dailyCap) record.dailyCap = *body->dailyCap;
  if (body->sendLimit) record.sendLimit = body->sendLimit;
  record.sendingGapMinutes = body->sendingGapMinutes;
  record.signature = body->signature;
  if (body->tags) record.tags = body->tags;
  beginCheck(mailbox, call);
  call.workspace->mailboxes.append(mailbox);
  return changedAnswer(call, call.workspace->mailboxes.last(), 201);
}

HTTPAnswer reconnect(Call& call, DemoMailbox& mailbox) {
  GivenConnection connection;
  if (auto refusal = readConnection(call, connection)) return *std::move(refusal);
  mailbox.record.connection = connection.kept;
  mailbox.fault = connection.fault;
  mailbox.check.reset();
  beginCheck(mailbox, call);
  return changedAnswer(call, mailbox);
}

}  // namespace

const QList<Route>& mailboxAddingRoutes() {
  static const QList<Route> routes{
      {"POST", u"/mailboxes"_s, Access::members, create},
      {"PUT", u"/mailboxes/{id}/connection"_s, Access::members, onMailbox<reconnect>},
  };
  return routes;
}

}  // namespace orv::demo
