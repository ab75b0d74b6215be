#include "kit/session/SecretServiceKeychain.h"

#include <QObject>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <variant>

#include "kit/session/secretServiceRequests.h"

namespace orv {

/// One request, shared by the task that waits and the thread that works; either may let go first.
struct SecretServiceKeychain::Job {
  using Perform = std::function<std::optional<QByteArray>(secretservice::Session&)>;
  /// Whom the request waits for once it has been taken up: the service, or the person that it asks.
  enum class Stage { asking, unlocking };

  explicit Job(Perform toPerform) : perform(std::move(toPerform)) {}

  const Perform perform;
  secretservice::Cancellable cancellable;

  /// Worker thread: tells the waiting task, if it still waits.
  void enter(Stage stage) {
    const std::lock_guard lock(m_mutex);
    if (!m_home) return;
    QMetaObject::invokeMethod(
        m_home, [entered = m_entered, stage] { entered(stage); }, Qt::QueuedConnection);
  }
  /// Worker thread: leaves the outcome and wakes the waiting task.
  void finish(secretservice::Outcome result) {
    const std::lock_guard lock(m_mutex);
    outcome = std::move(result);
    if (m_home) QMetaObject::invokeMethod(m_home, m_wake, Qt::QueuedConnection);
  }
  void awaitIn(QObject* home, std::function<void(Stage)> entered, std::function<void()> wake) {
    const std::lock_guard lock(m_mutex);
    m_home = home;
    m_entered = std::move(entered);
    m_wake = std::move(wake);
  }
  /// Nobody waits any longer. What the service has already begun may still happen.
  void abandon() {
    {
      const std::lock_guard lock(m_mutex);
      m_home = nullptr;
    }
    cancellable.cancel();
  }

  secretservice::Outcome outcome;

 private:
  std::mutex m_mutex;
  QObject* m_home = nullptr;
  std::function<void(Stage)> m_entered;
  std::function<void()> m_wake;
};

class SecretServiceKeychain::Worker {
 public:
  Worker() {
    std::thread([state = m_state] { run(*state); }).detach();
  }
  ~Worker() {
    std::unique_lock lock(m_state->mutex);
    m_state->stopping = true;
    if (m_state->current) m_state->current->cancellable.cancel();
    m_state->changed.notify_all();
    // Cancelling ends every call but the connecting to a bus that hangs: leaving must not hang with it.
    m_state->changed.wait_for(lock, std::chrono::seconds(1), [this] { return m_state->stopped; });
  }

  void add(std::shared_ptr<Job> job) {
    const std::lock_guard lock(m_state->mutex);
    m_state->queue.push_back(std::move(job));
    m_state->changed.notify_all();
  }

 private:
  /// Outlives the worker when its thread does.
  struct State {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::shared_ptr<Job>> queue;
    std::shared_ptr<Job> current;
    bool stopping = false;
    bool stopped = false;
  };

  static void run(State& state) {
    std::unique_lock lock(state.mutex);
    while (true) {
      state.changed.wait(lock, [&state] { return state.stopping || !state.queue.empty(); });
      if (state.stopping) break;
      state.current = std::move(state.queue.front());
      state.queue.pop_front();
      lock.unlock();
      work(*state.current);
      lock.lock();
      state.current.reset();
    }
    state.stopped = true;
    state.changed.notify_all();
  }

  static void work(Job& job) {
    job.enter(Job::Stage::asking);
    secretservice::Session session(
        job.cancellable, [&job](bool unlocking) { job.enter(unlocking ? Job::Stage::unlocking : Job::Stage::asking); });
    try {
      job.finish(job.perform(session));
    } catch (const KeychainError& error) {
      job.finish(error);
    }
  }

  std::shared_ptr<State> m_state = std::make_shared<State>();
};

class SecretServiceKeychain::Awaiter {
 public:
  Awaiter(SecretServiceKeychain& keychain, Job::Perform perform)
      : m_worker(*keychain.m_worker),
        m_clock(keychain.m_clock),
        m_limits(keychain.m_limits),
        m_job(std::make_shared<Job>(std::move(perform))) {}
  Awaiter(const Awaiter&) = delete;
  Awaiter& operator=(const Awaiter&) = delete;
  ~Awaiter() { m_job->abandon(); }

  bool await_ready() const { return false; }
  template <class Promise>
  void await_suspend(std::coroutine_handle<Promise> frame) {
    if (!m_resumption.arm(frame)) return;
    m_job->awaitIn(
        &m_home,
        [this](Job::Stage stage) { watch(stage == Job::Stage::asking ? m_limits.answer : m_limits.unlocking); },
        [this] { m_resumption(); });
    m_worker.add(m_job);
    // Behind another request it may be a person that is waited for.
    watch(m_limits.unlocking);
  }
  std::optional<QByteArray> await_resume() {
    if (m_silent) throw secretservice::silentError();
    if (const auto* error = std::get_if<KeychainError>(&m_job->outcome)) throw *error;
    return std::get<std::optional<QByteArray>>(std::move(m_job->outcome));
  }

 private:
  void watch(std::chrono::milliseconds limit) {
    m_timer = m_clock.startTimer(limit, [this] {
      m_job->abandon();
      m_silent = true;
      m_resumption();
    });
  }

  Worker& m_worker;
  Clock& m_clock;
  const Limits m_limits;
  std::shared_ptr<Job> m_job;
  Resumption m_resumption;
  QObject m_home;
  std::unique_ptr<Clock::Timer> m_timer;
  bool m_silent = false;
};

SecretServiceKeychain::SecretServiceKeychain(QString service, QString label, Clock& clock, Limits limits)
    : Keychain(std::move(service)),
      m_label(std::move(label)),
      m_clock(clock),
      m_limits(limits),
      m_worker(std::make_unique<Worker>()) {}

SecretServiceKeychain::SecretServiceKeychain(QString service, QString label, Clock& clock)
    : SecretServiceKeychain(std::move(service), std::move(label), clock, Limits()) {}

SecretServiceKeychain::~SecretServiceKeychain() = default;

Task<std::optional<QByteArray>> SecretServiceKeychain::read(QString account) {
  const secretservice::Item item{service(), account, m_label};
  co_return co_await Awaiter(*this, [item](auto& session) { return session.read(item); });
}

Task<void> SecretServiceKeychain::write(QString account, QByteArray data) {
  const secretservice::Item item{service(), account, m_label};
  co_await Awaiter(*this, [item, data](auto& session) {
    session.write(item, data);
    return std::optional<QByteArray>();
  });
}

Task<void> SecretServiceKeychain::remove(QString account) {
  const secretservice::Item item{service(), account, m_label};
  co_await Awaiter(*this, [item](auto& session) {
    session.remove(item);
    return std::optional<QByteArray>();
  });
}

}  // namespace orv
