#pragma once

#include <QDateTime>

#include "app/base/Choice.h"

namespace orv {

/// The zones that a text may mean, a few of them, each with how far it is ahead and what time it is there; none when it
/// is one already.
QList<Choice> zonesLike(const QString& text, const QDateTime& now);

}  // namespace orv
