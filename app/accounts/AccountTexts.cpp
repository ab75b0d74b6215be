#include "app/accounts/AccountTexts.h"

#include <QRegularExpression>

#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/wholeNumber.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

CheckState checkStateOf(const Mailbox& mailbox) {
  const QString connection = mailbox.connection ? mailbox.connection->status : QString();
  if (mailbox.status.isVerifying() || connection == "verifying"_L1) return CheckState::running;
  return mailbox.status.isFailed() || connection == "failed"_L1 ? CheckState::failed : CheckState::connected;
}

bool tellInOne(Toasts& toasts, const QString& what, const APIError& error) {
  if (error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized)) return true;
  toasts.show({.message = what + error.message(), .tone = Toasts::Tone::error});
  return true;
}

QString normalisedHost(const QString& text) {
  static const QRegularExpression scheme(u"^https?://"_s), path(u"/.*$"_s);
  return text.trimmed().toLower().remove(scheme).remove(path);
}

QString numberProblem(const QString& text, int most) {
  if (wholeNumber(text, 0, most)) return {};
  return u"Enter a number from 0 to "_s + QString::number(most);
}

QStringList normalisedTags(const QStringList& tags) {
  QStringList kept;
  for (const QString& tag : tags) {
    const QString trimmed = tag.trimmed();
    if (!trimmed.isEmpty() && !kept.contains(trimmed, Qt::CaseInsensitive)) kept.append(trimmed);
  }
  return kept;
}

QString tooManyTags() { return QString::number(mostTags) + u" tags is the most"_s; }

}  // namespace orv
