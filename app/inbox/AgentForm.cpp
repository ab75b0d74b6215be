#include "app/inbox/AgentForm.h"

#include "kit/api/Format.h"
#include "kit/models/inbox/setterRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

AgentForm::AgentForm(WorkspaceContext& context, Store* whole, Resource<SetterSettings>& settings)
    : Store(context, whole),
      m_whole(*whole),
      m_settings(settings),
      m_actions(context, m_busy, [this] { m_settings.load(); }),
      m_recovery(context, Recovery::of(m_draft)) {
  m_draft.setKey(u"inbox/tab:agent/settings"_s);
  connect(&settings, &ResourceBase::valueChanged, this, &AgentForm::follow);
  connect(&m_busy, &BusySet::changed, this, &AgentForm::changed);
  connect(&m_draft, &FieldDraft::changed, this, &AgentForm::changed);
  connect(&m_draft, &FieldDraft::changed, &m_recovery, &Recovery::follow);
}

void AgentForm::follow() {
  const SetterSettings* settings = m_settings.value();
  if (!settings) return;
  m_draft.rebase(agentFields(*settings), settings->version);
  m_recovery.begin(m_draft.key(), settings->version);
  // A save that was given up for lost may have come through.
  if (!m_draft.dirty()) m_problem.clear();
  Q_EMIT changed();
}

QString AgentForm::conflict() const {
  QStringList fields;
  for (const QString& field : m_draft.rivals().keys()) fields.append(agentFieldLabel(field));
  return rivalsTold(fields);
}

QString AgentForm::knowledgeHelp() const {
  return Format::grouped(m_draft.typed().knowledgeBase.size()) +
         u" characters. Empty means no company claims at all."_s;
}

QList<Choice> AgentForm::tones() const { return toneChoices(m_draft.base().tone); }

QStringList AgentForm::dirtySections() const {
  QStringList sections;
  for (const QString& field : m_draft.values().keys())
    if (m_draft.isDirty(field) && !sections.contains(agentSectionOf(field))) sections.append(agentSectionOf(field));
  return sections;
}

void AgentForm::set(const QString& field, const QVariant& value) {
  if (m_draft.set(field, value)) setProblem({});
}

void AgentForm::discard() {
  m_draft.discard();
  setProblem({});
}

void AgentForm::setProblem(const QString& problem) {
  if (std::exchange(m_problem, problem) != problem) Q_EMIT changed();
}

Task<void> AgentForm::saveTask() {
  if (!m_settings.value() || !canSave()) co_return;
  const AgentFields sent = m_draft.sending(), base = m_draft.base();
  m_draft.setProblems(problemsIn(sent, base));
  setProblem({});
  if (!m_draft.problems().isEmpty()) co_return;
  const SetterSettings loaded = *m_settings.value();
  const SetterSettingsPatch patch = patchBetween(settingsOf(base, loaded), settingsOf(sent, loaded));
  // Blanks around a name, say.
  if (patch == SetterSettingsPatch()) co_return discard();
  const auto saved = co_await m_actions.perform<SetterSettings>(
      {u"saving"_s, agentTurn}, [this, patch] { return Requests::updateSetterSettings(patch, m_draft.version()); },
      u"Couldn’t save the agent settings"_s,
      [this](const SetterSettings& answer) { m_draft.taken(agentFields(answer), answer.version); },
      [this](const APIError& error) {
        m_draft.failed(error);
        if (!error.is(APIError::Kind::cancelled) && !error.is(APIError::Kind::unauthorized))
          setProblem(error.message());
        // Whoever has left the section does not see it there.
        return m_whole.isShown();
      });
  if (!saved) co_return;
  m_settings.update([&saved](SetterSettings& settings) { settings = *saved; });
  services().toasts.success(u"Settings saved"_s);
}

QStringList AgentForm::unsavedWork() const {
  return m_draft.dirty() ? QStringList{u"Reply agent settings that are not saved"_s} : QStringList();
}

}  // namespace orv
