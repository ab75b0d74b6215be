#pragma once

#include "app/base/Actions.h"
#include "app/base/NameForm.h"
#include "app/base/Resource.h"
#include "app/base/RowFields.h"
#include "app/base/WrittenRows.h"
#include "kit/models/inbox/setterTraining.h"

namespace orv {

struct AgentLessonRow {
  QString id;
  QString text;
  /// "From your review of Tomas Brandl, seen 4 times"
  QString origin;
  /// The agent follows it.
  bool active = true;
  bool busy = false;
  bool operator==(const AgentLessonRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(AgentLessonRow, (), (id, text, origin, active, busy))
ORV_DECLARE_ROW(AgentLessonRow)

class AgentLessonRows final : public WrittenRows<AgentLessonRow> {
 public:
  explicit AgentLessonRows(QObject* parent = nullptr) : WrittenRows({"text"}, parent) {}
};

/// What the agent has learned, and what a member tells it.
class AgentLessons final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::ResourceBase* list READ list CONSTANT)
  Q_PROPERTY(orv::ListModel* rows READ rows CONSTANT)
  Q_PROPERTY(orv::NameForm* adding READ adding CONSTANT)
  Q_PROPERTY(orv::NameForm* changing READ changing CONSTANT)

 public:
  AgentLessons(WorkspaceContext& context, Store* whole);

  Resource<SetterLessons>* list() { return &m_list; }
  AgentLessonRows* rows() { return &m_rows; }
  NameForm* adding() { return &m_add; }
  NameForm* changing() { return &m_change; }
  const SetterLesson* find(const QString& lessonId) const;

  Q_INVOKABLE void beginAdd();
  void beginChange(const QString& lessonId);
  void setActive(const QString& lessonId, bool active) { m_tasks.start(setActiveTask(lessonId, active)); }
  bool isBusy(const QString& lessonId) const { return m_busy.contains(lessonId); }

  Task<void> addTask(QString text);
  Task<void> changeTask(QString lessonId, QString text);
  Task<void> setActiveTask(QString lessonId, bool active);

 private:
  void arrange();
  /// A rule was added, changed or switched; how many there are counts as training.
  void readAgain();

  Resource<SetterLessons> m_list;
  BusySet m_busy;
  Actions m_actions;
  AgentLessonRows m_rows;
  NameForm m_add;
  NameForm m_change;
};

/// Where a rule comes from, and how often it was seen.
QString lessonOrigin(const SetterLesson& lesson);

}  // namespace orv
