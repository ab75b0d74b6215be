#pragma once

#include <QByteArray>
#include <QList>
#include <QVariant>

namespace orv {

/// Field names of a described record, in their order. Instantiated with the record's coders.
template <class Record>
const QList<QByteArray>& fieldNames();

/// One field as QML reads it; an absent optional is null.
template <class Record>
QVariant fieldVariant(const Record& record, int field);

}  // namespace orv
