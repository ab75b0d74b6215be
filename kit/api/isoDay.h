#pragma once

#include <QDate>

class QString;

namespace orv {

/// The day of exactly such a text as "2024-03-07"; an invalid one for any other, where the toolkit's own reading takes
/// days out of what stands around them.
QDate isoDay(const QString& text);

}  // namespace orv
