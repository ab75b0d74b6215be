#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/models/mailboxes/mailboxStatus.h"

namespace orv {

/// One sending inbox; "email account" to the person.
struct Mailbox {
  using Record = Mailbox;

  /// How the service reaches the inbox.
  struct Connection {
    QString kind;
    QString status;
    std::optional<QString> lastError;
    std::optional<QString> lastVerifiedAt;
    /// The SMTP host.
    std::optional<QString> host;
    bool operator==(const Connection&) const = default;
  };
  struct Warmup {
    std::optional<qint64> rampDay;
    qint64 sentToday = 0;
    std::optional<qint64> plannedToday;
    qint64 receivedToday = 0;
    qint64 replies7d = 0;
    qint64 placed7d = 0;
    /// Per cent.
    std::optional<double> inboxPct7d;
    qint64 spam7d = 0;
    bool operator==(const Warmup&) const = default;
  };
  struct Ramp {
    qint64 startPerDay = 0;
    qint64 stepPerDay = 0;
    std::optional<qint64> level;
    std::optional<qint64> next;
    bool operator==(const Ramp&) const = default;
  };
  /// Whether campaigns may use it.
  struct SendReady {
    bool ready = false;
    QString mode;
    std::optional<QString> reason;
    qint64 warmDays = 0;
    qint64 minWarmDays = 0;
    bool operator==(const SendReady&) const = default;
  };
  struct CampaignToday {
    qint64 sentToday = 0;
    bool operator==(const CampaignToday&) const = default;
  };
  /// Where it stands on the ramp-up roadmap.
  struct RampupToday {
    QString state;
    std::optional<qint64> dayIndex;
    std::optional<QString> stageKey;
    std::optional<QString> stageName;
    std::optional<qint64> stageDay;
    std::optional<qint64> stageDays;
    std::optional<qint64> warmupToday;
    qint64 campaignCapToday = 0;
    bool operator==(const RampupToday&) const = default;
  };

  QString id;
  std::optional<qint64> number;
  QString address;
  QString displayName;
  QString provider;
  QString role;
  MailboxStatus status;
  std::optional<QString> pausedReason;
  /// Warm-up emails a day.
  qint64 dailyCap = 0;
  std::optional<Connection> connection;
  Warmup warmup;
  std::optional<Ramp> ramp;
  std::optional<SendReady> sendReady;
  /// Most campaign emails a day.
  std::optional<qint64> sendLimit;
  std::optional<qint64> sendingGapMinutes;
  std::optional<QString> signature;
  std::optional<QString> signatureHtml;
  std::optional<QList<QString>> tags;
  std::optional<QString> trackingDomain;
  std::optional<QString> trackingDomainVerifiedAt;
  std::optional<CampaignToday> campaign;
  std::optional<QString> health;
  std::optional<RampupToday> rampup;
  std::optional<qint64> version;
  QString createdAt;
  std::optional<QString> archivedAt;

  /// One of the pool, which warms up the others and is nobody's own account.
  bool isPool() const { return role == QLatin1String("pool"); }
  /// Campaign emails that it has sent today, and may send; nothing where nobody said.
  qint64 sentToday() const { return campaign ? campaign->sentToday : 0; }
  std::optional<qint64> limitToday() const { return rampup ? std::optional(rampup->campaignCapToday) : sendLimit; }
  bool operator==(const Mailbox&) const = default;
};
BOOST_DESCRIBE_STRUCT(Mailbox::Connection, (), (kind, status, lastError, lastVerifiedAt, host))
BOOST_DESCRIBE_STRUCT(Mailbox::Warmup, (),
                      (rampDay, sentToday, plannedToday, receivedToday, replies7d, placed7d, inboxPct7d, spam7d))
BOOST_DESCRIBE_STRUCT(Mailbox::Ramp, (), (startPerDay, stepPerDay, level, next))
BOOST_DESCRIBE_STRUCT(Mailbox::SendReady, (), (ready, mode, reason, warmDays, minWarmDays))
BOOST_DESCRIBE_STRUCT(Mailbox::CampaignToday, (), (sentToday))
BOOST_DESCRIBE_STRUCT(Mailbox::RampupToday, (),
                      (state, dayIndex, stageKey, stageName, stageDay, stageDays, warmupToday, campaignCapToday))
BOOST_DESCRIBE_STRUCT(Mailbox, (),
                      (id, number, address, displayName, provider, role, status, pausedReason, dailyCap, connection,
                       warmup, ramp, sendReady, sendLimit, sendingGapMinutes, signature, signatureHtml, tags,
                       trackingDomain, trackingDomainVerifiedAt, campaign, health, rampup, version, createdAt,
                       archivedAt))

}  // namespace orv
