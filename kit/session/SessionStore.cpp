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
  std::optional<StoredSession> session;
  try {
    session = decodeJSON<StoredSession>(*data);
  } catch (const DecodeError&) {
    throw KeychainError::corrupted();
  }
  if (m_voided.contains(session->issuedAt)) {
    if (!co_await remove()) m_voided.forget();
    co_return std::nullopt;
  }
  m_held = session->issuedAt;
  co_return session;
}

Task<void> SessionStore::save(StoredSession session) {
  const auto failure = co_await write(encodeJSON(session));
  if (!failure) {
    m_held = session.issuedAt;
    m_voided.forget();
    co_return;
  }
  // An older state of this very sign-in may stay; what somebody else left must not be opened at the next start.
  if (m_held != session.issuedAt) {
    // Of a keyring that is locked, asking again would only have the person asked again.
    const bool mayLetGo = failure->reason() == KeychainError::Reason::other;
    if (!mayLetGo || co_await remove()) m_voided.add(session.issuedAt.addMSecs(-1));
  }
  throw KeychainError(*failure);
}

Task<void> SessionStore::clear(QDateTime now) {
  const auto failure = co_await remove();
  if (!failure) co_return m_voided.forget();
  m_voided.add(now);
  throw KeychainError(*failure);
}

Task<std::optional<KeychainError>> SessionStore::write(QByteArray data) {
  try {
    co_await m_keychain.write(account, data);
    // Secret stores exist that accept an item and do not keep it.
    if (co_await m_keychain.read(account) != data) co_return KeychainError::corrupted();
  } catch (const KeychainError& error) {
    co_return error;
  }
  co_return std::nullopt;
}

Task<std::optional<KeychainError>> SessionStore::remove() {
  m_held.reset();
  try {
    co_await m_keychain.remove(account);
  } catch (const KeychainError& error) {
    co_return error;
  }
  co_return std::nullopt;
}

}  // namespace orv
