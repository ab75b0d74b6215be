#pragma once

#include <QString>

namespace orv {

/// Whether the whole text could be an email address. Whether it is one, only the service can tell.
bool looksLikeAddress(const QString& text);

}  // namespace orv
