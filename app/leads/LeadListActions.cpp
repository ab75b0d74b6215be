#include "app/leads/LeadListActions.h"

#include "app/base/recordActions.h"
#include "app/leads/LeadWords.h"
#include "kit/models/leads/leadIds.h"
#include "kit/models/leads/leadListRequests.h"
#include "kit/models/leads/listAdding.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Archive<LeadList, Empty>::Words archiveWords() {
  return {.removed = [](const QString& name) { return u"Deleted "_s + name + u". It’s in Archived."_s; },
          .removedForGood = [](const QString& name) { return u"Deleted "_s + name + u" for good"_s; },
          .restored = [](const QString& name, const Empty&) { return u"Restored "_s + name; },
          .cannotRemove = [](const QString& name) { return u"Couldn’t delete "_s + name; },
          .cannotRestore = [](const QString& name) { return u"Couldn’t restore "_s + name; }};
}

QString leadsStay(const LeadList& list) {
  return u"Its "_s + LeadWords::counted(list.leadCount) +
         (list.leadCount == 1 ? u" stays in the database."_s : u" stay in the database."_s);
}

ConfirmRequest removeQuestion(const LeadList& list) {
  return {.title = u"Delete "_s + shownName(list.name) + u'?',
          .text = u"It goes to Archived for 30 days, then goes for good. "_s + leadsStay(list),
          .confirm = u"Delete list"_s,
          .destructive = true};
}

ConfirmRequest forGoodQuestion(const LeadList& list) {
  return {.title = u"Delete "_s + shownName(list.name) + u" for good?"_s,
          .text = leadsStay(list) + u" This can’t be undone."_s,
          .confirm = u"Delete for good"_s,
          .destructive = true};
}

/// Takes back that leads were removed.
Task<void> putBack(std::shared_ptr<WorkspaceContext> context, LeadList list, QStringList ids) {
  BusySet busy;
  Actions actions(*context, busy, [&context, &list] { listFilled(*context, list.id); });
  const QString name = shownName(list.name);
  const auto added = co_await actions.change(list.id, Requests::addToLeadList(list.id, {.leadIds = ids}),
                                             u"Couldn’t add them back to "_s + name);
  if (!added) co_return;
  context->services().toasts.success(LeadWords::counted(ids.size()) + u" back in "_s + name);
  listFilled(*context, list.id);
}

}  // namespace

void listFilled(WorkspaceContext& context, const QString& listId) {
  context.changes().stale<LeadList>(listId);
  context.changes().stale<ListedLeads>(listId);
}

