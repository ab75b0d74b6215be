#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QUrl>
#include <QVariantMap>

#include "desktop/services/ColorSchemeWatcher.h"
#include "desktop/services/DesktopProxy.h"
#include "desktop/services/FilePortal.h"
#include "tests/fuzz/fuzz.h"

using namespace orv;

namespace {

/// Values of any shape, each made of a line: its first letter says what of.
class Values {
 public:
  explicit Values(QByteArray lines) : m_lines(lines.split('\n')) {}

  bool atEnd() const { return m_next >= m_lines.size(); }
  QVariant next(int depth = 0) {
    if (atEnd()) return {};
    const QByteArray line = m_lines[m_next++];
    const QString text = QString::fromUtf8(line.sliced(std::min<qsizetype>(1, line.size())));
    switch (line.isEmpty() ? 's' : line[0]) {
      case 'u':
        return text.toUInt();
      case 'd':
        return text.toDouble();
      case 'b':
        return !text.isEmpty();
      case 'y':
        return text.toUtf8();
      case 'o':
        return QVariant::fromValue(QDBusObjectPath(QStringLiteral("/x")));
      case 'v':
        return depth < 8 ? QVariant::fromValue(QDBusVariant(next(depth + 1))) : QVariant();
      case 'l':
        return text.split(u' ');
      case 'a': {
        QVariantList list;
        while (depth < 8 && !atEnd() && list.size() < 8) list.append(next(depth + 1));
        return list;
      }
      case 'm': {
        QVariantMap map;
        if (depth < 8) map.insert(text, next(depth + 1));
        return map;
      }
      default:
        return text;
    }
  }

 private:
  QList<QByteArray> m_lines;
  qsizetype m_next = 0;
};

}  // namespace

/// What the desktop's portals answer, or somebody in their place: a file, settings, proxies.
int LLVMFuzzerTestOneInput(const unsigned char* bytes, size_t size) {
  fuzz::beQuiet();
  static ColorSchemeWatcher settings(QDBusConnection(QStringLiteral("none")));
  Values values(fuzz::input(bytes, size));
  while (!values.atEnd()) {
    const QVariant value = values.next();
    const QString path = FilePortal::chosen(0, {{QStringLiteral("uris"), value}});
    fuzz::require(path.isEmpty() || (path.startsWith(u'/') && !path.contains(QChar::Null)), "a file has a path");
    fuzz::require(path.isEmpty() || QUrl(value.toStringList().value(0)).host().isEmpty(), "on this machine");
    fuzz::require(FilePortal::chosen(1, {{QStringLiteral("uris"), value}}).isEmpty(), "nothing chosen is no file");

    for (const auto* key : {"color-scheme", "reduced-motion"}) settings.apply(QString::fromLatin1(key), value);
    const auto scheme = settings.scheme();
    settings.apply(QStringLiteral("accent-color"), value);
    fuzz::require(settings.scheme() == scheme, "other settings change nothing");

    const auto proxy = DesktopProxy::usable(value.toStringList());
    const bool isPlain = !proxy || (!proxy->contains('\n') && !proxy->contains('\r') && !proxy->contains('\0'));
    fuzz::require(isPlain, "a proxy is one word");
    fuzz::require(!proxy || proxy->isEmpty() || !QUrl::fromEncoded(*proxy).host().isEmpty(), "that names a host");
  }
  return 0;
}
