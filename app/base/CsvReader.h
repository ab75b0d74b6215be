#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

namespace orv {

/// How a file that names no encoding is read: as UTF-8, else as Windows-1252, else as ISO-8859-1, which takes anything.
enum class TextEncoding { utf8, windows1252, latin1 };
TextEncoding encodingOf(QByteArrayView bytes);
/// The character that stands for a byte in an encoding where each is one.
char16_t letterOf(char byte, TextEncoding encoding);
/// `bytes` without leading byte-order marks.
QByteArrayView withoutMark(QByteArrayView bytes);

/// The text of a file that names no encoding, its mark left out.
QString decodeText(QByteArrayView bytes);

/// `bytes` without a UTF-8 character that was cut off at the end: a file read in part is no other encoding for it.
QByteArrayView withoutCutCharacter(QByteArrayView bytes);

/// What parts the fields of the first line: a tab or a semicolon where it outnumbers the others, else a comma.
QChar csvDelimiter(QStringView text);

/// The first rows of delimited text, `most` at most, blank ones left out. Quoted fields keep delimiters and line
/// breaks.
QList<QStringList> csvRows(QStringView text, QChar delimiter, qsizetype most);

}  // namespace orv
