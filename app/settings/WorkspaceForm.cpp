#include "app/settings/WorkspaceForm.h"

#include <limits>

#include "app/base/TimeZones.h"
#include "app/base/shownName.h"
#include "app/base/zonesLike.h"
#include "app/settings/settingsRoles.h"
#include "kit/api/Format.h"
#include "kit/api/wholeNumber.h"
#include "kit/models/workspace/workspaceRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

struct Campaign;
struct Mailbox;
namespace {

const auto savingKey = u"saving"_s, nameField = u"name"_s, zoneField = u"timeZone"_s,
           valueField = u"opportunityValue"_s;
constexpr int mostOpportunityValue = std::numeric_limits<int>::max();

WorkspaceFields fieldsOf(const WorkspaceDetail& workspace) {
  const auto value = workspace.opportunityValue;
  return {workspace.name, workspace.timeZone, value ? QString::number(*value) : QString()};
}

std::optional<qint64> valueIn(const QString& text) {
  const auto number = wholeNumber(text, 0, mostOpportunityValue);
  return number ? std::optional<qint64>(*number) : std::nullopt;
}

/// Of the fields that were changed: what the service has already is not the person's to mend.
QVariantMap problemsIn(const WorkspaceFields& typed, const WorkspaceFields& base) {
  QVariantMap problems;
  if (typed.name != base.name && typed.name.trimmed().isEmpty()) problems.insert(nameField, u"Enter a name."_s);
  if (typed.timeZone != base.timeZone && !isTimeZone(typed.timeZone.trimmed()))
    problems.insert(zoneField, u"Enter a time zone such as Europe/London."_s);
  if (typed.opportunityValue != base.opportunityValue && !valueIn(typed.opportunityValue))
    problems.insert(valueField, u"Enter a whole number of dollars."_s);
  return problems;
}

WorkspacePatch patchOf(const WorkspaceFields& typed, const WorkspaceFields& base) {
  WorkspacePatch patch;
  if (const QString name = typed.name.trimmed(); name != base.name) patch.name = name;
  if (const QString zone = typed.timeZone.trimmed(); zone != base.timeZone) patch.timeZone = zone;
  if (const auto value = valueIn(typed.opportunityValue); value != valueIn(base.opportunityValue))
    patch.opportunityValue = value;
  return patch;
}

}  // namespace

QString workspaceConflict() { return u"Someone else changed this workspace. We loaded the latest, try again."_s; }

WorkspaceForm::WorkspaceForm(Tab tab, Store& whole, Resource<WorkspaceDetail>& workspace)
    : Store(whole.context(), &whole),
      m_tab(tab),
      m_workspace(workspace),
      m_actions(whole.context(), m_busy,
                [this] {
                  m_workspace.load();
                  tellOfFigures();
                }),
      m_recovery(whole.context(), Recovery::of(m_draft)) {
  m_draft.setKey(u"settings/tab:"_s + (tab == Tab::workspace ? u"workspace"_s : u"company"_s));
  connect(&workspace, &ResourceBase::valueChanged, this, &WorkspaceForm::followRead);
  connect(&m_busy, &BusySet::changed, this, &WorkspaceForm::changed);
  connect(&m_draft, &FieldDraft::changed, this, &WorkspaceForm::changed);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(this, &Store::roleChanged, this, &WorkspaceForm::changed);
}

bool WorkspaceForm::canSave() const { return dirty() && !saving() && mayManage(context().workspace().role); }

int WorkspaceForm::mostValue() const { return mostOpportunityValue; }

QString WorkspaceForm::conflict() const {
  static const QHash<QString, QString> labels{
      {nameField, u"Workspace name"_s}, {zoneField, u"Time zone"_s}, {valueField, u"Opportunity value"_s}};
  QStringList changes;
  for (const auto& [field, value] : m_draft.rivals().asKeyValueRange())
    changes.append(labels.value(field) + u" is “"_s + shownName(value.toString()) + u'”');
  return rivalsTold(changes);
}

