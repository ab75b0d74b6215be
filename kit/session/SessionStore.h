#pragma once

#include "kit/session/Keychain.h"
#include "kit/session/StoredSession.h"
#include "kit/session/VoidedSessions.h"

namespace orv {

/// The one owner of the session item. Everything throws KeychainError.
///
/// A session that was replaced or ended is not opened again, even where the keychain does not let go of it.
class SessionStore {
 public:
  /// See VoidedSessions for `stateFolder`.
  explicit SessionStore(Keychain& keychain, const QString& stateFolder = {})
      : m_keychain(keychain), m_voided(stateFolder) {}

  Task<std::optional<StoredSession>> load();
  /// Replaces any earlier session whole, and counts as saved only when it has been read back. When that fails, the
  /// session of an earlier sign-in is gone all the same.
  Task<void> save(StoredSession session);
  /// Ends every session obtained until `now`.
  Task<void> clear(QDateTime now);

 private:
  Task<std::optional<KeychainError>> write(QByteArray data);
  Task<std::optional<KeychainError>> remove();

  Keychain& m_keychain;
  VoidedSessions m_voided;
  /// When the session that the keychain is known to hold was obtained.
  std::optional<QDateTime> m_held;
};

}  // namespace orv
