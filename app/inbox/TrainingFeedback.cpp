#include "app/inbox/TrainingFeedback.h"

#include "app/inbox/DraftTexts.h"
#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"
#include "kit/models/inbox/setterTraining.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

TrainingFeedback::TrainingFeedback(WorkspaceContext& context, Store* whole)
    : Store(context, whole), m_actions(context, m_busy, [] {}) {
  connect(&m_busy, &BusySet::changed, this, &TrainingFeedback::changed);
}

QString TrainingFeedback::text() const {
  if (!m_teach) return {};
  if (m_taught) return trainingText(*m_taught, m_teach->asWritten);
  return m_ended ? u"Your AI is still learning from this one."_s : u"Training your AI…"_s;
}

QString TrainingFeedback::detail() const { return m_taught ? refreshedText(*m_taught) : QString(); }

bool TrainingFeedback::canUndo() const {
  return canWrite() && m_taught && isNewLesson(*m_taught) && !m_busy.contains(m_taught->lesson->id);
}

void TrainingFeedback::follow(const QString& draftId, bool asWritten) {
  m_teach = Teach{draftId, asWritten};
  m_taught.reset();
  m_ended = false;
  std::erase_if(m_following, [](const auto& each) { return each.second.isIdle(); });
  m_following[draftId].start(followTask(draftId));
  Q_EMIT changed();
}

Task<void> TrainingFeedback::followTask(QString draftId) {
  std::optional<DraftTraining> answer;
  const bool ended =
      co_await poll(services().clock, pace, [this, draftId, &answer] { return askTask(draftId, &answer); });
  if (isShown(draftId)) {
    m_taught = answer;
    m_ended = !ended;
    // Refused: there is nothing to say of it.
    if (ended && !answer) m_teach.reset();
  }
  // Counts and rules are others by now, whatever was heard of it.
  context().changes().stale<SetterTraining>();
  if (answer && answer->lesson) context().changes().stale<SetterLesson>();
  Q_EMIT changed();
  if (answer) Q_EMIT taught(DraftTraining(*answer));
}

Task<bool> TrainingFeedback::askTask(QString draftId, std::optional<DraftTraining>* taught) {
  std::optional<APIError> failed;
  const auto answer =
      co_await m_actions.send(Requests::draftTraining(draftId), {}, {}, [&failed](const APIError& error) {
        failed = error;
        return true;
      });
  // One that was not answered is asked again; one that the service refuses has nothing to say.
  if (!answer) co_return failed && failed->is(APIError::Kind::problem);
  if (!answer->done) co_return false;
  *taught = *answer;
  if (isNewLesson(*answer)) m_lessons.insert(draftId, answer->lesson->id);
  co_return true;
}

void TrainingFeedback::takeBack(const QString& draftId, bool withItsRule) {
  const QString lesson = m_lessons.take(draftId);
  if (const auto followed = m_following.find(draftId); followed != m_following.end()) followed->second.cancel();
  if (isShown(draftId)) {
    m_teach.reset();
    m_taught.reset();
    Q_EMIT changed();
  }
  if (withItsRule && !lesson.isEmpty()) m_tasks.start(switchOffTask(lesson));
}

void TrainingFeedback::close() {
  for (auto& [id, follow] : m_following) follow.cancel();
  Store::close();
}

void TrainingFeedback::undo() {
  if (canUndo()) m_tasks.start(switchOffTask(m_taught->lesson->id));
}

Task<void> TrainingFeedback::switchOffTask(QString lessonId) {
  const auto build = [lessonId] {
    return Requests::updateSetterLesson(lessonId, {.text = {}, .status = QString(words::lessonOff)});
  };
  const auto done = co_await m_actions.perform<Empty>({lessonId, lessonId}, build, u"Couldn’t undo that."_s);
  if (!done) co_return;
  m_lessons.removeIf([&](const auto& known) { return known.value() == lessonId; });
  if (m_taught && m_taught->lesson && m_taught->lesson->id == lessonId) {
    m_teach.reset();
    m_taught.reset();
    Q_EMIT changed();
  }
  context().changes().stale<SetterLesson>();
  services().toasts.success(u"Undone. Your AI won’t use that rule."_s);
}

}  // namespace orv
