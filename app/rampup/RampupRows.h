#pragma once

#include <functional>

#include "app/base/Listed.h"
#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/TableSort.h"
#include "app/rampup/RampupWords.h"

namespace orv {

/// An account with its roadmap, as the change feed tells of it. The roadmap's version says nothing of the warm-up's
/// settings and of today's figures, so that what was asked for last counts.
struct RampupAccount {
  using Record = RampupAccount;

  /// The mailbox's.
  QString id;
  RampupItem item;
  bool operator==(const RampupAccount&) const = default;
};

/// A part of the list. The service gives it in one piece, which for ten thousand accounts would hold the window.
struct RampupPart {
  QList<RampupAccount> items;
  /// How many accounts come before the next part.
  std::optional<QString> nextCursor = {};
  /// When the service was asked for the whole.
  std::optional<Stamp> asked = {};
};

/// What has come and is not taken over yet.
struct RampupRest {
  QList<RampupItem> items;
  qsizetype taken = 0;
  Stamp asked{};

  RampupPart next();
};

/// What is worked out once of each account.
struct RampupKeys {
  explicit RampupKeys(const RampupAccount& account) : phase(RampupWords::phaseOf(account.item)) {}
  RampupWords::Phase phase;
};

using RampupRow = Listed<RampupAccount, RampupKeys>;
ORV_DECLARE_ROW(RampupRow)

/// What the table says of the accounts.
class RampupRowsModel final : public RecordModel<RampupRow> {
  Q_OBJECT

 public:
  enum Role {
    AddressRole = firstRole + 1000,
    FactsRole,
    PhaseLabelRole,
    PhaseToneRole,
    PendingRole,
    StagesRole,
    StoppedRole,
    StandingRole,
    WarningRole,
    TemplateRole,
    WarmupRole,
    WarmupPlanRole,
    CampaignRole,
    CampaignPlanRole,
    InboxRole,
    InboxToneRole
  };

  using RecordModel<RampupRow>::RecordModel;

 protected:
  void addExtraRoles(QHash<int, QByteArray>& roles) const override;
  QVariant extraData(const RampupRow& row, int at, int role) const override;
};

/// How the table's column orders them; none for the service's order.
std::function<bool(const RampupRow&, const RampupRow&)> orderOf(const std::optional<OrvSort>& sort);

}  // namespace orv
