#pragma once

#include <QString>

/// What is done to texts of others before they go where long or crafted ones do harm.
namespace orv {

/// The text, or its beginning and an ellipsis: `most` characters at most, and none of them halved.
QString cutTo(const QString& text, qsizetype most);

/// Whether this can name a request in a log and on a clipboard: printable ASCII, 128 characters at most.
bool isPlainId(QStringView text);

/// One line of a log, whatever it is made of: control characters escaped, not longer than 4 kB of UTF-8.
QString logLine(const QString& text);

}  // namespace orv
