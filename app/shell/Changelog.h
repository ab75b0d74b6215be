#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QStringList>

namespace orv {

/// What a version brought.
struct Release {
  QString version;
  QDate date;
  QStringList notes;
  bool operator==(const Release&) const = default;
};

/// The releases of an AppStream description, the newest first, as they stand there; none of one that is damaged.
QList<Release> releasesIn(const QByteArray& metainfo);
/// This program's own.
const QList<Release>& releases();
/// All of them to be read.
QString changelogText();

}  // namespace orv
