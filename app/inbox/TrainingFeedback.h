#pragma once

#include <map>

#include "app/base/Actions.h"
#include "app/base/Poll.h"
#include "app/base/Store.h"
#include "kit/models/inbox/draftReview.h"

namespace orv {

/// What the agent makes of decisions: asked of each until it has made it, shown of the last.
class TrainingFeedback final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool shown READ shown NOTIFY changed)
  Q_PROPERTY(bool training READ training NOTIFY changed)
  Q_PROPERTY(bool learned READ learned NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(QString detail READ detail NOTIFY changed)
  Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)

 public:
  static constexpr PollPace pace{std::chrono::seconds(2), 30};

  TrainingFeedback(WorkspaceContext& context, Store* whole);

  bool shown() const { return m_teach.has_value(); }
  /// Nothing has come of it yet.
  bool training() const { return m_teach && !m_taught && !m_ended; }
  bool learned() const { return m_taught && m_taught->lesson; }
  QString text() const;
  QString detail() const;
  /// A rule came of it that the agent did not have before.
  bool canUndo() const;

  /// A decision about the draft has been taken.
  void follow(const QString& draftId, bool asWritten);
  /// The decision was taken back; where the person did so, what it taught goes with it.
  void takeBack(const QString& draftId, bool withItsRule);
  /// The agent is not to follow the rule that it has just learned.
  Q_INVOKABLE void undo();

  void close() override;

 Q_SIGNALS:
  void changed();
  /// The agent has made what it makes of it.
  void taught(const orv::DraftTraining& training);

 private:
  struct Teach {
    QString id;
    bool asWritten = false;
  };

  Task<void> followTask(QString draftId);
  Task<bool> askTask(QString draftId, std::optional<DraftTraining>* taught);
  bool isShown(const QString& draftId) const { return m_teach && m_teach->id == draftId; }
  Task<void> switchOffTask(QString lessonId);

  std::optional<Teach> m_teach;
  std::optional<DraftTraining> m_taught;
  /// Nobody asks any more.
  bool m_ended = false;
  /// Rules that decisions have taught, by their drafts.
  QHash<QString, QString> m_lessons;
  BusySet m_busy;
  Actions m_actions;
  /// By the draft.
  std::map<QString, TaskSlot> m_following;
};

}  // namespace orv
