#pragma once

// The coders themselves. Included by the .cpp files that instantiate them, and by nothing else: the parser's header is
// the dearest of the program.

#include <simdjson.h>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <bitset>
#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>
#include <cstring>
#include <functional>
#include <type_traits>

#include "kit/api/Clearable.h"
#include "kit/api/JSONCoding.h"
#include "kit/api/JSONValue.h"
#include "kit/api/OpenWord.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/RecordFields.h"

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

inline QString text(std::string_view utf8) { return QString::fromUtf8(utf8.data(), qsizetype(utf8.size())); }

/// The same for a value, of a string shared with equal ones where it is short: statuses, kinds and tags repeat all
/// through an answer, and to allocate each is most of the cost of decoding.
QString sharedText(std::string_view utf8);

/// Runs `use` on the parsed text, which lives no longer than that.
void withDocument(QByteArrayView json, const std::function<void(simdjson::ondemand::document&)>& use);

template <class T>
using MembersOf = boost::describe::describe_members<T, boost::describe::mod_public>;

template <class T, template <class...> class Template>
inline constexpr bool isA = false;
template <class... Args, template <class...> class Template>
inline constexpr bool isA<Template<Args...>, Template> = true;

/// A key may be missing without making the record undecodable.
template <class T>
inline constexpr bool mayBeMissing = isA<T, std::optional> || isA<T, Clearable>;

struct JSONValueCoder {
  static constexpr int deepest = 256;
  static JSONValue decode(simdjson::ondemand::value value, int depth = 0);
  static QJsonValue encode(const JSONValue& value);
};

/// Into a fresh `target`, where it stands: a record moved on its way up is moved text by text.
template <class T>
void decodeInto(T& target, simdjson::ondemand::value value);

inline qint64 decodeInteger(simdjson::ondemand::value value) {
  if (const auto integer = value.get_int64(); !integer.error()) return integer.value_unsafe();
  // Some writers put every number down as a decimal: 3.0 is a three, 3.5 is none.
  const double number = checked(value.get_double());
  constexpr double exactUpTo = 9007199254740992.0;
  if (number != std::trunc(number) || std::abs(number) > exactUpTo) throw DecodeFault(QStringLiteral("not an integer"));
  return qint64(number);
}

template <class T>
void decodeList(QList<T>& list, simdjson::ondemand::value value) {
  for (auto element : checked(value.get_array())) {
    try {
      decodeInto(list.emplaceBack(), checked(element));
    } catch (DecodeFault& fault) {
      fault.within(u'[' + QString::number(list.size() - 1) + u']');
      throw;
    }
  }
}

template <class T>
void decodeMap(QMap<QString, T>& map, simdjson::ondemand::value value) {
  for (auto member : checked(value.get_object())) {
    const QString key = text(checked(member.unescaped_key()));
    try {
      decodeInto(map[key] = T(), checked(member.value()));
    } catch (DecodeFault& fault) {
      // The key may be a person's data; the log has no use for it.
      fault.within(QStringLiteral("*"));
      throw;
    }
  }
}

template <class Record>
class RecordDecoder {
  using Members = MembersOf<Record>;
  static constexpr size_t count = boost::mp11::mp_size<Members>::value;

 public:
  static void decode(Record& record, simdjson::ondemand::value value) {
    std::bitset<count> seen;
    // Writers keep the order of a record's keys, so the next key is nearly always the next member.
    size_t expected = 0;
    for (auto field : checked(value.get_object())) {
      const size_t member = memberOf(field, expected);
      if (member == count) {
        // The parser would jump over the value without looking whether it is JSON at all.
        JSONValueCoder::decode(checked(field.value()));
        continue;
      }
      expected = member + 1;
      decodeMember(record, member, field, seen.test(member));
      seen.set(member);
    }
    if (!seen.all()) checkRequired(seen);
  }

 private:
  static constexpr std::array<std::string_view, count> names = [] {
    std::array<std::string_view, count> result;
    size_t i = 0;
    boost::mp11::mp_for_each<Members>([&](auto member) { result[i++] = member.name; });
    return result;
  }();

