#include "app/accounts/AccountFields.h"

#include "app/accounts/AccountTexts.h"
#include "kit/api/wholeNumber.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString numberText(std::optional<qint64> number) { return number ? QString::number(*number) : QString(); }

std::optional<qint64> numberIn(const QString& text, int most) {
  const auto number = wholeNumber(text, 0, most);
  return number ? std::optional<qint64>(*number) : std::nullopt;
}

/// The number that was typed, where it is another one.
std::optional<qint64> changedNumber(const QString& typed, const QString& base, int most) {
  const auto number = numberIn(typed, most);
  return number == numberIn(base, most) ? std::nullopt : number;
}

}  // namespace

const QRegularExpression& accountTrackingPattern() {
  static const QRegularExpression pattern(
      QRegularExpression::anchoredPattern(uR"((?=.{4,253}$)([a-z0-9](?:[a-z0-9-]{0,61}[a-z0-9])?\.)+[a-z]{2,63})"_s));
  return pattern;
}

AccountFields accountFieldsOf(const Mailbox& mailbox) {
  AccountFields fields;
  fields.displayName = mailbox.displayName;
  fields.signature = mailbox.signature.value_or(QString());
  fields.sendLimit = numberText(mailbox.sendLimit);
  fields.gap = numberText(mailbox.sendingGapMinutes);
  fields.trackingDomain = mailbox.trackingDomain.value_or(QString());
  fields.tags = mailbox.tags.value_or(QList<QString>());
  return fields;
}

QVariantMap problemsIn(const AccountFields& typed, const AccountFields& base) {
  QVariantMap problems;
  const auto number = [&problems](const QString& field, const QString& now, const QString& before, int most) {
    if (now == before || now.trimmed().isEmpty()) return;
    if (const QString problem = numberProblem(now, most); !problem.isEmpty()) problems.insert(field, problem);
  };
  number(u"sendLimit"_s, typed.sendLimit, base.sendLimit, mostSendLimit);
  number(u"gap"_s, typed.gap, base.gap, mostSendingGap);
  const QString host = normalisedHost(typed.trackingDomain);
  if (typed.trackingDomain != base.trackingDomain && !host.isEmpty() &&
      !accountTrackingPattern().match(host).hasMatch())
    problems.insert(u"trackingDomain"_s, u"Enter a host name such as "_s + exampleHost);
  if (typed.tags != base.tags && normalisedTags(typed.tags).size() > mostTags)
    problems.insert(u"tags"_s, tooManyTags());
  return problems;
}

MailboxPatch patchOf(const AccountFields& typed, const AccountFields& base) {
  MailboxPatch patch;
  if (const QString name = typed.displayName.trimmed(); name != base.displayName) patch.displayName = name;
  if (typed.signature != base.signature) patch.signature = typed.signature;
  patch.sendLimit = changedNumber(typed.sendLimit, base.sendLimit, mostSendLimit);
  patch.sendingGapMinutes = changedNumber(typed.gap, base.gap, mostSendingGap);
  if (typed.tags != base.tags && normalisedTags(typed.tags) != base.tags) patch.tags = normalisedTags(typed.tags);
  const QString host = normalisedHost(typed.trackingDomain);
  if (typed.trackingDomain == base.trackingDomain || host == base.trackingDomain) return patch;
  patch.trackingDomain = host.isEmpty() ? Clearable<QString>::cleared() : Clearable<QString>(host);
  return patch;
}

}  // namespace orv
