#pragma once

#include <QString>
#include <QStringList>

namespace orv {

/// What was typed into a field that takes several addresses.
struct AddressList {
  QStringList addresses;
  /// The first that nobody can be reached by; empty for none.
  QString wrong;
  bool operator==(const AddressList&) const = default;
};

/// At commas, semicolons and line ends; blanks, what is empty and repetitions are dropped. "Ellen Marsh <ellen@…>" is
/// the address in its angle brackets.
AddressList splitAddresses(const QString& text);

/// An address, of a mailbox or a page, as it is shown: what has no form of its own or turns around what is beside it
/// reads "�", so that no address passes for another.
QString shownAddress(const QString& address);

}  // namespace orv
