#include "app/base/CsvText.h"

#include "app/base/CsvReader.h"

namespace orv {
namespace {

/// What JSON writes a character as that it does not take as it is; empty for the others.
QByteArrayView shortForm(char16_t letter) {
  switch (letter) {
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
      return {};
  }
}

/// Only counts.
struct Counter {
  qsizetype size = 0;
  void put(QByteArrayView bytes) { size += bytes.size(); }
  void put(char) { ++size; }
};

struct Writer {
  char* at;
  void put(QByteArrayView bytes) { at = std::ranges::copy(bytes, at).out; }
  void put(char byte) { *at++ = byte; }
};

template <class Out>
void putControl(Out& out, uchar code) {
  constexpr char digits[] = "0123456789abcdef";
  out.put("\\u00");
  out.put(digits[code >> 4]);
  out.put(digits[code & 15]);
}

/// Below U+0800 or, as the few letters of Windows-1252 beyond, below U+FFFF.
template <class Out>
void putUtf8(Out& out, char16_t letter) {
  if (letter < 0x800) {
    out.put(char(0xC0 | (letter >> 6)));
  } else {
    out.put(char(0xE0 | (letter >> 12)));
    out.put(char(0x80 | ((letter >> 6) & 0x3F)));
  }
  out.put(char(0x80 | (letter & 0x3F)));
}

template <class Out>
void putText(Out& out, QByteArrayView bytes, TextEncoding encoding) {
  for (const char byte : bytes) {
    const auto code = uchar(byte);
    if (code >= 0x80) {
      encoding == TextEncoding::utf8 ? out.put(byte) : putUtf8(out, letterOf(byte, encoding));
    } else if (const QByteArrayView form = shortForm(code); !form.isEmpty()) {
      out.put(form);
    } else if (code < 0x20) {
      putControl(out, code);
    } else {
      out.put(byte);
    }
  }
}

}  // namespace

QByteArray packText(QByteArrayView bytes, QByteArrayView before, QByteArrayView after) {
  bytes = withoutMark(bytes);
  const TextEncoding encoding = encodingOf(bytes);
  Counter counter;
  putText(counter, bytes, encoding);
  QByteArray packed(before.size() + counter.size + after.size(), Qt::Uninitialized);
  Writer writer{packed.data()};
  writer.put(before);
  putText(writer, bytes, encoding);
  writer.put(after);
  return packed;
}

}  // namespace orv
