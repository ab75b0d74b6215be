#include "app/base/Draft.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString rivalsTold(const QStringList& changes) {
  if (changes.isEmpty()) return {};
  return u"Someone else changed this meanwhile: %1. Saving replaces it, Discard shows it."_s.arg(changes.join(u", "_s));
}

void FieldDraft::setProblems(const QVariantMap& problems) {
  if (std::exchange(m_problems, problems) != problems) Q_EMIT changed();
}

bool FieldDraft::set(const QString& field, const QVariant& value) {
  const auto typed = m_typed.find(field);
  if (typed == m_typed.end()) return false;
  QVariant next = value;
  if (!next.convert(typed->metaType()) || next == *typed) return false;
  *typed = next;
  m_typedSince.insert(field);
  m_problems.remove(field);
  if (!isDirty(field) && m_rivals.remove(field)) settleVersion();
  tell({field});
  return true;
}

void FieldDraft::discard() {
  const QStringList fields = replace(m_base);
  m_problems.clear();
  m_rivals.clear();
  m_typedSince.clear();
  settleVersion();
  tell(fields);
}

void FieldDraft::fill(const QVariantMap& record, Version version) {
  m_base = record;
  m_seen = version;
  m_refused = false;
  discard();
}

void FieldDraft::rebase(const QVariantMap& record, Version version, Version madeOn) {
  if (version && m_seen && *version < *m_seen) return;
  const bool isOurs = madeOn && madeOn == m_seen;
  QVariantMap typed = record;
  for (const auto& [field, now] : record.asKeyValueRange()) {
    const QVariant mine = m_typed.value(field), before = m_base.value(field);
    if (mine == before || mine == now) {
      m_rivals.remove(field);
      continue;
    }
    typed[field] = mine;
    if (now != before && (!isOurs || m_rivals.contains(field))) m_rivals.insert(field, now);
  }
  // A field that is gone keeps what was typed in it.
  for (const auto& [field, mine] : m_typed.asKeyValueRange())
    if (!record.contains(field) && mine != m_base.value(field)) typed[field] = mine;
  const QStringList fields = replace(typed);
  m_base = record;
  m_seen = version;
  if (std::exchange(m_refused, false)) m_version = m_seen;
  settleVersion();
  tell(fields);
}

const QVariantMap& FieldDraft::sending() {
  m_typedSince.clear();
  return m_typed;
}

void FieldDraft::taken(const QVariantMap& record, Version version) {
  // Somebody else's newer record may have been quicker than the answer; it knows what was sent.
  const bool isOld = version && m_seen && *version < *m_seen;
  const QVariantMap latest = isOld ? m_base : record;
  QVariantMap typed = latest;
  for (const QString& field : std::as_const(m_typedSince)) typed[field] = m_typed.value(field);
  const QStringList fields = replace(typed);
  m_base = latest;
  if (!isOld) m_seen = version;
  m_rivals.clear();
  m_refused = false;
  settleVersion();
  tell(fields);
}

bool FieldDraft::failed(const APIError& error) {
  m_refused = isVersionConflict(error);
  return false;
}

QJsonObject FieldDraft::journal() const {
  QJsonObject typed, base;
  for (const auto& [field, value] : m_typed.asKeyValueRange()) {
    if (!isDirty(field)) continue;
    typed.insert(field, written(value));
    base.insert(field, written(m_base.value(field)));
  }
  if (typed.isEmpty()) return {};
  QJsonObject kept{{u"typed"_s, typed}, {u"base"_s, base}};
  if (m_version) kept.insert(u"version"_s, *m_version);
  return kept;
}

bool FieldDraft::restore(const QJsonObject& kept) {
  const QVariantMap record = m_base;
  const Version seen = m_seen;
  const auto put = [this](QVariantMap& into, const QJsonObject& fields) {
    for (auto field = fields.begin(); field != fields.end(); ++field) {
      QVariant value = read(field.value());
      if (into.contains(field.key()) && value.convert(into[field.key()].metaType())) into[field.key()] = value;
    }
  };
  put(m_base, kept.value("base"_L1).toObject());
  QVariantMap typed = m_typed;
  put(typed, kept.value("typed"_L1).toObject());
  const QStringList fields = replace(typed);
  const QJsonValue version = kept.value("version"_L1);
  m_version = m_seen = version.isDouble() ? Version(version.toInteger()) : std::nullopt;
  // What the service has now is laid over what was kept, as at any other time.
  const bool isNewer = !seen || !m_seen || *seen >= *m_seen;
  if (isNewer) rebase(record, seen);
  tell(fields);
  return dirty();
}

QStringList FieldDraft::replace(const QVariantMap& typed) {
  QStringList fields;
  for (const auto& [field, value] : typed.asKeyValueRange())
    if (m_typed.value(field) != value) fields.append(field);
  for (const auto& [field, value] : m_typed.asKeyValueRange())
    if (!typed.contains(field)) fields.append(field);
  m_typed = typed;
  return fields;
}

void FieldDraft::tell(const QStringList& fields) {
  for (const QString& field : fields) Q_EMIT fieldChanged(field);
  Q_EMIT changed();
}

/// While somebody else's change has not been seen, a save must not pass for one that knows it.
void FieldDraft::settleVersion() {
  if (m_rivals.isEmpty()) m_version = m_seen;
}

}  // namespace orv
