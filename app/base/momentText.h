#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace orv {

/// "today, 09:12", else "13 Nov, 09:12"; empty for no instant.
QString momentText(const std::optional<QString>& instant, const QDateTime& now);

}  // namespace orv
