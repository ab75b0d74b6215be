#pragma once

#include <QStringList>

#include "app/base/Choice.h"

/// What a column of an imported file may become: a field of the lead by the service's word, a variable that is kept
/// with the lead, or nothing.
namespace orv::LeadImportFields {

inline constexpr QLatin1String email("email"), kept("extra"), skipped("skip");

/// All of them, with what they are called; the two that are no field first.
const QList<Choice>& choices();
bool isField(const QString& target);

/// What the columns become by their names. No field is taken twice: of two columns that ask for one, the first has it.
QStringList proposedFor(const QStringList& headers);

}  // namespace orv::LeadImportFields
