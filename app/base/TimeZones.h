#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

namespace orv {

/// The names of the time zone database, links included, in their order.
const QStringList& timeZoneNames();
bool isTimeZone(const QString& name);
/// The computer's own zone, where the database knows it.
QString localTimeZone();

/// "UTC+05:30 · 14:35", as it is there at that moment.
QString timeThere(const QString& zone, const QDateTime& now);

/// The zones and links of the database's compact form, tzdata.zi.
QStringList timeZonesIn(const QByteArray& zi);
/// What is left of the toolkit's list without what is no name of the database: offsets, and files beside its zones.
QStringList timeZonesAmong(const QList<QByteArray>& ids);

}  // namespace orv