QList<Choice> WorkspaceForm::zones(const QString& text) const {
  if (isTimeZone(text.trimmed())) return {};
  return zonesLike(text, services().clock.now());
}

void WorkspaceForm::followRead() {
  if (const WorkspaceDetail* workspace = m_workspace.value()) follow(*workspace);
}

void WorkspaceForm::follow(const WorkspaceDetail& workspace, FieldDraft::Version madeOn) {
  m_draft.rebase(fieldsOf(workspace), workspace.version, madeOn);
  m_recovery.begin(m_draft.key(), workspace.version);
  Q_EMIT changed();
}

void WorkspaceForm::set(const QString& field, const QVariant& value) {
  if (m_draft.set(field, value)) setProblem({});
}

void WorkspaceForm::discard() {
  m_draft.discard();
  setProblem({});
}

void WorkspaceForm::setProblem(const QString& problem) {
  if (std::exchange(m_problem, problem) != problem) Q_EMIT changed();
}

bool WorkspaceForm::tell(const APIError& error) {
  m_draft.failed(error);
  const bool isMute = error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized);
  if (isMute) return true;
  setProblem(isVersionConflict(error) ? workspaceConflict() : error.message());
  if (!isSeen()) tellElsewhere();
  return true;
}

void WorkspaceForm::tellElsewhere() {
  const auto tab = m_tab == Tab::workspace ? SettingsTab::workspace : SettingsTab::company;
  services().toasts.show(
      {.message = u"Couldn’t save the settings of “"_s + shownName(context().workspace().name) + u'”',
       .tone = Toasts::Tone::error,
       .actionLabel = u"Open"_s,
       .action =
           [there = context().weak_from_this(), tab] {
             const auto open = there.lock();
             if (!open) return;
             open->open(Page::settings);
             open->services().navigator.openSettings(tab);
           },
       .detail = m_problem});
}

/// What is counted by day is another figure where days begin at other times, and what an opportunity is worth is one.
void WorkspaceForm::tellOfFigures() {
  context().changes().stale<Mailbox>();
  context().changes().stale<Campaign>();
}

Task<void> WorkspaceForm::saveTask() {
  if (!m_workspace.value() || !canSave()) co_return;
  const WorkspaceFields sent = m_draft.sending(), base = m_draft.base();
  m_draft.setProblems(problemsIn(sent, base));
  setProblem({});
  if (!m_draft.problems().isEmpty()) co_return;
  const WorkspacePatch patch = patchOf(sent, base);
  // Blanks around a name, say.
  if (patch == WorkspacePatch()) co_return discard();
  FieldDraft::Version madeOn;
  const auto saved = co_await m_actions.perform<WorkspaceDetail>(
      {savingKey, m_workspace.value()->id},
      [this, patch, &madeOn] {
        madeOn = m_draft.version();
        return Requests::updateWorkspace(patch, madeOn);
      },
      {},
      [this, &madeOn](const WorkspaceDetail& answer) {
        m_draft.taken(fieldsOf(answer), answer.version);
        onSaved(answer, madeOn);
      },
      [this](const APIError& error) { return tell(error); });
  if (!saved) co_return;
  if (patch.timeZone || patch.opportunityValue) tellOfFigures();
  const bool isValue = m_tab == Tab::company;
  services().toasts.success(isValue ? u"Each opportunity now counts as $"_s +
                                          Format::grouped(saved->opportunityValue.value_or(0))
                                    : u"Settings saved"_s);
}

QStringList WorkspaceForm::unsavedWork() const {
  if (!dirty()) return {};
  return {u"“"_s + shownName(context().workspace().name) + u"” has unsaved changes: "_s +
          (m_tab == Tab::workspace ? u"workspace."_s : u"company."_s)};
}

}  // namespace orv
