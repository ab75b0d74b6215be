#pragma once

#include <QDateTime>
#include <QObject>
#include <functional>
#include <optional>

#include "app/base/ScreenState.h"
#include "app/base/Store.h"

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

  ResourceBase(Store& owner, QString failed, bool loadsByItself);

  virtual State stateName() const = 0;
  /// There is a value to show, fresh or cached.
  virtual bool hasContent() const = 0;
  /// The sentence of the error state; empty otherwise.
  virtual QString message() const = 0;

  /// A reload runs while content is shown.
  bool refreshing() const { return m_refreshing; }
  /// When the last successful load finished; invalid before.
  QDateTime loadedAt() const { return m_loadedAt; }

  /// Starts a load; the one under way, if any, is let go.
  virtual void load() = 0;
  void ensureLoaded();
  /// Nothing was asked for yet, what is here is known to be old, or it could not be read.
  bool needsLoad() const;
  /// A load has been started, whatever came of it.
  bool isAsked() const { return m_isAsked; }
  /// Whether the store loads it when a page shows the store, or when something asks for it.
  bool loadsByItself() const { return m_loadsByItself; }

  /// The service has something else by now: read again at once when it is on a screen, when next shown otherwise.
  void markStale();
  /// A view shows it from now on, and no longer.
  Q_INVOKABLE void appear();
  Q_INVOKABLE void disappear();

  /// Lets go of the load under way, leaving the state as it is.
  virtual void cancel();

 Q_SIGNALS:
  void changed();
  /// The value itself is another one, by a load or a change in place.
  void valueChanged();
  /// A reload failed while content is shown. The content stays, and a message has said so where the resource has words
  /// for it.
  void refreshFailed(const orv::APIError& error);

 protected:
  bool isOnScreen() const { return m_views > 0; }
  void tellRefreshFailed(const APIError& error);
  void tryAgain();

  Store& m_owner;
  TaskSlot m_load;
  QDateTime m_loadedAt;
  qint64 m_generation = 0;
  bool m_refreshing = false;
  bool m_isAsked = false;
  /// Since the load that is under way began, or else since the last one that succeeded.
  bool m_isStale = false;
  /// What it tells the change feed of its own answer is no news to itself.
  bool m_isTelling = false;
  /// It was told to be old in this turn of the event loop, and is being read again since.
  bool m_hasReread = false;

 private:
  QString m_failed;
  bool m_loadsByItself;
  int m_views = 0;
};

/// How a resource is loaded and told of.
template <class Value>
struct ResourceOptions {
  /// Title of the message when a reload fails while content is shown: "Couldn’t load campaigns". Empty says nothing.
  QString failed = {};
  /// Decides between the empty state and content; without it, whether a list has items.
  std::function<bool(const Value&)> isEmpty = {};
  /// Stands for "nothing" where the screen needs a value even then.
  std::optional<Value> emptyValue = {};
  bool loadsByItself = true;
  /// The list is that of the archive.
  bool isArchive = false;
};

/// One value, loaded by an asynchronous loader, and what the screen shows of it meanwhile.
///
/// A newer load owns the state: the answer of an older one changes nothing. Nor does an answer that the change feed
/// knows to be older than what is shown.
template <class Value>
class Resource final : public ResourceBase {
 public:
  using Loader = std::function<Task<Value>()>;
  using Options = ResourceOptions<Value>;

  Resource(Store& owner, Loader loader, Options options = {})
      : ResourceBase(owner, options.failed, options.loadsByItself),
        m_loader(std::move(loader)),
        m_options(std::move(options)) {}

  const ScreenState<Value>& state() const { return m_state; }
  /// The last loaded value, an empty one included; none before the first load and after a first load that failed.
  const Value* value() const { return m_value ? &*m_value : nullptr; }

  void load() override { m_load.start(run(++m_generation)); }

  /// Starts a load of something else: another filter, another range. What is shown stays until the answer comes, but
  /// not beyond a failure, for it would stand under a question that it does not answer.
  void ask() {
    m_answersAnother = true;
    load();
  }

  /// Changes the shown value in place. A load under way began before the change and may not know it, so it starts over.
  void update(const std::function<void(Value&)>& change) {
    if (!m_value) return;
    amend(change);
    if (!m_load.isIdle()) load();
  }

