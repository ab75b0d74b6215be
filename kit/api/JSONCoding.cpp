#include "kit/api/JSONCoding.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariantMap>
#include <algorithm>
#include <bit>
#include <cstring>

#include "kit/api/APIError.h"
#include "kit/api/Clearable.h"
#include "kit/api/JSONReader.h"
#include "kit/api/PlatformDate.h"
#include "kit/api/recordCoders.h"

namespace orv {

DecodeError::DecodeError(QString path, QString reason)
    : m_path(std::move(path)),
      m_reason(std::move(reason)),
      m_what((m_path + QLatin1String(": ") + m_reason).toUtf8()) {}

ORV_RECORD_CODERS(Problem)

namespace detail {
namespace {

void readPlain(QString& text, JSONReader& from) { text = from.text(); }
void readPlain(OpenWord& word, JSONReader& from) { word.rawValue = from.text(); }
void readPlain(bool& on, JSONReader& from) { on = from.boolean(); }
void readPlain(qint64& integer, JSONReader& from) { integer = from.integer(); }
void readPlain(double& number, JSONReader& from) { number = from.number(); }
void readPlain(JSONValue& value, JSONReader& from) { value = from.anything(); }
void readPlain(QDateTime& instant, JSONReader& from) {
  const auto parsed = parsePlatformDate(from.text());
  if (!parsed) throw DecodeFault(QStringLiteral("not an instant"));
  instant = *parsed;
}

QJsonValue writePlain(const JSONValue& value) {
  struct Visitor {
    QJsonValue operator()(const QString& text) const { return text; }
    QJsonValue operator()(double number) const { return number; }
    QJsonValue operator()(bool boolean) const { return boolean; }
    QJsonValue operator()(const JSONValue::Array& elements) const {
      QJsonArray array;
      for (const auto& element : elements) array.append(writePlain(element));
      return array;
    }
    QJsonValue operator()(const JSONValue::Object& members) const {
      QJsonObject object;
      for (auto it = members.begin(); it != members.end(); ++it) object.insert(it.key(), writePlain(it.value()));
      return object;
    }
    QJsonValue operator()(JSONValue::Null) const { return QJsonValue::Null; }
  };
  return std::visit(Visitor(), value.storage());
}
QJsonValue writePlain(const OpenWord& word) { return word.rawValue; }
QJsonValue writePlain(const QDateTime& instant) { return formatPlatformDate(instant); }
template <class T>
QJsonValue writePlain(const T& value) {
  return QJsonValue(value);
}

QVariant showPlain(const OpenWord& word) { return word.rawValue; }
QVariant showPlain(const JSONValue& value) { return writePlain(value).toVariant(); }
template <class T>
QVariant showPlain(const T& value) {
  return QVariant::fromValue(value);
}

QVariant nothing() { return QVariant::fromValue(nullptr); }

template <class T>
class PlainCoder final : public Coder {
 public:
  void read(void* value, JSONReader& from) const override { readPlain(*static_cast<T*>(value), from); }
  void clear(void* value) const override { *static_cast<T*>(value) = T(); }
  QJsonValue write(const void* value) const override { return writePlain(*static_cast<const T*>(value)); }
  QVariant show(const void* value) const override { return showPlain(*static_cast<const T*>(value)); }
};

/// What OptionalCoderOf does, in one step.
template <class T>
class PlainOptionalCoder final : public Coder {
 public:
  void read(void* value, JSONReader& from) const override {
    if (!from.takeNull()) readPlain(optional(value).emplace(), from);
  }
  void clear(void* value) const override { optional(value).reset(); }
  QJsonValue write(const void* value) const override { return writePlain(*optional(value)); }
  QVariant show(const void* value) const override { return isAbsent(value) ? nothing() : showPlain(*optional(value)); }
  bool mayBeMissing() const override { return true; }
  bool isAbsent(const void* value) const override { return !optional(value); }

 private:
  static std::optional<T>& optional(void* value) { return *static_cast<std::optional<T>*>(value); }
  static const std::optional<T>& optional(const void* value) { return *static_cast<const std::optional<T>*>(value); }
};

template <class T>
class ClearableCoder final : public Coder {
 public:
  void read(void* value, JSONReader& from) const override {
    auto& field = *static_cast<Clearable<T>*>(value);
    if (from.takeNull()) {
      field = Clearable<T>::cleared();
    } else {
      T present{};
      readPlain(present, from);
      field = std::move(present);
    }
  }
  void clear(void* value) const override { *static_cast<Clearable<T>*>(value) = Clearable<T>(); }
  QJsonValue write(const void* value) const override {
    return content(value) ? writePlain(*content(value)) : QJsonValue(QJsonValue::Null);
  }
  QVariant show(const void* value) const override { return content(value) ? showPlain(*content(value)) : nothing(); }
  bool mayBeMissing() const override { return true; }
  bool isAbsent(const void* value) const override { return !static_cast<const Clearable<T>*>(value)->isPresent(); }

