#include "demo/Leads.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 rowsPerSecond = 2'500, rowsPerPart = 1'000, waitsMilliseconds = 1'000;

using TextField = std::optional<QString> LeadRecord::*;

const QHash<QString, TextField>& textFields() {
  static const QHash<QString, TextField> fields{
      {u"first_name"_s, &LeadRecord::firstName},
      {u"last_name"_s, &LeadRecord::lastName},
      {u"full_name"_s, &LeadRecord::fullName},
      {u"title"_s, &LeadRecord::title},
      {u"company"_s, &LeadRecord::company},
      {u"website"_s, &LeadRecord::website},
      {u"industry"_s, &LeadRecord::industry},
      {u"niche"_s, &LeadRecord::niche},
      {u"annual_revenue"_s, &LeadRecord::annualRevenue},
      {u"country"_s, &LeadRecord::country},
      {u"state"_s, &LeadRecord::state},
      {u"city"_s, &LeadRecord::city},
      {u"linkedin_url"_s, &LeadRecord::linkedinUrl},
      {u"instagram_url"_s, &LeadRecord::instagramUrl},
      {u"instagram_username"_s, &LeadRecord::instagramUsername},
      {u"phone"_s, &LeadRecord::phone},
      {u"icp_tier"_s, &LeadRecord::icpTier},
      {u"keywords"_s, &LeadRecord::keywords},
      {u"technologies"_s, &LeadRecord::technologies},
      {u"lead_source"_s, &LeadRecord::leadSource},
      {u"list_code"_s, &LeadRecord::listCode},
      {u"batch_id"_s, &LeadRecord::batchId},
      {u"date_scraped"_s, &LeadRecord::dateScraped},
      {u"date_verified"_s, &LeadRecord::dateVerified},
  };
  return fields;
}

/// Sets what is blank; what stands stays.
bool fillIn(std::optional<QString>& field, const QString& value) {
  if (field && !field->isEmpty()) return false;
  field = value;
  return true;
}

bool fillIn(std::optional<qint64>& field, const QString& value) {
  bool isNumber = false;
  const qint64 number = value.toLongLong(&isNumber);
  if (field || !isNumber || number < 0) return false;
  field = number;
  return true;
}

bool fillIn(QString& field, const QString& value) {
  if (!field.isEmpty()) return false;
  field = value;
  return true;
}

bool fillIn(LeadRecord& lead, const QString& target, const QString& column, const QString& value) {
  if (value.isEmpty() || target == "skip"_L1 || target == "email"_L1) return false;
  if (const TextField field = textFields().value(target)) return fillIn(lead.*field, value);
  if (target == "employees"_L1) return fillIn(lead.employees, value);
  if (target == "followers"_L1) return fillIn(lead.followers, value);
  if (target == "esp"_L1) return fillIn(lead.esp, value.toLower());
  if (target == "verification"_L1) return fillIn(lead.verification.rawValue, value.toLower());
  if (!lead.extra) lead.extra.emplace();
  if (lead.extra->contains(column)) return false;
  lead.extra->insert(column, JSONValue::string(value));
  return true;
}

bool looksLikeAddress(const QString& email) {
  const auto at = email.indexOf(u'@');
  return at > 0 && email.indexOf(u'.', at) > at + 1 && !email.contains(u' ') && !email.endsWith(u'.');
}

/// One row of a file, and what it does to the workspace's leads.
class RowReading {
 public:
  RowReading(DemoWorkspace& workspace, DemoImport& import, DemoRandom& random, const QDateTime& now)
      : m_workspace(workspace), m_import(import), m_random(random), m_stamp(formatPlatformDate(now)) {}

  void take(const QStringList& row) {
    const QString email = row.value(m_import.mapping.indexOf(u"email"_s)).trimmed().toLower();
    LeadImport& record = m_import.record;
    ++record.readRows;
    if (!looksLikeAddress(email) || m_import.seen.contains(email)) {
      ++record.skipped;
      return;
    }
    m_import.seen.insert(email);
    auto place = m_workspace.leads.placeOfAddress(email);
    if (!place) {
      place = insert(email, row);
      ++record.inserted;
    } else if (!m_workspace.leads.isFromBase(*place) && fillRow(m_workspace.leads.ownAt(*place), row)) {
      m_workspace.leads.ownAt(*place).updatedAt = m_stamp;
      ++record.updated;
    } else {
      ++record.skipped;
    }
    DemoLeadList* list = record.listId ? m_workspace.findList(*record.listId) : nullptr;
    if (list && list->add(*place)) list->record.updatedAt = m_stamp;
  }

