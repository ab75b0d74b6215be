#pragma once

#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSet>
#include <functional>
#include <variant>

#include "app/campaigns/SequenceAutosave.h"
#include "kit/api/JSONCoding.h"

namespace orv::test {

using namespace Qt::Literals::StringLiterals;

/// A service that has one sequence and ends each save as the test says. Like the real one, it gives an id to what
/// comes without, and drops what comes no more.
class SequenceService {
 public:
  enum class End { accepted, refused, lostBeforeActing, lostAfterActing, brokenAfterActing, neverSent };

  QList<CampaignStep> steps;
  int saves = 0;
  /// An id arrived that the service did not have, or had dropped.
  bool sawUnknownId = false;
  /// Exchanges that somebody still waits for.
  int open = 0;
  /// Called before the answer reaches whoever waits for it, as a transport tells of an ended session.
  std::function<void()> beforeAnswer;

  /// Emails with these waits, written long ago.
  void write(const QList<qint64>& waits) {
    for (const qint64 wait : waits) {
      const qint64 position = steps.size() + 1;
      const QString number = QString::number(position);
      const CampaignVariant variant{u"v"_s + number, u"A"_s, u"Subject"_s, u"old"_s, 1, true, {}};
      steps.append({u"s"_s + number, position, wait, false, {variant}, {}});
    }
  }

  Task<Campaign> save(StepsBody body) {
    ++saves;
    ++open;
    const auto ended = qScopeGuard([this] { --open; });
    const OneShot<Answer> answer;
    m_waiting.append({std::move(body), answer});
    const Answer given = co_await answer.wait();
    if (beforeAnswer) beforeAnswer();
    if (const auto* error = std::get_if<APIError>(&given)) throw APIError(*error);
    co_return std::get<Campaign>(given);
  }

  int waiting() const { return int(m_waiting.size()); }
  void end(End end) {
    Waiting save = m_waiting.takeFirst();
    if (end == End::accepted) return save.answer.give(accept(save.body));
    if (end == End::brokenAfterActing || end == End::lostAfterActing) accept(save.body);
    save.answer.give(errorOf(end));
  }

  /// Both ways over the wire's bytes.
  Campaign accept(const StepsBody& body) {
    apply(decodeJSON<StepsBody>(encodeJSON(body)));
    return decodeJSON<Campaign>(encodeJSON(campaign()));
  }

  Campaign campaign() const {
    Campaign campaign;
    campaign.id = u"c1"_s;
    campaign.name = u"Acme"_s;
    campaign.steps = steps;
    return campaign;
  }
  QList<StepIn> inputs() const { return inputsOf(draftOf(steps)); }

 private:
  using Answer = std::variant<Campaign, APIError>;
  struct Waiting {
    StepsBody body;
    OneShot<Answer> answer;
  };

  static APIError errorOf(End end) {
    if (end == End::brokenAfterActing) return APIError::server(502).withContext({502, false});
    if (end == End::neverSent) return APIError::of(APIError::Kind::unreachable).withContext({.sent = false});
    if (end != End::refused) return APIError::of(APIError::Kind::timedOut);
    Problem problem;
    problem.detail = u"Not now."_s;
    return APIError::problem(problem, {}).withContext({422, false});
  }

  void apply(const StepsBody& body) {
    QSet<QString> known;
    for (const CampaignStep& step : std::as_const(steps)) {
      known.insert(step.id);
      for (const CampaignVariant& variant : step.variants) known.insert(variant.id);
    }
    const auto idOf = [&](const std::optional<QString>& id) {
      if (id && !known.remove(*id)) sawUnknownId = true;
      return id ? *id : QString::number(++m_lastId);
    };
    steps.clear();
    for (const StepIn& in : body.steps) {
      CampaignStep step{idOf(in.id), steps.size() + 1, in.delayMinutes, in.sameThread, {}, {}};
      for (const VariantIn& variant : in.variants)
        step.variants.append(
            {idOf(variant.id), variant.label, variant.subject, variant.body, variant.weight, variant.enabled, {}});
      // The service promises no order of the list; the position tells.
      steps.prepend(step);
    }
  }

  int m_lastId = 0;
  QList<Waiting> m_waiting;
};

inline QString someText(QRandomGenerator& random) {
  static const QStringList pieces{
      u"Hi {{firstName}}"_s, u"👩🏽‍💻"_s, u"e\u0301"_s, u"שלום \u200f"_s, u"\n\n"_s, u"{a|b}"_s, u"\"\\/"_s,
      u"\u00a0\t"_s,         u"مرحبا"_s,           u""_s};
  QString text;
  for (int i = random.bounded(4); i > 0; --i) text += pieces[random.bounded(int(pieces.size()))];
  return text;
}

template <class List>
auto someOf(QRandomGenerator& random, const List& list) {
  return list[random.bounded(int(list.size()))];
}

/// Any one edit that the page offers. Keeps what it removed, to be restored by a later one.
class SomePerson {
 public:
  explicit SomePerson(QRandomGenerator& random) : m_random(random) {}

  void change(SequenceDraft& draft) {
    const int what = m_random.bounded(draft.steps().isEmpty() ? 3 : 14);
    if (what == 0 && draft.steps().size() < 6) draft.insertStep(m_random.bounded(int(draft.steps().size()) + 1));
    if (what == 1 && !m_steps.isEmpty()) draft.restoreStep(someOf(m_random, m_steps));
    if (what == 2 && !m_variants.isEmpty()) draft.restoreVariant(someOf(m_random, m_variants));
    if (what > 2) changeStep(draft, someOf(m_random, draft.steps()), what);
  }

 private:
  void changeStep(SequenceDraft& draft, const DraftStep& step, int what) {
    const DraftVariant variant = someOf(m_random, step.variants);
    if (what == 3) draft.removeStep(step.key), m_steps.append(step.key);
    if (what == 4) draft.addVariant(step.key);
    if (what == 5) draft.removeVariant(variant.key), m_variants.append(variant.key);
    if (what == 6) draft.setWaitDays(step.key, m_random.bounded(70));
    if (what == 7) draft.setSameThread(step.key, !step.sameThread);
    if (what == 8) draft.setWeight(variant.key, m_random.bounded(5));
    if (what == 9) draft.setEnabled(variant.key, !variant.enabled);
    if (what == 10) draft.setSubject(variant.key, someText(m_random));
    if (what > 10) draft.setBody(variant.key, someText(m_random));
  }

  QRandomGenerator& m_random;
  QList<QUuid> m_steps;
  QList<QUuid> m_variants;
};

}  // namespace orv::test
