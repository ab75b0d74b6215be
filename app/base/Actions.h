#pragma once

#include <functional>
#include <optional>

#include "app/base/BusySet.h"
#include "app/base/Toasts.h"
#include "kit/api/APITransport.h"

namespace orv {

/// How every store acts on a record: mark it busy, send once, tell a failure under the action's own sentence.
class Actions {
 public:
  /// `recheck` is called when what is shown may no longer be what the service has: the answer never arrived whole, so
  /// it may have acted; or the record had moved on.
  Actions(APITransport& api, Toasts& toasts, BusySet& busy, std::function<void()> recheck)
      : m_api(api), m_toasts(toasts), m_busy(busy), m_recheck(std::move(recheck)) {}

  /// The answer, or nothing when the record is busy already or the action failed, which has then been told.
  /// `failure` is the title of that toast; empty shows the error's own sentence instead.
  template <class R>
  Task<std::optional<R>> perform(QString id, Request<R> request, QString failure) {
    const auto mark = m_busy.mark(id);
    if (!mark) co_return std::nullopt;
    co_return co_await send(std::move(request), std::move(failure));
  }

  /// The same for an action that goes on after its answer and holds the mark itself.
  template <class R>
  Task<std::optional<R>> send(Request<R> request, QString failure) {
    const bool changes = request.method != HTTPMethod::get;
    try {
      co_return co_await m_api.send(std::move(request));
    } catch (const APIError& error) {
      m_toasts.failure(failure, error);
      if (changes && (mayHaveActed(error) || isVersionConflict(error))) m_recheck();
    }
    co_return std::nullopt;
  }

 private:
  APITransport& m_api;
  Toasts& m_toasts;
  BusySet& m_busy;
  std::function<void()> m_recheck;
};

}  // namespace orv
