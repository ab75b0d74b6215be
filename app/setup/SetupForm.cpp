#include "app/setup/SetupForm.h"

#include <QJsonDocument>
#include <QPointer>
#include <algorithm>

#include "app/base/EmailAddress.h"
#include "kit/api/wipe.h"
#include "kit/models/setup/setupRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr QLatin1String typedKey("typedDomains");
constexpr QLatin1String stale("This project changed since you opened it. Reload and try again.");

/// A body was made of them; nobody needs the copies.
void letGo(SetupProjectPatch& patch) { patch.password = patch.newPassword = patch.recoveryEmail = {}; }

}  // namespace

SetupForm::SetupForm(QString id, Actions& actions, Resource<SetupProject>& project, Store& whole)
    : Store(whole.context(), &whole),
      m_id(std::move(id)),
      m_actions(actions),
      m_project(project),
      m_recovery(whole.context(), hooks()) {
  m_draft.setKey(u"inboxSetup/"_s + m_id + u"/project"_s);
  connect(&project, &ResourceBase::valueChanged, this, &SetupForm::follow);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
  connect(&m_draft, &FieldDraft::changed, this, &SetupForm::changed);
  connect(&m_busy, &BusySet::changed, this, &SetupForm::changed);
  connect(this, &Store::roleChanged, this, &SetupForm::changed);
  for (SecretField* secret : secrets()) connect(secret, &SecretField::changed, this, &SetupForm::changed);
}

Recovery::Hooks SetupForm::hooks() {
  Recovery::Hooks hooks = Recovery::of(m_draft);
  hooks.isUnsaved = [this] { return m_draft.dirty() || !m_typedDomains.trimmed().isEmpty(); };
  hooks.text = [this] {
    QJsonObject kept = m_draft.journal();
    if (!m_typedDomains.isEmpty()) kept.insert(typedKey, m_typedDomains);
    return JournalText{m_draft.version(), QJsonDocument(kept).toJson(QJsonDocument::Compact)};
  };
  hooks.restore = [this, restore = hooks.restore](const Recovery::Kept& kept) {
    const auto restored = restore(kept);
    const QString typed = QJsonDocument::fromJson(kept.text.bytes).object().value(typedKey).toString();
    if (typed.isEmpty()) return restored;
    setTypedDomains(typed);
    return Recovery::Restored::shown;
  };
  hooks.discard = [this, discard = hooks.discard] {
    discard();
    setTypedDomains({});
  };
  return hooks;
}

void SetupForm::setTypedDomains(const QString& text) {
  if (std::exchange(m_typedDomains, text) == text) return;
  m_recovery.follow();
  Q_EMIT typedDomainsChanged();
}

bool SetupForm::dirty() const {
  return m_draft.dirty() || m_password.isDirty() || m_newPassword.isDirty() || m_recoveryEmail.isDirty();
}

bool SetupForm::canSave() const {
  return canWrite() && dirty() && !saving() && m_project.value() && !m_project.value()->archivedAt;
}

QString SetupForm::conflict() const {
  QStringList fields;
  for (const QString& field : m_draft.rivals().keys()) fields.append(setupFieldLabel(field));
  return rivalsTold(fields);
}

QString SetupForm::savedText() const {
  if (!m_savedAt.isValid()) return {};
  return u"Saved "_s + QLocale().toString(m_savedAt.toLocalTime().time(), u"HH:mm"_s);
}

QList<Choice> SetupForm::tags() const {
  QList<Choice> tags;
  for (const QString& tag : m_draft.typed().tags) tags.append({.key = tag, .label = tag});
  return tags;
}

void SetupForm::follow() {
  const SetupProject* project = m_project.value();
  if (!project) return;
  m_draft.rebase(setupFieldsOf(*project), project->version);
  m_recovery.begin(m_draft.key(), project->version);
  m_password.follow(project->hasPassword);
  m_newPassword.follow(project->hasNewPassword);
  m_recoveryEmail.follow(project->hasRecovery);
  // What a refusal itself has read again leaves its sentence standing: it says why nothing was saved.
  if (!std::exchange(m_readsAgain, false) && m_problem == stale) setProblem({});
  Q_EMIT changed();
}

void SetupForm::set(const QString& field, const QVariant& value) {
  if (m_draft.set(field, value)) setProblem({});
}

void SetupForm::addTags(const QStringList& texts) {
  QStringList tags = m_draft.typed().tags;
  for (const QString& text : texts) {
    const QString tag = text.trimmed();
    if (!tag.isEmpty() && !tags.contains(tag, Qt::CaseInsensitive)) tags.append(tag);
  }
  set(u"tags"_s, tags);
}

void SetupForm::removeTag(const QString& tag) {
  QStringList tags = m_draft.typed().tags;
  tags.removeOne(tag);
  set(u"tags"_s, tags);
}

