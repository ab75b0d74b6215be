#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "app/campaigns/SequenceDraft.h"
#include "kit/api/APIError.h"
#include "kit/async/Clock.h"
#include "kit/async/OneShot.h"
#include "kit/async/TaskScope.h"
#include "kit/models/campaigns/campaign.h"
#include "kit/models/campaigns/sequence.h"

namespace orv {

/// Keeps the service's copy of a sequence the same as the draft, and never says that it is when it is not.
///
/// It owns the draft: edit() is the only way to change it, so no edit goes unnoticed. One save is in flight at a time,
/// whatever is edited meanwhile, and whoever is about to let go of the draft awaits flush() first.
class SequenceAutosave final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString saveState READ saveStateName NOTIFY changed)
  Q_PROPERTY(QString label READ label NOTIFY changed)
  Q_PROPERTY(QString message READ message NOTIFY changed)
  Q_PROPERTY(QString failure READ failure NOTIFY changed)
  Q_PROPERTY(bool awaitsWord READ awaitsWord NOTIFY changed)

 public:
  enum class SaveState { saved, dirty, saving, failed };
  Q_ENUM(SaveState)
  using Send = std::function<Task<Campaign>(StepsBody)>;

  static constexpr std::chrono::milliseconds wait{800};

  SequenceAutosave(Clock& clock, Send send, QObject* parent = nullptr);
  ~SequenceAutosave() override;

  const SequenceDraft& draft() const { return m_draft; }
  SaveState state() const { return m_state; }
  QString saveStateName() const;
  /// The state in the tab's words.
  QString label() const;
  /// Why the last save failed; empty in every other state.
  const QString& message() const { return m_message; }
  /// Why the last save failed, until one succeeds: it stays readable while the person writes on and the next one runs.
  const QString& failure() const { return m_failure; }
  /// What is unsaved was restored on a sequence that somebody has changed since: nothing but the person's own word, an
  /// edit or save(), puts it in that one's place.
  bool awaitsWord() const { return m_awaitsWord; }
  /// Somebody waits in flush(), and will tell what comes of it.
  bool isAwaited() const { return !m_waiting.isEmpty(); }

  /// A campaign as loaded from the service. The draft follows it while nothing in it is unsaved; true when it has
  /// become another one. What is still to be saved stands, and the next save wins.
  bool take(const Campaign& loaded);

  /// Changes the draft, with whatever `change(SequenceDraft&)` returns.
  template <class Change>
  auto edit(Change&& change) {
    // Even when `change` returns: its result is made before this looks whether anything was changed.
    const Noticing noticing{*this, m_draft.revision()};
    return std::forward<Change>(change)(m_draft);
  }

  /// Steps that were not saved when the program or the session ended, on the sequence as loaded since. They are unsaved
  /// again, and stay so until the person writes on, saves or leaves; where the sequence was changed since (`isOther`),
  /// leaving is no word to put them in its place. False when the service has them.
  bool restore(const QList<StepIn>& kept, const QList<CampaignStep>& loaded, bool isOther);
  /// Back to the sequence as loaded; nothing of the draft is sent. Does nothing while a save is under way.
  void discard(const QList<CampaignStep>& loaded);

  /// Saves without the wait: "Try again". `onLeaving`, nobody has asked for it.
  Q_INVOKABLE void save(bool onLeaving = false);
  /// Saves what is unsaved and waits for its end, edits made meanwhile included. True when the service then holds the
  /// very draft. This object may go while the task waits, which then gives false.
  Task<bool> flush();
  /// The same for whoever is about to act on what the service has: gives why that is not the draft, or nothing.
  Task<QString> saveFirst();
  /// Stops everything in flight; nothing is sent any more. Who still waits in flush() is told.
  void close();

 Q_SIGNALS:
  void changed();
  /// The draft is another one than a moment ago.
  void typed();
  /// The campaign that the service returned for a save. The draft may have moved on since.
  void saved(const orv::Campaign& campaign);

 private:
  struct Noticing {
    SequenceAutosave& autosave;
    quint64 before;
    ~Noticing() {
      if (autosave.m_draft.revision() != before) autosave.edited();
    }
  };

  void edited();
  Task<void> run();
  Task<void> sendOnce();
  void succeed(const QList<DraftStep>& sent, const Campaign& campaign);
  void fail(const QList<DraftStep>& sent, const APIError& error);
  void editedMeanwhile();
  bool isHeld() const { return m_savedInputs == m_draft.inputs(); }
  void set(SaveState state, const QString& message = {});
  void tellWaiting();

  Clock& m_clock;
  Send m_send;
  SequenceDraft m_draft;
  SaveState m_state = SaveState::saved;
  QString m_message;
  QString m_failure;
  /// What the service has; none while a save may or may not have reached it.
  std::optional<QList<StepIn>> m_savedInputs;
  /// What the save in flight carries.
  quint64 m_sentRevision = 0;
  bool m_awaitsWord = false;
  bool m_loaded = false;
  bool m_closed = false;
  bool m_saving = false;
  bool m_saveAgain = false;
  QList<OneShot<bool>> m_waiting;
  std::unique_ptr<Clock::Timer> m_wait;
  TaskSlot m_task;
};

}  // namespace orv
