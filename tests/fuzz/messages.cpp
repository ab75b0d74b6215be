#include <QUrl>

#include "desktop/services/LogFile.h"
#include "desktop/services/SingleInstance.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

/// What another start, or whoever finds the running one's address, hands over: a line on its socket, links on the bus.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  static const SingleInstance instance(QStringLiteral("com.orvella.desktop"), QDBusConnection(QStringLiteral("none")));
  const QByteArray line = fuzz::input(bytes, size);
  const auto handed = SingleInstance::read(line);
  const auto again = SingleInstance::read(SingleInstance::written(handed));
  fuzz::require(again.links == handed.links && again.activationToken == handed.activationToken,
                "what is written is read");
  QStringList links = handed.links;
  for (const QByteArray& each : line.split('\n')) links.append(QString::fromUtf8(each));
  const QStringList ours = instance.linksIn(links);
  fuzz::require(ours.size() <= 16, "nobody clicks on more");
  for (const QString& link : ours) {
    fuzz::require(link.size() <= 8192, "no browser makes a longer one");
    fuzz::require(QUrl(link).scheme() == QLatin1String("com.orvella.desktop"), "only its own links");
    const QString told = LogFile::redacted(link);
    fuzz::require(LogFile::redacted(told).size() <= told.size() + 64, "what is told once can be told again");
  }
  return 0;
}
