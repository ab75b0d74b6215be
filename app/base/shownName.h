#pragma once

#include <QString>

namespace orv {

/// A name that somebody else gave, as it stands inside a sentence of ours or in a row: one line, not long, and nothing
/// in it that turns around what is written beside it. Controls and line ends are blanks, a direction control without
/// its counterpart shows as "�", and a name that is or may be written from right to left stands by itself.
///
/// What is shown already stays as it is. For what is shown only: never for what is copied, saved, sent or compared.
QString shownName(const QString& name);

}  // namespace orv