 private:
  bool fillRow(LeadRecord& lead, const QStringList& row) const {
    bool gained = false;
    for (qsizetype i = 0; i < std::min(row.size(), m_import.mapping.size()); ++i)
      gained |= fillIn(lead, m_import.mapping[i], m_import.columns[i].trimmed(), row[i].trimmed());
    return gained;
  }

  LeadPlace insert(const QString& email, const QStringList& row) {
    LeadRecord lead;
    lead.id = m_random.id(u"l"_s);
    lead.email = email;
    lead.source = u"import"_s;
    lead.createdAt = lead.updatedAt = m_stamp;
    fillRow(lead, row);
    if (lead.verification.rawValue.isEmpty()) lead.verification = LeadVerification(u"unknown"_s);
    return m_workspace.leads.addOwn(lead);
  }

  DemoWorkspace& m_workspace;
  DemoImport& m_import;
  DemoRandom& m_random;
  const QString m_stamp;
};

void end(DemoImport& import, const QString& status, const QDateTime& now, const std::optional<QString>& error = {}) {
  LeadImport& record = import.record;
  record.status = ImportStatus(status);
  record.finishedAt = formatPlatformDate(now);
  record.lastError = error;
  record.partsDone = status == "done"_L1 ? record.parts.value_or(0) : record.readRows / rowsPerPart;
  import.rows = CsvRows({});
  import.seen.clear();
}

/// The whole file is looked through once before any row is taken.
void begin(DemoImport& import, const QDateTime& now) {
  LeadImport& record = import.record;
  record.status = ImportStatus(u"running"_s);
  record.startedAt = formatPlatformDate(now);
  import.startedAt = now;
  CsvRows ahead = import.rows;
  qint64 rows = 0;
  while (ahead.next()) ++rows;
  record.totalRows = rows;
  record.parts = (rows + rowsPerPart - 1) / rowsPerPart;
}

void advance(DemoImport& import, DemoWorkspace& workspace, DemoRandom& random, const QDateTime& now) {
  LeadImport& record = import.record;
  const qint64 due = import.startedAt.msecsTo(now) * rowsPerSecond / 1000;
  RowReading reading(workspace, import, random, now);
  while (record.readRows < due) {
    const auto row = import.rows.next();
    if (!row) {
      const bool isOfNobody = record.readRows > 0 && import.seen.isEmpty();
      return end(import, isOfNobody ? u"failed"_s : u"done"_s, now,
                 isOfNobody ? std::optional(u"No row has an email address."_s) : std::nullopt);
    }
    const QString number = u"Row "_s + Format::grouped(record.readRows + 2, QLocale(QLocale::English));
    if (import.rows.isCut())
      return end(import, u"failed"_s, now, number + u" never ends: a quotation mark is missing."_s);
    if (row->size() > import.columns.size())
      return end(import, u"failed"_s, now,
                 number + u" has %1 columns, the header has %2."_s.arg(row->size()).arg(import.columns.size()));
    reading.take(*row);
  }
  record.partsDone = record.readRows / rowsPerPart;
}

}  // namespace

void settleImports(DemoWorkspace& workspace, DemoRandom& random, const QDateTime& now) {
  auto& imports = workspace.leads.imports;
  // One after another, the oldest first.
  for (auto import = imports.rbegin(); import != imports.rend(); ++import) {
    if (!import->record.status.isActive()) continue;
    if (!import->record.status.isRunning()) {
      if (import->queuedAt.msecsTo(now) < waitsMilliseconds) return;
      begin(*import, now);
      // Whoever asks sees the file being read before any of it is.
      return;
    }
    advance(*import, workspace, random, now);
    if (import->record.status.isActive()) return;
  }
}

}  // namespace orv::demo
