#include "app/rampup/RoadmapTemplates.h"

#include "app/base/cellText.h"
#include "app/base/recordActions.h"
#include "app/base/shownName.h"
#include "app/rampup/RampupRows.h"
#include "app/rampup/RampupWords.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/mailboxes/mailbox.h"
#include "kit/models/mailboxes/mailboxBrand.h"
#include "kit/models/rampup/rampupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(TemplateRow)

namespace {

/// A name must stay under it.
constexpr qsizetype nameUnder = 80;

TemplateRow rowOf(const RoadmapTemplate& known) {
  QList<StagePart> bars;
  QStringList stages;
  for (const RoadmapStage& stage : known.stages) {
    bars.append({.days = int(stage.days)});
    stages.append(shownName(stage.name) + u", "_s + Format::counted(stage.days, u"day"_s, u"days"_s));
  }
  QStringList facts;
  if (known.isDefault) facts.append(u"New accounts start on it"_s);
  if (known.provider) facts.append(brandName(brandOf(*known.provider)));
  return {.id = known.id,
          .name = RampupWords::templateName(known.name),
          .facts = facts.join(u" · "_s),
          .lengthText = Format::counted(known.length, u"day"_s, u"days"_s),
          .stages = bars,
          .stagesText = stages.join(u" · "_s),
          .updatedText = shortDay(known.updatedAt),
          .archivedText = shortDay(known.archivedAt),
          .goneText = shortDay(known.archivedAt, archiveDays),
          .isDefault = known.isDefault};
}

Archive<RoadmapTemplate>::Words archiveWords() {
  return {
      .removed = [](const QString& name) { return u"Archived “"_s + name + u"”. Its accounts keep their roadmaps."_s; },
      .removedForGood = [](const QString& name) { return u"Deleted "_s + name; },
      .restored = [](const QString&, const RoadmapTemplate&) { return u"Restored"_s; },
      .cannotRemove = [](const QString&) { return u"Couldn’t archive the template."_s; },
      .cannotRestore = [](const QString&) { return u"Couldn’t restore the template."_s; },
      .cannotRemoveForGood = [](const QString&) { return u"Couldn’t delete the template."_s; }};
}

ConfirmRequest forGoodQuestion(const RoadmapTemplate& known) {
  return {.title = u"Delete "_s + RampupWords::templateName(known.name) + u" for good?"_s,
          .text = u"Its accounts keep their roadmaps. This can’t be undone."_s,
          .confirm = u"Delete for good"_s,
          .destructive = true};
}

}  // namespace

RoadmapTemplates::RoadmapTemplates(WorkspaceContext& context, Store& whole, RoadmapEditor& editor)
    : Store(context, &whole),
      m_editor(editor),
      m_actions(context, m_busy, [this] { Store::refresh(); }),
      m_archive(context, m_actions, {.remove = Requests::deleteTemplate, .restore = Requests::restoreTemplate},
                archiveWords()),
      m_list(*this, [this] { return api().send(Requests::listTemplates(false)); },
             {.failed = u"Couldn’t load the templates"_s}),
      m_archived(*this, [this] { return api().send(Requests::listTemplates(true)); },
                 {.failed = u"Couldn’t load the archive"_s, .loadsByItself = false, .isArchive = true}),
      m_new({u"New template"_s,
             u"It starts as a copy of the Google schedule. Change the schedule and add accounts on the next screen."_s,
             u"Name"_s, u"Create template"_s},
            context),
      m_rename({u"Rename template"_s, u"Under 80 characters"_s, u"Name"_s, u"Rename"_s}, context) {
  connect(&m_list, &ResourceBase::valueChanged, this, &RoadmapTemplates::show);
  connect(&m_archived, &ResourceBase::valueChanged, this, &RoadmapTemplates::show);
  connect(&m_list, &ResourceBase::changed, this, &RoadmapTemplates::changed);
  connect(&m_archived, &ResourceBase::changed, this, &RoadmapTemplates::changed);
  connect(&m_busy, &BusySet::changed, this, &RoadmapTemplates::changed);
  connect(this, &Store::roleChanged, this, &RoadmapTemplates::changed);
  context.changes().watch<RoadmapTemplate>(this, [this](const auto& change) { take(change); });
  context.changes().watch<Archived<RoadmapTemplate>>(this, [this](const auto& change) { takeArchived(change); });
  m_new.onSubmit = [this](const QString& name) { m_tasks.start(createTask(name)); };
  m_rename.onSubmit = [this](const QString& name) { m_tasks.start(renameTask(m_renamed.id, name)); };
}

void RoadmapTemplates::take(const Change<RoadmapTemplate>& change) {
  using Kind = Change<RoadmapTemplate>::Kind;
  const auto isIt = [&change](const RoadmapTemplate& item) { return item.id == change.id; };
  if (change.kind == Kind::stale || !m_list.value()) return m_list.markStale();
  const bool isKnown = std::ranges::any_of(m_list.value()->items, isIt);
  if (change.kind == Kind::gone)
    m_list.update([&isIt](TemplatePage& page) {
      if (page.items.removeIf(isIt) > 0 && page.archivedCount) ++*page.archivedCount;
    });
  else if (isKnown)
    m_list.update([&](TemplatePage& page) { *std::ranges::find_if(page.items, isIt) = *change.record; });
  else if (change.acted) {
    // Where it stands only the service knows.
    m_list.amend([&change](TemplatePage& page) { page.items.append(*change.record); });
    m_list.markStale();
  }
}

