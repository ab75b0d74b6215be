#pragma once

// Included by the two files that read, and by nothing else: the parser's header is the dearest of the program.

#include <simdjson.h>

#include <QByteArrayView>
#include <QString>
#include <array>
#include <functional>

#include "kit/api/JSONValue.h"

namespace orv::detail {

/// A decode that failed, on its way up to where its path is known.
struct DecodeFault {
  explicit DecodeFault(QString why) : reason(std::move(why)) {}
  void within(const QString& step) { path = step + (path.isEmpty() || path.startsWith(u'[') ? path : u'.' + path); }
  QString path;
  QString reason;
};

/// Out of line, so that what is read a hundred thousand times stays small enough to be inlined.
[[noreturn]] void refuse(simdjson::error_code error);

template <class Value>
Value checked(simdjson::simdjson_result<Value> result) {
  if (result.error()) [[unlikely]]
    refuse(result.error());
  return std::move(result).value_unsafe();
}
inline bool checked(bool value) { return value; }

inline QString textOf(std::string_view utf8) { return QString::fromUtf8(utf8.data(), qsizetype(utf8.size())); }

/// Short texts of ASCII that were read lately. Statuses, kinds and tags repeat all through an answer, and to allocate
/// each of them is most of the cost of decoding.
class SharedTexts {
 public:
  static constexpr size_t longest = 32;
  /// At least `longest` bytes can be read from `bytes` on.
  const QString& text(const char* bytes, size_t size);

 private:
  using Bytes = std::array<quint64, longest / sizeof(quint64)>;
  struct Slot {
    Bytes bytes{};
    QString text = QStringLiteral("");
  };
  std::array<Slot, 256> m_slots;
};

/// What a member of a map takes beside its key's letters, and a text beside its own.
constexpr qint64 mapNode = 96, textNode = 40;

/// What the reading of one answer shares.
struct Reading {
  SharedTexts texts;
  /// Bytes that may still be built: "[{},{}" is short, the records that it asks for are not.
  qint64 room = 0;

  void take(qint64 bytes) {
    room -= bytes;
    if (room < 0) [[unlikely]]
      throw DecodeFault(QStringLiteral("too large"));
  }
};

class JSONReader {
 public:
  JSONReader(simdjson::ondemand::value at, Reading& shared) : value(at), reading(shared) {}
  /// What stands inside this value.
  JSONReader within(simdjson::ondemand::value inner) const { return {inner, reading}; }

  /// Whether the value is null; it is passed over then.
  bool takeNull() { return checked(value.is_null()); }
  bool boolean() { return checked(value.get_bool()); }
  double number() { return checked(value.get_double()); }
  /// Counts, places and versions: never negative, and not so great that sums of them overflow. What lies outside
  /// becomes the nearest that does not.
  qint64 integer();
  QString text();
  JSONValue anything(int depth = 0);
  /// Passes over a value that nobody reads, building nothing, and makes sure all the same that it is one: the parser
  /// itself would jump over it without looking.
  void skip(int depth = 0);

  simdjson::ondemand::value value;
  Reading& reading;

 private:
  void skipText();

  static constexpr int deepest = 256;
};

/// Runs `use` on the one value of the text; it lives no longer than that.
void readDocument(QByteArrayView json, const std::function<void(JSONReader&)>& use);

}  // namespace orv::detail