  template <class Field>
  static size_t memberOf(Field& field, size_t expected) {
    const char* raw = checked(field.key()).raw();
    for (size_t i = 0; i < count; ++i) {
      const size_t member = (expected + i) % count;
      const std::string_view name = names[member];
      // The raw key ends at a quotation mark, and no name holds one, so the comparison cannot run past it.
      if (std::char_traits<char>::compare(raw, name.data(), name.size()) == 0 && raw[name.size()] == '"') return member;
    }
    // A writer may escape any letter, which only a key that looks unknown is worth undoing.
    if (raw[std::strcspn(raw, "\\\"")] != '\\') return count;
    return size_t(std::ranges::find(names, checked(field.unescaped_key())) - names.begin());
  }

  template <class Field>
  static void decodeMember(Record& record, size_t member, Field& field, bool again) {
    try {
      boost::mp11::mp_with_index<count>(member, [&](auto index) {
        constexpr auto description = boost::mp11::mp_at<Members, decltype(index)>();
        auto& target = record.*description.pointer;
        // Of a key that stands twice the last value holds, and nothing of the first stays in it.
        if (again) target = std::remove_reference_t<decltype(target)>();
        decodeInto(target, checked(field.value()));
      });
    } catch (DecodeFault& fault) {
      fault.within(text(names[member]));
      throw;
    }
  }

  static void checkRequired(const std::bitset<count>& seen) {
    size_t i = 0;
    boost::mp11::mp_for_each<Members>([&](auto description) {
      using Member = std::remove_reference_t<decltype(std::declval<Record&>().*description.pointer)>;
      if (!seen.test(i) && !mayBeMissing<Member>) {
        DecodeFault fault(QStringLiteral("missing"));
        fault.within(text(names[i]));
        throw fault;
      }
      ++i;
    });
  }
};

template <class T>
void decodeInto(T& target, simdjson::ondemand::value value) {
  if constexpr (std::is_same_v<T, QString>) {
    target = sharedText(checked(value.get_string()));
  } else if constexpr (std::is_base_of_v<OpenWord, T>) {
    target.rawValue = sharedText(checked(value.get_string()));
  } else if constexpr (std::is_same_v<T, bool>) {
    target = checked(value.get_bool());
  } else if constexpr (std::is_same_v<T, qint64>) {
    target = decodeInteger(value);
  } else if constexpr (std::is_same_v<T, double>) {
    target = checked(value.get_double());
  } else if constexpr (std::is_same_v<T, JSONValue>) {
    target = JSONValueCoder::decode(value);
  } else if constexpr (std::is_same_v<T, QDateTime>) {
    const auto instant = parsePlatformDate(text(checked(value.get_string())));
    if (!instant) throw DecodeFault(QStringLiteral("not an instant"));
    target = *instant;
  } else if constexpr (isA<T, std::optional>) {
    if (checked(value.is_null())) return;
    // Not emplace(): inside its enclosing record, a nested one counts as not constructible from nothing.
    target = typename T::value_type();
    decodeInto(*target, value);
  } else if constexpr (isA<T, Clearable>) {
    if (checked(value.is_null())) {
      target = T::cleared();
    } else {
      std::decay_t<decltype(*std::declval<T>().value())> present{};
      decodeInto(present, value);
      target = std::move(present);
    }
  } else if constexpr (isA<T, QList>) {
    decodeList(target, value);
  } else if constexpr (isA<T, QMap>) {
    decodeMap(target, value);
  } else {
    RecordDecoder<T>::decode(target, value);
  }
}

template <class T>
QJsonValue encodeValue(const T& value) {
  if constexpr (std::is_base_of_v<OpenWord, T>) {
    return value.rawValue;
  } else if constexpr (std::is_same_v<T, JSONValue>) {
    return JSONValueCoder::encode(value);
  } else if constexpr (std::is_same_v<T, QDateTime>) {
    return formatPlatformDate(value);
  } else if constexpr (isA<T, QList>) {
    QJsonArray array;
    for (const auto& element : value) array.append(encodeValue(element));
    return array;
  } else if constexpr (isA<T, QMap>) {
    QJsonObject object;
    for (auto it = value.begin(); it != value.end(); ++it) object.insert(it.key(), encodeValue(it.value()));
    return object;
  } else if constexpr (boost::describe::has_describe_members<T>::value) {
    return toJSON(value);
  } else {
    return QJsonValue(value);
  }
}

