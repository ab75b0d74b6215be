#pragma once

#include <QDateTime>
#include <QObject>
#include <functional>
#include <optional>

#include "app/base/ScreenState.h"
#include "kit/async/Clock.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// What QML reads of a Resource, whatever it holds.
class ResourceBase : public QObject {
  Q_OBJECT
  Q_PROPERTY(State state READ stateName NOTIFY changed)
  Q_PROPERTY(bool hasContent READ hasContent NOTIFY changed)
  Q_PROPERTY(bool refreshing READ refreshing NOTIFY changed)
  Q_PROPERTY(QString message READ message NOTIFY changed)
  Q_PROPERTY(QDateTime loadedAt READ loadedAt NOTIFY changed)

 public:
  enum class State { Loading, Empty, Ready, Offline, Error };
  Q_ENUM(State)

  explicit ResourceBase(const Clock& clock, QObject* parent = nullptr) : QObject(parent), m_clock(clock) {}

  virtual State stateName() const = 0;
  /// There is a value to show, fresh or cached.
  virtual bool hasContent() const = 0;
  /// The sentence of the error state; empty otherwise.
  virtual QString message() const = 0;

  /// A reload runs while content is shown.
  bool refreshing() const { return m_refreshing; }
  /// When the last successful load finished; invalid before.
  QDateTime loadedAt() const { return m_loadedAt; }

  /// Lets go of the load under way, leaving the state as it is.
  void cancel();

 Q_SIGNALS:
  void changed();
  /// The value itself is another one, by a load or a change in place.
  void valueChanged();
  /// A reload failed while content is shown. The content stays; somebody has to say so.
  void refreshFailed(const orv::APIError& error);

 protected:
  const Clock& m_clock;
  TaskSlot m_load;
  QDateTime m_loadedAt;
  qint64 m_generation = 0;
  bool m_refreshing = false;
};

/// One value, loaded by an asynchronous loader, and what the screen shows of it meanwhile.
///
/// A newer load owns the state: the answer of an older one changes nothing.
template <class Value>
class Resource final : public ResourceBase {
 public:
  using Loader = std::function<Task<Value>()>;

  /// `isEmpty` decides between the empty state and content; `emptyValue` stands for "nothing" where the screen needs a
  /// value even then.
  Resource(const Clock& clock, Loader loader, std::function<bool(const Value&)> isEmpty,
           std::optional<Value> emptyValue = {}, QObject* parent = nullptr)
      : ResourceBase(clock, parent),
        m_loader(std::move(loader)),
        m_isEmpty(std::move(isEmpty)),
        m_emptyValue(std::move(emptyValue)) {}

  const ScreenState<Value>& state() const { return m_state; }
  /// The last loaded value, an empty one included; none before the first load and after a first load that failed.
  const Value* value() const { return m_value ? &*m_value : nullptr; }

  /// Starts a load; the one under way, if any, is let go.
  void load() { m_load.start(run(++m_generation)); }

  /// Starts a load of something else: another filter, another range. What is shown stays until the answer comes, but
  /// not beyond a failure, for it would stand under a question that it does not answer.
  void ask() {
    m_answersAnother = true;
    load();
  }

  /// Changes the shown value in place. A load under way began before the change and may not know it, so it starts over.
  void update(const std::function<void(Value&)>& change) {
    if (!m_value) return;
    change(*m_value);
    if (m_state.isOffline())
      m_state = ScreenState<Value>::offline(m_value);
    else
      m_state = stateOf(*m_value);
    Q_EMIT valueChanged();
    Q_EMIT changed();
    if (!m_load.isIdle()) load();
  }

  State stateName() const override {
    if (m_state.isLoading()) return State::Loading;
    if (m_state.isEmpty()) return State::Empty;
    if (m_state.isReady()) return State::Ready;
    return m_state.isOffline() ? State::Offline : State::Error;
  }
  bool hasContent() const override { return m_state.value() != nullptr; }
  QString message() const override { return m_state.error() ? m_state.error()->message() : QString(); }

 private:
  Task<void> run(qint64 generation) {
    begin();
    try {
      Value value = co_await m_loader();
      if (generation == m_generation) succeed(std::move(value));
    } catch (const APIError& error) {
      if (generation == m_generation) fail(error);
    }
  }

  void begin() {
    const bool showsSomething = hasContent() || m_state.isEmpty();
    m_refreshing = showsSomething;
    // A retry after an error shows progress again; an offline screen without data does too.
    if (!showsSomething) m_state = ScreenState<Value>::loading();
    Q_EMIT changed();
  }

  void succeed(Value value) {
    m_state = stateOf(value);
    m_value = std::move(value);
    m_answersAnother = false;
    m_loadedAt = m_clock.now();
    m_refreshing = false;
    Q_EMIT valueChanged();
    Q_EMIT changed();
  }

  void fail(const APIError& error) {
    m_refreshing = false;
    const bool isRefresh = !m_answersAnother && (hasContent() || m_state.isEmpty());
    const bool isTold = !error.is(APIError::Kind::offline) && !error.is(APIError::Kind::cancelled);
    if (m_answersAnother && !error.is(APIError::Kind::cancelled)) m_value.reset();
    if (error.is(APIError::Kind::offline))
      m_state = ScreenState<Value>::offline(isRefresh ? shown() : std::nullopt);
    else if (isTold && !isRefresh)
      m_state = ScreenState<Value>::error(error);
    Q_EMIT changed();
    if (isTold && isRefresh) Q_EMIT refreshFailed(error);
  }

  ScreenState<Value> stateOf(const Value& value) const {
    return m_isEmpty(value) ? ScreenState<Value>::empty() : ScreenState<Value>::ready(value);
  }

  std::optional<Value> shown() const {
    if (m_state.isEmpty()) return m_emptyValue;
    const Value* value = m_state.value();
    return value ? std::optional(*value) : std::nullopt;
  }

  Loader m_loader;
  std::function<bool(const Value&)> m_isEmpty;
  std::optional<Value> m_emptyValue;
  ScreenState<Value> m_state = ScreenState<Value>::loading();
  std::optional<Value> m_value;
  /// The value belongs to an earlier question.
  bool m_answersAnother = false;
};

}  // namespace orv
