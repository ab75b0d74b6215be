#pragma once

#include "kit/session/Keychain.h"
#include "kit/session/StoredSession.h"

namespace orv {

/// The one owner of the session item. Everything throws KeychainError.
class SessionStore {
 public:
  explicit SessionStore(Keychain& keychain) : m_keychain(keychain) {}

  Task<std::optional<StoredSession>> load();
  /// Replaces any earlier session whole, and counts as saved only when it has been read back.
  Task<void> save(StoredSession session);
  Task<void> clear();

 private:
  Keychain& m_keychain;
};

}  // namespace orv
