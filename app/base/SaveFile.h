#pragma once

#include <QByteArray>
#include <QString>

#include "app/base/Services.h"

namespace orv {

/// Asks where to keep a comma-separated file, writes it whole or not at all, and says "Saved …" with a way to find it.
/// Silent when the person cancels the panel; `failure` is the toast of a write that failed.
Task<void> saveCsv(Services& services, QString fileName, QByteArray bytes, QString failure);

}  // namespace orv
