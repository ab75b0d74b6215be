#include "app/base/Csv.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QString quoted(const QString& field) {
  if (!field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n')) return field;
  return u'"' + QString(field).replace("\""_L1, "\"\""_L1) + u'"';
}

}  // namespace

void CsvWriter::addLine(const QStringList& fields) {
  QStringList line;
  line.reserve(fields.size());
  for (const QString& field : fields) line.append(quoted(field));
  m_text += line.join(u',') + u'\n';
}

}  // namespace orv
