#include "app/accounts/AccountActions.h"

#include <QPointer>

#include "app/base/shownName.h"
#include "kit/models/mailboxes/mailboxRequests.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

Archive<Mailbox>::Words archiveWords() {
  return {.removed = [](const QString& address) { return address + u" removed"_s; },
          .removedForGood = [](const QString& address) { return address + u" deleted for good"_s; },
          .restored = [](const QString&, const Mailbox&) { return u"Account restored"_s; },
          .cannotRemove = [](const QString& address) { return u"Couldn’t remove "_s + address; },
          .cannotRestore = [](const QString& address) { return u"Couldn’t restore "_s + address; }};
}

ConfirmRequest removeQuestion(const QString& address) {
  return {.title = u"Remove "_s + shownName(address),
          .text = u"It waits in Archived for 30 days with its sign-in, so Restore brings it back as it was."_s,
          .confirm = u"Remove"_s,
          .destructive = true};
}

ConfirmRequest forGoodQuestion(const QString& address) {
  return {.title = u"Delete "_s + shownName(address) + u" for good?"_s,
          .text = {},
          .confirm = u"Delete for good"_s,
          .destructive = true};
}

/// As the store does it, or a message after the store is gone.
Task<void> resumeIn(std::shared_ptr<WorkspaceContext> context, QString id, QString shown) {
  BusySet busy;
  Actions actions(*context, busy, [&context] { context->changes().stale<Mailbox>(); });
  if (co_await actions.change(id, Requests::resumeMailbox(id), u"Couldn’t resume "_s + shown))
    context->services().toasts.success(shown + u" resumed"_s);
}

std::function<void()> laterResume(WorkspaceContext& context, const QString& id, const QString& shown) {
  return undo(context, [id, shown](auto there) { return resumeIn(std::move(there), id, shown); });
}

}  // namespace

AccountActions::AccountActions(WorkspaceContext& context)
    : Store(context),
      m_actions(context, m_busy, [&context] { context.changes().stale<Mailbox>(); }),
      m_archive(context, m_actions, {Requests::deleteMailbox, Requests::restoreMailbox}, archiveWords()) {
  connect(&m_busy, &BusySet::changed, this, &AccountActions::busyChanged);
}

Task<void> AccountActions::pauseTask(QString id, QString address) {
  const QString shown = shownName(address);
  if (!co_await m_actions.perform(id, Requests::pauseMailbox(id), u"Couldn’t pause "_s + shown)) co_return;
  services().toasts.show({.message = shown + u" paused"_s,
                          .tone = Toasts::Tone::success,
                          .actionLabel = u"Resume"_s,
                          .action = [actions = QPointer(this), id, address, gone = laterResume(context(), id, shown)] {
                            actions ? actions->resume(id, address) : gone();
                          }});
}

Task<void> AccountActions::resumeTask(QString id, QString address) {
  const auto mark = m_busy.mark(id);
  if (mark) co_await resumeIn(context().shared_from_this(), id, shownName(address));
}

Task<void> AccountActions::testTask(QString id, QString address) {
  if (m_busy.contains(id)) co_return;
  address = shownName(address);
  services().toasts.show({.message = u"Testing "_s + address});
  const auto tested = co_await m_actions.perform<Mailbox>(
      {id, id}, [id] { return Requests::verifyMailbox(id); }, {}, {},
      [this, address](const APIError& error) {
        return tellInOne(services().toasts, u"Couldn’t test "_s + address + u". "_s, error);
      });
  if (!tested) co_return;
  checkStateOf(*tested) == CheckState::running ? followCheck(id, address) : tell(*tested, address);
}

Task<void> AccountActions::removed(QString id, QString address) { co_await removeTask(id, address); }

Task<bool> AccountActions::removeTask(QString id, QString address) {
  const auto mark = m_busy.mark(id);
  if (!mark || !co_await services().overlays.confirm(removeQuestion(address))) co_return false;
  co_return co_await m_archive.remove(id, address);
}

Task<void> AccountActions::restoreTask(QString id, QString address) {
  const auto mark = m_busy.mark(id);
  if (mark) co_await m_archive.restore(id, address);
}

Task<void> AccountActions::removeForGoodTask(QString id, QString address) {
  const auto mark = m_busy.mark(id);
  if (!mark || !co_await services().overlays.confirm(forGoodQuestion(address))) co_return;
  co_await m_archive.removeForGood(id, address);
}

void AccountActions::followCheck(const QString& id, const QString& address) { m_tasks.start(followTask(id, address)); }

Task<void> AccountActions::followTask(QString id, QString address) {
  const auto mark = m_followed.mark(id);
  if (!mark) co_return;
  address = shownName(address);
  const bool ended =
      co_await poll(services().clock, checkPace, [this, id, address] { return checkEnded(id, address); });
  if (!ended) services().toasts.show({.message = address + u": the connection check takes longer than usual"_s});
}

/// One lost reading is no reason to stop; the next one comes.
Task<bool> AccountActions::checkEnded(QString id, QString address) {
  const Stamp asked = context().changes().stamp();
  try {
    const Mailbox mailbox = co_await api().send(Requests::getMailbox(id));
    const bool isOver = checkStateOf(mailbox) != CheckState::running;
    // Its end is the end of what the person began: whoever shows more than the account itself reads again.
    context().changes().publish(mailbox, asked, isOver);
    if (!isOver) co_return false;
    tell(mailbox, address);
  } catch (const APIError& error) {
    // Removed meanwhile, say: there is nothing to tell of it any more.
    co_return error.context().httpStatus == 404 || error.is(APIError::Kind::unauthorized);
  }
  co_return true;
}

void AccountActions::tell(const Mailbox& mailbox, const QString& address) {
  if (checkStateOf(mailbox) == CheckState::connected) return services().toasts.success(address + u" connected"_s);
  const auto reason = mailbox.connection ? mailbox.connection->lastError : std::nullopt;
  services().toasts.show({.message = address + u": the connection check failed"_s,
                          .tone = Toasts::Tone::error,
                          .detail = shownName(reason.value_or(QString()))});
}

}  // namespace orv
