#include "app/base/CsvReader.h"

#include <algorithm>

namespace orv {
namespace {

/// 0x80 to 0x9F; the rest is as in ISO-8859-1. Zero stands for the five bytes that mean nothing.
constexpr char16_t windowsLetters[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                         0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char16_t windowsLetter(char byte) {
  const auto code = uchar(byte);
  return code >= 0x80 && code < 0xA0 ? windowsLetters[code - 0x80] : char16_t(code);
}

/// One pass over delimited text.
class RowReader {
 public:
  RowReader(QStringView text, QChar delimiter) : m_text(text), m_delimiter(delimiter) {}

  bool atEnd() const { return m_at >= m_text.size(); }

  QStringList row() {
    QStringList fields;
    do fields.append(field());
    while (take(m_delimiter));
    take(u'\r');
    take(u'\n');
    return fields;
  }

 private:
  bool take(QChar wanted) {
    if (atEnd() || m_text[m_at] != wanted) return false;
    ++m_at;
    return true;
  }

  QString field() {
    QString field;
    bool quoted = take(u'"');
    for (; !atEnd(); ++m_at) {
      const QChar c = m_text[m_at];
      if (quoted && c == u'"') {
        quoted = m_at + 1 < m_text.size() && m_text[m_at + 1] == u'"';
        if (!quoted) continue;
        ++m_at;
      } else if (!quoted && (c == m_delimiter || c == u'\n' || c == u'\r')) {
        break;
      }
      field += c;
    }
    return field;
  }

  QStringView m_text;
  QChar m_delimiter;
  qsizetype m_at = 0;
};

}  // namespace

QByteArrayView withoutCutCharacter(QByteArrayView bytes) {
  // At most the last four bytes belong to a character begun and not ended.
  for (qsizetype back = 1; back <= std::min<qsizetype>(4, bytes.size()); ++back) {
    const auto code = uchar(bytes[bytes.size() - back]);
    if (code < 0x80) break;
    if (code < 0xC0) continue;
    const qsizetype length = code >= 0xF0 ? 4 : code >= 0xE0 ? 3 : 2;
    return back < length ? bytes.chopped(back) : bytes;
  }
  return bytes;
}

TextEncoding encodingOf(QByteArrayView bytes) {
  if (bytes.isValidUtf8()) return TextEncoding::utf8;
  const bool isWindows = std::ranges::none_of(bytes, [](char byte) { return byte && !windowsLetter(byte); });
  return isWindows ? TextEncoding::windows1252 : TextEncoding::latin1;
}

char16_t letterOf(char byte, TextEncoding encoding) {
  return encoding == TextEncoding::windows1252 ? windowsLetter(byte) : char16_t(uchar(byte));
}

QByteArrayView withoutMark(QByteArrayView bytes) {
  // The toolkit leaves one out by itself; some programs put one before the one that is there.
  while (bytes.startsWith("\xEF\xBB\xBF")) bytes = bytes.sliced(3);
  return bytes;
}

QString decodeText(QByteArrayView bytes) {
  bytes = withoutMark(bytes);
  const TextEncoding encoding = encodingOf(bytes);
  if (encoding == TextEncoding::utf8) return QString::fromUtf8(bytes);
  QString text(bytes.size(), Qt::Uninitialized);
  std::ranges::transform(bytes, text.begin(), [encoding](char byte) { return QChar(letterOf(byte, encoding)); });
  return text;
}

QChar csvDelimiter(QStringView text) {
  // A lone carriage return ends a row, but not the line that decides.
  const qsizetype end = text.indexOf(u'\n');
  const QStringView line = end < 0 ? text : text.first(end);
  const qsizetype commas = line.count(u','), semicolons = line.count(u';'), tabs = line.count(u'\t');
  if (tabs > commas && tabs > semicolons) return u'\t';
  return semicolons > commas ? u';' : u',';
}

QList<QStringList> csvRows(QStringView text, QChar delimiter, qsizetype most) {
  QList<QStringList> rows;
  RowReader reader(text, delimiter);
  while (!reader.atEnd() && rows.size() < most) {
    const QStringList row = reader.row();
    if (std::ranges::any_of(row, [](const QString& field) { return !field.trimmed().isEmpty(); })) rows.append(row);
  }
  return rows;
}

}  // namespace orv
