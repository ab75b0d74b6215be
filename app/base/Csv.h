#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace orv {

/// Comma-separated lines in UTF-8, joined and ended by line feeds. Fields are kept byte for byte: one that a
/// spreadsheet would read as a formula is still the service's text.
class CsvWriter {
 public:
  void addLine(const QStringList& fields);
  QByteArray bytes() const { return m_text.toUtf8(); }

 private:
  QString m_text;
};

}  // namespace orv
