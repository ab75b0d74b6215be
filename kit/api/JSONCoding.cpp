#include "kit/api/JSONCodingImpl.h"

#include <array>
#include <cstring>

#include "kit/api/APIError.h"

namespace orv {

DecodeError::DecodeError(QString path, QString reason)
    : m_path(std::move(path)),
      m_reason(std::move(reason)),
      m_what((m_path + QLatin1String(": ") + m_reason).toUtf8()) {}

ORV_RECORD_CODERS(Problem)

namespace detail {
namespace {

/// The parser reads some bytes past the end, and keeps its buffers; a rare huge answer must not stay in memory for it.
struct Workspace {
  simdjson::ondemand::parser parser;
  std::string bytes;
};
constexpr qsizetype keptAtMost = 1 << 20;

}  // namespace

void refuse(simdjson::error_code error) { throw DecodeFault(QLatin1String(simdjson::error_message(error))); }

QString sharedText(std::string_view utf8) {
  // What a few answers leave behind here: 256 words of a machine's word or two.
  struct Slot {
    std::array<char, 24> bytes;
    qsizetype size = -1;
    QString text;
  };
  static thread_local std::array<Slot, 256> slots;
  const size_t size = utf8.size();
  if (size > std::tuple_size_v<decltype(Slot::bytes)>) return text(utf8);
  // Of the ends alone: words alike there, as ids and instants, do not repeat anyway.
  quint64 head = 0, tail = 0;
  const size_t end = std::min(size, sizeof head);
  std::memcpy(&head, utf8.data(), end);
  std::memcpy(&tail, utf8.data() + size - end, end);
  const quint64 hash = (head ^ (tail << 1 | tail >> 63) ^ size) * 0x9e3779b97f4a7c15u;
  Slot& slot = slots[hash >> 56];
  if (slot.size != qsizetype(size) || std::memcmp(slot.bytes.data(), utf8.data(), size) != 0) {
    slot.text = text(utf8);
    slot.size = qsizetype(size);
    std::memcpy(slot.bytes.data(), utf8.data(), size);
  }
  return slot.text;
}

void withDocument(QByteArrayView json, const std::function<void(simdjson::ondemand::document&)>& use) {
  static thread_local Workspace kept;
  Workspace passing;
  Workspace& workspace = json.size() <= keptAtMost ? kept : passing;
  workspace.bytes.reserve(size_t(json.size()) + simdjson::SIMDJSON_PADDING);
  workspace.bytes.assign(json.data(), size_t(json.size()));
  auto document = workspace.parser.iterate(
      simdjson::padded_string_view(workspace.bytes.data(), workspace.bytes.size(), workspace.bytes.capacity()));
  if (document.error()) refuse(document.error());
  use(document.value_unsafe());
}

JSONValue JSONValueCoder::decode(simdjson::ondemand::value value, int depth) {
  if (depth > deepest) throw DecodeFault(QStringLiteral("nested too deeply"));
  switch (checked(value.type())) {
    case simdjson::ondemand::json_type::null:
      if (!checked(value.is_null())) break;
      return {};
    case simdjson::ondemand::json_type::boolean:
      return JSONValue::boolean(checked(value.get_bool()));
    case simdjson::ondemand::json_type::number:
      return JSONValue::number(checked(value.get_double()));
    case simdjson::ondemand::json_type::string:
      return JSONValue::string(text(checked(value.get_string())));
    case simdjson::ondemand::json_type::array: {
      JSONValue::Array elements;
      for (auto element : checked(value.get_array())) elements.append(decode(checked(element), depth + 1));
      return JSONValue::array(std::move(elements));
    }
    case simdjson::ondemand::json_type::object: {
      JSONValue::Object members;
      for (auto member : checked(value.get_object())) {
        const QString key = text(checked(member.unescaped_key()));
        members.insert(key, decode(checked(member.value()), depth + 1));
      }
      return JSONValue::object(std::move(members));
    }
  }
  throw DecodeFault(QStringLiteral("Not a JSON value"));
}

QJsonValue JSONValueCoder::encode(const JSONValue& value) {
  struct Visitor {
    QJsonValue operator()(const QString& text) const { return text; }
    QJsonValue operator()(double number) const { return number; }
    QJsonValue operator()(bool boolean) const { return boolean; }
    QJsonValue operator()(const JSONValue::Array& elements) const {
      QJsonArray array;
      for (const auto& element : elements) array.append(encode(element));
      return array;
    }
    QJsonValue operator()(const JSONValue::Object& members) const {
      QJsonObject object;
      for (auto it = members.begin(); it != members.end(); ++it) object.insert(it.key(), encode(it.value()));
      return object;
    }
    QJsonValue operator()(JSONValue::Null) const { return QJsonValue::Null; }
  };
  return std::visit(Visitor(), value.storage());
}

}  // namespace detail
}  // namespace orv
