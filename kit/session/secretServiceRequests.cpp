#include "kit/session/secretServiceRequests.h"

#include <libsecret/secret.h>

namespace orv::secretservice {
namespace {

using Reason = KeychainError::Reason;

/// Receives the GError of one call, and throws it as what it means.
class Failure {
 public:
  Failure() = default;
  Failure(const Failure&) = delete;
  Failure& operator=(const Failure&) = delete;
  ~Failure() { g_clear_error(&m_error); }

  GError** out() { return &m_error; }
  void check() const {
    if (m_error) throw KeychainError::status(m_error->code, reason());
  }
  /// For the steps before anything answers: whatever goes wrong there, there is no keyring.
  void checkConnected() const {
    if (!m_error) return;
    throw KeychainError::status(m_error->code, reason() == Reason::silent ? Reason::silent : Reason::absent);
  }

 private:
  bool is(GQuark domain, std::initializer_list<int> codes) const {
    return m_error->domain == domain && std::find(codes.begin(), codes.end(), m_error->code) != codes.end();
  }
  Reason reason() const {
    if (is(SECRET_ERROR, {SECRET_ERROR_IS_LOCKED})) return Reason::locked;
    if (is(G_IO_ERROR, {G_IO_ERROR_TIMED_OUT, G_IO_ERROR_CANCELLED}) ||
        is(G_DBUS_ERROR, {G_DBUS_ERROR_NO_REPLY, G_DBUS_ERROR_TIMEOUT, G_DBUS_ERROR_TIMED_OUT}))
      return Reason::silent;
    if (is(G_DBUS_ERROR,
           {G_DBUS_ERROR_SERVICE_UNKNOWN, G_DBUS_ERROR_NAME_HAS_NO_OWNER, G_DBUS_ERROR_DISCONNECTED,
            G_DBUS_ERROR_SPAWN_EXEC_FAILED, G_DBUS_ERROR_SPAWN_CHILD_EXITED, G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND}) ||
        is(G_IO_ERROR, {G_IO_ERROR_CLOSED}))
      return Reason::absent;
    return Reason::other;
  }

