#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <memory>

#include "app/base/Jobs.h"
#include "app/base/Overlays.h"
#include "kit/async/Clock.h"
#include "kit/async/OneShot.h"
#include "kit/async/TaskScope.h"

namespace orv {

/// The person wants to go, by closing or by signing out: what is unsaved is saved first, what is under way is waited
/// for, both in sight and for no longer than they like; where that does not work they are asked.
class Departure final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(QString verb READ verb NOTIFY changed)

 public:
  /// Saves that take no longer are not worth a dialog.
  static constexpr std::chrono::milliseconds patience{400};

  struct Words {
    /// "Close without saving?"
    QString question;
    QString confirm;
    /// What becomes of what is not saved.
    QString price;
    /// "Close now", while it is being saved.
    QString now;
  };
  struct Work {
    /// A sentence for each piece of work that the service does not have.
    std::function<QStringList()> unsaved;
    /// Saves what can be saved unasked.
    std::function<Task<bool>()> flush;
    /// A change is on its way to the service.
    std::function<bool()> sending;
  };

  Departure(Clock& clock, Overlays& overlays, Jobs& jobs, Work work, QObject* parent = nullptr);

  /// Runs `then` when nothing keeps the person any more, or they go all the same. A later wish takes its place.
  void go(Words words, std::function<void()> then);
  /// The window wants to close. False when something has to be saved first; closable() tells when that is done.
  bool mayClose();
  /// They have gone in another way.
  void cancel();
  /// Nothing is on its way any more. Who is told that something failed stays to see it.
  void sent(bool anyFailed);

  /// The dialog that shows what is being saved.
  bool saving() const { return m_saving; }
  QString text() const { return lines().join(u'\n'); }
  QString verb() const { return m_words.now; }
  Q_INVOKABLE void stay() { choose(Choice::stay); }
  Q_INVOKABLE void goNow() { choose(Choice::goNow); }

 Q_SIGNALS:
  void changed();
  void closable();
  /// They wanted to go, and did not.
  void stayed();

 private:
  enum class Choice { saved, notSaved, stay, goNow };
  class Waiting;
  static constexpr int roundsAtMost = 5;

  Task<bool> mayGo(Words words);
  Task<void> goTask(Words words, std::function<void()> then);
  Task<void> closeTask();
  QStringList lines() const;
  Task<bool> ask();
  Task<void> save();
  void choose(Choice choice);
  void jobsChanged();
  bool isQuiet() const { return m_jobs.running() == 0 && !m_work.sending(); }
  void giveQuiet();

  Clock& m_clock;
  Overlays& m_overlays;
  Jobs& m_jobs;
  Work m_work;
  Words m_words;
  bool m_saving = false;
  OneShot<Choice> m_choice;
  OneShot<bool> m_quiet;
  std::unique_ptr<Clock::Timer> m_patience;
  TaskSlot m_task;
  /// The wish to go that is being looked after.
  TaskSlot m_going;
  bool m_closing = false;
  /// The person was asked whether what could not be saved may go.
  bool m_closable = false;
};

}  // namespace orv
