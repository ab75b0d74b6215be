#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <variant>

#include "kit/session/Keychain.h"

// The library's own names, declared without its headers.
// NOLINTBEGIN(bugprone-reserved-identifier)
typedef struct _GCancellable GCancellable;
typedef struct _GList GList;
typedef struct _SecretCollection SecretCollection;
typedef struct _SecretService SecretService;
// NOLINTEND(bugprone-reserved-identifier)

/// The blocking calls to the secret service, for SecretServiceKeychain's own thread.
namespace orv::secretservice {

struct Item {
  QString service;
  QString account;
  QString label;
};

using Outcome = std::variant<std::optional<QByteArray>, KeychainError>;

/// The service owes an answer and does not give it.
KeychainError silentError();

/// May be cancelled from any thread.
class Cancellable {
 public:
  Cancellable();
  Cancellable(const Cancellable&) = delete;
  Cancellable& operator=(const Cancellable&) = delete;
  ~Cancellable();
  void cancel();
  GCancellable* get() const { return m_cancellable; }

 private:
  GCancellable* m_cancellable;
};

/// The service, spoken to for one request: a connection kept longer would outlive a restart of the service with a dead
/// session. Everything throws KeychainError.
class Session {
 public:
  /// `unlocking` is told when a person may be asked to unlock the keyring, and when that is over.
  Session(Cancellable& cancellable, std::function<void(bool)> unlocking);
  ~Session();

  std::optional<QByteArray> read(const Item& item);
  void write(const Item& item, const QByteArray& data);
  void remove(const Item& item);

 private:
  struct Unref {
    void operator()(void* object) const;
  };
  using ItemList = std::unique_ptr<GList, void (*)(GList*)>;

  void connect();
  void openDefaultCollection();
  void unlock(void* object);
  ItemList find(const Item& item);
  void removeElsewhere(const Item& item);

  Cancellable& m_cancellable;
  std::function<void(bool)> m_unlocking;
  std::unique_ptr<SecretService, Unref> m_service;
  /// Null as long as the desktop has none.
  std::unique_ptr<SecretCollection, Unref> m_collection;
};

}  // namespace orv::secretservice
