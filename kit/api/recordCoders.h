#pragma once

// What makes a record's table of its description. Included by the .cpp files beside the records.

#include <QMap>
#include <QString>
#include <boost/describe/members.hpp>
#include <memory>
#include <optional>

#include "kit/api/OpenWord.h"
#include "kit/api/RecordCoder.h"

class QDateTime;

namespace orv {
template <class T>
class Clearable;
class JSONValue;
}  // namespace orv

namespace orv::detail {

template <class T>
const Coder& coderOf();

class OptionalCoder : public Coder {
 public:
  explicit OptionalCoder(const Coder& content) : m_content(content) {}
  void read(void* value, JSONReader& from) const override;
  QJsonValue write(const void* value) const override;
  QVariant show(const void* value) const override;
  bool mayBeMissing() const override { return true; }
  bool isAbsent(const void* value) const override { return !content(value); }

 protected:
  virtual void* fill(void* value) const = 0;
  virtual const void* content(const void* value) const = 0;
  ~OptionalCoder() = default;

 private:
  const Coder& m_content;
};

template <class T>
class OptionalCoderOf final : public OptionalCoder {
 public:
  OptionalCoderOf() : OptionalCoder(coderOf<T>()) {}
  void clear(void* value) const override { static_cast<std::optional<T>*>(value)->reset(); }

 protected:
  // Not emplace() of nothing: inside its enclosing record, a nested one counts as not constructible from nothing.
  void* fill(void* value) const override { return &static_cast<std::optional<T>*>(value)->emplace(T()); }
  const void* content(const void* value) const override {
    const auto& optional = *static_cast<const std::optional<T>*>(value);
    return optional ? &*optional : nullptr;
  }
};

class ListCoder : public Coder {
 public:
  ListCoder(const Coder& element, size_t size) : m_element(element), m_size(size) {}
  void read(void* list, JSONReader& from) const override;
  QJsonValue write(const void* list) const override;
  QVariant show(const void* list) const override;

 protected:
  struct Elements {
    const void* first;
    qsizetype count;
  };
  virtual void reserve(void* list, qsizetype count) const = 0;
  virtual void* append(void* list) const = 0;
  virtual Elements elements(const void* list) const = 0;
  ~ListCoder() = default;

 private:
  const void* at(const Elements& all, qsizetype i) const {
    return static_cast<const char*>(all.first) + size_t(i) * m_size;
  }

  const Coder& m_element;
  const size_t m_size;
};

template <class T>
class ListCoderOf final : public ListCoder {
 public:
  ListCoderOf() : ListCoder(coderOf<T>(), sizeof(T)) {}
  void clear(void* list) const override { static_cast<QList<T>*>(list)->clear(); }

 protected:
  void reserve(void* list, qsizetype count) const override { static_cast<QList<T>*>(list)->reserve(count); }
  void* append(void* list) const override { return &static_cast<QList<T>*>(list)->emplaceBack(); }
  Elements elements(const void* list) const override {
    const auto& all = *static_cast<const QList<T>*>(list);
    return {all.constData(), all.size()};
  }
};

template <class T, template <class...> class Template>
inline constexpr bool isA = false;
template <class... Args, template <class...> class Template>
inline constexpr bool isA<Template<Args...>, Template> = true;

template <class T, class... Others>
inline constexpr bool isOneOf = (std::is_same_v<T, Others> || ...);

/// What records are made of most. Its coders are made once, in JSONCoding.cpp.
template <class T>
inline constexpr bool isCommon =
    isOneOf<T, QString, OpenWord, bool, qint64, double, QDateTime, JSONValue, std::optional<QString>,
            std::optional<bool>, std::optional<qint64>, std::optional<double>, std::optional<QDateTime>,
            std::optional<QList<QString>>, Clearable<QString>, Clearable<qint64>, QList<QString>, QList<qint64>,
            QMap<QString, QString>, QMap<QString, qint64>, QMap<QString, JSONValue>>;
template <class T>
const Coder& commonCoder();

template <class T>
const Coder& coderOf() {
  if constexpr (isCommon<T>) {
    return commonCoder<T>();
  } else if constexpr (isA<T, std::optional>) {
    static const OptionalCoderOf<typename T::value_type> coder;
    return coder;
  } else if constexpr (isA<T, QList>) {
    static const ListCoderOf<typename T::value_type> coder;
    return coder;
  } else if constexpr (std::is_base_of_v<OpenWord, T>) {
    static_assert(sizeof(T) == sizeof(OpenWord), "a word is read as its base, and has nothing beside it");
    return commonCoder<OpenWord>();
  } else {
    return recordCoder<T>();
  }
}

template <class Record, class Base, class Member>
Field fieldOf(const Record& record, const char* name, Member Base::*member) {
  const auto* at = reinterpret_cast<const char*>(&(record.*member));
  return {name, size_t(at - reinterpret_cast<const char*>(&record)), coderOf<Member>()};
}

template <class Record, template <class...> class List, class... Description>
RecordCoder tableOf(List<Description...>*) {
  static_assert(sizeof...(Description) <= RecordCoder::mostFields);
  const Record record{};
  return RecordCoder({fieldOf(record, Description::name, Description::pointer)...}, [](void* target) {
    std::destroy_at(static_cast<Record*>(target));
    std::construct_at(static_cast<Record*>(target));
  });
}

template <class Record>
const RecordCoder& recordCoder() {
  using Members =
      boost::describe::describe_members<Record, boost::describe::mod_public | boost::describe::mod_inherited>;
  static const RecordCoder coder = tableOf<Record>(static_cast<Members*>(nullptr));
  return coder;
}

}  // namespace orv::detail

/// Instantiates everything made of a record's description. Once per record, in namespace orv.
#define ORV_RECORD_CODERS(Record) template const detail::RecordCoder& detail::recordCoder<Record>();
