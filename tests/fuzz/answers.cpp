#include <boost/mp11/algorithm.hpp>
#include <boost/type_index.hpp>
#include <map>
#include <vector>

#include "kit/api/JSONCoding.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/answerRecords.h"

using namespace orv;

namespace {

using Read = void (*)(QByteArrayView);

/// What was read stays the same when it is written and read once more.
template <class Record>
void readAnswer(QByteArrayView json) {
  try {
    const Record record = decodeJSON<Record>(json);
    const QByteArray written = encodeJSON(record);
    fuzz::require(encodeJSON(decodeJSON<Record>(written)) == written, "what was written is read as it is");
    (void)toVariantMap(record);
  } catch (const DecodeError& error) {
    fuzz::require(error.what()[0] != '\0', "a refusal says why");
  }
}

template <class... R>
std::map<QByteArray, Read> readers(boost::mp11::mp_list<R...>) {
  return {{QByteArray::fromStdString(boost::typeindex::type_id<R>().pretty_name()).replace("orv::", ""),
           &readAnswer<R>}...};
}

}  // namespace

/// The record's name in a line of its own, then the answer. Any name that is none stands for one.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  static const auto all = readers(test::AnswerRecords());
  const QByteArray text = fuzz::input(bytes, size);
  const qsizetype line = text.indexOf('\n');
  if (line < 0) return 0;
  const QByteArray name = text.first(line);
  auto reader = all.find(name);
  if (reader == all.end()) reader = std::next(all.begin(), long(qHash(name, 0) % all.size()));
  reader->second(QByteArrayView(text).sliced(line + 1));
  return 0;
}
