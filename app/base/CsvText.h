#pragma once

#include <QByteArray>

namespace orv {

/// The text of a file, whatever its encoding, as a JSON string without its quotes, between `before` and `after`.
///
/// Made at its final length straight from the bytes: a file of 50 MB is not held once more on the way.
QByteArray packText(QByteArrayView bytes, QByteArrayView before, QByteArrayView after);

}  // namespace orv
