#include "demo/Leads.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

HTTPAnswer history(Call& call) {
  settleLeads(call);
  LeadImportPage page;
  for (const DemoImport& import : std::as_const(call.workspace->leads.imports)) page.items.append(import.record);
  return jsonAnswer(toJSON(page));
}

/// What there is to say against a file; its header is read then.
std::optional<HTTPAnswer> refusalOf(const Call& call, const CsvImportBody& body,
                                    const std::optional<QStringList>& columns) {
  if (!columns) return invalid(u"That file has no header row"_s, u"csv"_s);
  if (body.mapping.size() != columns->size())
    return invalid(u"Say for every column what becomes of it."_s, u"mapping"_s);
  if (!body.mapping.contains(u"email"_s)) return invalid(u"Pick the email column"_s, u"mapping"_s);
  if (body.listId) {
    const DemoLeadList* list = call.workspace->findList(*body.listId);
    if (!list || list->record.archivedAt) return invalid(u"This list is no longer there"_s, u"listId"_s);
  } else if (body.listName && body.listName->trimmed().isEmpty()) {
    return invalid(u"Name the new list"_s, u"listName"_s);
  }
  return std::nullopt;
}

HTTPAnswer start(Call& call) {
  settleLeads(call);
  const auto body = call.request.bodyAs<CsvImportBody>();
  if (!body) return invalid(u"This file can’t be read."_s, u"csv"_s);
  DemoImport import;
  import.rows = CsvRows(body->csv);
  const auto columns = import.rows.next();
  if (auto refusal = refusalOf(call, *body, columns)) return *refusal;
  import.columns = *columns;
  import.mapping = body->mapping;
  import.queuedAt = call.now;
  LeadImport& record = import.record;
  record.id = call.random.id(u"im"_s);
  record.kind = u"csv"_s;
  record.status = ImportStatus(u"queued"_s);
  record.fileName = body->fileName;
  record.createdAt = call.stamp();
  record.listId = body->listId;
  if (!body->listId && body->listName)
    record.listId =
        addList(*call.workspace, call.random, body->listName->trimmed(), callerName(call), call.stamp()).id();
  call.workspace->leads.imports.prepend(import);
  return jsonAnswer(toJSON(ImportStarted{record.id, call.random.id(u"j"_s), record.listId}));
}

HTTPAnswer cancel(Call& call) {
  settleLeads(call);
  auto& imports = call.workspace->leads.imports;
  const auto import =
      std::ranges::find_if(imports, [&](const DemoImport& one) { return one.record.id == call.ids[0]; });
  if (import == imports.end()) return notFound(u"This import is no longer there"_s);
  if (!import->record.status.isActive())
    return problemAnswer(409, u"import_finished"_s, u"This import has ended already"_s);
  import->record.status = ImportStatus(u"cancelled"_s);
  import->record.finishedAt = call.stamp();
  import->rows = CsvRows({});
  return emptyAnswer();
}

}  // namespace

const QList<Route>& leadImportRoutes() {
  static const QList<Route> routes{
      {"GET", u"/lead-imports"_s, Access::readers, history},
      {"POST", u"/lead-imports/csv"_s, Access::members, start},
      {"POST", u"/lead-imports/{id}/cancel"_s, Access::members, cancel},
  };
  return routes;
}

}  // namespace orv::demo
