#pragma once

#include <QString>

namespace orv {

/// Whether the text, which is trimmed, can be an email address at all. Whether anybody reads it only sending tells.
bool isEmailAddress(QStringView text);

}  // namespace orv
