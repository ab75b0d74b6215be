#pragma once

#include <QAbstractListModel>
#include <QUuid>
#include <functional>
#include <map>
#include <memory>

#include "kit/api/APIError.h"
#include "kit/async/Clock.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// Short transient messages, oldest first, three at most.
class Toasts final : public QAbstractListModel {
  Q_OBJECT
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  enum class Tone { standard, success, error };
  Q_ENUM(Tone)

  struct Message {
    QString message;
    Tone tone = Tone::standard;
    /// Empty for a toast without an action.
    QString actionLabel = {};
    /// Runs on the main thread. Must not keep a store alive, nor trust one to be alive.
    std::function<void()> action = {};
    /// A second, quieter line.
    QString detail = {};
    /// The action of a toast with the same message, which this one takes the place of, is not lost: this one's does
    /// both.
    bool accumulates = false;
    /// Without it the action would do nothing: it is no longer offered once this has gone.
    QObject* actsOn = nullptr;
  };
  struct Toast : Message {
    QUuid id;
  };
  enum Role { IdRole = Qt::UserRole, MessageRole, DetailRole, ToneRole, ActionLabelRole };

  explicit Toasts(Clock& clock, QObject* parent = nullptr);

  QUuid show(Message message);
  void success(QString message) { show({.message = std::move(message), .tone = Tone::success}); }
  /// Tells of a failed action: `title` with the error's sentence beneath, or that sentence alone when the title is
  /// empty. Silent for what the person did (`cancelled`) and for what the shell tells (`unauthorized`).
  void failure(const QString& title, const APIError& error);

  Q_INVOKABLE void dismiss(const QUuid& id);
  /// Runs the toast's action and takes the toast out.
  Q_INVOKABLE void act(const QUuid& id);
  /// While held (pointer or focus on the stack) nothing times out; letting go gives every toast its full time again.
  Q_INVOKABLE void hold(bool held);
  void clear();

  const QList<Toast>& toasts() const { return m_toasts; }
  int count() const { return int(m_toasts.size()); }
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void countChanged();

 private:
  static std::chrono::milliseconds duration(const Toast& toast);
  Task<void> expire(QUuid id, std::chrono::milliseconds after);
  void startTimer(const Toast& toast);
  void withdrawAction(const QUuid& id);
  void removeAt(qsizetype row);
  qsizetype rowOf(const QUuid& id) const;

  Clock& m_clock;
  QList<Toast> m_toasts;
  std::map<QUuid, std::unique_ptr<TaskSlot>> m_timers;
  bool m_held = false;
};

}  // namespace orv