void RoadmapTemplates::takeArchived(const Change<Archived<RoadmapTemplate>>& change) {
  if (change.kind != Change<Archived<RoadmapTemplate>>::Kind::gone) return m_archived.markStale();
  m_archived.update([&change](TemplatePage& page) {
    page.items.removeIf([&change](const RoadmapTemplate& item) { return item.id == change.id; });
  });
  m_list.amend([](TemplatePage& page) {
    if (page.archivedCount && *page.archivedCount > 0) --*page.archivedCount;
  });
}

void RoadmapTemplates::show() {
  const auto rows = [](const Resource<TemplatePage>& from) {
    std::vector<TemplateRow> all;
    if (from.value())
      for (const RoadmapTemplate& known : from.value()->items) all.push_back(rowOf(known));
    return all;
  };
  m_rows.update(rows(m_list));
  m_archivedRows.update(rows(m_archived));
  Q_EMIT changed();
}

void RoadmapTemplates::setShowArchived(bool shown) {
  if (std::exchange(m_showArchived, shown) == shown) return;
  if (shown) m_archived.ensureLoaded();
  Q_EMIT changed();
  Q_EMIT moved();
}

int RoadmapTemplates::archivedCount() const {
  return m_list.value() && m_list.value()->archivedCount ? saturated(*m_list.value()->archivedCount) : -1;
}

int RoadmapTemplates::count() const { return m_list.value() ? int(m_list.value()->items.size()) : -1; }

QString RoadmapTemplates::countText() const {
  const bool isThere = m_showArchived ? m_archived.value() != nullptr : m_list.value() != nullptr;
  if (!isThere) return {};
  if (m_showArchived) return Format::counted(m_archivedRows.count(), u"archived template"_s, u"archived templates"_s);
  return Format::counted(m_rows.count(), u"template"_s, u"templates"_s);
}

QString RoadmapTemplates::createHint() const {
  return canWrite() ? QString() : u"Only members can create templates."_s;
}

const RoadmapTemplate* RoadmapTemplates::find(const QString& id) const {
  for (const auto* list : {&m_list, &m_archived}) {
    if (!list->value()) continue;
    const auto found = std::ranges::find(list->value()->items, id, &RoadmapTemplate::id);
    if (found != list->value()->items.cend()) return &*found;
  }
  return nullptr;
}

/// What a new template is a copy of.
QList<RoadmapStage> RoadmapTemplates::googleStages() const {
  if (!m_list.value() || m_list.value()->items.isEmpty()) return {};
  const auto& items = m_list.value()->items;
  const auto google = std::ranges::find_if(items, [](const auto& item) { return item.provider == u"google"_s; });
  if (google != items.cend()) return google->stages;
  const auto standard = std::ranges::find_if(items, &RoadmapTemplate::isDefault);
  return standard != items.cend() ? standard->stages : items.first().stages;
}

void RoadmapTemplates::beginCreate() {
  if (!canWrite()) return;
  m_list.ensureLoaded();
  m_new.show({}, u"rampup/tab:templates/new"_s);
}

void RoadmapTemplates::beginRename(const QString& id) {
  const RoadmapTemplate* known = find(id);
  if (!known || !canWrite() || m_busy.contains(id)) return;
  m_renamed = *known;
  m_rename.show(known->name, u"rampup/tab:templates/"_s + id + u"/name"_s, known->version);
}

Task<void> RoadmapTemplates::createTask(QString name) {
  auto submission = m_new.begin();
  if (name.size() >= nameUnder) {
    submission.fail(u"Under 80 characters"_s);
    co_return;
  }
  if (!m_list.value()) {
    m_list.ensureLoaded();
    submission.fail(u"The Google schedule isn’t loaded yet. Try again in a moment."_s);
    co_return;
  }
  const auto made =
      co_await m_actions.send(Requests::createTemplate({name, {}, googleStages()}), u"Couldn’t create the template."_s,
                              {}, [&submission](const APIError& error) { return submission.fail(error.message()); });
  if (!made) co_return;
  if (!submission.succeed()) {
    services().toasts.success(u"Created “"_s + RampupWords::templateName(made->name) + u'”');
    co_return;
  }
  // The next screen: its schedule, and then who is to follow it.
  edit(made->id);
  m_fresh = made->id;
}

