#pragma once

#include <coroutine>
#include <exception>
#include <memory>
#include <utility>

namespace orv {

/// The life of one task tree, from the moment an owner (TaskScope, TaskSlot) starts it until it ends or is dropped.
///
/// Every frame of the tree knows its run, and whatever continues a frame does so through the run: only so can a drop
/// that is asked for while a frame executes be put off until that frame suspends. Confined to one thread.
class TaskRun : public std::enable_shared_from_this<TaskRun> {
 public:
  /// What owns the frames; told when the run ends by itself, never when it was dropped.
  class Owner {
   public:
    virtual void runEnded(TaskRun* run) = 0;

   protected:
    ~Owner() = default;
  };

  /// The outermost frame. Given as an interface so that this class needs no template.
  class Frames {
   public:
    virtual ~Frames() = default;
    virtual std::coroutine_handle<> start(TaskRun* run) = 0;
    virtual bool done() const = 0;
    /// The exception that left the outermost frame, if one did.
    virtual std::exception_ptr failure() const = 0;
  };

  TaskRun(Owner* owner, std::unique_ptr<Frames> frames) : m_owner(owner), m_frames(std::move(frames)) {}
  TaskRun(const TaskRun&) = delete;
  TaskRun& operator=(const TaskRun&) = delete;

  void start();
  void resume(std::coroutine_handle<> frame);

  /// Destroys the frames: at once, or as soon as the executing one suspends. The owner is not told.
  void drop();
  bool isDropped() const { return m_dropped; }

 private:
  void settle();

  Owner* m_owner;
  std::unique_ptr<Frames> m_frames;
  int m_depth = 0;
  bool m_dropped = false;
};

/// What an awaiter keeps to continue its task later. Empty until armed and after it was used.
///
/// The awaiter lives inside the frame it continues, so a Resumption never outlives that frame.
class Resumption {
 public:
  Resumption() = default;

  /// Remembers `frame`. False when its run has been dropped meanwhile: the awaiter must then not begin its operation,
  /// because the frame is about to be destroyed and a request begun here would reach the wire for nobody.
  template <class Promise>
  bool arm(std::coroutine_handle<Promise> frame) {
    if (frame.promise().run->isDropped()) return false;
    m_run = frame.promise().run->weak_from_this();
    m_frame = frame;
    return true;
  }

  /// Continues the task. The awaiter that holds this object may be gone when the call returns.
  void operator()() {
    const auto run = m_run.lock();
    const auto frame = std::exchange(m_frame, nullptr);
    if (run && frame) run->resume(frame);
  }

 private:
  std::weak_ptr<TaskRun> m_run;
  std::coroutine_handle<> m_frame;
};

}  // namespace orv
