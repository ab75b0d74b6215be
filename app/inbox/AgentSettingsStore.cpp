#include "app/inbox/AgentSettingsStore.h"

#include "app/base/recordActions.h"
#include "kit/models/inbox/draft.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

AgentSettingsStore::AgentSettingsStore(WorkspaceContext& context)
    : Store(context),
      m_settings(*this, [this] { return api().send(Requests::setterSettings()); },
                 {.failed = u"Couldn’t load the agent settings"_s}),
      m_training(*this, [this] { return api().send(Requests::setterTraining()); },
                 {.failed = u"Couldn’t load the training record"_s}),
      m_form(context, this, m_settings),
      m_mode(context, this, m_settings, m_training),
      m_campaigns(context, this, m_settings),
      m_lessons(context, this) {
  connect(&m_form, &AgentForm::changed, this, &AgentSettingsStore::changed);
  context.changes().watch<SetterTraining>(this, [this](const Change<SetterTraining>&) { m_training.markStale(); });
  // Decided, or taken back: what has been learned of it comes later, the counts are others at once.
  const auto follow = [this](const auto& change) {
    if (change.acted) m_training.markStale();
  };
  context.changes().watch<Draft>(this, follow);
  context.changes().watch<SetterLesson>(this, follow);
}

QList<Choice> AgentSettingsStore::sections() const {
  const QStringList dirty = m_form.dirtySections();
  QList<Choice> sections{{.key = u"mode"_s, .label = u"Mode"_s},
                         {.key = u"campaigns"_s, .label = u"Campaigns"_s},
                         {.key = u"rep"_s, .label = u"The rep"_s},
                         {.key = u"knowledge"_s, .label = u"Knowledge base"_s},
                         {.key = u"instructions"_s, .label = u"Instructions and training"_s},
                         {.key = u"booking"_s, .label = u"Booking link"_s},
                         {.key = u"followups"_s, .label = u"Follow-ups"_s}};
  for (Choice& section : sections) section.ticked = dirty.contains(section.key);
  return sections;
}

QString AgentSettingsStore::warning() const {
  if (!m_settings.value() || m_settings.value()->hasOpenAiKey) return {};
  return u"No OpenAI key. The agent labels replies with rules only until an Orvella admin adds the AI key in Orvella "
         u"Admin, AI keys."_s;
}

QList<PageAction> AgentSettingsStore::offered(const QString& record) {
  if (record.isEmpty())
    return QList<PageAction>{
               newAction(u"Add a rule"_s, u"Only members can add rules."_s, [this] { m_lessons.beginAdd(); })} +
           Store::offered(record);
  const SetterLesson* lesson = m_lessons.find(record);
  if (!lesson) return {};
  const bool isFree = !m_lessons.isBusy(record), isActive = lesson->status != words::lessonOff;
  return {{.key = u"change"_s,
           .title = u"Change the rule"_s,
           .icon = u"document-edit"_s,
           .writes = true,
           .possible = isFree,
           .run = [this, record] { m_lessons.beginChange(record); }},
          {.key = isActive ? u"off"_s : u"on"_s,
           .title = isActive ? u"Switch the rule off"_s : u"Switch the rule on"_s,
           .icon = isActive ? u"media-playback-pause"_s : u"media-playback-start"_s,
           .writes = true,
           .possible = isFree,
           .run = [this, record, isActive] { m_lessons.setActive(record, !isActive); }}};
}

}  // namespace orv
