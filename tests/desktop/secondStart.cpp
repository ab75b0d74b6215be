// Another start of the application: prints whether it is the first or the second of its session, and leaves.

#include <QCoreApplication>
#include <cstdio>

#include "desktop/services/SingleInstance.h"

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  orv::SingleInstance instance(QStringLiteral("com.orvella.test"), QDBusConnection::sessionBus());
  const auto start = instance.claim(instance.linksIn(application.arguments()));
  std::puts(start == orv::SingleInstance::Start::first ? "first" : "second");
}
