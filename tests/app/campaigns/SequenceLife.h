#pragma once

#include <memory>

#include "kit/async/ManualClock.h"
#include "tests/app/campaigns/SequenceFixture.h"

namespace orv::test {

/// One life of a page: edits, time, answers of every kind, retries, reloads and goodbyes in any order.
class SequenceLife {
 public:
  explicit SequenceLife(quint32 seed) : m_random(seed), m_person(m_random) {
    m_autosave =
        std::make_unique<SequenceAutosave>(m_clock, [this](StepsBody body) { return m_service.save(std::move(body)); });
    QObject::connect(m_autosave.get(), &SequenceAutosave::saved, [this] {
      // As a resource does: a load that a save has overtaken begins anew.
      if (m_loading) m_loading = m_service.campaign();
    });
    m_autosave->take(m_service.campaign());
  }
  ~SequenceLife() { m_autosave.reset(); }

  /// What went wrong; empty when nothing did.
  QString play() {
    for (int i = 0; i < 40 && m_wrong.isEmpty(); ++i) act(m_random.bounded(16));
    if (m_random.bounded(3) == 0)
      leave();
    else
      settle();
    if (m_flushes != m_flushesEnded) complain(u"a flush waits for ever"_s);
    return m_wrong;
  }

 private:
  using SaveState = SequenceAutosave::SaveState;
  using End = SequenceService::End;

  void act(int what) {
    const auto some = End(m_random.bounded(6));
    if (what < 6) edit();
    if (what >= 6 && what < 9) m_clock.advance(std::chrono::milliseconds(m_random.bounded(1000)));
    if (what >= 9 && what < 12 && m_service.waiting() > 0) m_service.end(m_random.bounded(2) ? End::accepted : some);
    if (what == 12) m_autosave->save();
    if (what == 13) m_tasks.start(flush());
    if (what == 14) m_loading = m_service.campaign();
    if (what == 15 && m_loading) load();
    check();
  }

  void edit() {
    m_autosave->edit([this](SequenceDraft& draft) { m_person.change(draft); });
    m_text = withoutIds(m_autosave->draft().inputs());
  }

  void load() {
    Campaign loaded = *std::exchange(m_loading, std::nullopt);
    if (m_random.bounded(4) == 0) loaded.steps.reset();
    if (m_autosave->take(loaded)) complain(u"a load changed the draft"_s);
  }

  Task<void> flush() {
    ++m_flushes;
    const bool held = co_await m_autosave->flush();
    ++m_flushesEnded;
    if (held && !isHeld()) complain(u"a flush told of a text that the service does not have"_s);
    if (!held && m_autosave && m_autosave->state() == SaveState::saved) complain(u"a flush told too little"_s);
  }

  bool isHeld() const { return withoutIds(m_service.inputs()) == m_text; }

  void check() {
    if (withoutIds(m_autosave->draft().inputs()) != m_text) complain(u"the draft is not what the person wrote"_s);
    if (m_autosave->state() == SaveState::saved && m_service.inputs() != m_autosave->draft().inputs())
      complain(u"said saved too early"_s);
    if (m_service.waiting() > 1) complain(u"two saves in flight"_s);
    if (m_service.sawUnknownId) complain(u"sent an id that the service does not have"_s);
    if ((m_autosave->state() == SaveState::failed) == m_autosave->message().isEmpty())
      complain(u"state and message disagree"_s);
  }

  /// Everything works again and the person asks for it once more.
  void settle() {
    for (int i = 0; i < 4; ++i) {
      m_autosave->save();
      while (m_service.waiting() > 0) m_service.end(End::accepted);
      m_clock.advance(SequenceAutosave::wait);
      check();
    }
    if (m_autosave->state() != SaveState::saved || !isHeld()) complain(u"not saved in the end"_s);
    const int saves = m_service.saves;
    m_clock.advance(std::chrono::hours(1));
    if (m_service.saves != saves) complain(u"saves what is saved"_s);
  }

  /// The store goes, closed or closed and deleted, and the answers come late.
  void leave() {
    m_autosave->close();
    check();
    if (m_autosave->state() == SaveState::saving) complain(u"still saving after the close"_s);
    if (m_service.open > 0) complain(u"still waits for an answer after the close"_s);
    const int saves = m_service.saves;
    if (m_random.bounded(2))
      m_autosave.reset();
    else
      edit();
    if (m_clock.running() > 0) complain(u"a timer runs after the close"_s);
    while (m_service.waiting() > 0) m_service.end(End(m_random.bounded(6)));
    m_clock.advance(std::chrono::hours(1));
    if (m_service.saves != saves) complain(u"saves after the close"_s);
    if (m_autosave) check();
  }

  void complain(const QString& what) {
    if (m_wrong.isEmpty()) m_wrong = what;
  }

  QRandomGenerator m_random;
  SomePerson m_person;
  ManualClock m_clock;
  SequenceService m_service;
  std::unique_ptr<SequenceAutosave> m_autosave;
  QList<StepIn> m_text;
  std::optional<Campaign> m_loading;
  int m_flushes = 0;
  int m_flushesEnded = 0;
  QString m_wrong;
  TaskScope m_tasks;
};

}  // namespace orv::test
