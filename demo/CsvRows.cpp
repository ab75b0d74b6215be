#include "demo/CsvRows.h"

#include <algorithm>

namespace orv::demo {

CsvRows::CsvRows(const QString& text) : m_text(text) {
  if (m_text.startsWith(QChar::ByteOrderMark)) m_at = 1;
  const QStringView line = QStringView(m_text).left(m_text.indexOf(u'\n'));
  const auto commas = line.count(u','), semicolons = line.count(u';'), tabs = line.count(u'\t');
  m_delimiter = tabs > std::max(commas, semicolons) ? u'\t' : semicolons > commas ? u';' : u',';
}

std::optional<QStringList> CsvRows::next() {
  while (m_at < m_text.size()) {
    const QStringList row = readRow();
    if (!std::ranges::all_of(row, [](const QString& field) { return field.trimmed().isEmpty(); })) return row;
  }
  return std::nullopt;
}

QString CsvRows::readQuoted() {
  QString field;
  for (++m_at; m_at < m_text.size(); ++m_at) {
    const bool isQuote = m_text[m_at] == u'"';
    const bool isDoubled = isQuote && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'"';
    if (isQuote && !isDoubled) {
      ++m_at;
      return field;
    }
    m_at += isDoubled;
    field += m_text[m_at];
  }
  m_isCut = true;
  return field;
}

QStringList CsvRows::readRow() {
  QStringList row;
  while (true) {
    QString field = m_at < m_text.size() && m_text[m_at] == u'"' ? readQuoted() : QString();
    const qsizetype from = m_at;
    while (m_at < m_text.size() && m_text[m_at] != m_delimiter && m_text[m_at] != u'\n' && m_text[m_at] != u'\r')
      ++m_at;
    field += QStringView(m_text).mid(from, m_at - from);
    row.append(field);
    const bool goesOn = m_at < m_text.size() && m_text[m_at] == m_delimiter;
    if (m_at < m_text.size() && m_text[m_at] == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n') ++m_at;
    ++m_at;
    if (!goesOn) return row;
    if (m_at >= m_text.size()) return row << QString();
  }
}

}  // namespace orv::demo