Task<void> RoadmapTemplates::renameTask(QString id, QString name) {
  auto submission = m_rename.begin();
  if (name.size() >= nameUnder) {
    submission.fail(u"Under 80 characters"_s);
    co_return;
  }
  if (name == m_renamed.name) co_return m_rename.cancel();
  TemplatePatch patch;
  patch.name = name;
  const auto build = [id, patch, version = m_renamed.version] { return Requests::updateTemplate(id, patch, version); };
  const auto sentence = [](const APIError& error) {
    return isVersionConflict(error) ? u"This template changed since you opened it. Close and try again."_s
                                    : error.message();
  };
  if (!co_await m_actions.perform<RoadmapTemplate>(
          {id, id}, build, u"Couldn’t rename the template."_s, {},
          [&](const APIError& error) { return submission.fail(sentence(error)); }))
    co_return;
  submission.succeed();
  services().toasts.success(u"Template renamed"_s);
  // Accounts are shown under their template's name.
  context().changes().stale<RampupAccount>();
}

void RoadmapTemplates::edit(const QString& id) {
  const RoadmapTemplate* known = find(id);
  if (!known || m_busy.contains(id)) return;
  if (!canWrite()) return (void)services().toasts.show({.message = u"Only members can edit schedules."_s});
  m_fresh.clear();
  m_editor.open({.title = u"Edit schedule"_s,
                 .about = RampupWords::templateName(known->name) + u" · Accounts on it update from today."_s,
                 .submitLabel = u"Save schedule"_s,
                 .thing = u"template"_s,
                 .key = u"rampup/tab:templates/"_s + id + u"/stages"_s,
                 .stages = known->stages,
                 .version = known->version,
                 .from = services().clock.now().toLocalTime().date(),
                 .submit = [this, id](const QList<RoadmapStage>& stages) { m_tasks.start(editTask(id, stages)); }});
}

Task<void> RoadmapTemplates::editTask(QString id, QList<RoadmapStage> stages) {
  auto submission = m_editor.begin();
  TemplatePatch patch;
  patch.stages = stages;
  const auto build = [id, patch, version = m_editor.version()] { return Requests::updateTemplate(id, patch, version); };
  if (!co_await m_actions.perform<RoadmapTemplate>(
          {id, id}, build, u"Couldn’t save the schedule."_s, {},
          [&](const APIError& error) { return submission.fail(m_editor.sentenceOf(error)); }))
    co_return;
  const bool isShown = submission.succeed();
  services().toasts.success(u"Schedule saved. Accounts on it update from today."_s);
  const RoadmapTemplate* saved = find(id);
  if (isShown && saved && std::exchange(m_fresh, {}) == id && onAddAccounts) onAddAccounts(*saved);
  context().changes().stale<Mailbox>();
}

Task<void> RoadmapTemplates::removeTask(QString id) {
  const RoadmapTemplate* known = find(id);
  if (!known || !canWrite()) co_return;
  const QString name = RampupWords::templateName(known->name);
  if (const auto mark = m_busy.mark(id)) co_await m_archive.remove(id, name);
}

Task<void> RoadmapTemplates::restoreTask(QString id) {
  const RoadmapTemplate* known = find(id);
  if (!known || !canWrite()) co_return;
  const QString name = RampupWords::templateName(known->name);
  if (const auto mark = m_busy.mark(id)) co_await m_archive.restore(id, name);
}

Task<void> RoadmapTemplates::removeForGoodTask(QString id) {
  const RoadmapTemplate* known = find(id);
  if (!known || !canWrite() || m_busy.contains(id)) co_return;
  const QString name = RampupWords::templateName(known->name);
  if (!co_await services().overlays.confirm(forGoodQuestion(*known))) co_return;
  if (const auto mark = m_busy.mark(id)) co_await m_archive.removeForGood(id, name);
}

QList<PageAction> RoadmapTemplates::offeredLive(const RoadmapTemplate& known) {
  const QString id = known.id;
  const bool isFree = !m_busy.contains(id);
  return {{.key = u"edit"_s,
           .title = u"Edit schedule"_s,
           .icon = u"document-edit"_s,
           .writes = true,
           .possible = isFree,
           .run = [this, id] { edit(id); }},
          {.key = u"rename"_s,
           .title = u"Rename"_s,
           .icon = u"document-edit"_s,
           .keys = u"F2"_s,
           .writes = true,
           .possible = isFree,
           .run = [this, id] { beginRename(id); }},
          {.key = u"add"_s,
           .title = u"Add accounts"_s,
           .icon = u"list-add"_s,
           .writes = true,
           .possible = isFree,
           .run =
               [this, id] {
                 const RoadmapTemplate* now = find(id);
                 if (now && onAddAccounts) onAddAccounts(*now);
               }},
          {.key = u"archive"_s,
           .title = u"Archive"_s,
           .icon = u"archive-insert"_s,
           .keys = u"Del"_s,
           .writes = true,
           .danger = true,
           .possible = isFree,
           .run = [this, id] { remove(id); }}};
}

QList<PageAction> RoadmapTemplates::offered(const QString& record) {
  const RoadmapTemplate* known = find(record);
  if (!known) return {};
  if (!known->archivedAt) return offeredLive(*known);
  return archivedActions(
      !m_busy.contains(record), [this, record] { restore(record); }, [this, record] { removeForGood(record); });
}

}  // namespace orv
