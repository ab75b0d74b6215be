#pragma once

#include <QByteArray>
#include <QList>
#include <string_view>
#include <vector>

class QJsonObject;
class QJsonValue;
class QVariant;

namespace orv::detail {

/// Where the parser stands. Only who reads sees into it: the parser's header is the dearest of the program.
class JSONReader;

/// How the values of one type are read, written and shown. Values go by address, so that what walks a record is
/// compiled once for all of them; a coder is handed nothing but values of the type it was made for.
class Coder {
 public:
  /// Into a value that holds nothing yet, where it stands: a record moved on its way up is moved text by text.
  virtual void read(void* value, JSONReader& from) const = 0;
  virtual void clear(void* value) const = 0;
  virtual QJsonValue write(const void* value) const = 0;
  /// What QML reads; null for what is absent.
  virtual QVariant show(const void* value) const = 0;
  /// Its key may be missing without making the record undecodable.
  virtual bool mayBeMissing() const { return false; }
  /// It is left out of what is written.
  virtual bool isAbsent(const void*) const { return false; }

 protected:
  ~Coder() = default;
};

struct Field {
  Field(const char* key, size_t at, const Coder& by);
  /// The key stands here, its closing quotation mark behind it. Some bytes more can be read.
  bool isAt(const char* rawKey) const;

  std::string_view name;
  size_t offset;
  const Coder* coder;

 private:
  /// The first bytes of the key with its closing quotation mark, and which of them there are.
  quint64 m_head = 0;
  quint64 m_headMask = 0;
};

/// The one table that is made of a record's description: names, places and coders of its members.
class RecordCoder final : public Coder {
 public:
  static constexpr size_t mostFields = 64;
  RecordCoder(std::initializer_list<Field> fields, void (*clearRecord)(void*));

  void read(void* record, JSONReader& from) const override;
  void clear(void* record) const override { m_clear(record); }
  QJsonValue write(const void* record) const override;
  QVariant show(const void* record) const override;

  QJsonObject toObject(const void* record) const;
  QVariantMap toMap(const void* record) const;
  const QList<QByteArray>& names() const { return m_names; }
  QVariant showField(const void* record, int field) const;

 private:
  size_t fieldNamed(std::string_view name) const;
  size_t fieldAt(const char* rawKey, size_t expected) const;

  std::vector<Field> m_fields;
  QList<QByteArray> m_names;
  /// By bit: must be there.
  quint64 m_required = 0;
  void (*m_clear)(void*);
};

/// Instantiated once per record, in the .cpp beside it, by ORV_RECORD_CODERS of recordCoders.h.
template <class Record>
const RecordCoder& recordCoder();

void decodeInto(void* record, const RecordCoder& coder, QByteArrayView json);
QByteArray compactText(const QJsonObject& object);

}  // namespace orv::detail
