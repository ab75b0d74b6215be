#include "app/shell/Departure.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

/// From the wish to go to its end, whatever that is.
class Departure::Waiting {
 public:
  explicit Waiting(Departure& departure) : m_departure(departure) {
    m_departure.m_patience = m_departure.m_clock.startTimer(patience, [&departure] {
      departure.m_saving = true;
      Q_EMIT departure.changed();
    });
  }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
  ~Waiting() {
    m_departure.m_patience.reset();
    m_departure.m_task.cancel();
    if (std::exchange(m_departure.m_saving, false)) Q_EMIT m_departure.changed();
  }

 private:
  Departure& m_departure;
};

Departure::Departure(Clock& clock, Overlays& overlays, Jobs& jobs, Work work, QObject* parent)
    : QObject(parent), m_clock(clock), m_overlays(overlays), m_jobs(jobs), m_work(std::move(work)) {
  connect(&jobs, &Jobs::changed, this, &Departure::jobsChanged);
}

QStringList Departure::lines() const {
  QStringList lines = m_work.unsaved() + m_jobs.unsavedWork();
  if (lines.isEmpty() && m_work.sending()) lines.append(u"A change is still being sent."_s);
  return lines;
}

void Departure::go(Words words, std::function<void()> then) {
  cancel();
  m_going.start(goTask(std::move(words), std::move(then)));
}

Task<void> Departure::goTask(Words words, std::function<void()> then) {
  if (co_await mayGo(std::move(words)))
    then();
  else
    Q_EMIT stayed();
}

bool Departure::mayClose() {
  if (m_closable || lines().isEmpty()) return true;
  // A second wish to close is no other one.
  if (!std::exchange(m_closing, true) || m_going.isIdle()) m_going.start(closeTask());
  return false;
}

Task<void> Departure::closeTask() {
  const bool cutsOff = !isQuiet();
  const bool goes =
      co_await mayGo({.question = u"Close without saving?"_s,
                      .confirm = u"Close"_s,
                      .price = cutsOff ? u"What you wrote is kept on this computer. What is under way is cut off."_s
                                       : u"What you wrote is kept on this computer for when you’re back."_s,
                      .now = u"Close now"_s});
  m_closing = false;
  if (!goes) co_return Q_EMIT stayed();
  m_closable = true;
  Q_EMIT closable();
}

void Departure::cancel() {
  m_closing = false;
  if (m_going.isIdle()) return;
  m_going.cancel();
  Q_EMIT stayed();
}

Task<bool> Departure::mayGo(Words words) {
  m_words = std::move(words);
  auto choice = Choice::saved;
  {
    const Waiting waiting(*this);
    // Somebody may have written more while the last save was under way.
    for (int round = 0; choice == Choice::saved && !lines().isEmpty(); ++round) {
      if (round == roundsAtMost) {
        choice = Choice::notSaved;
        break;
      }
      m_choice = {};
      m_task.start(save());
      choice = co_await m_choice.wait();
    }
  }
  if (choice == Choice::notSaved) co_return co_await ask();
  co_return choice != Choice::stay;
}

Task<bool> Departure::ask() {
  return m_overlays.confirm({.title = m_words.question,
                             .text = text() + u'\n' + m_words.price,
                             .confirm = m_words.confirm,
                             .destructive = true});
}

Task<void> Departure::save() {
  const bool isSaved = m_work.unsaved().isEmpty() || co_await m_work.flush();
  // What a button saves may be on its way, since somebody has pressed it.
  if (!isSaved && !m_work.sending()) co_return choose(Choice::notSaved);
  Q_EMIT changed();
  m_quiet = {};
  if (!isQuiet()) co_await m_quiet.wait();
  choose(Choice::saved);
}

void Departure::choose(Choice choice) {
  // The waiting task may start the next round, and with it another choice, at once.
  OneShot<Choice> asked = m_choice;
  asked.give(choice);
}

void Departure::jobsChanged() {
  if (m_saving) Q_EMIT changed();
  giveQuiet();
}

void Departure::giveQuiet() {
  if (!isQuiet()) return;
  OneShot<bool> quiet = m_quiet;
  quiet.give(true);
}

void Departure::sent(bool anyFailed) {
  if (!m_going.isIdle() && anyFailed) return choose(Choice::stay);
  giveQuiet();
}

}  // namespace orv
