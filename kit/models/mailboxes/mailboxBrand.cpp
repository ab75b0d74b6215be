#include "kit/models/mailboxes/mailboxBrand.h"

#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

MailboxBrand brandOf(const Mailbox& mailbox) {
  const QString kind = mailbox.connection ? mailbox.connection->kind : QString();
  if (kind == "google_oauth"_L1 || kind == "google_dwd"_L1) return MailboxBrand::google;
  if (kind == "smtp_imap"_L1 && mailbox.connection->host == mailHosts::gmailSmtp) return MailboxBrand::google;
  if (kind == "ms_oauth"_L1 || kind == "ms_graph_app"_L1) return MailboxBrand::microsoft;
  if (kind == "smtp_imap"_L1) return MailboxBrand::smtp;
  // Not connected yet, or in a way of tomorrow.
  return brandOf(mailbox.provider);
}

MailboxBrand brandOf(const QString& provider) {
  if (provider == "google"_L1) return MailboxBrand::google;
  return provider == "microsoft"_L1 ? MailboxBrand::microsoft : MailboxBrand::smtp;
}

QString brandWord(MailboxBrand brand) {
  if (brand == MailboxBrand::google) return u"google"_s;
  return brand == MailboxBrand::microsoft ? u"microsoft"_s : u"smtp"_s;
}

QString brandName(MailboxBrand brand) {
  if (brand == MailboxBrand::google) return u"Google Workspace"_s;
  return brand == MailboxBrand::microsoft ? u"Microsoft 365"_s : u"SMTP / IMAP"_s;
}

QString brandName(const Mailbox& mailbox) {
  if (mailbox.connection && mailbox.connection->kind == "ms_graph_app"_L1) return u"Microsoft 365 app"_s;
  return brandName(brandOf(mailbox));
}

}  // namespace orv
