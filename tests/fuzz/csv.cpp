#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "app/base/CsvReader.h"
#include "app/base/CsvText.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

/// How many rows are asked for, in a byte, then the file.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  if (size == 0) return 0;
  const qsizetype most = bytes[0] % 32;
  const QByteArray file = fuzz::input(bytes + 1, size - 1);
  const QString text = decodeText(file);
  const auto sent = QJsonDocument::fromJson(packText(file, R"({"csv":")", R"("})"));
  fuzz::require(sent.isObject(), "what is sent is JSON");
  fuzz::require(sent.object().value(QLatin1String("csv")).toString() == text, "what is sent is what is shown");

  const QChar delimiter = csvDelimiter(text);
  const auto rows = csvRows(text, delimiter, most);
  fuzz::require(rows.size() <= most, "no more rows than are asked for");
  qsizetype letters = 0, cells = 0;
  for (const QStringList& row : rows) {
    fuzz::require(!row.isEmpty(), "a row has a cell");
    fuzz::require(std::ranges::any_of(row, [](const QString& cell) { return !cell.trimmed().isEmpty(); }),
                  "a blank row is none");
    cells += row.size();
    for (const QString& cell : row) letters += cell.size();
  }
  fuzz::require(letters <= text.size() && cells <= text.size() + 1, "nothing is made up");
  fuzz::require(csvRows(text, delimiter, most + 1).first(rows.size()) == rows, "more rows begin with the same");

  const QByteArrayView cut = withoutCutCharacter(file);
  fuzz::require(cut.size() <= file.size() && file.size() - cut.size() < 4, "a character at most is cut off");
  return 0;
}
