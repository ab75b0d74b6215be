#pragma once

#include <optional>

#include "app/base/Toasts.h"
#include "app/shell/Platform.h"
#include "kit/async/TaskScope.h"
#include "kit/session/SessionStore.h"

namespace orv {

/// Keeps the sign-in in the system's keyring, and says so where that does not work.
class SessionKeeper final {
 public:
  SessionKeeper(const Platform& platform, Toasts& toasts);

  /// What was kept; throws KeychainError.
  Task<std::optional<StoredSession>> load();
  void keep(const StoredSession& session);
  void forget();
  /// Nothing is being written that the next start would miss.
  bool isIdle() const { return m_writes.isIdle(); }

 private:
  Task<void> save(StoredSession session);
  Task<void> clear();

  Clock& m_clock;
  Preferences& m_preferences;
  Toasts& m_toasts;
  SessionStore m_store;
  /// The sample is there anyhow.
  const bool m_keeps;
  /// What the keychain was last given: each write may make the desktop ask for the keyring's password.
  std::optional<StoredSession> m_kept;
  /// One after the other: a save overtaken by the clear of a sign-out would bring the session back.
  TaskSlot m_writes;
  bool m_toldUnsaved = false;
};

}  // namespace orv
