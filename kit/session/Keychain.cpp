#include "kit/session/Keychain.h"

namespace orv {

const char* KeychainError::what() const noexcept {
  if (m_kind == Kind::corrupted) return "the item is corrupted";
  switch (m_reason) {
    case Reason::locked:
      return "the keyring is locked";
    case Reason::absent:
      return "there is no keyring";
    case Reason::silent:
      return "the keyring does not answer";
    case Reason::other:
      return "the keyring refused";
  }
  return "";
}

}  // namespace orv
