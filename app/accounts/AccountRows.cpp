#include "app/accounts/AccountRows.h"

#include "app/base/cellText.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"
#include "kit/models/rampup/rampupPhase.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(AccountRow)

namespace {

QString searchedText(const Mailbox& mailbox) {
  // A line each, so that no text matches across two of them.
  QStringList lines{mailbox.address, mailbox.displayName};
  lines += mailbox.tags.value_or(QList<QString>());
  return lines.join(u'\n').toLower();
}

/// Why a failed account does not work. Others say who they are instead.
QString problemOf(const Mailbox& mailbox) {
  if (!mailbox.status.isFailed()) return {};
  const auto reason = mailbox.connection ? mailbox.connection->lastError : std::nullopt;
  return reason ? *reason : mailbox.pausedReason.value_or(QString());
}

QString sentText(const Mailbox& mailbox) {
  const auto limit = mailbox.limitToday();
  if (!limit || mailbox.status.isVerifying()) return noValue;
  return Format::grouped(mailbox.sentToday()) + u" of "_s + Format::grouped(*limit);
}

double sentShare(const Mailbox& mailbox) {
  const qint64 limit = mailbox.limitToday().value_or(0);
  return limit > 0 ? std::min(1.0, double(mailbox.sentToday()) / double(limit)) : 0;
}

QString healthWord(const Mailbox& mailbox) {
  const QString word = mailbox.health.value_or(QString());
  return word == "healthy"_L1 || word == "warning"_L1 || word == "error"_L1 ? word : u"unknown"_s;
}

QString inboxText(const Mailbox& mailbox) {
  const auto percent = mailbox.warmup.inboxPct7d;
  return percent ? QString::number(qRound64(*percent)) + u'%' : noValue;
}

std::optional<double> timeOf(const std::optional<QString>& instant) {
  const auto at = parsePlatformDate(instant);
  return at ? std::optional(double(at->toMSecsSinceEpoch())) : std::nullopt;
}

/// What a column sorts by; nothing sorts last.
using Figure = std::optional<double> (*)(const AccountRow&);
Figure figureOf(const QString& column) {
  if (column == "sent"_L1)
    return [](const AccountRow& row) {
      const Mailbox& mailbox = row.record();
      return mailbox.limitToday() ? std::optional(double(mailbox.sentToday())) : std::nullopt;
    };
  if (column == "warmup"_L1)
    return [](const AccountRow& row) { return std::optional(double(rampupPhase(row.record()))); };
  if (column == "health"_L1) return [](const AccountRow& row) { return row.record().warmup.inboxPct7d; };
  // The day of going for good follows the day of removal.
  return [](const AccountRow& row) { return row.prepared().removedAt; };
}

QString textOf(const AccountRow& row, const QString& column) {
  if (column == "provider"_L1) return brandName(row.record());
  // What is searched begins with the address.
  return column == "status"_L1 ? row.record().status.label() : row.prepared().searched;
}

}  // namespace

AccountFacts::AccountFacts(const Mailbox& mailbox)
    : searched(searchedText(mailbox)), brand(brandOf(mailbox)), removedAt(timeOf(mailbox.archivedAt)) {}

bool needsAttention(const Mailbox& mailbox) {
  const QString health = healthWord(mailbox);
  return mailbox.status.isFailed() || health == "warning"_L1 || health == "error"_L1;
}

AccountFilter::AccountFilter(const AccountQuery& query)
    : m_status(query.status), m_needle(query.text.trimmed().toLower()) {
  for (const auto brand : {MailboxBrand::google, MailboxBrand::microsoft, MailboxBrand::smtp})
    if (brandWord(brand) == query.provider) m_brand = brand;
}

bool AccountFilter::matches(const AccountRow& row) const {
  if (!m_status.isEmpty() && row.record().status.rawValue != m_status) return false;
  if (m_brand && row.prepared().brand != *m_brand) return false;
  return row.prepared().searched.contains(m_needle);
}

std::function<bool(const AccountRow&, const AccountRow&)> accountOrder(const std::optional<OrvSort>& sort) {
  if (!sort) return {};
  const QString column = sort->key;
  const bool descending = sort->descending;
  if (column == "account"_L1 || column == "provider"_L1 || column == "status"_L1)
    return [column, descending](const AccountRow& a, const AccountRow& b) {
      const int order = textOf(a, column).compare(textOf(b, column));
      return descending ? order > 0 : order < 0;
    };
  return [figure = figureOf(column), descending](const AccountRow& a, const AccountRow& b) {
    const auto left = figure(a), right = figure(b);
    if (!left || !right) return left.has_value() && !right.has_value();
    return descending ? *right < *left : *left < *right;
  };
}

const AccountRowsModel::Cells& AccountRowsModel::cells() {
  static const Cells cells{
      {"account", [](auto&, auto& row) -> QVariant { return row.record().address; }},
      {"name", [](auto&, auto& row) -> QVariant { return row.record().displayName; }},
      {"tags", [](auto&, auto& row) -> QVariant { return QStringList(row.record().tags.value_or(QList<QString>())); }},
      {"problem", [](auto&, auto& row) -> QVariant { return problemOf(row.record()); }},
      {"provider", [](auto&, auto& row) -> QVariant { return brandName(row.record()); }},
      {"statusWord", [](auto&, auto& row) -> QVariant { return row.record().status.rawValue; }},
      {"statusLabel", [](auto&, auto& row) -> QVariant { return row.record().status.label(); }},
      {"sentText", [](auto&, auto& row) -> QVariant { return sentText(row.record()); }},
      {"sentShare", [](auto&, auto& row) -> QVariant { return sentShare(row.record()); }},
      {"warmupLabel", [](auto&, auto& row) -> QVariant { return phaseLabel(rampupPhase(row.record())); }},
      {"healthWord", [](auto&, auto& row) -> QVariant { return healthWord(row.record()); }},
      {"healthText", [](auto&, auto& row) -> QVariant { return inboxText(row.record()); }},
      {"removedText", [](auto&, auto& row) -> QVariant { return shortDay(row.record().archivedAt); }},
      {"goneText", [](auto&, auto& row) -> QVariant { return shortDay(row.record().archivedAt, archiveDays); }},
  };
  return cells;
}

QString countedAccounts(qint64 count) { return Format::counted(count, u"account"_s, u"accounts"_s); }

}  // namespace orv
