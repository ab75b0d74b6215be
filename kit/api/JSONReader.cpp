#include "kit/api/JSONReader.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace orv::detail {
namespace {

/// The parser reads some bytes past the end, and keeps its buffers, which are seven times as large as what was read. Of
/// the common short answers only: what a long one takes is little beside its decoding, and would stay for good in every
/// thread that ever read one.
struct Workspace {
  simdjson::ondemand::parser parser;
  std::string bytes;
};
constexpr qsizetype keptAtMost = 16 << 10;

/// No answer that says something comes to more when it is built; the first also lets short ones be as odd as they like.
constexpr qint64 roomAnyway = 16 << 20;
constexpr qint64 roomForAByte = 8;

/// What stands between a string's quotation marks, escapes and all. The parser knows where the next token begins, so
/// that the string need not be searched for its end.
std::string_view betweenQuotes(std::string_view token) {
  size_t end = token.size();
  while (end > 1 && token[end - 1] != '"') --end;
  if (token.empty() || token.front() != '"' || end < 2) throw DecodeFault(QStringLiteral("not a string"));
  return token.substr(1, end - 2);
}

/// ASCII without escapes stands in the answer as it is meant. All of it is looked at, whatever comes first: that the
/// compiler makes a few wide steps of.
struct Content {
  bool ascii = false;
  bool escaped = false;
};
Content contentOf(std::string_view raw) {
  unsigned char high = 0, escape = 0;
  for (const char byte : raw) {
    high |= static_cast<unsigned char>(byte);
    escape |= byte == '\\';
  }
  return {high < 0x80, escape != 0};
}

}  // namespace

void refuse(simdjson::error_code error) { throw DecodeFault(QLatin1String(simdjson::error_message(error))); }

const QString& SharedTexts::text(const char* start, size_t size) {
  // What is behind the text counts as zero, which no text holds unescaped, so that none is taken for a longer one.
  Bytes bytes{};
  quint64 hash = size;
  for (size_t i = 0, left = size; left > 0; ++i) {
    const size_t here = std::min(left, sizeof bytes[i]);
    std::memcpy(&bytes[i], start + i * sizeof bytes[i], sizeof bytes[i]);
    if (here < sizeof bytes[i]) bytes[i] &= (quint64(1) << here * 8) - 1;
    hash = (std::rotl(hash, 5) ^ bytes[i]) * 0x9e3779b97f4a7c15u;
    left -= here;
  }
  Slot& slot = m_slots[hash >> 56];
  if (slot.bytes != bytes) {
    slot.text = QString::fromLatin1(start, qsizetype(size));
    slot.bytes = bytes;
  }
  return slot.text;
}

qint64 JSONReader::integer() {
  // Ten thousand of the greatest can be added up, and the time in milliseconds is far from it.
  constexpr qint64 greatest = 100'000'000'000'000;
  if (const auto whole = value.get_int64(); !whole.error())
    return std::clamp<qint64>(whole.value_unsafe(), 0, greatest);
  // Some writers put every number down as a decimal: 3.0 is a three, 3.5 is none.
  const double decimal = number();
  if (decimal != std::trunc(decimal)) throw DecodeFault(QStringLiteral("not an integer"));
  return qint64(std::clamp(decimal, 0.0, double(greatest)));
}

QString JSONReader::text() {
  const std::string_view raw = betweenQuotes(value.raw_json_token());
  const Content content = contentOf(raw);
  const bool isShared = content.ascii && !content.escaped && raw.size() <= SharedTexts::longest;
  if (!isShared) reading.take(qint64(textNode + raw.size() * sizeof(QChar)));
  if (content.escaped) return textOf(checked(value.get_string()));
  (void)checked(value.get_raw_json_string());
  if (!content.ascii) return textOf(raw);
  if (isShared) return reading.texts.text(raw.data(), raw.size());
  return QString::fromLatin1(raw.data(), qsizetype(raw.size()));
}

JSONValue JSONReader::anything(int depth) {
  if (depth > deepest) throw DecodeFault(QStringLiteral("nested too deeply"));
  reading.take(sizeof(JSONValue));
  switch (checked(value.type())) {
    case simdjson::ondemand::json_type::null:
      if (!takeNull()) break;
      return {};
    case simdjson::ondemand::json_type::boolean:
      return JSONValue::boolean(boolean());
    case simdjson::ondemand::json_type::number:
      return JSONValue::number(number());
    case simdjson::ondemand::json_type::string:
      return JSONValue::string(text());
    case simdjson::ondemand::json_type::array: {
      JSONValue::Array elements;
      for (auto element : checked(value.get_array())) elements.append(within(checked(element)).anything(depth + 1));
      return JSONValue::array(std::move(elements));
    }
    case simdjson::ondemand::json_type::object: {
      JSONValue::Object members;
      for (auto member : checked(value.get_object())) {
        const QString key = textOf(checked(member.unescaped_key()));
        reading.take(mapNode + key.size() * qint64(sizeof(QChar)));
        members.insert(key, within(checked(member.value())).anything(depth + 1));
      }
      return JSONValue::object(std::move(members));
    }
  }
  throw DecodeFault(QStringLiteral("not a JSON value"));
}

void JSONReader::skip(int depth) {
  if (depth > deepest) throw DecodeFault(QStringLiteral("nested too deeply"));
  switch (checked(value.type())) {
    case simdjson::ondemand::json_type::null:
      if (!takeNull()) break;
      return;
    case simdjson::ondemand::json_type::boolean:
      (void)boolean();
      return;
    case simdjson::ondemand::json_type::number:
      (void)number();
      return;
    case simdjson::ondemand::json_type::string:
      skipText();
      return;
    case simdjson::ondemand::json_type::array:
      for (auto element : checked(value.get_array())) within(checked(element)).skip(depth + 1);
      return;
    case simdjson::ondemand::json_type::object:
      for (auto member : checked(value.get_object())) {
        (void)checked(member.unescaped_key());
        within(checked(member.value())).skip(depth + 1);
      }
      return;
  }
  throw DecodeFault(QStringLiteral("not a JSON value"));
}

void JSONReader::skipText() {
  // Nothing but an escape can be wrong in a text that ends.
  if (contentOf(betweenQuotes(value.raw_json_token())).escaped)
    (void)checked(value.get_string());
  else
    (void)checked(value.get_raw_json_string());
}

void readDocument(QByteArrayView json, const std::function<void(JSONReader&)>& use) {
  static thread_local Reading reading;
  static thread_local Workspace kept;
  Workspace passing;
  Workspace& workspace = json.size() <= keptAtMost ? kept : passing;
  workspace.bytes.reserve(size_t(json.size()) + simdjson::SIMDJSON_PADDING);
  workspace.bytes.assign(json.data(), size_t(json.size()));
  auto parsed = workspace.parser.iterate(
      simdjson::padded_string_view(workspace.bytes.data(), workspace.bytes.size(), workspace.bytes.capacity()));
  if (parsed.error()) refuse(parsed.error());
  auto& document = parsed.value_unsafe();
  reading.room = roomAnyway + json.size() * roomForAByte;
  JSONReader reader(checked(document.get_value()), reading);
  use(reader);
  // Where the text goes on after its value; an error means nowhere.
  if (!document.current_location().error()) throw DecodeFault(QStringLiteral("more text after the value"));
}

}  // namespace orv::detail
