#pragma once

#include "app/base/Listed.h"
#include "app/base/RowFields.h"
#include "app/base/TableModel.h"
#include "app/base/TableSort.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxBrand.h"

namespace orv {

/// What an account is found, filtered and sorted by, made once: ten thousand are looked through at every keystroke.
struct AccountFacts {
  explicit AccountFacts(const Mailbox& mailbox);
  /// Address, name and tags in lower case.
  QString searched;
  MailboxBrand brand;
  /// When it was removed, as the archive sorts by.
  std::optional<double> removedAt;
};

using AccountRow = Listed<Mailbox, AccountFacts>;
ORV_DECLARE_ROW(AccountRow)

/// Something is wrong with it that a person can mend.
bool needsAttention(const Mailbox& mailbox);

/// What the person asked to see of the accounts; empty words are all.
struct AccountQuery {
  QString status = {};
  /// "google", "microsoft" or "smtp".
  QString provider = {};
  /// As typed.
  QString text = {};

  bool isAll() const { return status.isEmpty() && provider.isEmpty() && text.isEmpty(); }
  bool operator==(const AccountQuery&) const = default;
};

/// The same, prepared for looking through them.
class AccountFilter {
 public:
  explicit AccountFilter(const AccountQuery& query = {});
  bool matches(const AccountRow& row) const;

 private:
  QString m_status;
  std::optional<MailboxBrand> m_brand;
  QString m_needle;
};

/// The order of a column; accounts without its value come last either way.
std::function<bool(const AccountRow&, const AccountRow&)> accountOrder(const std::optional<OrvSort>& sort);

/// What the tables say of accounts, of those in the archive as well.
class AccountRowsModel final : public TableModel<AccountRowsModel, AccountRow> {
 public:
  using TableModel::TableModel;
  static const Cells& cells();
};

/// "1 account", "1,200 accounts".
QString countedAccounts(qint64 count);

}  // namespace orv
