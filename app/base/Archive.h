#pragma once

#include "app/base/Actions.h"
#include "app/base/Undo.h"
#include "app/base/shownName.h"

namespace orv {

/// Deleting that can be taken back: archive with "Undo", restore, delete for good. Each place has words of its own for
/// it, and each record its requests. The answer to restoring is the record, unless the service says nothing.
template <WholeRecord Record, class Restored = Record>
class Archive final {
 public:
  struct Requests {
    std::function<Request<Empty>(const QString& id, bool forGood)> remove;
    std::function<Request<Restored>(const QString& id)> restore;
  };
  /// The sentences of one place, by the record's name where they have one in them.
  struct Words {
    std::function<QString(const QString& name)> removed;
    std::function<QString(const QString& name)> removedForGood;
    std::function<QString(const QString& name, const Restored&)> restored;
    std::function<QString(const QString& name)> cannotRemove;
    std::function<QString(const QString& name)> cannotRestore;
    /// Where it is not the one of removing.
    std::function<QString(const QString& name)> cannotRemoveForGood = {};
  };

  Archive(WorkspaceContext& context, Actions& actions, Requests requests, Words words)
      : m_context(context), m_actions(actions), m_requests(std::move(requests)), m_words(std::move(words)) {}

  /// The record has been asked about and is marked busy by the caller. True when it is in the archive now.
  Task<bool> remove(QString id, QString name) {
    name = shownName(name);
    if (!co_await m_actions.remove<Record>(id, m_requests.remove(id, false), m_words.cannotRemove(name), lost()))
      co_return false;
    m_context.changes().template stale<Archived<Record>>();
    m_context.services().toasts.show({.message = m_words.removed(name),
                                      .actionLabel = QStringLiteral("Undo"),
                                      .action = undo(id, name),
                                      .accumulates = true});
    co_return true;
  }

  Task<bool> restore(QString id, QString name) {
    return restoreIn(m_context.shared_from_this(), m_requests, m_words, std::move(id), shownName(name));
  }

  Task<bool> removeForGood(QString id, QString name) {
    name = shownName(name);
    if (!co_await m_actions.remove<Archived<Record>>(id, m_requests.remove(id, true), cannotRemoveForGood(name),
                                                     lost()))
      co_return false;
    m_context.services().toasts.success(m_words.removedForGood(name));
    co_return true;
  }

 private:
  QString cannotRemoveForGood(const QString& name) const {
    return m_words.cannotRemoveForGood ? m_words.cannotRemoveForGood(name) : m_words.cannotRemove(name);
  }

  /// An answer that was lost may have moved the record. Whoever acts reads the list again, the archive is this one's.
  Actions::Tell lost() const {
    return [&changes = m_context.changes()](const APIError& error) {
      if (mayHaveActed(error)) changes.template stale<Archived<Record>>();
      return false;
    };
  }

  std::function<void()> undo(const QString& id, const QString& name) {
    return orv::undo(m_context, [requests = m_requests, words = m_words, id, name](auto context) {
      return undoIn(std::move(context), requests, words, id, name);
    });
  }

  static Task<void> undoIn(std::shared_ptr<WorkspaceContext> context, Requests requests, Words words, QString id,
                           QString name) {
    co_await restoreIn(context, requests, words, id, name);
  }

  static Task<bool> restoreIn(std::shared_ptr<WorkspaceContext> context, Requests requests, Words words, QString id,
                              QString name) {
    BusySet busy;
    Actions actions(*context, busy, [&context] {
      context->changes().template stale<Record>();
      context->changes().template stale<Archived<Record>>();
    });
    const auto restored = co_await actions.change(id, requests.restore(id), words.cannotRestore(name));
    if (!restored) co_return false;
    if constexpr (!std::same_as<Restored, Record>) context->changes().template stale<Record>();
    context->changes().template gone<Archived<Record>>(id, context->changes().stamp());
    context->services().toasts.success(words.restored(name, *restored));
    co_return true;
  }

  WorkspaceContext& m_context;
  Actions& m_actions;
  Requests m_requests;
  Words m_words;
};

}  // namespace orv
