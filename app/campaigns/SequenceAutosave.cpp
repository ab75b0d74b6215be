#include "app/campaigns/SequenceAutosave.h"

#include <QPointer>

#include "app/base/EnumName.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
SequenceAutosave::SequenceAutosave(Clock& clock, Send send, QObject* parent)
    : QObject(parent), m_clock(clock), m_send(std::move(send)) {}

SequenceAutosave::~SequenceAutosave() {
  blockSignals(true);
  close();
}

QString SequenceAutosave::saveStateName() const { return enumName(m_state); }

QString SequenceAutosave::label() const {
  if (m_state == SaveState::saved) return u"Saved"_s;
  return m_state == SaveState::failed ? u"Not saved"_s : u"Unsaved changes"_s;
}

bool SequenceAutosave::take(const Campaign& loaded) {
  // The answer to the save in flight is newer than this may be.
  if (m_closed || m_saving) return false;
  // Not every answer that is a campaign brings its steps.
  if (m_loaded && !loaded.steps) return false;
  const auto steps = loaded.steps.value_or(QList<CampaignStep>());
  if (m_loaded && m_state != SaveState::saved) {
    m_draft.keepIdsOf(steps);
    // A load may have begun before a save whose outcome is unknown: then it proves nothing.
    if (m_savedInputs) m_savedInputs = inputsOf(draftOf(steps));
    return false;
  }
  const auto before = m_draft.inputs();
  m_draft.rebuild(steps);
  m_savedInputs = m_draft.inputs();
  m_loaded = true;
  return m_savedInputs != before;
}

bool SequenceAutosave::restore(const QList<StepIn>& kept, const QList<CampaignStep>& loaded, bool isOther) {
  if (m_closed || m_saving || !m_loaded || m_state != SaveState::saved) return false;
  // A save may have come through whose answer nobody was there for: then the steps have ids by now.
  if (withoutIds(kept) == withoutIds(m_draft.inputs())) return false;
  m_draft.rebuild(stepsOf(kept));
  // What has been deleted meanwhile is a new step now.
  m_draft.keepIdsOf(loaded);
  m_awaitsWord = isOther;
  set(SaveState::dirty);
  return true;
}

void SequenceAutosave::discard(const QList<CampaignStep>& loaded) {
  if (m_closed || m_saving || !m_loaded) return;
  m_wait.reset();
  m_draft.rebuild(loaded);
  m_savedInputs = m_draft.inputs();
  m_awaitsWord = false;
  set(SaveState::saved);
}

void SequenceAutosave::edited() {
  // Before the first load the draft is empty because it is unknown; saved, it would wipe out the sequence.
  if (!m_loaded) return;
  const bool wasAwaited = std::exchange(m_awaitsWord, false);
  if (!m_closed) m_wait = m_clock.startTimer(wait, [this] { save(); });
  set(SaveState::dirty);
  if (wasAwaited) Q_EMIT changed();
  Q_EMIT typed();
}

void SequenceAutosave::save(bool onLeaving) {
  m_wait.reset();
  if (m_closed || !m_loaded || (m_awaitsWord && onLeaving)) return;
  m_awaitsWord = false;
  if (m_saving)
    m_saveAgain = m_saveAgain || m_draft.revision() != m_sentRevision;
  else
    m_task.start(run());
}

Task<bool> SequenceAutosave::flush() {
  if (m_state != SaveState::saved) save(true);
  if (!m_saving) co_return m_state == SaveState::saved;
  const OneShot<bool> outcome;
  m_waiting.append(outcome);
  // From here on this object may be gone.
  co_return co_await outcome.wait();
}

Task<QString> SequenceAutosave::saveFirst() {
  const QPointer autosave(this);
  if (co_await flush()) co_return QString();
  const QString why = autosave ? autosave->message() : QString();
  co_return why.isEmpty() ? u"The sequence has unsaved changes. Save or discard them first."_s : why;
}

void SequenceAutosave::close() {
  m_closed = true;
  m_wait.reset();
  m_task.cancel();
  m_saving = false;
  if (m_state == SaveState::saving) set(SaveState::dirty);
  tellWaiting();
}

Task<void> SequenceAutosave::run() {
  m_saving = true;
  do {
    m_saveAgain = false;
    if (isHeld())
      set(SaveState::saved);
    else
      co_await sendOnce();
  } while (m_saveAgain && !m_closed);
  m_saving = false;
  tellWaiting();
}

Task<void> SequenceAutosave::sendOnce() {
  m_sentRevision = m_draft.revision();
  const QList<DraftStep> sent = m_draft.steps();
  set(SaveState::saving);
  try {
    succeed(sent, co_await m_send(StepsBody{inputsOf(sent)}));
  } catch (const APIError& error) {
    // An ended session closes its stores before the error gets here.
    if (!m_closed) fail(sent, error);
  }
}

void SequenceAutosave::succeed(const QList<DraftStep>& sent, const Campaign& campaign) {
  const auto held = withAnsweredIds(sent, campaign.steps.value_or(QList<CampaignStep>()));
  m_draft.takeIds(held);
  m_savedInputs = inputsOf(held);
  if (isHeld()) {
    m_wait.reset();
    m_saveAgain = false;
    set(SaveState::saved);
  } else {
    editedMeanwhile();
  }
  Q_EMIT saved(campaign);
}

void SequenceAutosave::fail(const QList<DraftStep>& sent, const APIError& error) {
  if (mayHaveActed(error)) {
    m_savedInputs.reset();
    // An id that the service may have dropped would have it refuse the whole sequence, every time.
    m_draft.takeIds(sent);
  }
  if (m_draft.revision() == m_sentRevision)
    set(SaveState::failed, u"Couldn’t save the sequence. "_s + error.message());
  else
    editedMeanwhile();
}

/// The save that the edits have asked for follows after their wait, or at once when somebody waits for it.
void SequenceAutosave::editedMeanwhile() {
  if (!m_waiting.isEmpty()) save();
  set(SaveState::dirty);
}

void SequenceAutosave::set(SaveState state, const QString& message) {
  if (m_state == state && m_message == message) return;
  m_state = state;
  m_message = message;
  if (state == SaveState::failed || state == SaveState::saved) m_failure = message;
  Q_EMIT changed();
}

void SequenceAutosave::tellWaiting() {
  const auto waiting = std::exchange(m_waiting, {});
  for (OneShot<bool> outcome : waiting) outcome.give(m_state == SaveState::saved);
}

}  // namespace orv