void SetupForm::discard() {
  m_draft.discard();
  for (SecretField* secret : secrets()) secret->keep();
  setProblem({});
}

void SetupForm::setProblem(const QString& problem) {
  if (std::exchange(m_problem, problem) != problem) Q_EMIT changed();
}

bool SetupForm::check() {
  m_draft.setProblems(problemsIn(m_draft.typed()));
  const QString secret = m_newPassword.text(), address = m_recoveryEmail.text().trimmed();
  m_newPassword.setProblem(
      !secret.isEmpty() && secret.size() < shortestNewPassword ? u"Google needs 8 characters or more."_s : QString());
  m_recoveryEmail.setProblem(!address.isEmpty() && !isEmailAddress(address) ? u"Enter an email address."_s : QString());
  return m_draft.problems().isEmpty() &&
         std::ranges::all_of(secrets(), [](const SecretField* each) { return each->problem().isEmpty(); });
}

SetupProjectPatch SetupForm::patch(const SetupFields& base, const SetupFields& now) const {
  SetupProjectPatch patch = patchBetween(base, now);
  patch.password = m_password.change();
  patch.newPassword = m_newPassword.change();
  patch.recoveryEmail = m_recoveryEmail.change();
  if (patch.recoveryEmail.value()) patch.recoveryEmail = patch.recoveryEmail.value()->trimmed();
  return patch;
}

Task<void> SetupForm::saveTask() {
  if (!canSave()) co_return;
  setProblem({});
  if (!check()) co_return Q_EMIT refused();
  const SetupFields sent = m_draft.sending(), base = m_draft.base();
  SetupProjectPatch changes = patch(base, sent);
  // Blanks around a name, say.
  if (changes == SetupProjectPatch()) co_return discard();
  const auto mark = m_busy.mark(u"save"_s);
  const auto password = m_password.change(), newPassword = m_newPassword.change(),
             recoveryEmail = m_recoveryEmail.change();
  const auto build = [this, &changes] {
    auto request = Requests::updateSetupProject(m_id, changes, m_draft.version());
    letGo(changes);
    return request;
  };
  const auto saved = co_await m_actions.perform<SetupProject>(
      {m_id + u"/save"_s, m_id}, build, {},
      [&](const SetupProject& answer) {
        m_draft.taken(setupFieldsOf(answer), answer.version);
        m_password.taken(password);
        m_newPassword.taken(newPassword);
        m_recoveryEmail.taken(recoveryEmail);
      },
      [this](const APIError& error) {
        m_draft.failed(error);
        const bool isMute = error.is(APIError::Kind::cancelled) || error.is(APIError::Kind::unauthorized);
        if (isVersionConflict(error)) {
          setProblem(stale);
          // A list that knew of the other change before has nothing new to tell of it.
          m_readsAgain = true;
          m_project.load();
        } else if (!isMute) {
          setProblem(u"Couldn’t save. "_s + error.message());
        }
        if (!isMute) Q_EMIT refused();
        return true;
      });
  if (!saved) co_return;
  m_savedAt = services().clock.now();
  Q_EMIT changed();
}

void SetupForm::show(const std::optional<RunProblem>& problem) {
  if (!problem) return;
  setProblem(problem->sentence);
  QVariantMap problems = m_draft.problems();
  if (problem->field == "password"_L1)
    m_password.setProblem(problem->sentence);
  else if (problem->field == "newPassword"_L1)
    m_newPassword.setProblem(problem->sentence);
  else
    problems.insert(problem->field, problem->sentence);
  m_draft.setProblems(problems);
}

/// Waits for the end of a save; false when it failed.
Task<bool> SetupForm::settled() {
  const QPointer form(this);
  RecordTurns& turns = context().turns();
  const QString record = m_id;
  while (form && form->saving()) {
    const auto turn = co_await turns.next(record);
    if (!turn) co_return false;
  }
  co_return form && form->m_problem.isEmpty();
}

Task<bool> SetupForm::saveAll() {
  const QPointer form(this);
  if (saving() && !co_await settled()) co_return false;
  form->save();
  co_return co_await form->settled() && !form->dirty();
}

Task<bool> SetupForm::readyToRun() {
  if (!m_project.value() || !canWrite()) co_return false;
  // What it saves is what is to run.
  if (saving() && !co_await settled()) co_return false;
  const auto problem =
      runProblem(m_draft.typed(), m_password.willBeStored(), m_newPassword.text(), RunAskedOn::project);
  setProblem({});
  if (problem) {
    show(problem);
    co_return false;
  }
  co_return co_await saveAll();
}

QStringList SetupForm::unsavedWork() const {
  return dirty() || !m_typedDomains.trimmed().isEmpty() ? QStringList{u"An inbox setup project that is not saved"_s}
                                                        : QStringList();
}

void SetupForm::close() {
  for (SecretField* secret : secrets()) secret->wipe();
  Store::close();
}

}  // namespace orv
