#pragma once

#include <QString>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

struct AddressBody;
struct AddressesBody;
struct GoogleConnectOutcome;
struct GoogleDirectory;
struct GoogleWorkspaceStatus;
struct Mailbox;
struct MailboxBulkBody;
struct MailboxBulkResult;
struct MailboxConnectionIn;
struct MailboxHistory;
struct MailboxPage;
struct MailboxPatch;
struct NewMailboxBody;
struct OAuthProviders;
struct TrackingDomainCheck;

namespace Requests {

/// One page; the next one continues with its cursor.
Request<MailboxPage> listMailboxes(bool archived = false, const std::optional<QString>& cursor = {});
Request<Mailbox> getMailbox(const QString& id);
Request<MailboxHistory> mailboxHistory(const QString& id, int days);
/// `version` as last read, when it is known.
Request<Mailbox> updateMailbox(const QString& id, const MailboxPatch& patch, std::optional<qint64> version);
Request<Mailbox> setReadyMode(const QString& id, const QString& mode, std::optional<qint64> version);
Request<Mailbox> pauseMailbox(const QString& id);
Request<Mailbox> resumeMailbox(const QString& id);
/// Begins a check of the connection; the mailbox tells later how it ended.
Request<Mailbox> verifyMailbox(const QString& id);
Request<TrackingDomainCheck> checkTrackingDomain(const QString& id);
Request<Mailbox> createMailbox(const NewMailboxBody& body, const MailboxConnectionIn& connection);
Request<Mailbox> reconnectMailbox(const QString& id, const MailboxConnectionIn& connection);
/// Archives, or deletes for good.
Request<Empty> deleteMailbox(const QString& id, bool permanent);
Request<Mailbox> restoreMailbox(const QString& id);
Request<MailboxBulkResult> bulkMailboxes(const MailboxBulkBody& body);

Request<OAuthProviders> oauthProviders();
Request<GoogleWorkspaceStatus> googleWorkspaceStatus();
Request<GoogleDirectory> googleDirectory(const AddressBody& admin);
Request<GoogleConnectOutcome> googleConnect(const AddressesBody& picked);

}  // namespace Requests
}  // namespace orv
