#pragma once

#include <functional>
#include <optional>

#include "app/base/BusySet.h"
#include "app/base/WorkspaceContext.h"

namespace orv {

/// What an action is about.
struct ActionTarget {
  /// What is busy meanwhile: the same action on it is ignored.
  QString busy;
  /// The record whose changes go one after another.
  QString record;
};

/// Told to whose change waited for its turn behind a removal.
inline QString deletedMeanwhile() { return QStringLiteral("It was deleted meanwhile."); }

/// How every store acts on a record: mark it busy, wait for its turn, send once, tell everybody of the answer or the
/// person of a failure under the action's own sentence.
class Actions {
 public:
  /// `recheck` is called when what is shown may no longer be what the service has: the answer never arrived whole, so
  /// it may have acted; or the record had moved on.
  Actions(WorkspaceContext& context, BusySet& busy, std::function<void()> recheck)
      : m_context(context), m_busy(busy), m_recheck(std::move(recheck)) {}

  template <class R>
  using Build = std::function<Request<R>()>;
  /// Gets the answer before anybody else does: a form, say, that must know what of it is its own.
  template <class R>
  using First = std::function<void(const R&)>;
  /// Gets the error first, and says whether it has been told: a form shows it in itself while somebody sees it there.
  using Tell = std::function<bool(const APIError&)>;

  /// The answer, or nothing when the target is busy already or the action failed, which has then been told.
  /// `failure` is the title of that message; empty shows the error's own sentence instead.
  template <class R>
  Task<std::optional<R>> perform(ActionTarget target, Build<R> build, QString failure, First<R> first = {},
                                 Tell tell = {}) {
    const auto mark = m_busy.mark(target.busy);
    if (!mark) co_return std::nullopt;
    co_return co_await change(std::move(target.record), std::move(build), std::move(failure), std::move(first),
                              std::move(tell));
  }
  template <class R>
  Task<std::optional<R>> perform(QString id, Request<R> request, QString failure) {
    return perform(ActionTarget{id, id}, whenItsTurnComes(std::move(request)), std::move(failure));
  }

  /// The same for an action that holds its mark itself, because it goes on after its answer.
  template <class R>
  Task<std::optional<R>> change(QString record, Request<R> request, QString failure) {
    return change(std::move(record), whenItsTurnComes(std::move(request)), std::move(failure));
  }
  /// `build` is called when the turn has come: what it depends on may have changed by then.
  template <class R>
  Task<std::optional<R>> change(QString record, Build<R> build, QString failure, First<R> first = {}, Tell tell = {}) {
    const auto turn = co_await m_context.turns().next(record);
    if (!turn) {
      m_context.services().toasts.show({.message = failure.isEmpty() ? QStringLiteral("Nothing was changed") : failure,
                                        .tone = Toasts::Tone::error,
                                        .detail = deletedMeanwhile()});
      co_return std::nullopt;
    }
    co_return co_await send(build(), std::move(failure), std::move(first), std::move(tell));
  }

  /// The change after which the record is gone from where it was: what waits behind it is let go, aloud.
  template <class Record>
  Task<bool> remove(QString id, Request<Empty> request, QString failure, Tell tell = {}) {
    auto turn = co_await m_context.turns().next(id);
    // Somebody else's removal came first; that one has been told.
    if (!turn) co_return false;
    if (!co_await send(std::move(request), std::move(failure), {}, std::move(tell))) co_return false;
    turn.recordGone();
    // As of now: a list that was asked for while this was under way may not know it yet.
    m_context.changes().gone<Record>(id, m_context.changes().stamp());
    co_return true;
  }

  /// Asks without a turn: for what changes no record that others change as well.
  template <class R>
  Task<std::optional<R>> send(Request<R> request, QString failure, First<R> first = {}, Tell tell = {}) {
    const bool changes = request.method != HTTPMethod::get;
    const auto madeOn = request.ifMatch;
    const Stamp asked = m_context.changes().stamp();
    std::optional<WorkspaceContext::Sending> sending;
    if (changes) sending.emplace(m_context);
    try {
      R answer = co_await m_context.api().send(std::move(request));
      m_context.cameOnline();
      if (first) first(answer);
      if constexpr (WholeRecord<R>) m_context.changes().publish(answer, asked, changes, madeOn);
      co_return answer;
    } catch (const APIError& error) {
      if (!tell || !tell(error)) m_context.services().toasts.failure(failure, error);
      if (sending) sending->failed();
      if (changes && (mayHaveActed(error) || isVersionConflict(error))) m_recheck();
    }
    co_return std::nullopt;
  }

 private:
  template <class R>
  static Build<R> whenItsTurnComes(Request<R> request) {
    return [request = std::move(request)] { return request; };
  }

  WorkspaceContext& m_context;
  BusySet& m_busy;
  std::function<void()> m_recheck;
};

}  // namespace orv
