#pragma once

#include <QByteArray>
#include <QString>
#include <exception>
#include <optional>

#include "kit/async/Task.h"

namespace orv {

/// How the secret store refused.
class KeychainError final : public std::exception {
 public:
  enum class Kind { status, corrupted };
  /// Why, as far as words on screen depend on it.
  enum class Reason { locked, absent, silent, other };

  static KeychainError status(qint32 code, Reason reason) { return {Kind::status, code, reason}; }
  /// An item was found but holds no data, or data that does not decode.
  static KeychainError corrupted() { return {Kind::corrupted, 0, Reason::other}; }

  Kind kind() const { return m_kind; }
  /// The store's own status code, of `status`.
  qint32 code() const { return m_code; }
  Reason reason() const { return m_reason; }
  const char* what() const noexcept override;

  bool operator==(const KeychainError& other) const { return m_kind == other.m_kind && m_code == other.m_code; }

 private:
  KeychainError(Kind kind, qint32 code, Reason reason) : m_kind(kind), m_code(code), m_reason(reason) {}
  Kind m_kind;
  qint32 m_code;
  Reason m_reason;
};

/// The system's secret store: named items under one service. Every operation may take as long as a person takes to
/// unlock a keyring, and throws KeychainError.
class Keychain {
 public:
  explicit Keychain(QString service) : m_service(std::move(service)) {}
  virtual ~Keychain() = default;

  /// The application's reverse-domain identifier, under which all its items live.
  const QString& service() const { return m_service; }

  /// Nothing when there is no such item. A locked store is an error, not an absent item.
  virtual Task<std::optional<QByteArray>> read(QString account) = 0;
  /// Replaces the item, or adds it.
  virtual Task<void> write(QString account, QByteArray data) = 0;
  /// Succeeds when there is no such item.
  virtual Task<void> remove(QString account) = 0;

 private:
  QString m_service;
};

}  // namespace orv
