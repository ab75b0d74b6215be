#pragma once

#include <QString>

namespace orv {

/// Whether the text, which is trimmed, can be an email address at all. Whether anybody reads it only sending tells.
bool isEmailAddress(QStringView text);

/// Whether the service's own pattern for people's addresses takes it: more than the other does.
bool looksLikeAddress(const QString& text);

}  // namespace orv
