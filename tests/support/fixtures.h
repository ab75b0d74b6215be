#pragma once

#include <QFile>

namespace orv::test {

inline QByteArray readFixture(const QString& name) {
  QFile file(QStringLiteral(ORVELLA_FIXTURES "/") + name);
  if (!file.open(QIODevice::ReadOnly)) qFatal("No fixture %s", qPrintable(name));
  return file.readAll();
}

}  // namespace orv::test
