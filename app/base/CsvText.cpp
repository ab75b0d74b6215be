#include "app/base/CsvText.h"

#include <algorithm>

#include "app/base/CsvReader.h"

namespace orv {
namespace {

constexpr char hexDigits[] = "0123456789abcdef";

/// How bytes are written inside a JSON string. Nearly all stand for themselves, and come in runs.
struct Forms {
  explicit Forms(TextEncoding encoding) {
    for (int code = 0; code < 256; ++code) forms[code] = formOf(uchar(code), encoding);
    for (int code = 0; code < 256; ++code) sizes[code] = uchar(forms[code].size());
  }
  bool isItself(char byte) const { return sizes[uchar(byte)] == 1; }

  QByteArray forms[256];
  uchar sizes[256] = {};

 private:
  static QByteArray formOf(uchar code, TextEncoding encoding) {
    switch (code) {
      case '"':
        return "\\\"";
      case '\\':
        return "\\\\";
      case '\b':
        return "\\b";
      case '\f':
        return "\\f";
      case '\n':
        return "\\n";
      case '\r':
        return "\\r";
      case '\t':
        return "\\t";
      default:
        break;
    }
    if (code < 0x20) return QByteArray("\\u00") + hexDigits[code >> 4] + hexDigits[code & 15];
    if (code < 0x80 || encoding == TextEncoding::utf8) return QByteArray(1, char(code));
    return QString(QChar(letterOf(char(code), encoding))).toUtf8();
  }
};

qsizetype sizeOf(QByteArrayView bytes, const Forms& forms) {
  qsizetype size = 0;
  for (const char byte : bytes) size += forms.sizes[uchar(byte)];
  return size;
}

char* put(char* to, QByteArrayView bytes) { return std::ranges::copy(bytes, to).out; }

char* putText(char* to, QByteArrayView bytes, const Forms& forms) {
  for (auto at = bytes.begin(); at != bytes.end();) {
    const auto end = std::find_if_not(at, bytes.end(), [&forms](char byte) { return forms.isItself(byte); });
    to = std::copy(at, end, to);
    for (at = end; at != bytes.end() && !forms.isItself(*at); ++at) to = put(to, forms.forms[uchar(*at)]);
  }
  return to;
}

}  // namespace

QByteArray packText(QByteArrayView bytes, QByteArrayView before, QByteArrayView after) {
  bytes = withoutMark(bytes);
  const Forms forms(encodingOf(bytes));
  QByteArray packed(before.size() + sizeOf(bytes, forms) + after.size(), Qt::Uninitialized);
  put(putText(put(packed.data(), before), bytes, forms), after);
  return packed;
}

}  // namespace orv
