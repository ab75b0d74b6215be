#pragma once

#include <QByteArray>
#include <QList>
#include <QVariant>

#include "kit/api/RecordCoder.h"

namespace orv {

/// Field names of a described record, in their order. Instantiated with the
/// record's coders.
template <class Record>
const QList<QByteArray>& fieldNames() {
  return detail::recordCoder<Record>().names();
}

/// One field as QML reads it; an absent optional is null.
template <class Record>
QVariant fieldVariant(const Record& record, int field) {
  return detail::recordCoder<Record>().showField(&record, field);
}

}  // namespace orv
