#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QJsonObject>
#include <QString>
#include <QVariantMap>
#include <exception>

#include "kit/api/RecordCoder.h"

namespace orv {

/// A JSON text that is not the record it should be.
class DecodeError final : public std::exception {
 public:
  /// `path` names the offending key from the root ("items[3].stats.sent"), for
  /// the log: it holds no values.
  DecodeError(QString path, QString reason);
  const QString& path() const { return m_path; }
  const QString& reason() const { return m_reason; }
  const char* what() const noexcept override { return m_what.constData(); }

 private:
  QString m_path;
  QString m_reason;
  QByteArray m_what;
};

/// Everything below is made from a record's one BOOST_DESCRIBE_STRUCT line,
/// whose names are the JSON keys, by way of its table, which is instantiated
/// once, in the .cpp beside the record, with ORV_RECORD_CODERS of
/// recordCoders.h.

/// Decodes a whole JSON text. Unknown keys are skipped; a required key that is
/// missing, a wrong type, bad UTF-8 and anything after the value throw
/// DecodeError. Optional members may be absent or null.
template <class Record>
Record decodeJSON(QByteArrayView json) {
  Record record{};
  detail::decodeInto(&record, detail::recordCoder<Record>(), json);
  return record;
}

/// Optional members without a value are left out.
template <class Record>
QJsonObject toJSON(const Record& record) {
  return detail::recordCoder<Record>().toObject(&record);
}

/// The same as compact JSON text with sorted keys: the same record always gives
/// the same bytes.
template <class Record>
QByteArray encodeJSON(const Record& record) {
  return detail::compactText(toJSON(record));
}

/// What QML reads: members by name; an absent optional is null.
template <class Record>
QVariantMap toVariantMap(const Record& record) {
  return detail::recordCoder<Record>().toMap(&record);
}

}  // namespace orv
