#pragma once

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

}  // namespace orv
