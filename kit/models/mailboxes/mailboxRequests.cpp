#include "kit/models/mailboxes/mailboxRequests.h"

#include "kit/api/JSONCoding.h"
#include "kit/api/requestBuilders.h"
#include "kit/models/mailboxes/googleWorkspace.h"
#include "kit/models/mailboxes/mailboxBulk.h"
#include "kit/models/mailboxes/mailboxHistory.h"
#include "kit/models/mailboxes/mailboxPage.h"
#include "kit/models/mailboxes/mailboxPatch.h"
#include "kit/models/mailboxes/newMailbox.h"
#include "kit/models/mailboxes/trackingDomainCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::Requests {
namespace {

QString mailbox(const QString& id, const QString& rest = {}) { return u"/mailboxes/"_s + pathSegment(id) + rest; }

QJsonObject encoded(const MailboxConnectionIn& connection) {
  static const QStringList kinds{u"smtp_imap"_s, u"ms_graph_app"_s, u"google_dwd"_s};
  QJsonObject object = std::visit([](const auto& way) { return toJSON(way); }, connection.way);
  object.insert("kind"_L1, kinds.at(qsizetype(connection.way.index())));
  return object;
}

}  // namespace

Request<MailboxPage> listMailboxes(bool archived, const std::optional<QString>& cursor) {
  auto request = get<MailboxPage>(u"/mailboxes"_s, {{u"limit"_s, u"200"_s}});
  addOptional(request.query, u"cursor"_s, cursor);
  addFlag(request.query, u"archived"_s, archived);
  return request;
}

Request<Mailbox> getMailbox(const QString& id) { return get<Mailbox>(mailbox(id)); }

Request<MailboxHistory> mailboxHistory(const QString& id, int days) {
  return get<MailboxHistory>(mailbox(id, u"/history"_s), {{u"days"_s, QString::number(days)}});
}

Request<Mailbox> updateMailbox(const QString& id, const MailboxPatch& patch, std::optional<qint64> version) {
  auto request = changing<Mailbox>(HTTPMethod::patch, mailbox(id), encodeJSON(patch));
  request.ifMatch = version;
  return request;
}

Request<Mailbox> setReadyMode(const QString& id, const QString& mode, std::optional<qint64> version) {
  auto request = changing<Mailbox>(HTTPMethod::patch, mailbox(id), encodeJSON(ReadyModeBody{mode}));
  request.ifMatch = version;
  return request;
}

Request<Mailbox> pauseMailbox(const QString& id) {
  return changing<Mailbox>(HTTPMethod::post, mailbox(id, u"/pause"_s));
}

Request<Mailbox> resumeMailbox(const QString& id) {
  return changing<Mailbox>(HTTPMethod::post, mailbox(id, u"/resume"_s));
}

Request<Mailbox> verifyMailbox(const QString& id) {
  return changing<Mailbox>(HTTPMethod::post, mailbox(id, u"/verify"_s));
}

Request<TrackingDomainCheck> checkTrackingDomain(const QString& id) {
  return changing<TrackingDomainCheck>(HTTPMethod::post, mailbox(id, u"/tracking-domain/check"_s));
}

Request<Mailbox> createMailbox(const NewMailboxBody& body, const MailboxConnectionIn& connection) {
  QJsonObject object = toJSON(body);
  object.insert("connection"_L1, encoded(connection));
  return changing<Mailbox>(HTTPMethod::post, u"/mailboxes"_s, object);
}

Request<Mailbox> reconnectMailbox(const QString& id, const MailboxConnectionIn& connection) {
  return changing<Mailbox>(HTTPMethod::put, mailbox(id, u"/connection"_s),
                           QJsonObject{{u"connection"_s, encoded(connection)}});
}

Request<Empty> deleteMailbox(const QString& id, bool permanent) {
  auto request = changing<Empty>(HTTPMethod::del, mailbox(id));
  addFlag(request.query, u"permanent"_s, permanent);
  return request;
}

Request<Mailbox> restoreMailbox(const QString& id) {
  return changing<Mailbox>(HTTPMethod::post, mailbox(id, u"/restore"_s));
}

Request<MailboxBulkResult> bulkMailboxes(const MailboxBulkBody& body) {
  return changing<MailboxBulkResult>(HTTPMethod::post, u"/mailboxes/bulk"_s, encodeJSON(body));
}

Request<OAuthProviders> oauthProviders() { return get<OAuthProviders>(u"/mailboxes/oauth/providers"_s); }

Request<GoogleWorkspaceStatus> googleWorkspaceStatus() { return get<GoogleWorkspaceStatus>(u"/google-workspace"_s); }

Request<GoogleDirectory> googleDirectory(const AddressBody& admin) {
  return changing<GoogleDirectory>(HTTPMethod::post, u"/google-workspace/directory"_s, encodeJSON(admin));
}

Request<GoogleConnectOutcome> googleConnect(const AddressesBody& picked) {
  return changing<GoogleConnectOutcome>(HTTPMethod::post, u"/google-workspace/connect"_s, encodeJSON(picked));
}

}  // namespace orv::Requests