  /// The same for what another reading brought: a load under way knows as much.
  void amend(const std::function<void(Value&)>& change) {
    if (!m_value) return;
    change(*m_value);
    if (m_state.isOffline())
      m_state = stateOf(*m_value).isEmpty() ? ScreenState<Value>::empty() : ScreenState<Value>::offline(m_value);
    else
      m_state = stateOf(*m_value);
    Q_EMIT valueChanged();
    Q_EMIT changed();
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
    const Stamp asked = m_owner.context().changes().stamp();
    try {
      Value value = co_await m_loader();
      if (generation == m_generation) succeed(std::move(value), asked);
    } catch (const APIError& error) {
      if (generation == m_generation) fail(error);
    }
  }

  void begin() {
    m_isAsked = true;
    m_isStale = false;
    const bool showsSomething = hasContent() || m_state.isEmpty();
    m_refreshing = showsSomething;
    // A retry after an error shows progress again; an offline screen without data does too.
    if (!showsSomething) m_state = ScreenState<Value>::loading();
    Q_EMIT changed();
  }

  void succeed(Value value, Stamp asked) {
    Changes& changes = m_owner.context().changes();
    bool isNews = true;
    const bool isFirst = m_answersAnother || !m_value;
    if constexpr (WholeRecord<Value>) isNews = changes.isNews(value, asked);
    // It is all that there is to show, until the one that is known to be newer has come.
    const bool readsAgain = isFirst && !isNews && !std::exchange(m_readsAgain, true);
    if (isNews) m_readsAgain = false;
    isNews = isNews || isFirst;
    m_isTelling = true;
    if constexpr (SharedList<Value>) reconcile(value, asked);
    if (isNews) m_value = std::move(value);
    m_state = stateOf(*m_value);
    m_answersAnother = false;
    m_loadedAt = m_owner.context().services().clock.now();
    m_refreshing = false;
    if (isNews) Q_EMIT valueChanged();
    Q_EMIT changed();
    if constexpr (WholeRecord<Value>) changes.publish(Value(*m_value), asked, false);
    m_isTelling = false;
    m_owner.context().cameOnline();
    if (readsAgain) load();
  }

  void reconcile(Value& value, Stamp asked)
    requires SharedList<Value>
  {
    using Record = typename std::decay_t<decltype(value.items.first())>::Record;
    Changes& changes = m_owner.context().changes();
    const auto* shown = m_value && !m_answersAnother ? &m_value->items : nullptr;
    if (m_options.isArchive)
      changes.reconcile<Archived<Record>>(value.items, shown, asked);
    else
      changes.reconcile<Record>(value.items, shown, asked);
  }

  void fail(const APIError& error) {
    m_refreshing = false;
    m_isStale = true;
    const bool isRefresh = !m_answersAnother && (hasContent() || m_state.isEmpty());
    const bool isOffline = error.is(APIError::Kind::offline), isCancelled = error.is(APIError::Kind::cancelled);
    if (m_answersAnother && !isCancelled) m_value.reset();
    if (isOffline)
      m_state = ScreenState<Value>::offline(isRefresh ? shown() : std::nullopt);
    else if (!isCancelled && !isRefresh)
      m_state = ScreenState<Value>::error(error);
    if (isOffline) m_owner.context().wentOffline();
    Q_EMIT changed();
    if (!isOffline && !isCancelled && isRefresh) tellRefreshFailed(error);
  }

  ScreenState<Value> stateOf(const Value& value) const {
    bool isEmpty = false;
    if (m_options.isEmpty)
      isEmpty = m_options.isEmpty(value);
    else if constexpr (requires { value.items.isEmpty(); })
      isEmpty = value.items.isEmpty();
    return isEmpty ? ScreenState<Value>::empty() : ScreenState<Value>::ready(value);
  }

  std::optional<Value> shown() const {
    if (m_state.isEmpty()) return m_options.emptyValue;
    const Value* value = m_state.value();
    return value ? std::optional(*value) : std::nullopt;
  }

  Loader m_loader;
  Options m_options;
  ScreenState<Value> m_state = ScreenState<Value>::loading();
  std::optional<Value> m_value;
  /// The value belongs to an earlier question.
  bool m_answersAnother = false;
  /// Of a service that goes on giving an old one it is asked but once.
  bool m_readsAgain = false;
};

}  // namespace orv
