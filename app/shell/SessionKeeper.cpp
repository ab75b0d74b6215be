#include "app/shell/SessionKeeper.h"

#include <QLoggingCategory>

using namespace Qt::Literals::StringLiterals;

namespace orv {

Q_LOGGING_CATEGORY(lcKeeper, "orvella.app")

SessionKeeper::SessionKeeper(const Platform& platform, Toasts& toasts)
    : m_clock(platform.clock),
      m_preferences(platform.preferences),
      m_toasts(toasts),
      m_store(platform.keychain, platform.stateFolder),
      m_keeps(!platform.demoSession) {}

Task<std::optional<StoredSession>> SessionKeeper::load() {
  const auto stored = co_await m_store.load();
  m_kept = stored;
  co_return stored;
}

void SessionKeeper::keep(const StoredSession& session) {
  if (!m_keeps || m_kept == session) return;
  m_kept = session;
  m_preferences.setSignedInName(session.user.name);
  m_writes.start(save(session));
}

void SessionKeeper::forget() {
  m_kept.reset();
  m_preferences.setSignedInName({});
  if (m_keeps) m_writes.start(clear());
}

Task<void> SessionKeeper::save(StoredSession session) {
  try {
    co_await m_store.save(session);
  } catch (const KeychainError& error) {
    qCWarning(lcKeeper, "The session is kept in memory only: %s", error.what());
    if (std::exchange(m_toldUnsaved, true)) co_return;
    m_toasts.show({.message = u"Your sign-in couldn’t be saved"_s,
                   .detail = u"The system keyring isn’t available, so Orvella asks again next time."_s});
  }
}

Task<void> SessionKeeper::clear() {
  try {
    co_await m_store.clear(m_clock.now());
  } catch (const KeychainError& error) {
    qCWarning(lcKeeper, "The stored session could not be removed: %s", error.what());
    if (error.reason() == KeychainError::Reason::absent) co_return;
    m_toasts.show({.message = u"Your sign-in is still in the system keyring"_s,
                   .tone = Toasts::Tone::error,
                   .detail = u"It couldn’t be removed. Unlock the keyring, then sign in and out once more."_s});
  }
}

}  // namespace orv
