#include "app/base/TimeZones.h"

#include <QFile>
#include <QTimeZone>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

QStringList inOrder(QStringList names) {
  names.sort();
  names.removeDuplicates();
  return names;
}

}  // namespace

QStringList timeZonesIn(const QByteArray& zi) {
  QStringList names;
  qsizetype end = -1;
  for (qsizetype at = 0; at < zi.size(); at = end + 1) {
    end = zi.indexOf('\n', at);
    if (end < 0) end = zi.size();
    // Nearly all lines are rules and offsets, and a window may wait for these names.
    if (zi[at] != 'Z' && zi[at] != 'L') continue;
    const auto words = zi.mid(at, end - at).simplified().split(' ');
    // "Z Europe/London -0:1:15 - LMT …", "L Europe/London GB".
    if (words.size() > 2 && words[0] == "Z") names.append(QString::fromLatin1(words[1]));
    if (words.size() > 2 && words[0] == "L") names.append(QString::fromLatin1(words[2]));
  }
  return inOrder(names);
}

QStringList timeZonesAmong(const QList<QByteArray>& ids) {
  QStringList names;
  for (const QByteArray& id : ids) {
    const bool isOffset = id.startsWith("UTC+") || id.startsWith("UTC-");
    const bool isOther = id == "localtime" || id == "posixrules" || id.startsWith("right/") || id.startsWith("posix/");
    if (!isOffset && !isOther) names.append(QString::fromLatin1(id));
  }
  return inOrder(names);
}

const QStringList& timeZoneNames() {
  static const QStringList names = [] {
    // The toolkit reads another list, which leaves the links out and puts offsets in.
    QFile zi(u"/usr/share/zoneinfo/tzdata.zi"_s);
    const QStringList read = zi.open(QIODevice::ReadOnly) ? timeZonesIn(zi.readAll()) : QStringList();
    return read.isEmpty() ? timeZonesAmong(QTimeZone::availableTimeZoneIds()) : read;
  }();
  return names;
}

bool isTimeZone(const QString& name) {
  const QStringList& names = timeZoneNames();
  return std::ranges::binary_search(names, name);
}

QString timeThere(const QString& zone, const QDateTime& now) {
  const QDateTime there = now.toTimeZone(QTimeZone(zone.toUtf8()));
  const int minutes = there.offsetFromUtc() / 60, distance = std::abs(minutes);
  const auto two = [](int number) { return QString::number(number).rightJustified(2, u'0'); };
  const QString offset = (minutes < 0 ? u"UTC\u2212"_s : u"UTC+"_s) + two(distance / 60) + u':' + two(distance % 60);
  return offset + u" · "_s + there.toString(u"HH:mm"_s);
}

QString localTimeZone() {
  const QString name = QString::fromLatin1(QTimeZone::systemTimeZoneId());
  return isTimeZone(name) ? name : u"Etc/UTC"_s;
}

}  // namespace orv
