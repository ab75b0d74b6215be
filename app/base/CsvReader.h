#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

namespace orv {

/// The text of a file that names no encoding: UTF-8, else Windows-1252, else ISO-8859-1, which takes anything. A
/// leading byte-order mark is left out.
QString decodeText(QByteArrayView bytes);

/// `bytes` without a UTF-8 character that was cut off at the end: a file read in part is no other encoding for it.
QByteArrayView withoutCutCharacter(QByteArrayView bytes);

/// What parts the fields of the first line: a tab or a semicolon where it outnumbers the others, else a comma.
QChar csvDelimiter(QStringView text);

/// The first rows of delimited text, `most` at most, blank ones left out. Quoted fields keep delimiters and line
/// breaks.
QList<QStringList> csvRows(QStringView text, QChar delimiter, qsizetype most);

}  // namespace orv
