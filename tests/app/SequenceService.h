#pragma once

#include <QSet>
#include <variant>

#include "app/campaigns/SequenceAutosave.h"
#include "kit/api/JSONCoding.h"

namespace orv::test {

/// A service that has one sequence and ends each save as the test says. Like the real one, it gives an id to what
/// comes without, and drops what comes no more.
class SequenceService {
 public:
  enum class End { accepted, refused, lostBeforeActing, lostAfterActing, brokenAfterActing };

  QList<CampaignStep> steps;
  int saves = 0;
  /// An id arrived that the service did not have, or had dropped.
  bool sawUnknownId = false;

  Task<Campaign> save(StepsBody body) {
    ++saves;
    const OneShot<Answer> answer;
    m_waiting.append({std::move(body), answer});
    const Answer given = co_await answer.wait();
    if (const auto* error = std::get_if<APIError>(&given)) throw APIError(*error);
    co_return std::get<Campaign>(given);
  }

  int waiting() const { return int(m_waiting.size()); }
  void end(End end) {
    Waiting save = m_waiting.takeFirst();
    if (end == End::accepted) return save.answer.give(accept(save.body));
    if (end != End::refused && end != End::lostBeforeActing) accept(save.body);
    save.answer.give(errorOf(end));
  }

  /// Both ways over the wire's bytes.
  Campaign accept(const StepsBody& body) {
    apply(decodeJSON<StepsBody>(encodeJSON(body)));
    return decodeJSON<Campaign>(encodeJSON(campaign()));
  }

  Campaign campaign() const {
    Campaign campaign;
    campaign.id = QStringLiteral("c1");
    campaign.name = QStringLiteral("Acme");
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
    if (end != End::refused) return APIError::of(APIError::Kind::timedOut);
    Problem problem;
    problem.detail = QStringLiteral("Not now.");
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

}  // namespace orv::test
