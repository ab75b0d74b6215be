#pragma once

#include <QStringList>
#include <optional>

namespace orv::demo {

/// The rows of delimited text, one after another. Quoted fields keep delimiters and line breaks, blank rows are passed
/// over. What parts the fields is taken from the first line.
class CsvRows {
 public:
  explicit CsvRows(const QString& text);

  /// Nothing behind the last.
  std::optional<QStringList> next();
  /// The text ended inside a quoted field.
  bool isCut() const { return m_isCut; }

 private:
  QStringList readRow();
  QString readQuoted();

  QString m_text;
  QChar m_delimiter;
  qsizetype m_at = 0;
  bool m_isCut = false;
};

}  // namespace orv::demo