  GError* m_error = nullptr;
};

const SecretSchema* schema() {
  static const SecretSchema schema = [] {
    SecretSchema result{};
    result.name = "com.orvella.desktop.Item";
    result.attributes[0] = {"service", SECRET_SCHEMA_ATTRIBUTE_STRING};
    result.attributes[1] = {"account", SECRET_SCHEMA_ATTRIBUTE_STRING};
    return result;
  }();
  return &schema;
}

/// Attributes are not encrypted: identity only.
std::unique_ptr<GHashTable, decltype(&g_hash_table_unref)> attributes(const Item& item) {
  return {secret_attributes_build(schema(), "service", item.service.toUtf8().constData(), "account",
                                  item.account.toUtf8().constData(), nullptr),
          &g_hash_table_unref};
}

void freeItems(GList* list) { g_list_free_full(list, g_object_unref); }

KeychainError lockedError() { return KeychainError::status(SECRET_ERROR_IS_LOCKED, Reason::locked); }

}  // namespace

KeychainError silentError() { return KeychainError::status(G_IO_ERROR_TIMED_OUT, Reason::silent); }

Cancellable::Cancellable() : m_cancellable(g_cancellable_new()) {}
Cancellable::~Cancellable() { g_object_unref(m_cancellable); }
void Cancellable::cancel() { g_cancellable_cancel(m_cancellable); }

void Session::Unref::operator()(void* object) const { g_object_unref(object); }

Session::Session(Cancellable& cancellable, std::function<void(bool)> unlocking)
    : m_cancellable(cancellable), m_unlocking(std::move(unlocking)) {}

Session::~Session() = default;

void Session::connect() {
  Failure failure;
  const std::unique_ptr<GDBusConnection, Unref> bus(
      g_bus_get_sync(G_BUS_TYPE_SESSION, m_cancellable.get(), failure.out()));
  failure.checkConnected();
  // By default the whole program is ended by a signal when the session bus goes away.
  g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  m_service.reset(secret_service_open_sync(SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_OPEN_SESSION,
                                           m_cancellable.get(), failure.out()));
  failure.check();
  openDefaultCollection();
}

void Session::openDefaultCollection() {
  Failure failure;
  // Some services show no items at all of a locked collection, so "not found" means nothing until it is open.
  m_collection.reset(secret_collection_for_alias_sync(m_service.get(), SECRET_COLLECTION_DEFAULT,
                                                      SECRET_COLLECTION_NONE, m_cancellable.get(), failure.out()));
  failure.check();
  if (m_collection && secret_collection_get_locked(m_collection.get())) unlock(m_collection.get());
}

void Session::unlock(void* object) {
  Failure failure;
  GList objects{object, nullptr, nullptr};
  m_unlocking(true);
  const int count = secret_service_unlock_sync(m_service.get(), &objects, m_cancellable.get(), nullptr, failure.out());
  m_unlocking(false);
  failure.check();
  // A dismissed prompt is no error to the library.
  if (count < 1) throw lockedError();
}

Session::ItemList Session::find(const Item& item) {
  Failure failure;
  // Another collection may hold an item of the same name: of an earlier keyring, or of somebody who put it there.
  ItemList items(m_collection ? secret_collection_search_sync(m_collection.get(), schema(), attributes(item).get(),
                                                              SECRET_SEARCH_ALL, m_cancellable.get(), failure.out())
                              : nullptr,
                 freeItems);
  failure.check();
  for (const GList* entry = items.get(); entry; entry = entry->next)
    if (secret_item_get_locked(SECRET_ITEM(entry->data))) unlock(entry->data);
  return items;
}

std::optional<QByteArray> Session::read(const Item& item) {
  connect();
  const ItemList items = find(item);
  if (!items) return std::nullopt;
  Failure failure;
  auto* const found = SECRET_ITEM(items->data);
  secret_item_load_secret_sync(found, m_cancellable.get(), failure.out());
  failure.check();
  const std::unique_ptr<SecretValue, void (*)(SecretValue*)> value(
      secret_item_get_secret(found), [](SecretValue* secret) { secret_value_unref(secret); });
  gsize size = 0;
  const char* const data = value ? secret_value_get(value.get(), &size) : nullptr;
  if (size == 0) throw KeychainError::corrupted();
  return QByteArray(data, qsizetype(size));
}

void Session::write(const Item& item, const QByteArray& data) {
  connect();
  Failure failure;
  const std::unique_ptr<SecretValue, void (*)(SecretValue*)> value(
      secret_value_new(data.constData(), data.size(), "application/octet-stream"),
      [](SecretValue* secret) { secret_value_unref(secret); });
  m_unlocking(true);  // the first item ever may ask for the password of a new keyring
  const bool stored =
      secret_service_store_sync(m_service.get(), schema(), attributes(item).get(), SECRET_COLLECTION_DEFAULT,
                                item.label.toUtf8().constData(), value.get(), m_cancellable.get(), failure.out());
  m_unlocking(false);
  failure.check();
  if (!stored) throw lockedError();
}

void Session::remove(const Item& item) {
  connect();
  const ItemList items = find(item);
  for (const GList* entry = items.get(); entry; entry = entry->next) {
    Failure failure;
    secret_item_delete_sync(SECRET_ITEM(entry->data), m_cancellable.get(), failure.out());
    failure.check();
  }
  removeElsewhere(item);
}

/// Nothing reads what other collections hold, so it goes only where that asks nobody for a password.
void Session::removeElsewhere(const Item& item) {
  Failure unfound;
  const ItemList items(secret_service_search_sync(m_service.get(), schema(), attributes(item).get(), SECRET_SEARCH_ALL,
                                                  m_cancellable.get(), unfound.out()),
                       freeItems);
  for (const GList* entry = items.get(); entry; entry = entry->next) {
    Failure undeleted;
    if (!secret_item_get_locked(SECRET_ITEM(entry->data)))
      secret_item_delete_sync(SECRET_ITEM(entry->data), m_cancellable.get(), undeleted.out());
  }
}

}  // namespace orv::secretservice
