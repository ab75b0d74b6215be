#include "app/shell/Changelog.h"

#include <QLocale>
#include <QXmlStreamReader>

#include "metainfo.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QList<Release> releasesIn(const QByteArray& metainfo) {
  QList<Release> releases;
  QXmlStreamReader xml(metainfo);
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == "release"_L1)
      releases.append({xml.attributes().value("version"_L1).toString(),
                       QDate::fromString(xml.attributes().value("date"_L1), Qt::ISODate),
                       {}});
    else if (xml.name() == "li"_L1 && !releases.isEmpty())
      releases.last().notes.append(xml.readElementText().simplified());
  }
  return xml.hasError() ? QList<Release>() : releases;
}

const QList<Release>& releases() {
  static const QList<Release> own = releasesIn(metainfoText);
  return own;
}

QString changelogText() {
  QStringList parts;
  for (const Release& release : releases()) {
    QString part = release.version + u", "_s + QLocale().toString(release.date, u"d MMMM yyyy"_s);
    for (const QString& note : release.notes) part += u"\n• "_s + note;
    parts.append(part);
  }
  return parts.join(u"\n\n"_s);
}

}  // namespace orv
