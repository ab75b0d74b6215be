#pragma once

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <variant>

namespace orv {

/// A JSON value of a shape that the service leaves open.
class JSONValue {
 public:
  using Array = QList<JSONValue>;
  using Object = QMap<QString, JSONValue>;
  struct Null {
    bool operator==(const Null&) const = default;
  };
  /// In the order: string, number, bool, array, object, null.
  using Storage = std::variant<QString, double, bool, Array, Object, Null>;

  JSONValue() : m_storage(Null{}) {}
  JSONValue(Storage storage) : m_storage(std::move(storage)) {}
  static JSONValue string(QString text) { return Storage(std::move(text)); }
  static JSONValue number(double number) { return Storage(number); }
  static JSONValue boolean(bool value) { return Storage(value); }
  static JSONValue array(Array elements) { return Storage(std::move(elements)); }
  static JSONValue object(Object members) { return Storage(std::move(members)); }

  const Storage& storage() const { return m_storage; }
  bool isNull() const { return std::holds_alternative<Null>(m_storage); }
  bool operator==(const JSONValue& other) const { return m_storage == other.m_storage; }

 private:
  Storage m_storage;
};

inline size_t qHash(const JSONValue& value, size_t seed = 0) {
  seed = qHashMulti(seed, value.storage().index());
  const auto ofPayload = [seed](const auto& payload) {
    using Payload = std::decay_t<decltype(payload)>;
    size_t hash = seed;
    if constexpr (std::is_same_v<Payload, JSONValue::Object>)
      for (auto it = payload.begin(); it != payload.end(); ++it) hash = qHashMulti(hash, it.key(), it.value());
    else if constexpr (!std::is_same_v<Payload, JSONValue::Null>)
      hash = qHashMulti(seed, payload);
    return hash;
  };
  return std::visit(ofPayload, value.storage());
}

}  // namespace orv
