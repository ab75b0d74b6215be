#include "app/base/EachOf.h"

#include "kit/api/APIError.h"
#include "kit/async/OneShot.h"
#include "kit/async/TaskScope.h"

namespace orv {
namespace {

constexpr qsizetype fewAtATime = 4;

struct Round {
  QStringList ids;
  std::function<Task<void>(QString)> one;
  std::function<void(qsizetype)> told;
  qsizetype next = 0;
  qsizetype ended = 0;
  EachOutcome outcome = {};
  OneShot<bool> end = {};
};

Task<void> goOn(std::shared_ptr<Round> round) {
  while (round->next < round->ids.size()) {
    const QString id = round->ids[round->next++];
    try {
      co_await round->one(id);
      round->outcome.done.append(id);
    } catch (const APIError& error) {
      if (round->outcome.failed.isEmpty()) round->outcome.reason = error.message();
      round->outcome.failed.append(id);
    }
    ++round->ended;
    if (round->told) round->told(round->ended);
  }
  // Last, for who waits may be gone when this returns.
  if (round->ended == round->ids.size()) round->end.give(true);
}

}  // namespace

Task<EachOutcome> eachOf(QStringList ids, std::function<Task<void>(QString)> one, std::function<void(qsizetype)> told) {
  if (ids.isEmpty()) co_return EachOutcome{};
  const auto round = std::make_shared<Round>(Round{std::move(ids), std::move(one), std::move(told)});
  TaskScope few;
  for (qsizetype worker = 0; worker < std::min(fewAtATime, round->ids.size()); ++worker) few.start(goOn(round));
  co_await round->end.wait();
  co_return round->outcome;
}

}  // namespace orv