 private:
  static const std::optional<T>& content(const void* value) { return static_cast<const Clearable<T>*>(value)->value(); }
};

template <class T>
class MapCoder final : public Coder {
  using Map = QMap<QString, T>;

 public:
  void read(void* value, JSONReader& from) const override {
    auto& map = *static_cast<Map*>(value);
    for (auto member : checked(from.value.get_object())) {
      const QString key = textOf(checked(member.unescaped_key()));
      try {
        from.reading.take(mapNode + key.size() * qint64(sizeof(QChar)));
        JSONReader inner = from.within(checked(member.value()));
        readPlain(map[key] = T(), inner);
      } catch (DecodeFault& fault) {
        // The key may be a person's data; the log has no use for it.
        fault.within(QStringLiteral("*"));
        throw;
      }
    }
  }
  void clear(void* value) const override { static_cast<Map*>(value)->clear(); }
  QJsonValue write(const void* value) const override {
    const Map& map = *static_cast<const Map*>(value);
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it) object.insert(it.key(), writePlain(it.value()));
    return object;
  }
  QVariant show(const void* value) const override {
    const Map& map = *static_cast<const Map*>(value);
    QVariantMap shown;
    for (auto it = map.begin(); it != map.end(); ++it) shown.insert(it.key(), showPlain(it.value()));
    return shown;
  }
};

template <class T>
struct CommonCoder : std::type_identity<PlainCoder<T>> {};
template <class T>
struct CommonCoder<std::optional<T>> : std::type_identity<PlainOptionalCoder<T>> {};
template <>
struct CommonCoder<std::optional<QList<QString>>> : std::type_identity<OptionalCoderOf<QList<QString>>> {};
template <class T>
struct CommonCoder<Clearable<T>> : std::type_identity<ClearableCoder<T>> {};
template <class T>
struct CommonCoder<QList<T>> : std::type_identity<ListCoderOf<T>> {};
template <class T>
struct CommonCoder<QMap<QString, T>> : std::type_identity<MapCoder<T>> {};

}  // namespace

template <class T>
const Coder& commonCoder() {
  static const typename CommonCoder<T>::type coder;
  return coder;
}
template const Coder& commonCoder<QString>();
template const Coder& commonCoder<OpenWord>();
template const Coder& commonCoder<bool>();
template const Coder& commonCoder<qint64>();
template const Coder& commonCoder<double>();
template const Coder& commonCoder<QDateTime>();
template const Coder& commonCoder<JSONValue>();
template const Coder& commonCoder<std::optional<QString>>();
template const Coder& commonCoder<std::optional<bool>>();
template const Coder& commonCoder<std::optional<qint64>>();
template const Coder& commonCoder<std::optional<double>>();
template const Coder& commonCoder<std::optional<QDateTime>>();
template const Coder& commonCoder<std::optional<QList<QString>>>();
template const Coder& commonCoder<Clearable<QString>>();
template const Coder& commonCoder<Clearable<qint64>>();
template const Coder& commonCoder<QList<QString>>();
template const Coder& commonCoder<QList<qint64>>();
template const Coder& commonCoder<QMap<QString, QString>>();
template const Coder& commonCoder<QMap<QString, qint64>>();
template const Coder& commonCoder<QMap<QString, JSONValue>>();

void OptionalCoder::read(void* value, JSONReader& from) const {
  if (!from.takeNull()) m_content.read(fill(value), from);
}
QJsonValue OptionalCoder::write(const void* value) const { return m_content.write(content(value)); }
QVariant OptionalCoder::show(const void* value) const {
  return isAbsent(value) ? nothing() : m_content.show(content(value));
}

void ListCoder::read(void* list, JSONReader& from) const {
  auto array = checked(from.value.get_array());
  // A list of records that grows moves all of them, member by member; to count them first costs less. Not more than a
  // sane answer needs, though: a "0," is two bytes, the room for what should stand there a thousand.
  constexpr size_t mostReserved = 64 << 20;
  const size_t count = checked(array.count_elements());
  from.reading.take(qint64(count * m_size));
  reserve(list, qsizetype(std::min(count, mostReserved / m_size)));
  qsizetype place = 0;
  try {
    for (auto element : array) {
      JSONReader inner = from.within(checked(element));
      m_element.read(append(list), inner);
      ++place;
    }
  } catch (DecodeFault& fault) {
    fault.within(u'[' + QString::number(place) + u']');
    throw;
  }
}
QJsonValue ListCoder::write(const void* list) const {
  QJsonArray array;
  const Elements all = elements(list);
  for (qsizetype i = 0; i < all.count; ++i) array.append(m_element.write(at(all, i)));
  return array;
}
QVariant ListCoder::show(const void* list) const {
  // A list of texts is one to QML too.
  if (&m_element == &commonCoder<QString>()) return QVariant(*static_cast<const QList<QString>*>(list));
  QVariantList shown;
  const Elements all = elements(list);
  for (qsizetype i = 0; i < all.count; ++i) shown.append(m_element.show(at(all, i)));
  return shown;
}

Field::Field(const char* key, size_t at, const Coder& by) : name(key), offset(at), coder(&by) {
  // A key that is a word of this language is a member with an underscore behind it.
  if (name.ends_with('_')) name.remove_suffix(1);
  char start[sizeof m_head] = {}, mask[sizeof m_head] = {};
  for (size_t i = 0; i < std::min(sizeof start, name.size() + 1); ++i) {
    start[i] = i < name.size() ? key[i] : '"';
    mask[i] = char(0xff);
  }
  std::memcpy(&m_head, start, sizeof start);
  std::memcpy(&m_headMask, mask, sizeof mask);
}

inline bool Field::isAt(const char* rawKey) const {
  quint64 head;
  std::memcpy(&head, rawKey, sizeof head);
  if ((head & m_headMask) != m_head) return false;
  // No name holds a quotation mark, where the raw key ends, so that the comparison cannot run past it.
  return name.size() < sizeof head ||
         (rawKey[name.size()] == '"' &&
          std::memcmp(rawKey + sizeof head, name.data() + sizeof head, name.size() - sizeof head) == 0);
}

RecordCoder::RecordCoder(std::initializer_list<Field> fields, void (*clearRecord)(void*))
    : m_fields(fields), m_clear(clearRecord) {
  for (size_t i = 0; i < m_fields.size(); ++i) {
    m_names.append(QByteArray(m_fields[i].name.data(), qsizetype(m_fields[i].name.size())));
    if (!m_fields[i].coder->mayBeMissing()) m_required |= quint64(1) << i;
  }
}

void RecordCoder::read(void* record, JSONReader& from) const {
  quint64 seen = 0;
  // Writers keep the order of a record's keys, so the next key is nearly always the next field.
  size_t expected = 0;
  for (auto member : checked(from.value.get_object())) {
    const char* rawKey = checked(member.key()).raw();
    size_t place = fieldAt(rawKey, expected);
    // A writer may escape any letter, which only a key that looks unknown is worth undoing.
    if (place == m_fields.size() && rawKey[std::strcspn(rawKey, "\\\"")] == '\\')
      place = fieldNamed(checked(member.unescaped_key()));
    if (place == m_fields.size()) {
      from.within(checked(member.value())).skip();
      continue;
    }
    const Field& field = m_fields[place];
    void* target = static_cast<char*>(record) + field.offset;
    try {
      // Of a key that stands twice the last value holds, and nothing of the first stays in it.
      if (seen >> place & 1) field.coder->clear(target);
      JSONReader inner = from.within(checked(member.value()));
      field.coder->read(target, inner);
    } catch (DecodeFault& fault) {
      fault.within(textOf(field.name));
      throw;
    }
    seen |= quint64(1) << place;
    expected = place + 1;
  }
  if (const quint64 missing = m_required & ~seen) {
    DecodeFault fault(QStringLiteral("missing"));
    fault.within(textOf(m_fields[size_t(std::countr_zero(missing))].name));
    throw fault;
  }
}

size_t RecordCoder::fieldAt(const char* rawKey, size_t expected) const {
  const size_t count = m_fields.size();
  for (size_t i = 0, place = expected; i < count; ++i, ++place) {
    if (place >= count) place = 0;
    if (m_fields[place].isAt(rawKey)) return place;
  }
  return count;
}

size_t RecordCoder::fieldNamed(std::string_view name) const {
  return size_t(std::ranges::find(m_fields, name, &Field::name) - m_fields.begin());
}

QJsonObject RecordCoder::toObject(const void* record) const {
  QJsonObject object;
  for (const Field& field : m_fields) {
    const void* value = static_cast<const char*>(record) + field.offset;
    if (!field.coder->isAbsent(value))
      object.insert(QLatin1String(field.name.data(), qsizetype(field.name.size())), field.coder->write(value));
  }
  return object;
}
QJsonValue RecordCoder::write(const void* record) const { return toObject(record); }

QVariant RecordCoder::show(const void* record) const { return toMap(record); }

QVariantMap RecordCoder::toMap(const void* record) const {
  QVariantMap map;
  for (int i = 0; i < int(m_fields.size()); ++i) map.insert(QString::fromLatin1(m_names[i]), showField(record, i));
  return map;
}

QVariant RecordCoder::showField(const void* record, int field) const {
  const Field& shown = m_fields[size_t(field)];
  return shown.coder->show(static_cast<const char*>(record) + shown.offset);
}

void decodeInto(void* record, const RecordCoder& coder, QByteArrayView json) {
  try {
    readDocument(json, [&](JSONReader& reader) { coder.read(record, reader); });
  } catch (const DecodeFault& fault) {
    throw DecodeError(fault.path, fault.reason);
  }
}

QByteArray compactText(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

}  // namespace detail
}  // namespace orv
