#pragma once

#include <QString>

namespace orv {

struct Mailbox;

/// Under whose name the screens show a mailbox. Everybody uses these three words as they stand.
enum class MailboxBrand { google, microsoft, smtp };

MailboxBrand brandOf(const Mailbox& mailbox);
/// By the provider's word alone, where nothing is told of the connection.
MailboxBrand brandOf(const QString& provider);
/// "google", "microsoft" or "smtp".
QString brandWord(MailboxBrand brand);
QString brandName(MailboxBrand brand);
/// The brand's name, or what its connection is called.
QString brandName(const Mailbox& mailbox);

/// The hosts of those that give everybody a mailbox.
namespace mailHosts {
inline constexpr QLatin1String gmailSmtp("smtp.gmail.com");
inline constexpr QLatin1String gmailImap("imap.gmail.com");
inline constexpr QLatin1String outlookSmtp("smtp-mail.outlook.com");
inline constexpr QLatin1String outlookImap("outlook.office365.com");
}  // namespace mailHosts

}  // namespace orv
