#include "kit/session/SessionStore.h"

#include "kit/api/JSONCoding.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {
const auto account = u"session"_s;
}

Task<std::optional<StoredSession>> SessionStore::load() {
  const auto data = co_await m_keychain.read(account);
  if (!data) co_return std::nullopt;
  try {
    co_return decodeJSON<StoredSession>(*data);
  } catch (const DecodeError&) {
    throw KeychainError::corrupted();
  }
}

Task<void> SessionStore::save(StoredSession session) {
  const QByteArray data = encodeJSON(session);
  co_await m_keychain.write(account, data);
  // Secret stores exist that accept an item and do not keep it.
  if (co_await m_keychain.read(account) != data) throw KeychainError::corrupted();
}

Task<void> SessionStore::clear() { co_await m_keychain.remove(account); }

}  // namespace orv
