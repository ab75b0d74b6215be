#include "app/leads/SavedSearches.h"

#include "app/base/cellText.h"
#include "kit/models/leads/leadRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Archive<SavedSearch, Empty>::Words archiveWords() {
  // The sentence of another page: it is the service's own, word for word.
  const auto cannot = [](const QString&) { return u"Couldn’t restore the project."_s; };
  return {.removed =
              [](const QString& name) {
                return u"Deleted "_s + name + u". It waits in Archived searches, so you can restore it."_s;
              },
          .removedForGood = [](const QString& name) { return u"Deleted "_s + name + u" for good"_s; },
          .restored = [](const QString& name, const Empty&) { return u"Restored "_s + name; },
          .cannotRemove = cannot,
          .cannotRestore = [](const QString& name) { return u"Couldn’t restore "_s + name; },
          .cannotRemoveForGood = cannot};
}

}  // namespace

SavedSearches::SavedSearches(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_actions(context, m_busy,
                [this] {
                  m_list.markStale();
                  m_archived.markStale();
                }),
      m_archive(context, m_actions, {.remove = Requests::deleteSavedSearch, .restore = Requests::restoreSavedSearch},
                archiveWords()),
      m_list(*this, [this] { return api().send(Requests::savedSearches(false)); },
             {.failed = u"Couldn’t load the saved searches"_s}),
      m_archived(*this, [this] { return api().send(Requests::savedSearches(true)); },
                 {.failed = u"Couldn’t load the archived searches"_s, .loadsByItself = false, .isArchive = true}),
      m_form(
          {u"Save this search"_s, u"Name the filters on screen to reopen them later. A name that exists is replaced."_s,
           u"Name"_s, u"Save search"_s},
          context) {
  for (ResourceBase* list : {static_cast<ResourceBase*>(&m_list), static_cast<ResourceBase*>(&m_archived)})
    connect(list, &ResourceBase::changed, this, &SavedSearches::changed);
  connect(&m_busy, &BusySet::changed, this, &SavedSearches::changed);
  context.changes().watch<SavedSearch>(this, [this](const Change<SavedSearch>& change) {
    if (change.acted && m_list.isAsked()) m_list.load();
  });
  context.changes().watch<Archived<SavedSearch>>(this, [this](const Change<Archived<SavedSearch>>& change) {
    if (change.acted && m_archived.isAsked()) m_archived.load();
  });
  m_form.onSubmit = [this](const QString& name) { m_tasks.start(saveTask(name, m_values)); };
}

QList<Choice> SavedSearches::choices() const {
  QList<Choice> choices;
  if (m_list.value())
    for (const SavedSearch& saved : m_list.value()->items)
      choices.append({.key = saved.id, .label = shownName(saved.name)});
  return choices;
}

QList<Choice> SavedSearches::archivedChoices() const {
  QList<Choice> choices;
  if (!m_archived.value()) return choices;
  for (const SavedSearch& saved : m_archived.value()->items) {
    choices.append({.key = saved.id,
                    .label = shownName(saved.name),
                    .detail = u"Goes for good on "_s + shortDay(saved.archivedAt, archiveDays)});
  }
  return choices;
}

void SavedSearches::beginSave(const Values& values) {
  m_values = values;
  m_form.show();
}

bool SavedSearches::replaces(const QString& name) const {
  return m_list.value() && std::ranges::any_of(m_list.value()->items, [&name](const SavedSearch& saved) {
           return saved.name == name.trimmed();
         });
}

std::optional<SavedSearches::Values> SavedSearches::valuesOf(const QString& id) const {
  if (m_list.value())
    for (const SavedSearch& saved : m_list.value()->items)
      if (saved.id == id) return saved.search;
  return std::nullopt;
}

QString SavedSearches::nameOf(const QString& id) const {
  for (const auto* list : {m_list.value(), m_archived.value()}) {
    if (!list) continue;
    for (const SavedSearch& saved : list->items)
      if (saved.id == id) return saved.name;
  }
  return {};
}

void SavedSearches::showArchive() {
  m_archived.load();
  m_archiveForm.show();
}

Task<void> SavedSearches::saveTask(QString name, Values values) {
  auto submission = m_form.begin();
  const auto saved = co_await m_actions.send<Empty>(
      Requests::saveSearch({name, values}), u"Couldn’t save the search."_s, {}, [&submission](const APIError& error) {
        return submission.fail(u"Couldn’t save the search. "_s + error.message());
      });
  if (!saved) co_return;
  context().changes().stale<SavedSearch>();
  submission.succeed();
  services().toasts.success(u"Saved "_s + shownName(name));
}

Task<void> SavedSearches::removeTask(QString id) {
  const auto mark = m_busy.mark(id);
  if (mark) co_await m_archive.remove(id, nameOf(id));
}

Task<void> SavedSearches::restoreTask(QString id) {
  const auto mark = m_busy.mark(id);
  if (mark) co_await m_archive.restore(id, nameOf(id));
}

Task<void> SavedSearches::removeForGoodTask(QString id) {
  const auto mark = m_busy.mark(id);
  if (!mark) co_return;
  const QString name = nameOf(id);
  if (!co_await services().overlays.confirm({.title = u"Delete "_s + shownName(name) + u" for good?"_s,
                                             .text = u"This can’t be undone."_s,
                                             .confirm = u"Delete for good"_s,
                                             .destructive = true}))
    co_return;
  co_await m_archive.removeForGood(id, name);
}

}  // namespace orv
