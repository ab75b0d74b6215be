#include "app/inbox/AgentLessons.h"

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

struct SetterTraining;

QString lessonOrigin(const SetterLesson& lesson) {
  if (lesson.source != words::lessonFromReview) return u"You typed"_s;
  const QString from = lesson.fromName.value_or(QString());
  const QString origin = from.isEmpty() ? u"From your review"_s : u"From your review of "_s + shownName(from);
  return lesson.times > 0 ? origin + u", seen "_s + Format::counted(lesson.times, u"time"_s, u"times"_s) : origin;
}

ORV_DEFINE_ROW(AgentLessonRow)

AgentLessons::AgentLessons(WorkspaceContext& context, Store* whole)
    : Store(context, whole),
      m_list(*whole, [this] { return api().send(Requests::setterLessons()); },
             {.failed = u"Couldn’t load what your AI has learned"_s}),
      m_actions(context, m_busy, [this] { readAgain(); }),
      m_add(
          {u"Add a rule"_s, u"Style only. Prices, results and links go in the knowledge base."_s, u"Rule"_s, u"Add"_s},
          context),
      m_change({u"Change the rule"_s, {}, u"Rule"_s, u"Save"_s}, context) {
  connect(&m_list, &ResourceBase::valueChanged, this, &AgentLessons::arrange);
  connect(&m_busy, &BusySet::changed, this, &AgentLessons::arrange);
  context.changes().watch<SetterLesson>(this, [this](const Change<SetterLesson>&) { m_list.markStale(); });
  m_add.onSubmit = [this](const QString& text) { m_tasks.start(addTask(text)); };
}

const SetterLesson* AgentLessons::find(const QString& lessonId) const {
  if (!m_list.value()) return nullptr;
  const auto found = std::ranges::find(m_list.value()->items, lessonId, &SetterLesson::id);
  return found == m_list.value()->items.end() ? nullptr : &*found;
}

void AgentLessons::arrange() {
  std::vector<AgentLessonRow> rows;
  if (m_list.value())
    for (const SetterLesson& lesson : m_list.value()->items)
      rows.push_back({.id = lesson.id,
                      .text = lesson.text,
                      .origin = lessonOrigin(lesson),
                      .active = lesson.status != words::lessonOff,
                      .busy = m_busy.contains(lesson.id)});
  m_rows.update(std::move(rows));
}

void AgentLessons::beginAdd() {
  if (canWrite()) m_add.show({}, u"inbox/tab:agent/lessons/new"_s);
}

void AgentLessons::beginChange(const QString& lessonId) {
  const SetterLesson* lesson = find(lessonId);
  if (!canWrite() || !lesson) return;
  m_change.onSubmit = [this, lessonId](const QString& text) { m_tasks.start(changeTask(lessonId, text)); };
  m_change.show(lesson->text, u"inbox/tab:agent/lessons/"_s + lessonId);
}

Task<void> AgentLessons::addTask(QString text) {
  if (m_add.busy()) co_return;
  auto submission = m_add.begin();
  const auto added = co_await m_actions.send<Empty>(
      Requests::addSetterLesson({.text = text}), {}, {}, [this, &submission](const APIError& error) {
        submission.fail(services().toasts, u"Couldn’t add the rule."_s, error);
        return true;
      });
  if (!added) co_return;
  submission.succeed();
  readAgain();
}

Task<void> AgentLessons::changeTask(QString lessonId, QString text) {
  if (m_change.busy()) co_return;
  auto submission = m_change.begin();
  const auto changed = co_await m_actions.perform<Empty>(
      {lessonId, lessonId},
      [lessonId, text] { return Requests::updateSetterLesson(lessonId, {.text = text, .status = {}}); }, {}, {},
      [this, &submission](const APIError& error) {
        submission.fail(services().toasts, u"Couldn’t change the rule."_s, error);
        return true;
      });
  if (!changed) co_return;
  submission.succeed();
  readAgain();
}

Task<void> AgentLessons::setActiveTask(QString lessonId, bool active) {
  if (!canWrite()) co_return;
  const QString status = active ? words::lessonActive : words::lessonOff;
  const auto changed = co_await m_actions.perform<Empty>(
      {lessonId, lessonId},
      [lessonId, status] { return Requests::updateSetterLesson(lessonId, {.text = {}, .status = status}); },
      u"Couldn’t change the rule."_s);
  if (!changed) co_return;
  services().toasts.success(active ? u"Your AI follows that rule again"_s : u"Your AI won’t use that rule"_s);
  readAgain();
}

void AgentLessons::readAgain() {
  m_list.load();
  context().changes().stale<SetterTraining>();
}

}  // namespace orv