template <class T>
void encodeMember(QJsonObject& object, const char* name, const T& value) {
  if constexpr (isA<T, std::optional>) {
    if (value) object.insert(QLatin1String(name), encodeValue(*value));
  } else if constexpr (isA<T, Clearable>) {
    if (value.isPresent())
      object.insert(QLatin1String(name), value.value() ? encodeValue(*value.value()) : QJsonValue(QJsonValue::Null));
  } else {
    object.insert(QLatin1String(name), encodeValue(value));
  }
}

template <class T>
QVariant variantOf(const T& value) {
  if constexpr (std::is_base_of_v<OpenWord, T>) {
    return value.rawValue;
  } else if constexpr (std::is_same_v<T, JSONValue>) {
    return JSONValueCoder::encode(value).toVariant();
  } else if constexpr (isA<T, std::optional>) {
    return value ? variantOf(*value) : QVariant::fromValue(nullptr);
  } else if constexpr (isA<T, Clearable>) {
    return value.value() ? variantOf(*value.value()) : QVariant::fromValue(nullptr);
  } else if constexpr (std::is_same_v<T, QList<QString>>) {
    return QVariant(value);
  } else if constexpr (isA<T, QList>) {
    QVariantList list;
    for (const auto& element : value) list.append(variantOf(element));
    return list;
  } else if constexpr (isA<T, QMap>) {
    QVariantMap map;
    for (auto it = value.begin(); it != value.end(); ++it) map.insert(it.key(), variantOf(it.value()));
    return map;
  } else if constexpr (boost::describe::has_describe_members<T>::value) {
    return toVariantMap(value);
  } else {
    return QVariant::fromValue(value);
  }
}

}  // namespace orv::detail

namespace orv {

template <class Record>
Record decodeJSON(QByteArrayView json) {
  try {
    Record record{};
    detail::withDocument(json, [&record](simdjson::ondemand::document& document) {
      detail::decodeInto(record, detail::checked(document.get_value()));
      // Where the text goes on after its value; an error means nowhere.
      if (!document.current_location().error()) throw detail::DecodeFault(QStringLiteral("more text after the value"));
    });
    return record;
  } catch (const detail::DecodeFault& fault) {
    throw DecodeError(fault.path, fault.reason);
  }
}

template <class Record>
QJsonObject toJSON(const Record& record) {
  QJsonObject object;
  boost::mp11::mp_for_each<detail::MembersOf<Record>>(
      [&](auto member) { detail::encodeMember(object, member.name, record.*member.pointer); });
  return object;
}

template <class Record>
QByteArray encodeJSON(const Record& record) {
  return QJsonDocument(toJSON(record)).toJson(QJsonDocument::Compact);
}

template <class Record>
QVariantMap toVariantMap(const Record& record) {
  QVariantMap map;
  boost::mp11::mp_for_each<detail::MembersOf<Record>>(
      [&](auto member) { map.insert(QLatin1String(member.name), detail::variantOf(record.*member.pointer)); });
  return map;
}

template <class Record>
const QList<QByteArray>& fieldNames() {
  static const QList<QByteArray> names = [] {
    QList<QByteArray> result;
    boost::mp11::mp_for_each<detail::MembersOf<Record>>([&](auto member) { result.append(member.name); });
    return result;
  }();
  return names;
}

template <class Record>
QVariant fieldVariant(const Record& record, int field) {
  using Members = detail::MembersOf<Record>;
  return boost::mp11::mp_with_index<boost::mp11::mp_size<Members>::value>(size_t(field), [&](auto index) {
    constexpr auto member = boost::mp11::mp_at<Members, decltype(index)>();
    return detail::variantOf(record.*member.pointer);
  });
}

}  // namespace orv

/// Instantiates everything made from a record's description. Once per record, in namespace orv.
#define ORV_RECORD_CODERS(Record)                           \
  template Record decodeJSON<Record>(QByteArrayView);       \
  template QJsonObject toJSON<Record>(const Record&);       \
  template QByteArray encodeJSON<Record>(const Record&);    \
  template QVariantMap toVariantMap<Record>(const Record&); \
  template const QList<QByteArray>& fieldNames<Record>();   \
  template QVariant fieldVariant<Record>(const Record&, int);
