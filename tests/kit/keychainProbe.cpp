// A process of its own for every request: what one leaves in the keyring, the next must find, and each meets the
// session bus of its own environment.
//
//   kit-keychain-probe MILLISECONDS (read | write=DATA | remove | shadow=DATA)…   prints one line per request;
//       shadow puts an item of the same name into another collection
//   kit-keychain-probe --swallow                                     owns the secret service's name and never answers

#include <gio/gio.h>
#include <libsecret/secret.h>

#include <QCoreApplication>
#include <cstdio>

#include "kit/async/TaskScope.h"
#include "kit/session/SecretServiceKeychain.h"

using namespace orv;
using namespace Qt::Literals::StringLiterals;

namespace {

const char* name(KeychainError::Reason reason) {
  switch (reason) {
    case KeychainError::Reason::locked:
      return "locked";
    case KeychainError::Reason::absent:
      return "absent";
    case KeychainError::Reason::silent:
      return "silent";
    case KeychainError::Reason::other:
      return "other";
  }
  return "";
}

void shadow(const QByteArray& data) {
  const SecretSchema schema{"com.orvella.desktop.Item",
                            SECRET_SCHEMA_NONE,
                            {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING}, {"account", SECRET_SCHEMA_ATTRIBUTE_STRING}},
                            0,
                            nullptr,
                            nullptr,
                            nullptr,
                            nullptr,
                            nullptr,
                            nullptr,
                            nullptr};
  const bool stored = secret_password_store_sync(&schema, SECRET_COLLECTION_SESSION, "Other", data.constData(), nullptr,
                                                 nullptr, "service", "com.orvella.test", "account", "session", nullptr);
  std::puts(stored ? "shadowed" : "not shadowed");
}

Task<void> perform(Keychain& keychain, QString request) {
  try {
    if (request.startsWith("shadow="_L1)) {
      shadow(request.sliced(7).toUtf8());
    } else if (request == "read"_L1) {
      const auto data = co_await keychain.read(u"session"_s);
      std::printf("%s\n", data ? ("data " + *data).constData() : "none");
    } else if (request == "remove"_L1) {
      co_await keychain.remove(u"session"_s);
      std::puts("removed");
    } else {
      co_await keychain.write(u"session"_s, request.sliced(6).toUtf8());
      std::puts("written");
    }
  } catch (const KeychainError& error) {
    std::puts(error.kind() == KeychainError::Kind::corrupted ? "corrupted" : name(error.reason()));
  }
}

Task<void> performAll(Keychain& keychain, QStringList requests) {
  for (const QString& request : requests) co_await perform(keychain, request);
  QCoreApplication::quit();
}

int swallow() {
  const auto bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  g_dbus_connection_add_filter(
      bus,
      [](GDBusConnection*, GDBusMessage* message, gboolean incoming, gpointer) -> GDBusMessage* {
        if (!incoming || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) return message;
        g_object_unref(message);
        return nullptr;
      },
      nullptr, nullptr);
  g_bus_own_name_on_connection(bus, "org.freedesktop.secrets", G_BUS_NAME_OWNER_FLAGS_NONE, nullptr, nullptr, nullptr,
                               nullptr);
  g_main_loop_run(g_main_loop_new(nullptr, FALSE));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QStringList arguments = application.arguments().sliced(1);
  if (arguments.first() == "--swallow"_L1) return swallow();
  SystemClock clock;
  SecretServiceKeychain keychain(u"com.orvella.test"_s, u"Orvella test"_s, clock,
                                 {std::chrono::milliseconds(arguments.takeFirst().toInt()), std::chrono::minutes(1)});
  TaskScope scope;
  QMetaObject::invokeMethod(
      &application, [&] { scope.start(performAll(keychain, arguments)); }, Qt::QueuedConnection);
  return application.exec();
}