LeadListActions::LeadListActions(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_actions(context, m_busy, [&context] { context.changes().stale<LeadList>(); }),
      m_archive(context, m_actions, {Requests::deleteLeadList, Requests::restoreLeadList}, archiveWords()),
      m_form(context),
      m_export(context, *this) {
  connect(&m_busy, &BusySet::changed, this, &LeadListActions::busyChanged);
  connect(&m_form, &LeadListForm::submitted, this, &LeadListActions::submit);
}

void LeadListActions::beginCreate() {
  if (canWrite()) m_form.showNew();
}

void LeadListActions::beginEdit(const LeadList& list) {
  if (canWrite() && !m_busy.contains(list.id)) m_form.showList(list);
}

void LeadListActions::submit() {
  const LeadList* edited = m_form.edited();
  m_tasks.start(edited ? editTask(*edited) : createTask());
}

Task<void> LeadListActions::createTask() {
  const LeadListFields typed = m_form.typed();
  auto submission = m_form.begin();
  ListAddBody body{.name = typed.name};
  if (!typed.description.isEmpty()) body.description = typed.description;
  const Stamp asked = context().changes().stamp();
  const auto created = co_await m_actions.send<ListCreated>(
      Requests::createLeadList(body), u"Couldn’t create "_s + shownName(typed.name), {},
      [&submission](const APIError& e) { return submission.fail(e.message()); });
  if (!created) co_return;
  context().changes().publish(created->list, asked, true);
  services().toasts.success(shownName(created->list.name) + u" created"_s);
  submission.succeed();
}

Task<void> LeadListActions::editTask(LeadList list) {
  const LeadListFields typed = m_form.typed();
  ListPatch patch;
  if (typed.name != list.name) patch.name = typed.name;
  if (typed.description != list.description.value_or(QString())) patch.description = typed.description;
  if (patch == ListPatch{}) co_return m_form.cancel();
  auto submission = m_form.begin();
  const auto saved = co_await m_actions.perform<LeadList>(
      {list.id, list.id}, [id = list.id, patch] { return Requests::updateLeadList(id, patch); },
      u"Couldn’t rename "_s + shownName(list.name), {},
      [&submission](const APIError& error) { return submission.fail(error.message()); });
  if (!saved) co_return;
  // Lists have no versions: a reading that was sent meanwhile would pass for newer than what the person has just done.
  context().changes().publish(*saved, context().changes().stamp(), true);
  submission.succeed();
  tellSaved(list, *saved);
}

void LeadListActions::tellSaved(const LeadList& before, const LeadList& now) {
  const QString old = shownName(before.name), name = shownName(now.name);
  services().toasts.success(before.name == now.name ? u"Saved the description of "_s + name
                                                    : u"Renamed "_s + old + u" to "_s + name);
}

Task<void> LeadListActions::removeTask(LeadList list) {
  if (!canWrite()) co_return;
  const auto mark = m_busy.mark(list.id);
  if (!mark || !co_await services().overlays.confirm(removeQuestion(list))) co_return;
  co_await m_archive.remove(list.id, list.name);
}

Task<void> LeadListActions::restoreTask(LeadList list) {
  if (!canWrite()) co_return;
  if (const auto mark = m_busy.mark(list.id)) co_await m_archive.restore(list.id, list.name);
}

Task<void> LeadListActions::removeForGoodTask(LeadList list) {
  if (!canWrite()) co_return;
  const auto mark = m_busy.mark(list.id);
  if (!mark || !co_await services().overlays.confirm(forGoodQuestion(list))) co_return;
  co_await m_archive.removeForGood(list.id, list.name);
}

Task<void> LeadListActions::removeLeadsTask(LeadList list, QStringList ids) {
  if (ids.isEmpty() || !canWrite()) co_return;
  const QString name = shownName(list.name);
  const auto removed = co_await m_actions.perform(list.id, Requests::removeFromLeadList(list.id, {QList<QString>(ids)}),
                                                  u"Couldn’t remove them from "_s + name);
  if (!removed) co_return;
  Q_EMIT leadsRemoved(list.id, ids);
  listFilled(context(), list.id);
  services().toasts.show(
      {.message = u"Removed "_s + LeadWords::counted(removed->removed) + u" from "_s + name,
       .tone = Toasts::Tone::success,
       .actionLabel = u"Undo"_s,
       .action = undo(context(), [list, ids](auto workspace) { return putBack(std::move(workspace), list, ids); }),
       .accumulates = true});
}

QList<PageAction> LeadListActions::offeredFor(const LeadList& list) {
  const bool isFree = !m_busy.contains(list.id);
  if (list.archivedAt)
    return archivedActions(
        isFree, [this, list] { restore(list); }, [this, list] { removeForGood(list); }, list.name);
  return {{.key = u"rename"_s,
           .title = u"Rename list"_s,
           .icon = u"document-edit"_s,
           .keys = u"F2"_s,
           .writes = true,
           .possible = isFree,
           .run = [this, list] { beginEdit(list); }},
          {.key = u"export"_s,
           .title = u"Export CSV"_s,
           .icon = u"document-export"_s,
           .possible = list.leadCount > 0,
           .run = [this, list] { m_export.open(list, {}); }},
          {.key = u"delete"_s,
           .title = u"Delete list"_s,
           .icon = u"edit-delete"_s,
           .keys = u"Del"_s,
           .writes = true,
           .danger = true,
           .possible = isFree,
           .run = [this, list] { remove(list); }}};
}

}  // namespace orv
