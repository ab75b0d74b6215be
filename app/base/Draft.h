#pragma once

#include <QJsonObject>
#include <QObject>
#include <QSet>
#include <QVariantMap>
#include <optional>

#include "app/base/RowFields.h"
#include "kit/api/APIError.h"

namespace orv {

/// What a person changes of a record before it is saved, by the names of its fields.
///
/// A newer record is taken over field by field: what was typed stays, everything else is as the service has it. Where
/// somebody else changed a field that was typed in as well, the draft keeps to the version that it was filled from, so
/// that a save is refused and the person is told before they overwrite what they have not seen.
class FieldDraft : public QObject {
  Q_OBJECT
  Q_PROPERTY(QVariantMap values READ values NOTIFY changed)
  Q_PROPERTY(QVariantMap problems READ problems NOTIFY changed)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)

 public:
  using Version = std::optional<qint64>;

  using QObject::QObject;

  const QVariantMap& values() const { return m_typed; }
  const QVariantMap& saved() const { return m_base; }
  bool dirty() const { return m_typed != m_base; }
  Q_INVOKABLE bool isDirty(const QString& field) const { return m_typed.value(field) != m_base.value(field); }
  /// A sentence for each field that cannot be saved as it is.
  const QVariantMap& problems() const { return m_problems; }
  void setProblems(const QVariantMap& problems);
  /// What somebody else made of fields that were typed in meanwhile.
  const QVariantMap& rivals() const { return m_rivals; }
  /// Of the record that a save is to be based on.
  const Version& version() const { return m_version; }

  /// Changes a field; its problem is forgotten. False when there is no such field, or it has the value already.
  Q_INVOKABLE bool set(const QString& field, const QVariant& value);
  /// Everything is as the service has it.
  Q_INVOKABLE void discard();

  /// Another record: nothing is the person's.
  void fill(const QVariantMap& record, Version version);
  /// The record came again. `madeOn`, the person themselves changed it elsewhere, on that version: what they did there
  /// is nobody else's doing.
  void rebase(const QVariantMap& record, Version version, Version madeOn = {});
  /// What a save sends. What is typed from now on is not among it.
  const QVariantMap& sending();
  /// The service answered the save with `record`. What was typed since stays.
  void taken(const QVariantMap& record, Version version);
  /// A save failed. Where the service refused its version the person is told, and the record as it is read next is
  /// theirs to overwrite: they see what they replace. Always false: nothing has been told here.
  bool failed(const APIError& error);

  /// Names what is typed in the journal; empty for what is not worth keeping.
  const QString& key() const { return m_key; }
  void setKey(const QString& key) { m_key = key; }
  /// What was typed, what it was typed on, and its version.
  QJsonObject journal() const;
  /// Takes back what a journal kept, on the record as it is now. False when there was nothing to restore.
  bool restore(const QJsonObject& kept);

 Q_SIGNALS:
  void changed();
  /// One field has another value, by whomsoever.
  void fieldChanged(const QString& field);

 protected:
  /// For the journal, of fields that are more than texts, flags, numbers and lists of texts.
  virtual QJsonValue written(const QVariant& value) const { return QJsonValue::fromVariant(value); }
  virtual QVariant read(const QJsonValue& value) const { return value.toVariant(); }

 private:
  QStringList replace(const QVariantMap& typed);
  void tell(const QStringList& fields);
  void settleVersion();

  QVariantMap m_typed;
  /// What it was typed on.
  QVariantMap m_base;
  QVariantMap m_problems;
  QVariantMap m_rivals;
  Version m_version;
  /// Of the base; newer than the other while there are rivals.
  Version m_seen;
  bool m_refused = false;
  /// Fields that were typed in since the last save began.
  QSet<QString> m_typedSince;
  QString m_key;
};

/// Tells of what somebody else made of fields that were typed in; empty when there is nothing to tell.
QString rivalsTold(const QStringList& changes);

/// The members of a described struct by their names, and back.
template <class Fields>
QVariantMap valuesOf(const Fields& fields) {
  QVariantMap values;
  boost::mp11::mp_for_each<RowMembers<Fields>>([&](auto member) {
    values.insert(QString::fromLatin1(member.name), QVariant::fromValue(fields.*member.pointer));
  });
  return values;
}

template <class Fields>
Fields fieldsOf(const QVariantMap& values) {
  Fields fields;
  boost::mp11::mp_for_each<RowMembers<Fields>>([&](auto member) {
    auto& field = fields.*member.pointer;
    field = values.value(QString::fromLatin1(member.name)).template value<std::decay_t<decltype(field)>>();
  });
  return fields;
}

/// A draft of the fields of a described struct.
template <class Fields>
class DraftOf : public FieldDraft {
 public:
  explicit DraftOf(QObject* parent = nullptr) : FieldDraft(parent) { fill(Fields()); }

  Fields typed() const { return fieldsOf<Fields>(values()); }
  Fields base() const { return fieldsOf<Fields>(saved()); }
  void fill(const Fields& record, Version version = {}) { FieldDraft::fill(valuesOf(record), version); }
  void rebase(const Fields& record, Version version, Version madeOn = {}) {
    FieldDraft::rebase(valuesOf(record), version, madeOn);
  }
  Fields sending() { return fieldsOf<Fields>(FieldDraft::sending()); }
  void taken(const Fields& record, Version version) { FieldDraft::taken(valuesOf(record), version); }
};

}  // namespace orv
